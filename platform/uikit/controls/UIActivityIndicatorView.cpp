#include "platform/uikit/controls/UIActivityIndicatorView.h"

#include <cmath>
#include <numbers>

#include "platform/uikit/CGContext.h"
#include "platform/uikit/DisplayFrames.h"
#include "platform/uikit/UIDevice.h"
#include "platform/uikit/UIKitText.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {
namespace {

// Seconds a turn.
constexpr double kTurn = 0.8;
constexpr CGFloat kFaintest = 0.25;

CGSize sizeOf(UIActivityIndicatorViewStyle style) {
  const bool large = style == UIActivityIndicatorViewStyle::kWhiteLarge ||
                     style == UIActivityIndicatorViewStyle::kLarge;
  return large ? CGSize{37, 37} : CGSize{20, 20};
}

int bladeCount() {
  return systemVersionIsAtLeast(13.0F) ? 8 : 12;
}

// The blade that points upwards, in a wheel of `side` points around the origin.
RoundedRect blade(CGFloat side, int count) {
  const CGFloat width = side * (count == 8 ? 0.12 : 0.085);
  const CGFloat length = side * 0.26;
  return {CGRectMake(-width / 2, -side / 2, width, length), width / 2};
}

}  // namespace

UIActivityIndicatorView::UIActivityIndicatorView(UIActivityIndicatorViewStyle style)
    : UIView({{0, 0}, sizeOf(style)}), style_(style) {
  setOpaque(false);
  setUserInteractionEnabled(false);
  setHidden(true);
}

UIColor UIActivityIndicatorView::color() const {
  if (color_) {
    return *color_;
  }
  switch (style_) {
    case UIActivityIndicatorViewStyle::kWhiteLarge:
    case UIActivityIndicatorViewStyle::kWhite:
      return UIColor::whiteColor();
    case UIActivityIndicatorViewStyle::kGray:
      return UIColor::grayColor();
    case UIActivityIndicatorViewStyle::kMedium:
    case UIActivityIndicatorViewStyle::kLarge:
      break;
  }
  return UIColor::secondaryLabelColor();
}

void UIActivityIndicatorView::setColor(const UIColor& color) {
  if (color_ == color) {
    return;
  }
  color_ = color;
  setNeedsDisplay();
}

void UIActivityIndicatorView::startAnimating() {
  if (animating_) {
    return;
  }
  animating_ = true;
  setHidden(false);
  turn();
}

void UIActivityIndicatorView::stopAnimating() {
  if (!animating_) {
    return;
  }
  animating_ = false;
  setHidden(hidesWhenStopped_);
}

void UIActivityIndicatorView::setHidesWhenStopped(bool hides) {
  if (hidesWhenStopped_ == hides) {
    return;
  }
  hidesWhenStopped_ = hides;
  setHidden(hides && !animating_);
}

void UIActivityIndicatorView::didMoveToWindow() {
  turn();
}

void UIActivityIndicatorView::turn() {
  if (turning_ || !animating_ || window() == nullptr ||
      UIScreen::mainScreen().prefersReducedMotion()) {
    return;
  }
  turning_ = true;
  addFrameCallback(weak_from_this(), [this](double timestamp) { return proceed(timestamp); });
}

bool UIActivityIndicatorView::proceed(double timestamp) {
  turning_ = animating_ && window() != nullptr && !UIScreen::mainScreen().prefersReducedMotion();
  if (!turning_) {
    return false;
  }
  const int count = bladeCount();
  const int step = static_cast<int>(std::fmod(timestamp, kTurn) / kTurn * count);
  if (step != step_) {
    step_ = step;
    setNeedsDisplay();
  }
  return true;
}

void UIActivityIndicatorView::drawRect(CGContext& context, const CGRect& rect) {
  const int count = bladeCount();
  const CGFloat side = std::min(rect.width(), rect.height());
  const UIColor full = color();
  for (int index = 0; index < count; ++index) {
    // The darkest blade is the one that the turn has reached; those behind it fade.
    const int behind = (step_ - index + 2 * count) % count;
    const CGFloat fading = 1 - static_cast<CGFloat>(behind) / count;
    const CGFloat alpha = kFaintest + (1 - kFaintest) * fading;
    context.saveState();
    context.concat(
        CGAffineTransformConcat(CGAffineTransformMakeRotation(2 * std::numbers::pi * index / count),
                                CGAffineTransformMakeTranslation(rect.midX(), rect.midY())));
    context.fill(blade(side, count), full.colorWithAlphaComponent(alpha));
    context.restoreState();
  }
}

CGSize UIActivityIndicatorView::sizeThatFits(CGSize /*size*/) const {
  return sizeOf(style_);
}

CGSize UIActivityIndicatorView::intrinsicContentSize() const {
  return sizeOf(style_);
}

UIAccessibilityState UIActivityIndicatorView::accessibilityState() const {
  UIAccessibilityState state;
  state.busy = animating_;
  return state;
}

std::string UIActivityIndicatorView::derivedAccessibilityLabel() const {
  return uikitText("In progress");
}

}  // namespace zephyl
