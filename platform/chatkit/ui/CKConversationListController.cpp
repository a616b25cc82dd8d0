#include "platform/chatkit/ui/CKConversationListController.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/chatkit/ui/CKContactPictures.h"
#include "platform/chatkit/ui/CKConversationListStandardCell.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/uikit/UIDevice.h"

namespace zephyl {
namespace {

constexpr char kOldCell[] = "CKConversationListCell";
constexpr char kCell[] = "CKConversationListStandardCell";

// From version 13 on rows are of another class.
bool hasNewCells() {
  return systemVersionIsAtLeast(13);
}

bool isKnown(const IMHandle& handle) {
  return handle.personRecordID() > 0 || handle.isContact();
}

bool isWithNobodyKnown(const CKConversationRef& conversation) {
  const std::vector<IMHandle>& handles = conversation->handles();
  return std::none_of(handles.begin(), handles.end(), isKnown);
}

}  // namespace

CKConversationListController::CKConversationListController()
    : pictures_(std::make_shared<CKContactPictures>()) {}

CKConversationListController::~CKConversationListController() {
  NSNotificationCenter::defaultCenter()->removeObserver(this);
}

void CKConversationListController::viewDidLoad() {
  UITableViewController::viewDidLoad();
  tableView()->setRowHeight(CKConversationListCell::kHeight);
  NSNotificationCenter::defaultCenter()->addObserver(
      this, kCKConversationListChangedNotification,
      [this, weak = weak_from_this()](const NSNotification&) {
        if (const auto self = weak.lock()) {
          updateConversationList();
        }
      });
  updateConversationList();
}

void CKConversationListController::viewWillAppear(bool animated) {
  UITableViewController::viewWillAppear(animated);
  if (std::exchange(wasSeen_, true)) {
    updateConversationList();
  }
}

void CKConversationListController::updateConversationList() {
  activeConversations_ = host().conversationList().listedConversations();
  if (_messageFilteringEnabled()) {
    std::erase_if(activeConversations_, isWithNobodyKnown);
  }
  tableView()->reloadData();
}

std::int64_t CKConversationListController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                                 std::int64_t /*section*/) {
  return static_cast<std::int64_t>(activeConversations_.size());
}

std::shared_ptr<CKConversationListCell> CKConversationListController::makeConversationCell() const {
  if (hasNewCells()) {
    return std::make_shared<CKConversationListStandardCell>(kCell);
  }
  return std::make_shared<CKConversationListCell>(kOldCell);
}

std::shared_ptr<UITableViewCell> CKConversationListController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = std::dynamic_pointer_cast<CKConversationListCell>(
      tableView.dequeueReusableCellWithIdentifier(hasNewCells() ? kCell : kOldCell));
  if (cell == nullptr) {
    cell = makeConversationCell();
  }
  const auto row = static_cast<std::size_t>(indexPath.row);
  cell->setConversation(row < activeConversations_.size() ? activeConversations_[row] : nullptr,
                        host().clock().now(), pictures_);
  cell->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  return cell;
}

}  // namespace zephyl
