// The scroll view's movements: with a finger, on its own, and to a place.

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/uikit/DisplayFrames.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/tables/UIScrollViewMotion.h"
#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

constexpr double kAnimationDuration = 0.3;
constexpr CGFloat kLeastFlick = 50;

CGFloat easeInOut(double part) {
  return part * part * (3 - 2 * part);
}

}  // namespace

void UIScrollView::addRecognizers() {
  pan_ = std::make_shared<UIPanGestureRecognizer>([this](UIGestureRecognizer& recognizer) {
    if (recognizer.view() == this) {
      panned();
    }
  });
  watcher_ = std::make_shared<TouchWatcher>(*this);
  // Before the drag's: it sees each finger first.
  addGestureRecognizer(watcher_);
  addGestureRecognizer(pan_);
}

bool UIScrollView::isDecelerating() const {
  return motion_ != nullptr && motion_->decelerates;
}

void UIScrollView::fingerDown() {
  const bool stopped = motion_ != nullptr;
  tracking_ = true;
  stopScrolling();
  pan_->setAllowedDirections((canMoveVertically() ? kPanVertically : 0U) |
                             (canMoveHorizontally() ? kPanHorizontally : 0U));
  fingerDidTouch(stopped);
}

void UIScrollView::fingerUp() {
  tracking_ = false;
  if (dragging_ || motion_ != nullptr) {
    return;
  }
  const CGPoint now = contentOffset();
  if (!verticalRange().contains(now.y) || !horizontalRange().contains(now.x)) {
    dragEnded({0, 0});
  }
}

void UIScrollView::panned() {
  const auto kept = weak_from_this().lock();
  switch (pan_->state()) {
    case UIGestureRecognizerState::kBegan:
      stopScrolling();
      dragging_ = true;
      dragStart_ = {withoutRubberBand(contentOffset().x, horizontalRange(), bounds().width()),
                    withoutRubberBand(contentOffset().y, verticalRange(), bounds().height())};
      indicator_->show();
      draggingDidBegin();
      if (const auto delegate = delegate_.lock()) {
        delegate->scrollViewWillBeginDragging(*this);
      }
      return dragged();
    case UIGestureRecognizerState::kChanged:
      return dragged();
    case UIGestureRecognizerState::kEnded: {
      const CGPoint velocity = pan_->velocityInView(this);
      return dragEnded({-velocity.x, -velocity.y});
    }
    default:
      return dragEnded({0, 0});
  }
}

void UIScrollView::dragged() {
  if (!dragging_) {
    return;
  }
  const CGPoint way = pan_->translationInView(this);
  CGPoint offset = contentOffset();
  const auto follow = [this](CGFloat asked, const ScrollRange& range, CGFloat extent) {
    return bounces_ ? rubberBand(asked, range, extent) : range.clamp(asked);
  };
  if (canMoveHorizontally()) {
    offset.x = follow(dragStart_.x - way.x, horizontalRange(), bounds().width());
  }
  if (canMoveVertically()) {
    offset.y = follow(dragStart_.y - way.y, verticalRange(), bounds().height());
  }
  moveTo(offset);
}

void UIScrollView::dragEnded(CGPoint velocity) {
  const bool wasDragging = std::exchange(dragging_, false);
  if (wasDragging) {
    draggingDidEnd();
  }
  const CGPoint now = contentOffset();
  const CGFloat x = canMoveHorizontally() && std::abs(velocity.x) > kLeastFlick ? velocity.x : 0;
  const CGFloat y = canMoveVertically() && std::abs(velocity.y) > kLeastFlick ? velocity.y : 0;
  const bool moves =
      x != 0 || y != 0 || !verticalRange().contains(now.y) || !horizontalRange().contains(now.x);
  if (const auto delegate = delegate_.lock(); wasDragging && delegate != nullptr) {
    delegate->scrollViewDidEndDragging(*this, moves);
  }
  if (!moves || window() == nullptr) {
    indicator_->fade();
    return;
  }
  auto motion = std::make_unique<Motion>();
  motion->decelerates = true;
  motion->x = ScrollMotion(now.x, x);
  motion->y = ScrollMotion(now.y, y);
  startMotion(std::move(motion));
}

void UIScrollView::setContentOffset(CGPoint offset, bool animated) {
  const CGPoint sane = finite(offset);
  if (!animated || window() == nullptr || UIScreen::mainScreen().prefersReducedMotion()) {
    stopScrolling();
    moveTo(sane);
    return;
  }
  stopScrolling();
  if (sane == contentOffset()) {
    return;
  }
  auto motion = std::make_unique<Motion>();
  motion->from = contentOffset();
  motion->to = sane;
  startMotion(std::move(motion));
}

// To whole pixels: parts of one would draw all that is seen anew with every step.
void UIScrollView::moveTo(CGPoint offset) {
  const CGPoint onPixel = {roundedToPixel(offset.x), roundedToPixel(offset.y)};
  if (onPixel != contentOffset()) {
    setBounds({onPixel, bounds().size});
  }
}

void UIScrollView::startMotion(std::unique_ptr<Motion> motion) {
  motion_ = std::move(motion);
  const int number = ++motionNumber_;
  indicator_->show();
  addFrameCallback(weak_from_this(), [this, number](double timestamp) {
    return number == motionNumber_ && motion_ != nullptr && stepMotion(timestamp);
  });
}

void UIScrollView::stopScrolling() {
  if (motion_ == nullptr) {
    return;
  }
  const auto kept = weak_from_this().lock();
  const auto ended = std::move(motion_);
  motionEnded(*ended);
}

bool UIScrollView::stepMotion(double timestamp) {
  const double passed = motion_->lastTime < 0 ? 0 : std::max(0.0, timestamp - motion_->lastTime);
  motion_->lastTime = timestamp;
  motion_->elapsed += passed;
  const int number = motionNumber_;
  bool goesOn = false;
  CGPoint next;
  if (motion_->decelerates) {
    const bool movesX = motion_->x.step(passed, horizontalRange(), bounces_);
    const bool movesY = motion_->y.step(passed, verticalRange(), bounces_);
    goesOn = movesX || movesY;
    next = {motion_->x.offset(), motion_->y.offset()};
  } else {
    const double part = std::min(1.0, motion_->elapsed / kAnimationDuration);
    goesOn = part < 1;
    const CGFloat done = easeInOut(part);
    next = {motion_->from.x + (motion_->to.x - motion_->from.x) * done,
            motion_->from.y + (motion_->to.y - motion_->from.y) * done};
  }
  moveTo(finite(next));
  // The delegate may have stopped it, or begun another.
  if (motion_ == nullptr || number != motionNumber_) {
    return false;
  }
  if (!goesOn) {
    stopScrolling();
  }
  return goesOn;
}

void UIScrollView::motionEnded(const Motion& motion) {
  indicator_->fade();
  const auto delegate = delegate_.lock();
  if (delegate == nullptr) {
    return;
  }
  if (motion.decelerates) {
    delegate->scrollViewDidEndDecelerating(*this);
  } else {
    delegate->scrollViewDidEndScrollingAnimation(*this);
  }
}

}  // namespace zephyl
