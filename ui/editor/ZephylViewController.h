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
#include <set>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/foundation/NSError.h"
#include "platform/uikit/UIFont.h"
#include "platform/uikit/controllers/UIImagePickerController.h"
#include "platform/uikit/tables/UITableViewController.h"
#include "platform/uikit/text/UITextFieldDelegate.h"

#include "model/Zephyl.h"
#include "ui/editor/MemberEntry.h"
#include "ui/editor/ZPConversationSelectionViewControllerDelegate.h"
#include "ui/editor/ZephylViewTags.h"
#include "ui/people/ZLPeoplePickerViewControllerDelegate.h"

namespace zephyl {

class UIControl;
class ZPFloatingLabeledTextField;

class ZP_EXPORT ZephylViewController : public UITableViewController,
                                       public ZephylViewTags,
                                       public UITextFieldDelegate,
                                       public ZPConversationSelectionViewControllerDelegate,
                                       public ZLPeoplePickerViewControllerDelegate,
                                       public UIImagePickerControllerDelegate {
 public:
  explicit ZephylViewController(UITableViewStyle style = UITableViewStyle::kGrouped);
  ~ZephylViewController() override;
  void viewDidLoad() override;
  [[nodiscard]] const char* className() const override { return "ZephylViewController"; }

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
  // The last one that was opened; null before.
  [[nodiscard]] const std::shared_ptr<ZLPeoplePickerViewController>& contactsPicker() const;
  // Both sorted by name.
  [[nodiscard]] const MemberEntries& contacts() const { return contacts_; }
  [[nodiscard]] const MemberEntries& conversations() const { return conversations_; }
  // Whether the row of the marker's colour is offered; loading the view says no.
  [[nodiscard]] bool shouldDisplayMarkerColor() const { return shouldDisplayMarkerColor_; }
  void setShouldDisplayMarkerColor(bool display) { shouldDisplayMarkerColor_ = display; }
  [[nodiscard]] const std::string& zephylTmpMaskedMessage() const;

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

  // Members (ZephylViewControllerMembers.cpp). All of it changes the copy of the group only.
  // Builds both lists; null has no members. Who is not found is left out, and stays a member until
  // the members are next written back.
  void filterContactsAndConversations(const MemberSet* members);
  // Nothing for somebody without a name and for a record that is gone.
  [[nodiscard]] std::optional<std::string> nameForPerson(const Member& id);
  [[nodiscard]] ABPersonRef recordRefFromRecordId(const Member& id);
  // What a picker returned; it takes the place of the whole list.
  void addContactsToZephyls(const std::vector<Member>& ids);
  void addConversationsToZephyls(const std::vector<Member>& ids);
  void setContactsAndConversationsToZephyls();
  // Of the list that is shown. Calls one of the two, which may be empty, before it returns; the
  // error is null for an index outside of the list.
  void deleteContactOrConvoFromZephyl(std::int64_t index, const std::function<void()>& success,
                                      const std::function<void(const NSError*)>& failure);
  void didReturnWithSelectedPeople(ZLPeoplePickerViewController&, const MemberSet& people) override;
  void didReturnWithSelectedConversation(ZPConversationSelectionViewController&,
                                         const std::set<std::string>& selected) override;
  bool canEditRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView&,
                                                            const NSIndexPath&) override;
  void commitEditingStyle(UITableView&, UITableViewCellEditingStyle, const NSIndexPath&) override;

  // The picture (ZephylViewControllerPicture.cpp): its menu, whose sender is not looked at.
  void addORChangeGroupImage();
  void didFinishPickingMediaWithInfo(UIImagePickerController&, const UIImagePickerInfo&) override;
  // Null takes the picture away. The rest of the work is done in the background; the group is
  // changed on the main thread, whose it is, also when the screen has gone meanwhile.
  void updateProfileImage(const UIImageRef& image);

  // The table (ZephylViewControllerTable.cpp).
  std::int64_t numberOfSectionsInTableView(UITableView&) override;
  std::int64_t numberOfRowsInSection(UITableView&, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  void configureTableCell(UITableViewCell& cell, const NSIndexPath& indexPath);
  std::optional<CGFloat> heightForRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  std::optional<CGFloat> heightForHeaderInSection(UITableView&, std::int64_t section) override;
  std::shared_ptr<UIView> viewForHeaderInSection(UITableView&, std::int64_t section) override;
  std::optional<CGFloat> heightForFooterInSection(UITableView&, std::int64_t section) override;
  std::shared_ptr<UIView> viewForFooterInSection(UITableView&, std::int64_t section) override;
  void didSelectRowAtIndexPath(UITableView&, const NSIndexPath&) override;

 private:
  struct Rows;     // of the table's source
  struct Picture;  // of the picture's
  [[nodiscard]] std::weak_ptr<ZephylViewController> weakSelf();
  void makeNewGroup();
  void pickMarkerColor();
  void pickMembers();

  ZephylRef zephyl_;
  std::shared_ptr<UIView> headerView_;
  ABAddressBookRef addressBookRef_;
  std::shared_ptr<ZLPeoplePickerViewController> contactsPicker_;
  MemberEntries contacts_;
  MemberEntries conversations_;
  std::string zephylTmpMaskedMessage_;
  std::int64_t currentSelectionSegment_ = 0;
  bool isNewGroup_ = false;
  // Whether the store took the new group although it could not be saved.
  bool isAdded_ = false;
  bool shouldDisplayMarkerColor_ = false;
};

}  // namespace zephyl
