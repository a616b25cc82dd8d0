// Going through a table by keyboard.

#include <algorithm>

#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {
namespace {

constexpr CGFloat kRingWidth = 3;
constexpr CGFloat kRingRadius = 8;

}  // namespace

bool UITableView::handleKey(const UIKeyPress& press) {
  const auto kept = weak_from_this().lock();
  return core_->key(press);
}

bool UITableView::pressesBegan(const UIKeyPress& press) {
  const auto kept = weak_from_this().lock();
  return core_->key(press) || UIScrollView::pressesBegan(press);
}

bool UITableView::Core::key(const UIKeyPress& stroke) {
  loadIfNeeded();
  if (keyWhileSwiped(stroke)) {
    return true;
  }
  const std::int64_t all = geometry.numberOfRows();
  const CGFloat height = std::max(rowHeight, table.bounds().height());
  const auto page = std::max<std::int64_t>(1, static_cast<std::int64_t>(height / rowHeight) - 2);
  switch (stroke.key) {
    case UIKey::kUp:
      return moveFocus(-1);
    case UIKey::kDown:
      return moveFocus(1);
    case UIKey::kPageUp:
      return moveFocus(-page);
    case UIKey::kPageDown:
      return moveFocus(page);
    case UIKey::kHome:
      return moveFocus(-all);
    case UIKey::kEnd:
      return moveFocus(all);
    case UIKey::kReturn:
    case UIKey::kSpace:
      return focusedRow && focusShown && tap(*focusedRow);
    case UIKey::kDelete:
    case UIKey::kBackspace:
      return deleteFocused();
    default:
      return false;
  }
}

bool UITableView::Core::keyWhileSwiped(const UIKeyPress& stroke) {
  if (!swipe || swipe->dragged) {
    return false;
  }
  switch (stroke.key) {
    case UIKey::kReturn:
    case UIKey::kSpace:
    case UIKey::kDelete:
    case UIKey::kBackspace:
      commit(*swipe->cell, UITableViewCellEditingStyle::kDelete);
      return true;
    default:
      closeSwipe(/*animated=*/true);
      return stroke.key == UIKey::kEscape;
  }
}

bool UITableView::Core::moveFocus(std::int64_t by) {
  const std::int64_t all = geometry.numberOfRows();
  if (all == 0) {
    return false;
  }
  if (!focusShown || !focusedRow || !geometry.contains(*focusedRow)) {
    // The first key shows where one is, the ends apart.
    const Paths seen = geometry.rowsBetween(table.bounds().y() + table.adjustedContentInset().top,
                                            table.bounds().maxY());
    std::optional<NSIndexPath> start = focusedRow ? focusedRow : table.indexPathForSelectedRow();
    if (!start && !seen.empty()) {
      start = seen.front();
    }
    const bool toEnd = by == all || by == -all;
    if (start && geometry.contains(*start) && (!toEnd || all == 1)) {
      focus(start, /*scrolls=*/true);
      return true;
    }
  }
  const std::int64_t from =
      focusedRow ? std::max<std::int64_t>(0, geometry.position(*focusedRow)) : 0;
  focus(geometry.rowAtPosition(std::clamp<std::int64_t>(from + by, 0, all - 1)), true);
  return true;
}

void UITableView::Core::focus(const std::optional<NSIndexPath>& path, bool scrolls) {
  focusedRow = path;
  focusShown = path.has_value();
  table.setNeedsLayout();
  if (path && scrolls) {
    table.scrollToRowAtIndexPath(*path, UITableViewScrollPosition::kNone, /*animated=*/false);
  }
}

bool UITableView::Core::deleteFocused() {
  if (!focusedRow || !focusShown || !canSwipe(*focusedRow)) {
    return false;
  }
  const Cell cell = table.cellForRowAtIndexPath(*focusedRow);
  if (cell == nullptr) {
    return false;
  }
  openSwipe(cell);
  return true;
}

std::optional<NSIndexPath> UITableView::indexPathForFocusedRow() const {
  return core_->focusedRow;
}

bool UITableView::becomeFirstResponder() {
  if (!UIScrollView::becomeFirstResponder()) {
    return false;
  }
  core_->loadIfNeeded();
  core_->moveFocus(0);
  return true;
}

bool UITableView::resignFirstResponder() {
  core_->focusShown = false;
  setNeedsLayout();
  return UIScrollView::resignFirstResponder();
}

void UITableView::Core::layoutFocusRing() {
  const bool shown = focusShown && focusedRow && cells.contains(*focusedRow);
  if (focusRing == nullptr) {
    if (!shown) {
      return;
    }
    focusRing = std::make_shared<UIView>();
    focusRing->setUserInteractionEnabled(false);
    focusRing->setOpaque(false);
    focusRing->layer()->setBorderWidth(kRingWidth);
    focusRing->layer()->setBorderColor(UIColor::systemBlueColor());
    focusRing->layer()->setCornerRadius(kRingRadius);
    table.insertBelowIndicator(focusRing);
  }
  focusRing->setHidden(!shown);
  if (shown) {
    focusRing->setFrame(CGRectInset(rowFrame(*focusedRow), 1, 1));
  }
}

}  // namespace zephyl
