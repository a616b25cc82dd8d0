// The buttons in the bar of the list of groups.

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "model/ZPLocalizedText.h"
#include "services/ZPUtils.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/GroupAppearance.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {

namespace {

UIBarButtonItemRef systemButton(UIBarButtonSystemItem item, ZephylsViewController& screen,
                                void (ZephylsViewController::*action)()) {
  return std::make_shared<UIBarButtonItem>(
      item, screen.weak_from_this(),
      [&screen, action](UIBarButtonItem& /*sender*/) { (screen.*action)(); });
}

UIBarButtonItemRef cancelButton(ZephylsViewController& screen) {
  return systemButton(UIBarButtonSystemItem::kCancel, screen,
                      &ZephylsViewController::cancelButtonAction);
}

UIBarButtonItemRef editButton(ZephylsViewController& screen) {
  return systemButton(UIBarButtonSystemItem::kEdit, screen,
                      &ZephylsViewController::editButtonAction);
}

UIBarButtonItemRef addButton(ZephylsViewController& screen) {
  return systemButton(UIBarButtonSystemItem::kAdd, screen, &ZephylsViewController::addGroupAction);
}

}  // namespace

void ZephylsViewController::makeButtons() {
  const std::int64_t mode = zephylsMode();
  if (mode == ZephylsModeBrowse) {
    makeBrowsingButtons();
  } else if (!isViewPushed_) {
    navigationItem()->setLeftBarButtonItem(cancelButton(*this));
  }
  if (mode == ZephylsModeManage) {
    setTitle(zpLocalizedText("Manage Groups"));
    navigationItem()->setRightBarButtonItem(editButton(*this));
  } else if (mode == ZephylsModeAddToGroups) {
    makeAddingButtons();
  }
}

void ZephylsViewController::makeBrowsingButtons() {
  setTitle(zpLocalizedText("Zephyls"));
  const auto add = addButton(*this);
  const auto groups = std::make_shared<UIBarButtonItem>(
      settingsPicture("users_group"), UIBarButtonItemStyle::kDone, weakSelf(),
      [this](UIBarButtonItem& /*sender*/) { zp__manageAllGroups(); });
  groups->setAccessibilityLabel(zpLocalizedText("Manage Groups"));
  if (ZPUtils::isIOS13()) {
    navigationItem()->setLeftBarButtonItem(cancelButton(*this));
    navigationItem()->setRightBarButtonItems({groups, add});
  } else {
    navigationItem()->setLeftBarButtonItem(add);
    navigationItem()->setRightBarButtonItem(groups);
  }
}

void ZephylsViewController::makeAddingButtons() {
  selectedGroups_.clear();
  setTitle(zpLocalizedText("Add to Groups"));
  const auto done =
      systemButton(UIBarButtonSystemItem::kDone, *this, &ZephylsViewController::doneButtonAction);
  done->setEnabled(false);
  navigationItem()->setRightBarButtonItems({done, addButton(*this)});
}

void ZephylsViewController::enableOutermostRightButton(bool enabled) {
  if (const auto button = navigationItem()->rightBarButtonItem()) {
    button->setEnabled(enabled);
  }
}

void ZephylsViewController::addGroupAction() {
  const auto delegate = zephylsDelegate_.lock();
  if (delegate != nullptr && delegate->zp__addNewGroup) {
    // Copied: the call may take the delegate away.
    const auto addNewGroup = delegate->zp__addNewGroup;
    addNewGroup();
    return;
  }
  if (const auto navigation = navigationController()) {
    const auto editor = std::make_shared<ZephylViewController>(UITableViewStyle::kGrouped);
    navigation->presentViewController(UINavigationController::initWithRootViewController(editor),
                                      /*animated=*/true);
  }
}

void ZephylsViewController::zp__manageAllGroups() {
  const auto delegate = zephylsDelegate_.lock();
  if (delegate != nullptr && delegate->zp__manageAllGroups) {
    const auto manageAllGroups = delegate->zp__manageAllGroups;
    manageAllGroups();
  }
}

void ZephylsViewController::cancelButtonAction() {
  onMain(weakSelf(), [](ZephylsViewController& self) {
    if (self.tableView()->isEditing()) {
      self.editButtonAction();
      return;
    }
    const auto kept = std::static_pointer_cast<ZephylsViewController>(self.shared_from_this());
    self.dismissViewControllerAnimated(/*animated=*/true, [kept] {
      if (const auto action = kept->dismissAction_) {
        action();
      }
    });
  });
}

void ZephylsViewController::editButtonAction() {
  onMain(weakSelf(),
         [](ZephylsViewController& self) { self.setMarking(!self.tableView()->isEditing()); });
}

void ZephylsViewController::setMarking(bool marking) {
  if (marking == tableView()->isEditing()) {
    return;
  }
  // The table asks for the editing styles meanwhile.
  isInEditing_ = marking;
  tableView()->setEditing(marking, /*animated=*/true);
  if (marking) {
    beginEditing();
  } else {
    endEditing();
  }
}

void ZephylsViewController::beginEditing() {
  const auto remove = std::make_shared<UIBarButtonItem>(
      zpLocalizedText("Delete"), UIBarButtonItemStyle::kDone, weakSelf(),
      [this](UIBarButtonItem& /*sender*/) { deleteButtonAction(); });
  remove->setEnabled(false);
  navigationItem()->setRightBarButtonItem(remove);
  navigationItem()->setLeftBarButtonItem(
      systemButton(UIBarButtonSystemItem::kDone, *this, &ZephylsViewController::editButtonAction));
}

void ZephylsViewController::endEditing() {
  navigationItem()->setRightBarButtonItem(editButton(*this));
  // Kept: also where the screen was pushed and had no Cancel button before.
  navigationItem()->setLeftBarButtonItem(cancelButton(*this));
}

}  // namespace zephyl
