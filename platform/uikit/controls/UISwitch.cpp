#include "platform/uikit/controls/UISwitch.h"

#include <cmath>
#include <utility>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"

namespace zephyl {
namespace {

constexpr CGFloat kThumb = 27;
// A thumb that is held grows towards the middle.
constexpr CGFloat kHeldThumb = 34;
constexpr CGFloat kMargin = (UISwitch::kSize.height - kThumb) / 2;
constexpr CGFloat kDragSlop = 4;
constexpr double kTurningTime = 0.25;

UIColor offColor() {
  return UIColor::dynamic(UIColor::colorWithRed(233 / 255.0, 233 / 255.0, 234 / 255.0, 1),
                          UIColor::colorWithRed(57 / 255.0, 57 / 255.0, 61 / 255.0, 1));
}

CGRect sized(const CGRect& frame) {
  return {frame.origin, UISwitch::kSize};
}

}  // namespace

UISwitch::UISwitch(const CGRect& frame)
    : UIControl(sized(frame)), thumb_(std::make_shared<CALayer>()) {
  setOpaque(false);
  layer()->setCornerRadius(kSize.height / 2);
  thumb_->setBackgroundColor(UIColor::whiteColor());
  thumb_->setCornerRadius(kThumb / 2);
  thumb_->setShadow({{0, 3}, 8, UIColor::colorWithWhite(0, 0.15)});
  layer()->addSublayer(thumb_);
  show(/*animated=*/false);
}

void UISwitch::setFrame(const CGRect& frame) {
  UIControl::setFrame(sized(frame));
}

void UISwitch::setBounds(const CGRect& bounds) {
  UIControl::setBounds(sized(bounds));
}

void UISwitch::layoutSubviews() {
  // The direction of the language may have changed.
  thumb_->setFrame(thumbFrame());
}

void UISwitch::setOn(bool on, bool animated) {
  if (on_ == on) {
    return;
  }
  on_ = on;
  shownOn_ = on;
  show(animated);
}

void UISwitch::setOnTintColor(const UIColor& color) {
  if (onTintColor_ == color) {
    return;
  }
  onTintColor_ = color;
  show(/*animated=*/false);
}

CGRect UISwitch::thumbFrame() const {
  const CGFloat width = isHighlighted() ? kHeldThumb : kThumb;
  const bool right = shownOn_ != UIScreen::mainScreen().isRightToLeft();
  return CGRectMake(right ? kSize.width - kMargin - width : kMargin, kMargin, width, kThumb);
}

void UISwitch::show(bool animated) {
  const auto changes = [this] {
    setBackgroundColor(shownOn_ ? onTintColor_ : offColor());
    thumb_->setFrame(thumbFrame());
    layer()->setOpacity(isEnabled() ? 1 : 0.5);
  };
  if (animated) {
    animateWithDuration(kTurningTime, 0,
                        kAnimationAllowUserInteraction | kAnimationBeginFromCurrentState, changes);
  } else {
    performWithoutAnimation(changes);
  }
}

void UISwitch::stateDidChange() {
  show(/*animated=*/window() != nullptr);
}

void UISwitch::turnByUser(bool on) {
  shownOn_ = on;
  const bool turned = std::exchange(on_, on) != on;
  show(/*animated=*/true);
  if (turned) {
    sendActionsForControlEvents(kValueChanged);
  }
}

void UISwitch::beginTracking(CGPoint location) {
  dragged_ = false;
  dragStart_ = location.x;
}

void UISwitch::continueTracking(CGPoint location) {
  dragged_ = dragged_ || std::abs(location.x - dragStart_) > kDragSlop;
  const bool right = location.x > kSize.width / 2;
  const bool on = right != UIScreen::mainScreen().isRightToLeft();
  if (dragged_ && on != shownOn_) {
    shownOn_ = on;
    show(/*animated=*/true);
  }
}

void UISwitch::endTracking(CGPoint location) {
  if (dragged_) {
    turnByUser(shownOn_);
  } else if (isNear(location)) {
    turnByUser(!on_);
  }
}

void UISwitch::cancelTracking() {
  shownOn_ = on_;
  show(/*animated=*/true);
}

bool UISwitch::gestureRecognizerShouldBegin(const UIGestureRecognizer& gesture) {
  const auto* const pan = dynamic_cast<const UIPanGestureRecognizer*>(&gesture);
  if (pan != nullptr && isTracking()) {
    return (pan->allowedDirections() & kPanVertically) != 0 && !dragged_;
  }
  return UIControl::gestureRecognizerShouldBegin(gesture);
}

std::string UISwitch::accessibilityValue() const {
  return uikitText(on_ ? "On" : "Off");
}

UIAccessibilityState UISwitch::accessibilityState() const {
  UIAccessibilityState state = UIControl::accessibilityState();
  state.checked = on_;
  return state;
}

bool UISwitch::accessibilityActivate() {
  if (!isEnabled()) {
    return false;
  }
  const auto self = weak_from_this().lock();
  turnByUser(!on_);
  return true;
}

}  // namespace zephyl
