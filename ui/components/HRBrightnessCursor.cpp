#include "ui/components/HRBrightnessCursor.h"

#include "platform/uikit/UIViewAnimation.h"

namespace zephyl {
namespace {

constexpr CGFloat kSide = 28;
constexpr CGFloat kRingWidth = 3;
constexpr CGFloat kEditingScale = 1.3;
constexpr double kEditingTime = 0.1;

}  // namespace

HRBrightnessCursor::HRBrightnessCursor(const CGRect& frame)
    : UIView({frame.origin, {kSide, kSide}}),
      knob_(std::make_shared<CALayer>()),
      fill_(std::make_shared<CALayer>()) {
  setOpaque(false);
  setUserInteractionEnabled(false);
  knob_->setFrame(bounds());
  knob_->setCornerRadius(kSide / 2);
  knob_->setBackgroundColor(UIColor::whiteColor());
  knob_->setShadow({{0, 1}, 3, UIColor::colorWithWhite(0, 0.4)});
  fill_->setFrame(CGRectInset(bounds(), kRingWidth, kRingWidth));
  fill_->setCornerRadius(kSide / 2 - kRingWidth);
  knob_->addSublayer(fill_);
  layer()->addSublayer(knob_);
}

void HRBrightnessCursor::setColor(const UIColor& color) {
  if (color_ == color) {
    return;
  }
  color_ = color;
  performWithoutAnimation([this] { fill_->setBackgroundColor(color_); });
}

void HRBrightnessCursor::setEditing(bool editing) {
  if (editing_ == editing) {
    return;
  }
  editing_ = editing;
  const CGFloat scale = editing ? kEditingScale : 1;
  animateWithDuration(kEditingTime, 0,
                      kAnimationAllowUserInteraction | kAnimationBeginFromCurrentState,
                      [&] { knob_->setTransform(CGAffineTransformMakeScale(scale, scale)); });
}

}  // namespace zephyl
