#include "ui/components/HRBrightnessSlider.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

#include "ui/components/HRBrightnessCursor.h"
#include "ui/components/HRFingerTracking.h"

namespace zephyl {
namespace {

constexpr CGFloat kControlInset = 8;
constexpr double kStep = 0.05;

}  // namespace

HRBrightnessSlider::HRBrightnessSlider(const CGRect& frame)
    : UIControl(frame),
      gradient_(std::make_shared<CAGradientLayer>()),
      cursor_(std::make_shared<HRBrightnessCursor>()) {
  setOpaque(false);
  gradient_->setStartPoint({0, 0.5});
  gradient_->setEndPoint({1, 0.5});
  gradient_->setBorderColor(UIColor::lightGrayColor());
  gradient_->setMasksToBounds(true);
  layer()->addSublayer(gradient_);
  addSubview(cursor_);
  detail::trackFinger(
      *this, [this](CGPoint location) { update(location); },
      [this](bool editing) { cursor_->setEditing(editing); });
}

HRBrightnessSlider::~HRBrightnessSlider() = default;

UIColor HRBrightnessSlider::color() const {
  return needsToUpdateColor_ ? UIColor::colorWithHue(hsv_.h, hsv_.s, brightness_, 1) : color_;
}

void HRBrightnessSlider::setColor(const UIColor& color) {
  color_ = color;
  HSVColorFromUIColor(color, &hsv_);
  brightness_ = hsv_.v;
  needsToUpdateColor_ = true;
  updateCursor();
  updateGradient();
}

void HRBrightnessSlider::setBrightnessLowerLimit(double limit) {
  if (limit_ == finite(limit)) {
    return;
  }
  limit_ = finite(limit);
  updateCursor();
  setColor(color());
}

CGRect HRBrightnessSlider::frameForAlignmentRect(const CGRect& rect) {
  const UIEdgeInsets by = alignmentRectInsets();
  return UIEdgeInsetsInsetRect(rect, {-by.top, -by.left, -by.bottom, -by.right});
}

CGRect HRBrightnessSlider::alignmentRectForFrame(const CGRect& frame) {
  return UIEdgeInsetsInsetRect(frame, alignmentRectInsets());
}

void HRBrightnessSlider::layoutSubviews() {
  renderingFrame_ = alignmentRectForFrame({{0, 0}, bounds().size});
  controlFrame_ = CGRectInset(renderingFrame_, kControlInset, 0);
  gradient_->setFrame(renderingFrame_);
  gradient_->setCornerRadius(renderingFrame_.height() / 2);
  gradient_->setBorderWidth(1 / UIScreen::mainScreen().scale());
  updateCursor();
}

void HRBrightnessSlider::update(CGPoint location) {
  const CGFloat width = controlFrame_.width();
  if (width <= 0) {
    return;
  }
  const CGFloat along = std::clamp(finite(location.x) - controlFrame_.x(), 0.0, width);
  choose((1 - along / width) * (1 - limit_) + limit_);
}

void HRBrightnessSlider::choose(double brightness) {
  brightness_ = brightness;
  needsToUpdateColor_ = true;
  updateCursor();
  sendActionsForControlEvents(kValueChanged);
}

void HRBrightnessSlider::updateCursor() {
  cursor_->setColor(color());
  // With a limit of 1 all of the bar is full brightness.
  const double fraction = limit_ == 1 ? 1 : (brightness_ - limit_) / (1 - limit_);
  const double along = 1 - fraction;
  if (along < 0) {
    return;
  }
  performWithoutAnimation([&] {
    cursor_->setCenter(
        finite(CGPoint{controlFrame_.x() + controlFrame_.width() * along, controlFrame_.midY()}));
  });
}

void HRBrightnessSlider::updateGradient() {
  gradient_->setColors({UIColor::colorWithHue(hsv_.h, hsv_.s, 1, 1),
                        UIColor::colorWithHue(hsv_.h, hsv_.s, limit_, 1)});
}

bool HRBrightnessSlider::pressesBegan(const UIKeyPress& press) {
  if (isEnabled()) {
    switch (press.key) {
      case UIKey::kLeft:
      case UIKey::kUp:
        accessibilityIncrement();
        return true;
      case UIKey::kRight:
      case UIKey::kDown:
        accessibilityDecrement();
        return true;
      case UIKey::kHome:
        choose(1);
        return true;
      case UIKey::kEnd:
        choose(limit_);
        return true;
      default:
        break;
    }
  }
  return UIControl::pressesBegan(press);
}

void HRBrightnessSlider::accessibilityIncrement() {
  const double next = std::min(1.0, brightness_ + kStep);
  if (isEnabled() && next != brightness_) {
    choose(next);
  }
}

void HRBrightnessSlider::accessibilityDecrement() {
  const double next = std::max(std::min(limit_, 1.0), brightness_ - kStep);
  if (isEnabled() && next != brightness_) {
    choose(next);
  }
}

std::string HRBrightnessSlider::accessibilityValue() const {
  return std::to_string(std::lround(brightness_ * 100)) + " %";
}

std::string HRBrightnessSlider::derivedAccessibilityLabel() const {
  return uikitText("Brightness");
}

}  // namespace zephyl
