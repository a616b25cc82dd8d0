// What the user does on the form.

#include <algorithm>

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controls/UISegmentedControl.h"
#include "platform/uikit/controls/UISwitch.h"
#include "platform/uikit/text/UITextField.h"

#include "model/ZPLocalizedText.h"
#include "store/ZephylsDataController.h"
#include "ui/components/ZPColorPickerViewController.h"
#include "ui/editor/EditorLook.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl {

using editor::kFlagsSection;
using editor::kMaskingSection;
using editor::kMembersSection;

namespace {

constexpr std::int64_t kMarkerColorRow = 2;

// The very object.
bool holds(ZephylsDataController& store, const ZephylRef& group) {
  const auto groups = store.allZephyls()->snapshot();
  return std::find(groups->begin(), groups->end(), group) != groups->end();
}

}  // namespace

void ZephylViewController::updateNavigationBarItems() {
  if (const auto save = navigationItem()->rightBarButtonItem()) {
    save->setEnabled(zephyl_ != nullptr && !zephyl_->title().empty() &&
                     !zephylTmpMaskedMessage_.empty());
  }
}

void ZephylViewController::saveGroupAction() {
  const auto kept = shared_from_this();
  const auto store = ZephylsDataController::sharedInstance();
  const auto success = [weak = weakSelf()] {
    if (const auto self = weak.lock()) {
      self->cancelButtonAction();
    }
  };
  // Kept: nothing is told when it fails; the screen stays with the edits. The store may have taken
  // the group all the same, so the edits go on in a copy.
  const auto failure = [this, &store](const NSError&) {
    isAdded_ = isNewGroup_ && holds(*store, zephyl_);
    setZephyl(zephyl_);
  };
  if (isNewGroup_ && !isAdded_) {
    store->addZephyl(zephyl_, success, failure);
  } else {
    store->updateZephyl(zephyl_, success, failure);
  }
}

void ZephylViewController::cancelButtonAction() {
  if (isNewGroup_) {
    dismissViewControllerAnimated(/*animated=*/true);
  } else if (const auto navigation = navigationController()) {
    navigation->popViewControllerAnimated(/*animated=*/true);
  }
}

void ZephylViewController::switchSelectionAction(UIControl& sender) {
  const auto* const control = dynamic_cast<UISwitch*>(&sender);
  const bool isOn = control != nullptr && control->isOn();
  switch (sender.tag()) {
    case kEnableTag:
      zephyl_->setEnabled(isOn);
      break;
    case kPasswordProtectedTag:
      zephyl_->setPasswordProtected(isOn);
      break;
    case kHideInDefaultGroupsTag:
      zephyl_->setShouldHideConversationsInDefaultGroups(isOn);
      break;
    case kMaskOnLockScreenTag: {
      zephyl_->setShouldHideConversationsOnLockScreen(isOn);
      const bool wasFocused = sender.isFirstResponder();
      tableView()->beginUpdates();
      tableView()->reloadSections({kMaskingSection}, UITableViewRowAnimation::kAutomatic);
      tableView()->endUpdates();
      // Another switch stands in the row now; keys go on to it.
      const auto cell =
          wasFocused ? tableView()->cellForRowAtIndexPath({kMaskingSection, 0}) : nullptr;
      if (cell != nullptr && cell->accessoryView() != nullptr) {
        cell->accessoryView()->becomeFirstResponder();
      }
      break;
    }
    default:
      break;
  }
  updateNavigationBarItems();
}

void ZephylViewController::segmentSelectionAction(UIControl& sender) {
  const auto* const control = dynamic_cast<UISegmentedControl*>(&sender);
  currentSelectionSegment_ = control == nullptr ? 0 : control->selectedSegmentIndex();
  const bool wasFocused = sender.isFirstResponder();
  tableView()->reloadSections({kMembersSection}, UITableViewRowAnimation::kAutomatic);
  if (wasFocused) {
    tableView()->layoutIfNeeded();
    if (const auto header = tableView()->headerViewForSection(kMembersSection)) {
      header->becomeFirstResponder();
    }
  }
}

void ZephylViewController::editingChanged(UIControl& sender) {
  const auto* const field = dynamic_cast<UITextField*>(&sender);
  const std::string text = field == nullptr ? std::string() : field->text();
  switch (sender.tag()) {
    case kTitleTag:
      zephyl_->setTitle(text);
      break;
    case kSubTitleTag:
      zephyl_->setSubTitle(text);
      break;
    case kMaskedMessageTag:
      zephyl_->setMaskedMessage(text);
      zephylTmpMaskedMessage_ = text;
      break;
    default:
      break;
  }
  updateNavigationBarItems();
}

bool ZephylViewController::textFieldShouldReturn(UITextField& textField) {
  const auto kept = textField.shared_from_this();
  if (textField.tag() == kMaskedMessageTag) {
    tableView()->_reloadSectionHeaderFooters({kMaskingSection}, UITableViewRowAnimation::kNone);
  }
  textField.resignFirstResponder();
  return true;
}

void ZephylViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                   const NSIndexPath& indexPath) {
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/true);
  if (indexPath == NSIndexPath{kFlagsSection, kMarkerColorRow}) {
    pickMarkerColor();
  } else if (indexPath == NSIndexPath{kMembersSection, 0}) {
    pickMembers();
  }
}

void ZephylViewController::pickMarkerColor() {
  const auto picker = std::make_shared<ZPColorPickerViewController>(
      UIColor::__zpColorWithHexString(zephyl_->markerCode()));
  picker->showInViewController(
      shared_from_this(), zpLocalizedText("Marker Color"),
      [weak = weakSelf(), table = std::weak_ptr(tableView())](const UIColor& color) {
        const auto self = weak.lock();
        if (self == nullptr) {
          return;
        }
        self->zephyl_->setMarkerCode(color.__zpHexString());
        if (const auto rows = table.lock()) {
          rows->reloadRowsAtIndexPaths({{kFlagsSection, kMarkerColorRow}},
                                       UITableViewRowAnimation::kNone);
        }
        self->updateNavigationBarItems();
      });
}

}  // namespace zephyl
