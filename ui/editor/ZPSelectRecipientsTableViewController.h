// The participants of a conversation, some of which are ticked and then added to groups, or the
// whole conversation. Either way the list of groups is pushed. Main thread.

#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "platform/Export.h"
#include "platform/chatkit/CKConversation.h"
#include "platform/uikit/tables/UITableViewController.h"

#include "services/ZPRecipient.h"

namespace zephyl {

class ZP_EXPORT ZPSelectRecipientsTableViewController : public UITableViewController {
 public:
  // The button is looked for by this tag. Kept: it never bears it, so each time the row is shown
  // one more button lies over the last.
  static constexpr std::int64_t kAddToGroupsTag = 321;

  ZPSelectRecipientsTableViewController(UITableViewStyle style, CKConversationRef conversation);

  [[nodiscard]] const CKConversationRef& conversation() const { return conversation_; }
  void setConversation(CKConversationRef value) { conversation_ = std::move(value); }
  // In the conversation's order, each with its own tick. Filled when the view loads.
  [[nodiscard]] const ZPRecipientArray& recipients() const { return recipients_; }

  void cancelButtonAction();
  // With those that are ticked, in the conversation's order.
  void nextButtonAction();
  // Whatever is ticked.
  void addEntireConversationToGroups();
  // Next is enabled while somebody is ticked.
  void updateNavigationBarButtonItems();

  void viewDidLoad() override;
  [[nodiscard]] const char* className() const override {
    return "ZPSelectRecipientsTableViewController";
  }

  std::int64_t numberOfSectionsInTableView(UITableView& tableView) override;
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  void didSelectRowAtIndexPath(UITableView& tableView, const NSIndexPath& indexPath) override;

 private:
  // Null for a row that there is not.
  [[nodiscard]] std::shared_ptr<ZPRecipient> recipientAt(const NSIndexPath& indexPath) const;
  void fillRecipientCell(UITableViewCell& cell, const ZPRecipient& recipient);
  void addButton(UITableViewCell& cell);
  // Pushes the list of groups, made to add `what`.
  template <class What>
  void pushGroupsToAdd(What what);

  CKConversationRef conversation_;
  ZPRecipientArray recipients_;
};

}  // namespace zephyl
