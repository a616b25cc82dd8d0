// The rows of the list of groups, and what a tap on one does.

#include <algorithm>

#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/text/UILabel.h"

#include "services/GroupProtection.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/ZephylsManageTableViewCell.h"
#include "ui/groups/ZephylsTableViewCell.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {

namespace {

constexpr char kCellIdentifier[] = "defaultCell";

// The screen sets the mode before the group.
template <class Cell>
bool fill(UITableViewCell& cell, std::int64_t mode, const ZephylRef& group) {
  auto* const groupCell = dynamic_cast<Cell*>(&cell);
  if (groupCell == nullptr) {
    return false;
  }
  groupCell->setZephylsMode(mode);
  groupCell->setZephyl(group);
  return true;
}

void enableLabels(UITableViewCell& cell) {
  cell.textLabel()->setEnabled(true);
  if (const auto& detail = cell.detailTextLabel()) {
    detail->setEnabled(true);
  }
}

bool isSelected(const ZephylsViewController& screen, const ZephylRef& group) {
  const ZephylVector& all = screen.selectedGroups();
  return std::any_of(all.begin(), all.end(),
                     [&](const ZephylRef& selected) { return selected->isEqual(*group); });
}

// Not once another screen has come, as after a second tap or while a finger was awaited. Alerts do
// not count: the owner may have been asked for the finger in one.
bool isOnTop(const ZephylsViewController& screen, const UINavigationController& navigation) {
  const auto above = navigation.presentedViewController();
  return navigation.topViewController().get() == &screen &&
         (above == nullptr || dynamic_cast<const UIAlertController*>(above.get()) != nullptr);
}

}  // namespace

std::int64_t ZephylsViewController::numberOfSectionsInTableView(UITableView& /*tableView*/) {
  return std::ssize(sections_->titles());
}

std::int64_t ZephylsViewController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                          std::int64_t section) {
  return std::ssize(sections_->groupsIn(section));
}

std::string ZephylsViewController::titleForHeaderInSection(UITableView& /*tableView*/,
                                                           std::int64_t section) {
  return zephylsMode() == ZephylsModeAddToGroups ? std::string() : sections_->keyOf(section);
}

std::shared_ptr<UITableViewCell> ZephylsViewController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = tableView.dequeueReusableCellWithIdentifier(kCellIdentifier);
  if (cell == nullptr && zephylsMode() == ZephylsModeBrowse && shouldShowAsGrid_) {
    cell = std::make_shared<ZephylsTableViewCell>(UITableViewCellStyle::kValue1, kCellIdentifier);
  } else if (cell == nullptr) {
    cell = std::make_shared<ZephylsManageTableViewCell>(UITableViewCellStyle::kDefault,
                                                        kCellIdentifier);
  }
  if (const ZephylRef group = sections_->groupAt(indexPath)) {
    configureCell(*cell, group);
  }
  return cell;
}

void ZephylsViewController::configureCell(UITableViewCell& cell, const ZephylRef& group) {
  const std::int64_t mode = zephylsMode();
  const bool isFixed = mode == ZephylsModeManage && group->isSystem();
  cell.setUserInteractionEnabled(!isFixed);
  cell.setSelectionStyle(isFixed ? UITableViewCellSelectionStyle::kNone
                                 : UITableViewCellSelectionStyle::kDefault);
  if (!fill<ZephylsManageTableViewCell>(cell, mode, group)) {
    fill<ZephylsTableViewCell>(cell, mode, group);
  }
  if (mode == ZephylsModeManage) {
    cell.setAccessoryType(isFixed ? UITableViewCellAccessoryType::kNone
                                  : UITableViewCellAccessoryType::kDisclosureIndicator);
    return;
  }
  enableLabels(cell);
  cell.setAccessoryType(isSelected(*this, group) ? UITableViewCellAccessoryType::kCheckmark
                                                 : UITableViewCellAccessoryType::kNone);
}

// Kept: by the number of the section and not by its key, so that user groups that are alone in the
// list, in the first section, cannot be deleted.
bool ZephylsViewController::canEditRowAtIndexPath(UITableView& /*tableView*/,
                                                  const NSIndexPath& indexPath) {
  return zephylsMode() != ZephylsModeBrowse && indexPath.section > 0;
}

UITableViewCellEditingStyle ZephylsViewController::editingStyleForRowAtIndexPath(
    UITableView& /*tableView*/, const NSIndexPath& indexPath) {
  if (indexPath.section == 0) {
    return UITableViewCellEditingStyle::kNone;
  }
  return isInEditing_ ? UITableViewCellEditingStyle::kMultiSelect
                      : UITableViewCellEditingStyle::kDelete;
}

