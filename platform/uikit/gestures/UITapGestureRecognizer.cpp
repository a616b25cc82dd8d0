#include "platform/uikit/gestures/UITapGestureRecognizer.h"

#include <cmath>

namespace zephyl {

void UITapGestureRecognizer::handleTouch(const UITouch& touch) {
  switch (touch.phase) {
    case UITouchPhase::kBegan:
      return touchBegan(touch);
    case UITouchPhase::kMoved:
      if (strayed(touch.location)) {
        setState(UIGestureRecognizerState::kFailed);
      }
      return;
    case UITouchPhase::kEnded:
      return touchEnded(touch);
    case UITouchPhase::kCancelled:
      return setState(UIGestureRecognizerState::kFailed);
  }
}

void UITapGestureRecognizer::touchBegan(const UITouch& touch) {
  if (touches().size() > 1) {
    setState(UIGestureRecognizerState::kFailed);
    return;
  }
  if (taps_ > 0 && (touch.timestamp - endTime_ > kMaximumInterval || strayed(touch.location))) {
    taps_ = 0;
  }
  if (taps_ == 0) {
    start_ = touch.location;
  }
  startTime_ = touch.timestamp;
}

void UITapGestureRecognizer::touchEnded(const UITouch& touch) {
  if (strayed(touch.location) || touch.timestamp - startTime_ > kMaximumDuration) {
    setState(UIGestureRecognizerState::kFailed);
    return;
  }
  endTime_ = touch.timestamp;
  if (++taps_ < tapsRequired_) {
    return;
  }
  taps_ = 0;
  setNumberOfTouches(1);
  setState(UIGestureRecognizerState::kEnded);
}

bool UITapGestureRecognizer::strayed(CGPoint location) const {
  return std::hypot(location.x - start_.x, location.y - start_.y) > kAllowableMovement;
}

void UITapGestureRecognizer::reset() {
  UIGestureRecognizer::reset();
  taps_ = 0;
}

}  // namespace zephyl
