#include "platform/uikit/controls/UIControl.h"

#include <algorithm>
#include <utility>

#include "platform/uikit/gestures/UITapGestureRecognizer.h"

namespace zephyl {
namespace {

bool isSame(const std::weak_ptr<const void>& a, const std::weak_ptr<const void>& b) {
  return !a.owner_before(b) && !b.owner_before(a);
}

}  // namespace

void UIControl::addTarget(std::weak_ptr<const void> target, Action action, unsigned events) {
  targets_.push_back(std::make_shared<Target>(
      Target{/*guarded=*/true, std::move(target), std::move(action), events}));
}

void UIControl::addAction(Action action, unsigned events) {
  targets_.push_back(
      std::make_shared<Target>(Target{/*guarded=*/false, {}, std::move(action), events}));
}

void UIControl::removeTarget(const std::weak_ptr<const void>& target, unsigned events) {
  for (const auto& each : targets_) {
    if (each->guarded && isSame(each->object, target)) {
      each->events &= ~events;
    }
  }
  std::erase_if(targets_, [](const auto& each) { return each->events == 0; });
}

void UIControl::sendActionsForControlEvents(unsigned events) {
  const auto self = weak_from_this().lock();
  std::erase_if(targets_, [](const auto& each) { return each->guarded && each->object.expired(); });
  const auto targets = targets_;
  for (const auto& target : targets) {
    const auto object = target->object.lock();
    const bool alive = !target->guarded || object != nullptr;
    if (alive && (target->events & events) != 0 && target->action) {
      target->action(*this);
    }
  }
}

void UIControl::setEnabled(bool enabled) {
  if (enabled_ == enabled) {
    return;
  }
  enabled_ = enabled;
  stateDidChange();
  if (!enabled) {
    touchesCancelled({});
    resignFirstResponder();
  }
}

void UIControl::setHighlighted(bool highlighted) {
  if (highlighted_ == highlighted) {
    return;
  }
  highlighted_ = highlighted;
  stateDidChange();
}

void UIControl::setSelected(bool selected) {
  if (selected_ == selected) {
    return;
  }
  selected_ = selected;
  stateDidChange();
}

unsigned UIControl::state() const {
  return (highlighted_ ? kControlStateHighlighted : 0U) | (enabled_ ? 0U : kControlStateDisabled) |
         (selected_ ? kControlStateSelected : 0U);
}

bool UIControl::isNear(CGPoint location) const {
  return CGRectContainsPoint(CGRectInset(bounds(), -kTouchTolerance, -kTouchTolerance), location);
}

CGPoint UIControl::locationOf(const UITouch& touch) const {
  return convertPointFromView(touch.location, nullptr);
}

void UIControl::touchesBegan(const UITouch& touch) {
  if (!enabled_ || tracking_) {
    return;
  }
  const auto self = weak_from_this().lock();
  tracking_ = true;
  setHighlighted(true);
  beginTracking(locationOf(touch));
  sendActionsForControlEvents(kTouchDown);
}

void UIControl::touchesMoved(const UITouch& touch) {
  if (!tracking_) {
    return;
  }
  const auto self = weak_from_this().lock();
  const CGPoint location = locationOf(touch);
  setHighlighted(isNear(location));
  continueTracking(location);
}

void UIControl::touchesEnded(const UITouch& touch) {
  if (!std::exchange(tracking_, false)) {
    return;
  }
  const auto self = weak_from_this().lock();
  const CGPoint location = locationOf(touch);
  setHighlighted(false);
  endTracking(location);
  sendActionsForControlEvents(isNear(location) ? kTouchUpInside : kTouchUpOutside);
}

void UIControl::touchesCancelled(const UITouch& /*touch*/) {
  if (!std::exchange(tracking_, false)) {
    return;
  }
  const auto self = weak_from_this().lock();
  setHighlighted(false);
  cancelTracking();
  sendActionsForControlEvents(kTouchCancel);
}

bool UIControl::gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) {
  const bool around = gesture.view() != nullptr && !gesture.view()->isDescendantOfView(this);
  return !around || !enabled_ || dynamic_cast<const UITapGestureRecognizer*>(&gesture) == nullptr;
}

bool UIControl::pressesBegan(const UIKeyPress& press) {
  if (press.key != UIKey::kSpace && press.key != UIKey::kReturn) {
    return UIView::pressesBegan(press);
  }
  return accessibilityActivate() || UIView::pressesBegan(press);
}

UIAccessibilityState UIControl::accessibilityState() const {
  UIAccessibilityState state;
  state.enabled = enabled_;
  state.selected = selected_;
  state.focused = isFirstResponder();
  return state;
}

bool UIControl::accessibilityActivate() {
  if (!enabled_) {
    return false;
  }
  const auto self = weak_from_this().lock();
  sendActionsForControlEvents(kTouchDown);
  if (enabled_) {
    sendActionsForControlEvents(kTouchUpInside);
  }
  return true;
}

}  // namespace zephyl
