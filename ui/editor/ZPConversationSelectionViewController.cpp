#include "ui/editor/ZPConversationSelectionViewController.h"

#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "services/ZPUtils.h"

namespace zephyl {

namespace {

using Accessory = UITableViewCellAccessoryType;

// Others of the list, a hint for example, stand for no conversation.
bool isConversationCell(const UITableViewCell& cell) {
  const std::string_view name = cell.className();
  return name == "CKConversationListCell" || name == "CKConversationListStandardCell";
}

}  // namespace

ZPConversationSelectionViewController::ZPConversationSelectionViewController(
    const std::vector<Member>& alreadySelected, const ZephylRef& group)
    : group_(group) {
  for (const Member& member : alreadySelected) {
    const auto* const text = std::get_if<std::string>(&member);
    if (text != nullptr && isChatGuid(*text)) {
      selectedConversations_.insert(*text);
    }
  }
}

ZPConversationSelectionViewController::~ZPConversationSelectionViewController() {
  endShowingAll();
}

void ZPConversationSelectionViewController::endShowingAll() {
  if (std::exchange(showsAll_, false)) {
    host().conversationList().shouldShowAllConversations(false);
  }
}

void ZPConversationSelectionViewController::viewWillAppear(bool animated) {
  showsAll_ = true;
  CKConversationListController::viewWillAppear(animated);
}

void ZPConversationSelectionViewController::viewDidDisappear(bool animated) {
  CKConversationListController::viewDidDisappear(animated);
  // Under another screen it is still open.
  if (presentingViewController() == nullptr) {
    endShowingAll();
  }
}

void ZPConversationSelectionViewController::setConversationDelegate(
    std::weak_ptr<ZPConversationSelectionViewControllerDelegate> delegate) {
  conversationDelegate_ = std::move(delegate);
}

void ZPConversationSelectionViewController::viewDidLoad() {
  CKConversationListController::viewDidLoad();
  updateNavigationItems();
}

void ZPConversationSelectionViewController::updateConversationList() {
  CKConversationListController::updateConversationList();
  setTitle(ZPUtils::chatKitLocalizedString("APP_TITLE"));
}

// Kept: Cancel on the right and Done on the left, unlike on other screens.
void ZPConversationSelectionViewController::updateNavigationItems() {
  const auto& item = navigationItem();
  if (item->rightBarButtonItem() == nullptr) {
    item->setRightBarButtonItem(
        std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kCancel, weak_from_this(),
                                          [this](UIBarButtonItem&) { cancelButtonAction(); }),
        /*animated=*/true);
  }
  if (item->leftBarButtonItem() == nullptr) {
    item->setLeftBarButtonItem(
        std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kDone, weak_from_this(),
                                          [this](UIBarButtonItem&) { doneButtonAction(); }),
        /*animated=*/true);
  }
  item->leftBarButtonItem()->setEnabled(!selectedConversations_.empty());
}

CKConversationRef ZPConversationSelectionViewController::conversationAt(
    const NSIndexPath& indexPath) const {
  const auto row = static_cast<std::size_t>(indexPath.row);
  return indexPath.row >= 0 && row < activeConversations().size() ? activeConversations()[row]
                                                                  : nullptr;
}

bool ZPConversationSelectionViewController::isMarked(const CKConversationRef& conversation) const {
  return (group_ != nullptr && group_->isConversationMemberOfYou(conversation)) ||
         selectedConversations_.contains(conversation->guid());
}

std::shared_ptr<UITableViewCell> ZPConversationSelectionViewController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = CKConversationListController::cellForRowAtIndexPath(tableView, indexPath);
  const CKConversationRef conversation = conversationAt(indexPath);
  const bool marked =
      isConversationCell(*cell) && conversation != nullptr && isMarked(conversation);
  cell->setAccessoryType(marked ? Accessory::kCheckmark : Accessory::kNone);
  return cell;
}

void ZPConversationSelectionViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                                    const NSIndexPath& indexPath) {
  const auto cell = tableView.cellForRowAtIndexPath(indexPath);
  const CKConversationRef conversation = conversationAt(indexPath);
  auto shown = Accessory::kNone;
  if (conversation != nullptr) {
    // Kept: the mark is asked, not the set. One that is marked as a member only, through a person,
    // loses its mark the first time and was in no set.
    if (cell != nullptr && cell->accessoryType() == Accessory::kCheckmark) {
      selectedConversations_.erase(conversation->guid());
    } else {
      selectedConversations_.insert(conversation->guid());
      shown = Accessory::kCheckmark;
    }
  }
  if (cell != nullptr) {
    cell->setAccessoryType(shown);
  }
  updateNavigationItems();
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/true);
}

bool ZPConversationSelectionViewController::canEditRowAtIndexPath(
    UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
  return false;
}

void ZPConversationSelectionViewController::doneButtonAction() {
  const auto kept = shared_from_this();
  if (const auto delegate = conversationDelegate_.lock()) {
    delegate->didReturnWithSelectedConversation(*this, selectedConversations_);
  }
  cancelButtonAction();
}

void ZPConversationSelectionViewController::cancelButtonAction() {
  const auto kept =
      std::static_pointer_cast<ZPConversationSelectionViewController>(shared_from_this());
  dismissViewControllerAnimated(/*animated=*/true, [kept] { kept->endShowingAll(); });
}

bool ZPConversationSelectionViewController::accessibilityPerformEscape() {
  cancelButtonAction();
  return true;
}

}  // namespace zephyl
