#include "platform/uikit/controllers/SheetPresentation.h"

#include <algorithm>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/DimmingView.h"

namespace zephyl {

namespace {

constexpr CGFloat kGapAbove = 10;
constexpr CGFloat kCornerRadius = 10;
// On a screen wider than a phone's the card keeps off the sides.
constexpr CGFloat kMaximumWidth = 704;

}  // namespace

UIEdgeInsets SheetPresentation::safeAreaInsets() const {
  UIEdgeInsets insets = UIPresentationController::safeAreaInsets();
  insets.top = 0;
  return insets;
}

CGRect SheetPresentation::frameOfPresentedView() const {
  const CGRect bounds = containerView()->bounds();
  const CGFloat top =
      std::min(UIPresentationController::safeAreaInsets().top + kGapAbove, bounds.height());
  const CGFloat width = std::min(bounds.width(), kMaximumWidth);
  return CGRectMake((bounds.width() - width) / 2, top, width, bounds.height() - top);
}

void SheetPresentation::presentationWillBegin() {
  dimming_ = makeDimmingView(containerView()->bounds());
  containerView()->addSubview(dimming_);
  CALayer& layer = *presentedViewController()->view()->layer();
  layer.setCornerRadius(kCornerRadius);
  layer.setMaskedCorners(static_cast<unsigned>(UIRectCorner::kTopLeft) |
                         static_cast<unsigned>(UIRectCorner::kTopRight));
  layer.setMasksToBounds(true);
}

void SheetPresentation::presentationDidEnd() {
  CALayer& layer = *presentedViewController()->view()->layer();
  layer.setCornerRadius(0);
  layer.setMaskedCorners(kAllCorners);
  layer.setMasksToBounds(false);
}

void SheetPresentation::showGone(bool appearing) {
  UIPresentationController::showGone(appearing);
  dimming_->setAlpha(0);
}

void SheetPresentation::showPresented() {
  UIPresentationController::showPresented();
  dimming_->setAlpha(1);
}

}  // namespace zephyl