void ZephylsViewController::commitEditingStyle(UITableView& /*tableView*/,
                                               UITableViewCellEditingStyle /*style*/,
                                               const NSIndexPath& indexPath) {
  const ZephylRef group = sections_->groupAt(indexPath);
  if (group == nullptr) {
    return;
  }
  if (group->isPasswordProtected()) {
    authenticate(reasonToOpenGroup(group->title()),
                 [group](ZephylsViewController& self) { self.deleteGroup(group); });
  } else {
    deleteGroup(group);
  }
}

void ZephylsViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                    const NSIndexPath& indexPath) {
  if (tableView.isEditing()) {
    followMarks();
    return;
  }
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/true);
  const ZephylRef group = sections_->groupAt(indexPath);
  if (group == nullptr) {
    return;
  }
  switch (zephylsMode()) {
    case ZephylsModeBrowse:
      return browse(group);
    case ZephylsModeManage:
      return manage(group);
    case ZephylsModeAddToGroups:
      return toggle(tableView, indexPath, group);
    default:
      return;
  }
}

void ZephylsViewController::didDeselectRowAtIndexPath(UITableView& tableView,
                                                      const NSIndexPath& /*indexPath*/) {
  if (tableView.isEditing()) {
    followMarks();
  }
}

void ZephylsViewController::followMarks() {
  enableOutermostRightButton(!tableView()->indexPathsForSelectedRows().empty());
}

std::set<std::int64_t> ZephylsViewController::markedGroups() {
  std::set<std::int64_t> identifiers;
  if (isInEditing_) {
    for (const NSIndexPath& path : tableView()->indexPathsForSelectedRows()) {
      if (const ZephylRef group = sections_->groupAt(path)) {
        identifiers.insert(group->identifier());
      }
    }
  }
  return identifiers;
}

// After a reload, which forgets the marks: those of groups that are still there come back.
void ZephylsViewController::markGroups(const std::set<std::int64_t>& identifiers) {
  if (!isInEditing_) {
    return;
  }
  for (std::int64_t section = 0; section < std::ssize(sections_->titles()); ++section) {
    for (std::int64_t row = 0; row < std::ssize(sections_->groupsIn(section)); ++row) {
      const NSIndexPath path{section, row};
      if (identifiers.contains(sections_->groupAt(path)->identifier()) &&
          canEditRowAtIndexPath(*tableView(), path)) {
        tableView()->selectRowAtIndexPath(path, /*animated=*/false,
                                          UITableViewScrollPosition::kNone);
      }
    }
  }
  followMarks();
}

void ZephylsViewController::browse(const ZephylRef& group) {
  const auto delegate = zephylsDelegate_.lock();
  if (delegate == nullptr) {
    return;
  }
  // Copied: a call may take the delegate away.
  if (group->isActive()) {
    if (const auto close = delegate->zp__closeSidePanelController) {
      close();
    }
    return;
  }
  const auto select = delegate->zp__didSelectGroup;
  if (!select) {
    return;
  }
  if (group->isSystem() || !group->isPasswordProtected()) {
    select(group);
    return;
  }
  authenticate(reasonToOpenGroup(group->title()), [group](ZephylsViewController& self) {
    const auto present = self.zephylsDelegate_.lock();
    if (present != nullptr && present->zp__didSelectGroup) {
      const auto selectNow = present->zp__didSelectGroup;
      selectNow(group);
    }
  });
}

void ZephylsViewController::manage(const ZephylRef& group) {
  if (group->isSystem()) {
    return;
  }
  if (group->isPasswordProtected()) {
    authenticate(reasonToOpenGroup(group->title()),
                 [group](ZephylsViewController& self) { self.openEditor(group); });
  } else {
    openEditor(group);
  }
}

void ZephylsViewController::openEditor(const ZephylRef& group) {
  const auto navigation = navigationController();
  if (navigation != nullptr && isOnTop(*this, *navigation)) {
    const auto editor = std::make_shared<ZephylViewController>(UITableViewStyle::kGrouped);
    editor->setZephyl(group);
    navigation->pushViewController(editor, /*animated=*/true);
  }
}

void ZephylsViewController::toggle(UITableView& tableView, const NSIndexPath& indexPath,
                                   const ZephylRef& group) {
  const bool wasSelected = isSelected(*this, group);
  if (wasSelected) {
    std::erase_if(selectedGroups_,
                  [&](const ZephylRef& selected) { return selected->isEqual(*group); });
  } else {
    selectedGroups_.push_back(group);
  }
  if (const auto cell = tableView.cellForRowAtIndexPath(indexPath)) {
    cell->setAccessoryType(wasSelected ? UITableViewCellAccessoryType::kNone
                                       : UITableViewCellAccessoryType::kCheckmark);
  }
  enableOutermostRightButton(!selectedGroups_.empty());
}

}  // namespace zephyl
