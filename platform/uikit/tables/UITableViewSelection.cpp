// Touching rows, and which of them are selected.

#include <utility>

#include "platform/uikit/CADisplayLink.h"
#include "platform/uikit/DisplayFrames.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {
namespace {

// A finger that rests on a row for so long highlights it; one that only begins a drag does not.
constexpr double kHighlightDelay = 0.1;

}  // namespace

bool UITableView::Core::canSelect(const NSIndexPath& path) {
  const auto cell = cells.find(path);
  if (cell != cells.end() && !cell->second->isUserInteractionEnabled()) {
    return false;
  }
  if (!editing) {
    return allowsSelection;
  }
  return allowsSelectionDuringEditing || allowsMultipleSelectionDuringEditing ||
         editingOf(path).style == UITableViewCellEditingStyle::kMultiSelect;
}

bool UITableView::Core::selectsMany(const NSIndexPath& path) {
  if (!editing) {
    return allowsMultipleSelection;
  }
  return allowsMultipleSelectionDuringEditing ||
         editingOf(path).style == UITableViewCellEditingStyle::kMultiSelect;
}

void UITableView::Core::markSelected(const NSIndexPath& path, bool isSelected, bool animated) {
  if (isSelected) {
    selected.insert(path);
  } else {
    selected.erase(path);
  }
  if (const auto cell = cells.find(path); cell != cells.end()) {
    const Cell kept = cell->second;
    kept->setSelected(isSelected, animated);
  }
}

bool UITableView::Core::tap(const NSIndexPath& path) {
  const auto kept = table.weak_from_this().lock();
  loadIfNeeded();
  if (!geometry.contains(path) || !canSelect(path)) {
    endPress();
    return false;
  }
  focusedRow = path;
  const auto rule = rules();
  const auto chosen = rule->willSelectRowAtIndexPath(table, path);
  if (!chosen || !geometry.contains(*chosen)) {
    endPress();
    return true;
  }
  const NSIndexPath row = *chosen;
  const bool many = selectsMany(row);
  if (many && selected.contains(row)) {
    markSelected(row, false, false);
    endPress();
    rule->didDeselectRowAtIndexPath(table, row);
    return true;
  }
  for (const NSIndexPath& other : many ? std::set<NSIndexPath>() : selected) {
    if (other != row) {
      markSelected(other, false, false);
      rule->didDeselectRowAtIndexPath(table, other);
    }
  }
  // The highlight goes over into the selection.
  markSelected(row, true, false);
  endPress();
  rule->didSelectRowAtIndexPath(table, row);
  return true;
}

void UITableView::Core::highlightPress() {
  if (!press || press->highlighted) {
    return;
  }
  press->highlighted = true;
  if (const auto cell = cells.find(press->path); cell != cells.end()) {
    const Cell kept = cell->second;
    kept->setHighlighted(true, false);
  }
}

void UITableView::Core::endPress() {
  const auto ended = std::exchange(press, std::nullopt);
  if (!ended || !ended->highlighted) {
    return;
  }
  if (const auto cell = cells.find(ended->path); cell != cells.end()) {
    const Cell kept = cell->second;
    kept->setHighlighted(false, false);
  }
}

void UITableView::touchesBegan(const UITouch& touch) {
  core_->endPress();
  if (core_->swipe && !core_->swipe->dragged) {
    // Whatever is touched, the swiped row goes back, and nothing else happens.
    return core_->closeSwipe(/*animated=*/true);
  }
  if (core_->touchOnlyStopped) {
    return;
  }
  const auto path = indexPathForRowAtPoint(convertPointFromView(touch.location, nullptr));
  if (!path || !core_->canSelect(*path)) {
    return;
  }
  core_->press = Core::Press{*path, uikitHost().displayLink().timestamp(), false};
  const int number = ++core_->pressNumber;
  addFrameCallback(weak_from_this(), [this, number](double timestamp) {
    if (number != core_->pressNumber || !core_->press) {
      return false;
    }
    const bool rests = timestamp - core_->press->begun >= kHighlightDelay;
    if (rests) {
      core_->highlightPress();
    }
    return !rests;
  });
}

void UITableView::touchesMoved(const UITouch& touch) {
  const CGPoint at = convertPointFromView(touch.location, nullptr);
  if (core_->press && !CGRectContainsPoint(core_->rowFrame(core_->press->path), at)) {
    core_->endPress();
  }
}

void UITableView::touchesEnded(const UITouch& /*touch*/) {
  if (!core_->press) {
    return;
  }
  core_->highlightPress();
  const NSIndexPath path = core_->press->path;
  core_->tap(path);
}

void UITableView::touchesCancelled(const UITouch& /*touch*/) {
  core_->endPress();
}

bool UITableView::allowsSelection() const {
  return core_->allowsSelection;
}

void UITableView::setAllowsSelection(bool allows) {
  core_->allowsSelection = allows;
}

void UITableView::setAllowsSelectionDuringEditing(bool allows) {
  core_->allowsSelectionDuringEditing = allows;
}

void UITableView::setAllowsMultipleSelection(bool allows) {
  core_->allowsMultipleSelection = allows;
}

bool UITableView::allowsMultipleSelectionDuringEditing() const {
  return core_->allowsMultipleSelectionDuringEditing;
}

void UITableView::setAllowsMultipleSelectionDuringEditing(bool allows) {
  if (allows == core_->allowsMultipleSelectionDuringEditing) {
    return;
  }
  core_->allowsMultipleSelectionDuringEditing = allows;
  core_->updateCells(/*animated=*/false);
}

std::optional<NSIndexPath> UITableView::indexPathForSelectedRow() const {
  return core_->selected.empty() ? std::nullopt : std::optional(*core_->selected.begin());
}

UITableView::Paths UITableView::indexPathsForSelectedRows() const {
  return {core_->selected.begin(), core_->selected.end()};
}

void UITableView::selectRowAtIndexPath(const NSIndexPath& indexPath, bool animated,
                                       UITableViewScrollPosition position) {
  core_->loadIfNeeded();
  if (!core_->geometry.contains(indexPath)) {
    return;
  }
  if (!core_->selectsMany(indexPath)) {
    for (const NSIndexPath& other : std::set<NSIndexPath>(core_->selected)) {
      if (other != indexPath) {
        core_->markSelected(other, false, animated);
      }
    }
  }
  core_->markSelected(indexPath, true, animated);
  if (position != UITableViewScrollPosition::kNone) {
    scrollToRowAtIndexPath(indexPath, position, animated);
  }
}

void UITableView::deselectRowAtIndexPath(const NSIndexPath& indexPath, bool animated) {
  if (core_->selected.contains(indexPath)) {
    core_->markSelected(indexPath, false, animated);
  }
}

}  // namespace zephyl
