#include "platform/uikit/gestures/UILongPressGestureRecognizer.h"

#include <algorithm>
#include <cmath>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {

void UILongPressGestureRecognizer::setMinimumPressDuration(double seconds) {
  duration_ = std::max(0.0, finite(seconds));
}

void UILongPressGestureRecognizer::handleTouch(const UITouch& touch) {
  switch (touch.phase) {
    case UITouchPhase::kBegan:
      return touchBegan(touch);
    case UITouchPhase::kMoved:
      return touchMoved(touch);
    case UITouchPhase::kEnded:
      if (touches().empty()) {
        setState(isActive() ? UIGestureRecognizerState::kEnded : UIGestureRecognizerState::kFailed);
      }
      return;
    case UITouchPhase::kCancelled:
      return setState(isActive() ? UIGestureRecognizerState::kCancelled
                                 : UIGestureRecognizerState::kFailed);
  }
}

void UILongPressGestureRecognizer::touchBegan(const UITouch& touch) {
  if (isActive()) {
    return;
  }
  if (touches().size() > 1) {
    setState(UIGestureRecognizerState::kFailed);
    return;
  }
  start_ = touch.location;
  const unsigned press = ++press_;
  const std::weak_ptr<UIGestureRecognizer> weakSelf = weak_from_this();
  host().dispatch().mainAfter(duration_, [this, weakSelf, press] {
    const auto self = weakSelf.lock();
    if (self != nullptr && press == press_ && state() == UIGestureRecognizerState::kPossible &&
        !touches().empty()) {
      setState(UIGestureRecognizerState::kBegan);
    }
  });
}

void UILongPressGestureRecognizer::touchMoved(const UITouch& touch) {
  if (isActive()) {
    setState(UIGestureRecognizerState::kChanged);
  } else if (std::hypot(touch.location.x - start_.x, touch.location.y - start_.y) >
             kAllowableMovement) {
    setState(UIGestureRecognizerState::kFailed);
  }
}

void UILongPressGestureRecognizer::reset() {
  UIGestureRecognizer::reset();
  ++press_;
}

}  // namespace zephyl
