// Swiping a row aside to delete it; the second button and the keyboard do the same.

#include <algorithm>
#include <utility>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/tables/UITableViewCore.h"

namespace zephyl {
namespace {

constexpr double kDuration = 0.25;
// Of the row's width: swiped farther, the row is deleted at once.
constexpr CGFloat kFullSwipe = 0.6;
// Points a second that open or close whatever the way was.
constexpr CGFloat kFlick = 300;

// Towards the leading side is positive.
CGFloat leadingwards(CGFloat x) {
  return UIScreen::mainScreen().isRightToLeft() ? x : -x;
}

}  // namespace

void UITableView::Core::addSwipeRecognizer() {
  swipePan = std::make_shared<UIPanGestureRecognizer>([this](UIGestureRecognizer& recognizer) {
    if (recognizer.view() == &table) {
      swiped();
    }
  });
  swipePan->setAllowedDirections(kPanHorizontally);
  table.addGestureRecognizer(swipePan);
}

bool UITableView::Core::canSwipe(const NSIndexPath& path) {
  if (!geometry.contains(path)) {
    return false;
  }
  const Editing how = editingOf(path);
  return how.canEdit && how.style == UITableViewCellEditingStyle::kDelete;
}

bool UITableView::gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) {
  if (&gesture != core_->swipePan.get()) {
    return true;
  }
  const auto path = indexPathForRowAtPoint(core_->swipePan->locationInView(this));
  if (!path || core_->editing || isDragging() || !core_->cells.contains(*path)) {
    return false;
  }
  const bool opened = core_->swipe && core_->swipe->cell == core_->cells.at(*path);
  return opened ||
         (leadingwards(core_->swipePan->velocityInView(this).x) > 0 && core_->canSwipe(*path));
}

void UITableView::Core::swiped() {
  const auto kept = table.weak_from_this().lock();
  if (swipePan->state() == UIGestureRecognizerState::kBegan) {
    const auto path = table.indexPathForRowAtPoint(swipePan->locationInView(&table));
    if (!path || !cells.contains(*path)) {
      return;
    }
    const Cell cell = cells.at(*path);
    if (swipe && swipe->cell != cell) {
      closeSwipe(/*animated=*/true);
    }
    endPress();
    swipe = Swipe{cell, deleteTitle(*path), cell->deletionOffset(), /*dragged=*/true};
  }
  if (!swipe || !swipe->dragged) {
    return;
  }
  const CGFloat offset = swipe->start + leadingwards(swipePan->translationInView(&table).x);
  if (swipePan->state() == UIGestureRecognizerState::kBegan ||
      swipePan->state() == UIGestureRecognizerState::kChanged) {
    return moveSwiped(offset, /*animated=*/false);
  }
  swipe->dragged = false;
  const Cell cell = swipe->cell;
  const bool ended = swipePan->state() == UIGestureRecognizerState::kEnded;
  const CGFloat speed = leadingwards(swipePan->velocityInView(&table).x);
  if (ended && offset > kFullSwipe * cell->bounds().width()) {
    moveSwiped(cell->bounds().width(), /*animated=*/true);
    return commit(*cell, UITableViewCellEditingStyle::kDelete);
  }
  const bool opens = speed > kFlick || (speed > -kFlick && offset > cell->deleteButtonWidth() / 2);
  if (ended && opens) {
    return openSwipe(cell);
  }
  closeSwipe(/*animated=*/true);
}

void UITableView::Core::moveSwiped(CGFloat offset, bool animated) {
  const Cell cell = swipe->cell;
  const auto move = [&] { cell->setDeletionOffset(std::max(0.0, offset), swipe->title); };
  if (animated) {
    animateWithDuration(kDuration, 0, kAnimationAllowUserInteraction, move);
  } else {
    performWithoutAnimation(move);
  }
}

void UITableView::Core::openSwipe(const Cell& cell) {
  if (swipe && swipe->cell != cell) {
    closeSwipe(/*animated=*/true);
  }
  const auto path = table.indexPathForCell(*cell);
  if (!path) {
    return;
  }
  swipe = Swipe{cell, deleteTitle(*path), 0, /*dragged=*/false};
  endPress();
  // The button is there, and its width known, before it is uncovered.
  moveSwiped(cell->deletionOffset(), /*animated=*/false);
  moveSwiped(cell->deleteButtonWidth(), /*animated=*/true);
}

void UITableView::Core::closeSwipe(bool animated) {
  const auto closed = std::exchange(swipe, std::nullopt);
  if (!closed) {
    return;
  }
  const std::weak_ptr<UITableViewCell> weak = closed->cell;
  const auto close = [&closed] { closed->cell->closeDeletion(); };
  if (!animated) {
    performWithoutAnimation(close);
    closed->cell->hideDeleteButton();
    return;
  }
  animateWithDuration(kDuration, 0, kAnimationAllowUserInteraction, close,
                      [weak](bool /*finished*/) {
                        if (const auto cell = weak.lock()) {
                          cell->hideDeleteButton();
                        }
                      });
}

std::optional<NSIndexPath> UITableView::indexPathForSwipedRow() const {
  return core_->swipe ? indexPathForCell(*core_->swipe->cell) : std::nullopt;
}

bool UITableView::contextMenuRequested(const UITouch& touch) {
  const auto path = indexPathForRowAtPoint(convertPointFromView(touch.location, nullptr));
  if (!path || !core_->cells.contains(*path) || !core_->canSwipe(*path)) {
    return false;
  }
  core_->openSwipe(core_->cells.at(*path));
  return true;
}

}  // namespace zephyl
