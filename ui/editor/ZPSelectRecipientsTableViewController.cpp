#include "ui/editor/ZPSelectRecipientsTableViewController.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/text/UILabel.h"

#include "model/ZPLocalizedText.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {

namespace {

constexpr CGFloat kRowHeight = 44;
constexpr CGFloat kButtonBeyondCell = 50;
constexpr CGFloat kButtonFontSize = 20;
constexpr std::int64_t kRecipientsSection = 0;
// What cells are looked for by, and what those of the recipients are made with.
constexpr char kCellIdentifier[] = "cellIdentifier";
constexpr char kRecipientCellIdentifier[] = "cell_id";

UITableViewCellAccessoryType markOf(const ZPRecipient& recipient) {
  return recipient.isSelected() ? UITableViewCellAccessoryType::kCheckmark
                                : UITableViewCellAccessoryType::kNone;
}

bool isSelected(const std::shared_ptr<ZPRecipient>& recipient) {
  return recipient->isSelected();
}

}  // namespace

ZPSelectRecipientsTableViewController::ZPSelectRecipientsTableViewController(
    UITableViewStyle style, CKConversationRef conversation)
    : UITableViewController(style), conversation_(std::move(conversation)) {}

void ZPSelectRecipientsTableViewController::viewDidLoad() {
  UITableViewController::viewDidLoad();
  tableView()->setRowHeight(kRowHeight);
  recipients_.clear();
  if (conversation_ != nullptr) {
    for (const CKEntity& recipient : conversation_->recipients()) {
      recipients_.push_back(std::make_shared<ZPRecipient>(recipient));
    }
  }
  setTitle(zpLocalizedText("Select Recipients"));
  const std::weak_ptr<const void> target = shared_from_this();
  navigationItem()->setLeftBarButtonItem(
      std::make_shared<UIBarButtonItem>(
          UIBarButtonSystemItem::kCancel, target,
          [this](UIBarButtonItem& /*sender*/) { cancelButtonAction(); }),
      /*animated=*/true);
  const auto next = std::make_shared<UIBarButtonItem>(
      zpLocalizedText("Next"), UIBarButtonItemStyle::kDone, target,
      [this](UIBarButtonItem& /*sender*/) { nextButtonAction(); });
  next->setEnabled(false);
  navigationItem()->setRightBarButtonItem(next, /*animated=*/true);
}

std::int64_t ZPSelectRecipientsTableViewController::numberOfSectionsInTableView(
    UITableView& /*tableView*/) {
  return 2;
}

std::int64_t ZPSelectRecipientsTableViewController::numberOfRowsInSection(
    UITableView& /*tableView*/, std::int64_t section) {
  return section == kRecipientsSection ? std::ssize(recipients_) : 1;
}

std::shared_ptr<ZPRecipient> ZPSelectRecipientsTableViewController::recipientAt(
    const NSIndexPath& indexPath) const {
  const bool isThere = indexPath.section == kRecipientsSection && indexPath.row >= 0 &&
                       indexPath.row < std::ssize(recipients_);
  return isThere ? recipients_[static_cast<std::size_t>(indexPath.row)] : nullptr;
}

std::shared_ptr<UITableViewCell> ZPSelectRecipientsTableViewController::cellForRowAtIndexPath(
    UITableView& tableView, const NSIndexPath& indexPath) {
  auto cell = tableView.dequeueReusableCellWithIdentifier(kCellIdentifier);
  if (indexPath.section != kRecipientsSection) {
    if (cell == nullptr) {
      cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kDefault, kCellIdentifier);
    }
    if (cell->viewWithTag(kAddToGroupsTag) == nullptr) {
      addButton(*cell);
    }
    return cell;
  }
  // Kept: made with another identifier than it is looked for by, so that these are never used
  // again. The row with the button may be, and brings its button along.
  if (cell == nullptr) {
    cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kSubtitle,
                                             kRecipientCellIdentifier);
  }
  if (const auto recipient = recipientAt(indexPath)) {
    fillRecipientCell(*cell, *recipient);
  }
  return cell;
}

void ZPSelectRecipientsTableViewController::fillRecipientCell(UITableViewCell& cell,
                                                              const ZPRecipient& recipient) {
  cell.textLabel()->setText(recipient.name());
  if (const auto& detail = cell.detailTextLabel()) {
    detail->setText(recipient.forMatterPhoneNumber());
  }
  cell.setAccessoryType(markOf(recipient));
}

void ZPSelectRecipientsTableViewController::addButton(UITableViewCell& cell) {
  const auto button = UIButton::buttonWithType(UIButtonType::kSystem);
  // Wider than the cell is while it is made, to reach over most of what the table makes of it.
  button->setFrame(CGRectMake(0, 0, cell.frame().width() + kButtonBeyondCell, kRowHeight));
  button->setTitle(zpLocalizedText("Add to Groups"));
  button->setTitleFont(UIFont::systemFontOfSize(kButtonFontSize));
  button->addTarget(
      shared_from_this(), [this](UIControl& /*sender*/) { addEntireConversationToGroups(); },
      kTouchUpInside);
  cell.addSubview(button);
}

void ZPSelectRecipientsTableViewController::didSelectRowAtIndexPath(UITableView& tableView,
                                                                    const NSIndexPath& indexPath) {
  tableView.deselectRowAtIndexPath(indexPath, /*animated=*/true);
  const auto recipient = recipientAt(indexPath);
  if (recipient == nullptr) {
    return;
  }
  recipient->setIsSelected(!recipient->isSelected());
  if (const auto cell = tableView.cellForRowAtIndexPath(indexPath)) {
    cell->setAccessoryType(markOf(*recipient));
  }
  updateNavigationBarButtonItems();
}

void ZPSelectRecipientsTableViewController::updateNavigationBarButtonItems() {
  if (const auto next = navigationItem()->rightBarButtonItem()) {
    next->setEnabled(std::any_of(recipients_.begin(), recipients_.end(), isSelected));
  }
}

template <class What>
void ZPSelectRecipientsTableViewController::pushGroupsToAdd(What what) {
  if (const auto navigation = navigationController()) {
    const auto groups =
        std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, std::move(what));
    groups->setIsViewPushed(true);
    navigation->pushViewController(groups, /*animated=*/true);
  }
}

void ZPSelectRecipientsTableViewController::nextButtonAction() {
  ZPRecipientArray selected;
  std::copy_if(recipients_.begin(), recipients_.end(), std::back_inserter(selected), isSelected);
  pushGroupsToAdd(std::move(selected));
}

void ZPSelectRecipientsTableViewController::addEntireConversationToGroups() {
  pushGroupsToAdd(conversation_);
}

void ZPSelectRecipientsTableViewController::cancelButtonAction() {
  dismissViewControllerAnimated(/*animated=*/true);
}

}  // namespace zephyl
