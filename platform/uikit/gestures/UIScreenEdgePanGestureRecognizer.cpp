#include "platform/uikit/gestures/UIScreenEdgePanGestureRecognizer.h"

#include <cmath>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"

namespace zephyl {
namespace {

constexpr double kVelocityWindow = 0.1;

}  // namespace

// From the leading edge, in points.
CGFloat UIScreenEdgePanGestureRecognizer::inwards(CGPoint location) const {
  const CGPoint point =
      view() == nullptr ? location : view()->convertPointFromView(location, nullptr);
  const bool mirrored = view() != nullptr && UIScreen::mainScreen().isRightToLeft();
  return mirrored ? view()->bounds().width() - point.x : point.x;
}

void UIScreenEdgePanGestureRecognizer::handleTouch(const UITouch& touch) {
  switch (touch.phase) {
    case UITouchPhase::kBegan:
      if (touches().size() > 1 || inwards(touch.location) > kEdge) {
        return setState(isActive() ? UIGestureRecognizerState::kCancelled
                                   : UIGestureRecognizerState::kFailed);
      }
      start_ = touch;
      return;
    case UITouchPhase::kMoved:
      return moved(touch);
    case UITouchPhase::kEnded:
      return setState(isActive() ? UIGestureRecognizerState::kEnded
                                 : UIGestureRecognizerState::kFailed);
    case UITouchPhase::kCancelled:
      return setState(isActive() ? UIGestureRecognizerState::kCancelled
                                 : UIGestureRecognizerState::kFailed);
  }
}

void UIScreenEdgePanGestureRecognizer::moved(const UITouch& touch) {
  const CGFloat at = inwards(touch.location);
  samples_.push_back({touch.timestamp, at});
  while (touch.timestamp - samples_.front().timestamp > kVelocityWindow) {
    samples_.pop_front();
  }
  if (isActive()) {
    distance_ = at - begin_;
    setState(UIGestureRecognizerState::kChanged);
    return;
  }
  const CGFloat across = at - inwards(start_.location);
  const CGFloat along = std::abs(touch.location.y - start_.location.y);
  if (along > kSlop && along > across) {
    setState(UIGestureRecognizerState::kFailed);
  } else if (across > kSlop) {
    begin_ = at;
    setState(UIGestureRecognizerState::kBegan);
  }
}

CGFloat UIScreenEdgePanGestureRecognizer::velocity() const {
  if (samples_.size() < 2) {
    return 0;
  }
  const Sample& first = samples_.front();
  const Sample& last = samples_.back();
  const double seconds = last.timestamp - first.timestamp;
  return seconds > 0 ? finite((last.inwards - first.inwards) / seconds) : 0;
}

void UIScreenEdgePanGestureRecognizer::reset() {
  UIGestureRecognizer::reset();
  begin_ = 0;
  distance_ = 0;
  samples_.clear();
}

}  // namespace zephyl
