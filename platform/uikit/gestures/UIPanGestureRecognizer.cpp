#include "platform/uikit/gestures/UIPanGestureRecognizer.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIView.h"

namespace zephyl {
namespace {

constexpr double kVelocityWindow = 0.1;

// A distance in the window, as one in `view`.
CGPoint distanceInView(CGPoint distance, const UIView* view) {
  if (view == nullptr) {
    return distance;
  }
  const CGPoint end = view->convertPointFromView(distance, nullptr);
  const CGPoint start = view->convertPointFromView({}, nullptr);
  return {end.x - start.x, end.y - start.y};
}

CGPoint distanceFromView(CGPoint distance, const UIView* view) {
  if (view == nullptr) {
    return distance;
  }
  const CGPoint end = view->convertPointToView(distance, nullptr);
  const CGPoint start = view->convertPointToView({}, nullptr);
  return {end.x - start.x, end.y - start.y};
}

}  // namespace

CGPoint UIPanGestureRecognizer::translationInView(const UIView* view) const {
  return distanceInView(translation_, view);
}

void UIPanGestureRecognizer::setTranslation(CGPoint translation, const UIView* view) {
  translation_ = distanceFromView(finite(translation), view);
}

CGPoint UIPanGestureRecognizer::velocityInView(const UIView* view) const {
  return distanceInView(velocity_, view);
}

void UIPanGestureRecognizer::handleTouch(const UITouch& touch) {
  switch (touch.phase) {
    case UITouchPhase::kBegan:
      before_ = touches();
      samples_.push_back({touch.timestamp, travelled_});
      return;
    case UITouchPhase::kMoved:
      return touchMoved(touch);
    case UITouchPhase::kEnded:
      return touchEnded(touch);
    case UITouchPhase::kCancelled:
      return setState(isActive() ? UIGestureRecognizerState::kCancelled
                                 : UIGestureRecognizerState::kFailed);
  }
}

void UIPanGestureRecognizer::touchMoved(const UITouch& touch) {
  count(touch);
  if (isActive()) {
    setState(UIGestureRecognizerState::kChanged);
  } else {
    beginIfFar();
  }
}

void UIPanGestureRecognizer::beginIfFar() {
  if (std::hypot(travelled_.x, travelled_.y) <= kSlop) {
    return;
  }
  const bool horizontal = std::abs(travelled_.x) > std::abs(travelled_.y);
  if ((directions_ & (horizontal ? kPanHorizontally : kPanVertically)) == 0) {
    setState(UIGestureRecognizerState::kFailed);
    return;
  }
  // What it took to tell a drag from a tap would make the contents jump.
  translation_ = {};
  setState(UIGestureRecognizerState::kBegan);
}

void UIPanGestureRecognizer::touchEnded(const UITouch& touch) {
  count(touch);
  before_ = touches();
  if (!touches().empty()) {
    return;
  }
  setState(isActive() ? UIGestureRecognizerState::kEnded : UIGestureRecognizerState::kFailed);
}

void UIPanGestureRecognizer::count(const UITouch& touch) {
  const auto last = std::find_if(before_.begin(), before_.end(), [&touch](const UITouch& other) {
    return other.identifier == touch.identifier;
  });
  if (last == before_.end()) {
    return;
  }
  const auto fingers = static_cast<CGFloat>(before_.size());
  const CGPoint step{(touch.location.x - last->location.x) / fingers,
                     (touch.location.y - last->location.y) / fingers};
  last->location = touch.location;
  travelled_ = {travelled_.x + step.x, travelled_.y + step.y};
  translation_ = {translation_.x + step.x, translation_.y + step.y};

  // A finger that leaves where it was seen last has not moved, and its end is no sample: it must
  // not slow down a flick.
  if (step != CGPoint()) {
    samples_.push_back({touch.timestamp, travelled_});
  }
  while (!samples_.empty() && touch.timestamp - samples_.front().timestamp > kVelocityWindow) {
    samples_.pop_front();
  }
  velocity_ = {};
  if (samples_.size() > 1) {
    const Sample& first = samples_.front();
    const Sample& end = samples_.back();
    const double seconds = end.timestamp - first.timestamp;
    if (seconds > 0) {
      velocity_ = finite(CGPoint{(end.travelled.x - first.travelled.x) / seconds,
                                 (end.travelled.y - first.travelled.y) / seconds});
    }
  }
}

void UIPanGestureRecognizer::reset() {
  UIGestureRecognizer::reset();
  before_.clear();
  samples_.clear();
  travelled_ = {};
  translation_ = {};
  velocity_ = {};
}

}  // namespace zephyl
