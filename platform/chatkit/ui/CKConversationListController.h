// The system's list of conversations: a row each, the most recent first. Main thread.
//
// It lists what the shared conversation list does at that time, and asks again when it appears and
// when other conversations have come in.

#pragma once

#include <cstdint>
#include <memory>

#include "platform/chatkit/CKConversation.h"
#include "platform/uikit/tables/UITableViewController.h"

namespace zephyl {

class CKContactPictures;
class CKConversationListCell;

class ZP_EXPORT CKConversationListController : public UITableViewController {
 public:
  CKConversationListController();
  ~CKConversationListController() override;

  // Those that are listed, by row.
  [[nodiscard]] const CKConversationArray& activeConversations() const {
    return activeConversations_;
  }
  // Asks the shared list anew and shows what it lists.
  virtual void updateConversationList();

  // While filtering, conversations with nobody who is known are left out. Off at first.
  [[nodiscard]] virtual bool _messageFilteringEnabled() const { return filtersMessages_; }
  void setFiltersMessages(bool filters) { filtersMessages_ = filters; }

  void viewDidLoad() override;
  void viewWillAppear(bool animated) override;
  std::int64_t numberOfRowsInSection(UITableView& tableView, std::int64_t section) override;
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& indexPath) override;
  [[nodiscard]] const char* className() const override { return "CKConversationListController"; }

 protected:
  // A row's, of the class that the release has.
  [[nodiscard]] virtual std::shared_ptr<CKConversationListCell> makeConversationCell() const;

 private:
  CKConversationArray activeConversations_;
  std::shared_ptr<CKContactPictures> pictures_;
  bool filtersMessages_ = false;
  // Since the view was loaded.
  bool wasSeen_ = false;
};

}  // namespace zephyl
