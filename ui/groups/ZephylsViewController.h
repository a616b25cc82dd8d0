// The list of groups: to browse them, to manage them, or to choose those to which a conversation,
// several, or some people are added. Main thread.
//
// The store's notifications have the list made anew: in the background, then handed over whole and
// shown on the main queue. Nothing that runs in the background keeps the screen alive.

#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "platform/Export.h"
#include "platform/chatkit/CKConversation.h"
#include "platform/uikit/tables/UITableViewController.h"

#include "services/ZPRecipient.h"
#include "ui/groups/GroupSections.h"
#include "ui/groups/ZephylsMode.h"
#include "ui/groups/ZephylsViewControllerDelegate.h"

namespace zephyl {

class UINavigationController;

class ZP_EXPORT ZephylsViewController : public UITableViewController {
 public:
  // Given something to add, in the mode that adds it: a conversation, a list of conversations, even
  // an empty one, or a list of people that is not empty. Given nothing, browsing. To manage, the
  // host sets the mode before the view loads.
  explicit ZephylsViewController(UITableViewStyle style);
  ZephylsViewController(UITableViewStyle style, CKConversationRef conversation);
  ZephylsViewController(UITableViewStyle style, std::optional<CKConversationArray> conversations);
  ZephylsViewController(UITableViewStyle style, std::optional<ZPRecipientArray> recipients);
  ~ZephylsViewController() override;
  void viewDidLoad() override;
  [[nodiscard]] const char* className() const override { return "ZephylsViewController"; }

  void setZephylsDelegate(std::weak_ptr<const ZephylsViewControllerDelegate> delegate);
  // Asked on any thread.
  [[nodiscard]] std::int64_t zephylsMode() const;
  void setZephylsMode(std::int64_t mode);
  // Before the view loads. A screen that is pushed gets no Cancel button to manage or to add.
  [[nodiscard]] bool isViewPushed() const { return isViewPushed_; }
  void setIsViewPushed(bool pushed) { isViewPushed_ = pushed; }
  // Runs after the screen has dismissed itself.
  void setDismissAction(std::function<void()> action) { dismissAction_ = std::move(action); }
  // Whether rows are marked to be deleted; by the Edit button.
  [[nodiscard]] bool isInEditing() const { return isInEditing_; }
  // As they are shown.
  [[nodiscard]] const SectionKeys& zephylsTitles() const { return sections_->titles(); }
  [[nodiscard]] const std::map<std::string, ZephylVector>& zephylsDict() const {
    return sections_->groups();
  }
  // Those that are ticked, each once, in the order of ticking.
  [[nodiscard]] const ZephylVector& selectedGroups() const { return selectedGroups_; }
  // Kept: off whenever the view loads, so that groups are never shown as tiles.
  [[nodiscard]] bool shouldShowAsGrid() const { return shouldShowAsGrid_; }
  void setShouldShowAsGrid(bool grid) { shouldShowAsGrid_ = grid; }
  // What is added, the first of these that is set.
  [[nodiscard]] const CKConversationRef& conversation() const { return conversation_; }
  void setConversation(CKConversationRef value) { conversation_ = std::move(value); }
  [[nodiscard]] const std::optional<ZPRecipientArray>& recipients() const { return recipients_; }
  void setRecipients(std::optional<ZPRecipientArray> value) { recipients_ = std::move(value); }
  [[nodiscard]] const std::optional<CKConversationArray>& conversations() const;
  void setConversations(std::optional<CKConversationArray> value);

  // Makes the list anew and shows it, both later. Calls that overlap are not gathered; a list that
  // was begun earlier never takes the place of a later one.
  void updateTableView();
  // Buttons. Cancel, Edit and Done act on the main queue, later.
  void cancelButtonAction();
  void doneButtonAction();
  void addGroupAction();
  void editButtonAction();
  void deleteButtonAction();
  void zp__manageAllGroups();

  // The table (ZephylsViewControllerTable.cpp). All answer by the one list that is shown.
  std::int64_t numberOfSectionsInTableView(UITableView&) override;
  std::int64_t numberOfRowsInSection(UITableView&, std::int64_t section) override;
  std::string titleForHeaderInSection(UITableView&, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  bool canEditRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  UITableViewCellEditingStyle editingStyleForRowAtIndexPath(UITableView&,
                                                            const NSIndexPath&) override;
  void commitEditingStyle(UITableView&, UITableViewCellEditingStyle, const NSIndexPath&) override;
  void didSelectRowAtIndexPath(UITableView&, const NSIndexPath&) override;
  void didDeselectRowAtIndexPath(UITableView&, const NSIndexPath&) override;

 private:
  using Self = std::weak_ptr<ZephylsViewController>;
  using Action = std::function<void(ZephylsViewController& screen)>;
  struct Rebuilds;
  [[nodiscard]] Self weakSelf();
  // Later, if the screen is still there.
  static void onMain(const Self& screen, Action action);
  static void rebuild(const Self& screen, const std::shared_ptr<Rebuilds>& rebuilds);
  void show(std::uint64_t turn, std::shared_ptr<const GroupSections> sections);
  void followReplacedGroups();
  void makeButtons();
  void makeBrowsingButtons();
  void makeAddingButtons();
  void observeNotifications();
  void enableOutermostRightButton(bool enabled);
  // Whether rows are marked to be deleted, and the bar with it.
  void setMarking(bool marking);
  void endEditing();
  void beginEditing();
  [[nodiscard]] std::set<std::int64_t> markedGroups();
  void markGroups(const std::set<std::int64_t>& identifiers);
  void followMarks();
  void configureCell(UITableViewCell& cell, const ZephylRef& group);
  void browse(const ZephylRef& group);
  void manage(const ZephylRef& group);
  void toggle(UITableView& tableView, const NSIndexPath& indexPath, const ZephylRef& group);
  void openEditor(const ZephylRef& group);
  // Changes of groups (ZephylsViewControllerChanges.cpp).
  // Later, once the owner was recognized; the user is told of a failure. Not while `isBusy_`.
  void authenticate(const std::string& reason, Action action);
  void deleteGroup(const ZephylRef& group);
  void deleteGroups(const ZephylVector& groups);
  void updateSelectedGroups();

  std::weak_ptr<const ZephylsViewControllerDelegate> zephylsDelegate_;
  std::function<void()> dismissAction_;
  CKConversationRef conversation_;
  std::optional<CKConversationArray> conversations_;
  std::optional<ZPRecipientArray> recipients_;
  // Shared with what runs in the background.
  std::shared_ptr<Rebuilds> rebuilds_;
  // Never null.
  std::shared_ptr<const GroupSections> sections_ = std::make_shared<const GroupSections>();
  std::uint64_t shownTurn_ = 0;
  ZephylVector selectedGroups_;
  bool isViewPushed_ = false;
  bool isInEditing_ = false;
  // From the request for a finger, or to change groups, until it is answered.
  bool isBusy_ = false;
  bool shouldShowAsGrid_ = false;
};

}  // namespace zephyl
