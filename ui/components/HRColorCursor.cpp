#include "ui/components/HRColorCursor.h"

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

#include "ui/components/HSVColor.h"

namespace zephyl {
namespace {

constexpr CGFloat kRingWidth = 4;
constexpr CGFloat kEditingScale = 1.6;
constexpr double kEditingTime = 0.1;
constexpr double kPaleBrightness = 0.7;
constexpr double kPaleSaturation = 0.4;

}  // namespace

HRColorCursor::HRColorCursor(const CGRect& frame)
    : UIView(frame), ring_(std::make_shared<CALayer>()), fill_(std::make_shared<CALayer>()) {
  setOpaque(false);
  setUserInteractionEnabled(false);
  const CGRect ring = {{0, 0}, cursorSize()};
  ring_->setFrame(ring);
  ring_->setCornerRadius(ring.width() / 2);
  fill_->setFrame(CGRectInset(ring, kRingWidth, kRingWidth));
  fill_->setCornerRadius(ring.width() / 2 - kRingWidth);
  ring_->addSublayer(fill_);
  layer()->addSublayer(ring_);
  showStyle();
}

std::shared_ptr<HRColorCursor> HRColorCursor::colorCursorWithPoint(CGPoint point) {
  return std::make_shared<HRColorCursor>(CGRect{point, cursorSize()});
}

void HRColorCursor::setColor(const UIColor& color) {
  if (color_ == color) {
    return;
  }
  color_ = color;
  performWithoutAnimation([this] { fill_->setBackgroundColor(color_); });
  HSVColor hsv;
  HSVColorFromUIColor(color, &hsv);
  setGrayCursor(hsv.v > kPaleBrightness && hsv.s < kPaleSaturation);
}

void HRColorCursor::setGrayCursor(bool gray) {
  if (grayCursor_ == gray) {
    return;
  }
  grayCursor_ = gray;
  showStyle();
}

void HRColorCursor::showStyle() {
  const CGFloat hairline = 1 / UIScreen::mainScreen().scale();
  performWithoutAnimation([&] {
    ring_->setBackgroundColor(grayCursor_ ? UIColor::colorWithWhite(0.65, 1)
                                          : UIColor::colorWithWhite(1, 0.7));
    ring_->setBorderColor(UIColor::colorWithWhite(0, 0.3));
    ring_->setBorderWidth(grayCursor_ ? hairline : 0);
    // The shadow that the ring throws on the colour.
    fill_->setBorderColor(UIColor::colorWithWhite(0, 0.2));
    fill_->setBorderWidth(grayCursor_ ? 1 : 0);
  });
}

void HRColorCursor::setEditing(bool editing) {
  if (editing_ == editing) {
    return;
  }
  editing_ = editing;
  const CGFloat scale = editing ? kEditingScale : 1;
  animateWithDuration(kEditingTime, 0,
                      kAnimationAllowUserInteraction | kAnimationBeginFromCurrentState,
                      [&] { ring_->setTransform(CGAffineTransformMakeScale(scale, scale)); });
}

}  // namespace zephyl
