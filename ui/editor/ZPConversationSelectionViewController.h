// The system's list of conversations with check marks: the user ticks those that become members of
// a group. Main thread.
//
// Whoever opens it has the shared conversation list show all conversations. Closing ends that, in
// whichever way, and so does going away without having been shown.

#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/chatkit/ui/CKConversationListController.h"

#include "model/Zephyl.h"
#include "ui/editor/ZPConversationSelectionViewControllerDelegate.h"

namespace zephyl {

class ZP_EXPORT ZPConversationSelectionViewController : public CKConversationListController {
 public:
  using Guids = std::set<std::string>;

  // Of the ids only chat GUIDs count, as ticked already. The group, which may be null, is asked
  // whether a conversation is a member.
  ZPConversationSelectionViewController(const std::vector<Member>& alreadySelected,
                                        const ZephylRef& group);
  ~ZPConversationSelectionViewController() override;

  // Chat GUIDs of the ticked ones.
  [[nodiscard]] const Guids& selectedConversations() const { return selectedConversations_; }
  [[nodiscard]] const ZephylRef& group() const { return group_; }
  void setConversationDelegate(
      std::weak_ptr<ZPConversationSelectionViewControllerDelegate> delegate);

  void doneButtonAction();
  void cancelButtonAction();
  // Done is enabled while something is ticked, so that nothing is never handed over.
  void updateNavigationItems();

  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  void viewDidDisappear(bool animated) override;
  void updateConversationList() override;
  // Everybody's conversations are listed.
  [[nodiscard]] bool _messageFilteringEnabled() const override { return false; }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;
  bool canEditRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;
  bool accessibilityPerformEscape() override;
  [[nodiscard]] const char* className() const override {
    return "ZPConversationSelectionViewController";
  }

 private:
  // Null for a row that there is not.
  [[nodiscard]] CKConversationRef conversationAt(const NSIndexPath& indexPath) const;
  void endShowingAll();
  [[nodiscard]] bool isMarked(const CKConversationRef& conversation) const;

  Guids selectedConversations_;
  ZephylRef group_;
  std::weak_ptr<ZPConversationSelectionViewControllerDelegate> conversationDelegate_;
  // What the opener began, from then on.
  bool showsAll_ = true;
};

}  // namespace zephyl
