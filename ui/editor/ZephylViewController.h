// The screen on which a group is made or changed: a form with the group's title, switches, masked
// message and members. Main thread.
//
// Edits go into a copy of the group, which reaches the store only through Save. Controls in rows
// are found again by their tags, and actions tell their senders apart by them.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/NSError.h"
#include "platform/uikit/UIFont.h"
#include "platform/uikit/tables/UITableViewController.h"
#include "platform/uikit/text/UITextFieldDelegate.h"

#include "model/Zephyl.h"

namespace zephyl {

class UIControl;
class ZPFloatingLabeledTextField;

class ZP_EXPORT ZephylViewController : public UITableViewController, public UITextFieldDelegate {
 public:
  // A row of the members: what is shown, and the member of the group.
  struct MemberEntry {
    std::string name;
    Member id;
    friend bool operator==(const MemberEntry&, const MemberEntry&) = default;
  };
  using MemberEntries = std::vector<MemberEntry>;

  // Tags of controls and labels.
  static constexpr std::int64_t kEnableTag = 4321;
  // Kept: the switch and the segmented control share it; they send different actions.
  static constexpr std::int64_t kPasswordProtectedTag = 4322;
  static constexpr std::int64_t kHideInDefaultGroupsTag = 5321;
  static constexpr std::int64_t kMaskOnLockScreenTag = 6321;
  static constexpr std::int64_t kTitleTag = 4532;
  static constexpr std::int64_t kSubTitleTag = 4533;
  static constexpr std::int64_t kMaskedMessageTag = 6532;
  static constexpr std::int64_t kMarkerColorTag = 87234;
  static constexpr std::int64_t kFooterLabelTag = 1;

  explicit ZephylViewController(UITableViewStyle style = UITableViewStyle::kGrouped);
  ~ZephylViewController() override;

  // Copied in; set before the view loads. Null makes a new group when it loads.
  void setZephyl(const ZephylRef& zephyl);
  [[nodiscard]] const ZephylRef& zephyl() const { return zephyl_; }
  [[nodiscard]] bool isNewGroup() const { return isNewGroup_; }
  // The only row of the first section, made at the first call.
  const std::shared_ptr<UIView>& headerView();
  // 0 shows contacts as the members, 1 conversations.
  [[nodiscard]] std::int64_t currentSelectionSegment() const { return currentSelectionSegment_; }
  void setCurrentSelectionSegment(std::int64_t segment) { currentSelectionSegment_ = segment; }
  // Null before the view loads.
  [[nodiscard]] const ABAddressBookRef& addressBookRef() const { return addressBookRef_; }
  // Both sorted by name.
  [[nodiscard]] const MemberEntries& contacts() const { return contacts_; }
  [[nodiscard]] const MemberEntries& conversations() const { return conversations_; }
  // Whether the row of the marker's colour is offered; loading the view says no.
  [[nodiscard]] bool shouldDisplayMarkerColor() const { return shouldDisplayMarkerColor_; }
  void setShouldDisplayMarkerColor(bool display) { shouldDisplayMarkerColor_ = display; }
  [[nodiscard]] const std::string& zephylTmpMaskedMessage() const {
    return zephylTmpMaskedMessage_;
  }

  // Actions (ZephylViewControllerActions.cpp). None looks at a sender without a tag it knows.
  void saveGroupAction();
  void cancelButtonAction();
  void switchSelectionAction(UIControl& sender);
  void segmentSelectionAction(UIControl& sender);
  void editingChanged(UIControl& sender);
  bool textFieldShouldReturn(UITextField& textField) override;
  // Save is enabled while neither the title nor the masked message is empty. Kept: the message
  // counts whether or not messages are masked.
  void updateNavigationBarItems();

  // The line is added to the layer of the field's superview.
  void setPropertiesToTextField(ZPFloatingLabeledTextField& field, const std::string& placeHolder,
                                const UIFont& font, const UIFont& floatingLabelFont,
                                bool shouldAddBottomLine);

  void viewDidLoad() override;
  [[nodiscard]] const char* className() const override { return "ZephylViewController"; }

  // The table (ZephylViewControllerTable.cpp).
  std::int64_t numberOfSectionsInTableView(UITableView& tableView) override;
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  void configureTableCell(UITableViewCell& cell, const NSIndexPath& indexPath);
  std::optional<CGFloat> heightForRowAtIndexPath(UITableView& tableView,
                                                 const NSIndexPath& indexPath) override;
  std::optional<CGFloat> heightForHeaderInSection(UITableView& tableView,
                                                  std::int64_t section) override;
  std::shared_ptr<UIView> viewForHeaderInSection(UITableView& tableView,
                                                 std::int64_t section) override;
  std::optional<CGFloat> heightForFooterInSection(UITableView& tableView,
                                                  std::int64_t section) override;
  std::shared_ptr<UIView> viewForFooterInSection(UITableView& tableView,
                                                 std::int64_t section) override;
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;

 private:
  [[nodiscard]] std::weak_ptr<ZephylViewController> weakSelf();
  void makeNewGroup();
  void makeBarButtons();
  void focusTitleSoon();
  void pickMarkerColor();
  [[nodiscard]] const MemberEntries& shownMembers() const;
  [[nodiscard]] std::string footerText(std::int64_t section) const;
  void configureSwitch(UITableViewCell& cell, std::int64_t tag, bool isOn);
  void configureMarkerColor(UITableViewCell& cell);
  void configureMaskedMessage(UITableViewCell& cell);
  void configureMember(UITableViewCell& cell, std::int64_t row);

  ZephylRef zephyl_;
  std::shared_ptr<UIView> headerView_;
  ABAddressBookRef addressBookRef_;
  MemberEntries contacts_;
  MemberEntries conversations_;
  std::string zephylTmpMaskedMessage_;
  std::int64_t currentSelectionSegment_ = 0;
  bool isNewGroup_ = false;
  bool shouldDisplayMarkerColor_ = false;
};

}  // namespace zephyl
