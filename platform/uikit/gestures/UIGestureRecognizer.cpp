#include "platform/uikit/gestures/UIGestureRecognizer.h"

#include <algorithm>

#include "platform/uikit/UIView.h"
#include "platform/uikit/gestures/TouchDispatcher.h"

namespace zephyl {
namespace {

CGPoint inView(CGPoint location, const UIView* view) {
  return view == nullptr ? location : view->convertPointFromView(location, nullptr);
}

}  // namespace

void UIGestureRecognizer::setEnabled(bool enabled) {
  if (enabled_ == enabled) {
    return;
  }
  enabled_ = enabled;
  if (!enabled) {
    prevent();
  }
}

CGPoint UIGestureRecognizer::locationInView(const UIView* view) const {
  return inView(location_, view);
}

CGPoint UIGestureRecognizer::locationOfTouch(int index, const UIView* view) const {
  const bool down = index >= 0 && index < static_cast<int>(touches_.size());
  return inView(down ? touches_[static_cast<std::size_t>(index)].location : location_, view);
}

bool UIGestureRecognizer::followsTouches() const {
  return enabled_ && (state_ == UIGestureRecognizerState::kPossible || isActive());
}

void UIGestureRecognizer::receiveTouch(const UITouch& touch) {
  if (!followsTouches()) {
    return;
  }
  const auto self = weak_from_this().lock();
  follow(touch);
  handleTouch(touch);
}

void UIGestureRecognizer::follow(const UITouch& touch) {
  const bool down = touch.phase == UITouchPhase::kBegan || touch.phase == UITouchPhase::kMoved;
  const auto known = std::find_if(touches_.begin(), touches_.end(), [&touch](const UITouch& other) {
    return other.identifier == touch.identifier;
  });
  if (known == touches_.end()) {
    if (down) {
      touches_.push_back(touch);
    }
  } else if (down) {
    *known = touch;
  } else {
    touches_.erase(known);
  }
  numberOfTouches_ = static_cast<int>(touches_.size());
  if (touches_.empty()) {
    location_ = touch.location;
    return;
  }
  CGPoint sum;
  for (const UITouch& each : touches_) {
    sum.x += each.location.x;
    sum.y += each.location.y;
  }
  const auto count = static_cast<CGFloat>(touches_.size());
  location_ = {sum.x / count, sum.y / count};
}

void UIGestureRecognizer::prevent() {
  if (isActive()) {
    setState(UIGestureRecognizerState::kCancelled);
  } else if (state_ == UIGestureRecognizerState::kPossible && !touches_.empty()) {
    setState(UIGestureRecognizerState::kFailed);
  }
}

void UIGestureRecognizer::reset() {
  state_ = UIGestureRecognizerState::kPossible;
  touches_.clear();
  numberOfTouches_ = 0;
}

void UIGestureRecognizer::setView(UIView* view) {
  if (view_ == view) {
    return;
  }
  // First of all: it may be the end of the view, which nobody is to see any more.
  view_ = view;
  prevent();
}

bool UIGestureRecognizer::mayBegin() {
  if (shouldBegin && !shouldBegin(*this)) {
    return false;
  }
  const auto dispatcher = dispatcher_.lock();
  return dispatcher == nullptr || dispatcher->mayBegin(*this);
}

void UIGestureRecognizer::setState(UIGestureRecognizerState state) {
  const auto self = weak_from_this().lock();
  const bool begins =
      state_ == UIGestureRecognizerState::kPossible &&
      (state == UIGestureRecognizerState::kBegan || state == UIGestureRecognizerState::kEnded);
  if (begins && !mayBegin()) {
    state_ = UIGestureRecognizerState::kFailed;
    return;
  }
  state_ = state;
  if (begins) {
    if (const auto dispatcher = dispatcher_.lock()) {
      dispatcher->didBegin(*this);
    }
  }
  if (action_ && state != UIGestureRecognizerState::kPossible &&
      state != UIGestureRecognizerState::kFailed) {
    action_(*this);
  }
}

}  // namespace zephyl
