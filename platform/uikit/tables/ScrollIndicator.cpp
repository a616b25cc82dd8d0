#include "platform/uikit/tables/ScrollIndicator.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIViewAnimation.h"

namespace zephyl {
namespace {

constexpr CGFloat kMargin = 3;
constexpr CGFloat kLeastPulled = 8;

}  // namespace

ScrollIndicator::ScrollIndicator() {
  setBackgroundColor(
      UIColor::dynamic(UIColor::colorWithWhite(0, 0.35), UIColor::colorWithWhite(1, 0.5)));
  layer()->setCornerRadius(kWidth / 2);
  setUserInteractionEnabled(false);
  setAlpha(0);
}

void ScrollIndicator::place(const CGRect& track, CGFloat first, CGFloat part) {
  const bool needed = part < 1 && track.height() > 2 * kMargin + kShortest;
  setHidden(!needed);
  if (!needed) {
    return;
  }
  const CGFloat length = track.height() - 2 * kMargin;
  const CGFloat full = std::max(kShortest, length * std::max(0.0, part));
  // What is pulled beyond an end is taken from the bar.
  const CGFloat beyond = std::max({0.0, -first, first + part - 1});
  const CGFloat bar = std::max(kLeastPulled, full - beyond * length);
  const CGFloat way = std::clamp(first / std::max(1e-9, 1 - part), 0.0, 1.0);
  const CGFloat x = UIScreen::mainScreen().isRightToLeft() ? track.x() + kMargin
                                                           : track.maxX() - kMargin - kWidth;
  setFrame(CGRectMake(x, track.y() + kMargin + way * (length - bar), kWidth, bar));
}

void ScrollIndicator::show() {
  layer()->removeAllAnimations();
  setAlpha(1);
}

void ScrollIndicator::fade() {
  if (alpha() == 0) {
    return;
  }
  animateWithDuration(0.25, 0.4, kAnimationAllowUserInteraction, [this] { setAlpha(0); });
}

}  // namespace zephyl
