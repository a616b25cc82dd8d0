#include "platform/uikit/tables/UITableViewController.h"

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/UIRefreshControl.h"

namespace zephyl {
namespace {

constexpr CGRect kInitialFrame{{0, 0}, {320, 480}};
constexpr CGFloat kAroundEdited = 10;

}  // namespace

UITableViewController::UITableViewController(UITableViewStyle style) : style_(style) {}

UITableViewController::~UITableViewController() = default;

const std::shared_ptr<UITableView>& UITableViewController::tableView() {
  static_cast<void>(view());
  return tableView_;
}

void UITableViewController::loadView() {
  tableView_ = std::make_shared<UITableView>(kInitialFrame, style_);
  tableView_->setDataSource(std::shared_ptr<UITableViewDataSource>(shared_from_this(), this));
  tableView_->setDelegate(std::shared_ptr<UITableViewDelegate>(shared_from_this(), this));
  setView(tableView_);
}

std::shared_ptr<UIRefreshControl> UITableViewController::refreshControl() {
  return tableView()->refreshControl();
}

void UITableViewController::setRefreshControl(const std::shared_ptr<UIRefreshControl>& control) {
  tableView()->setRefreshControl(control);
}

void UITableViewController::viewWillAppear(bool animated) {
  UIViewController::viewWillAppear(animated);
  if (!clearsSelection_ || tableView_ == nullptr) {
    return;
  }
  for (const NSIndexPath& path : tableView_->indexPathsForSelectedRows()) {
    tableView_->deselectRowAtIndexPath(path, animated);
  }
}

void UITableViewController::viewDidAppear(bool animated) {
  UIViewController::viewDidAppear(animated);
  if (tableView_ != nullptr) {
    tableView_->flashScrollIndicators();
  }
}

void UITableViewController::viewDidLayoutSubviews() {
  UIViewController::viewDidLayoutSubviews();
  if (tableView_ == nullptr || tableView_->window() == nullptr) {
    return;
  }
  auto* const edited = dynamic_cast<UIView*>(tableView_->window()->firstResponder());
  const bool inRow = edited != nullptr && edited != tableView_.get() &&
                     edited->isDescendantOfView(tableView_.get());
  const void* const now = inRow ? edited : nullptr;
  if (now == editedView_) {
    return;
  }
  editedView_ = now;
  if (inRow) {
    const CGRect place = edited->convertRectToView(edited->bounds(), tableView_.get());
    tableView_->scrollRectToVisible(CGRectInset(place, 0, -kAroundEdited), /*animated=*/true);
  }
}

void UITableViewController::setEditing(bool editing, bool animated) {
  UIViewController::setEditing(editing, animated);
  if (tableView_ != nullptr) {
    tableView_->setEditing(editing, animated);
  }
}

bool UITableViewController::pressesBegan(const UIKeyPress& press) {
  const auto kept = shared_from_this();
  if (tableView_ != nullptr && !tableView_->isFirstResponder() && tableView_->handleKey(press)) {
    return true;
  }
  return UIViewController::pressesBegan(press);
}

std::int64_t UITableViewController::numberOfRowsInSection(UITableView& /*tableView*/,
                                                          std::int64_t /*section*/) {
  return 0;
}

std::shared_ptr<UITableViewCell> UITableViewController::cellForRowAtIndexPath(
    UITableView& /*tableView*/, const NSIndexPath& /*indexPath*/) {
  return nullptr;
}

}  // namespace zephyl
