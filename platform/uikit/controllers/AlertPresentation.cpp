#include "platform/uikit/controllers/AlertPresentation.h"

#include <algorithm>
#include <cmath>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/UIView.h"
#include "platform/uikit/controllers/DimmingView.h"

namespace zephyl {

namespace {

constexpr double kAlertDuration = 0.25;
constexpr double kSheetDuration = 0.4;
constexpr CGFloat kScaleBefore = 1.1;
constexpr CGFloat kSheetMargin = 8;

// The same, on whole pixels, so that texts and hairlines are sharp.
CGFloat onPixels(CGFloat length) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  return std::floor(length * scale) / scale;
}

}  // namespace

CGRect AlertPresentation::availableArea() const {
  return UIEdgeInsetsInsetRect(containerView()->bounds(), UIScreen::mainScreen().safeAreaInsets());
}

CGRect AlertPresentation::frameOfPresentedView() const {
  const CGRect area = availableArea();
  const CGSize size = presentedViewController()->view()->sizeThatFits(area.size);
  return {{onPixels(area.midX() - size.width / 2), onPixels(area.midY() - size.height / 2)}, size};
}

double AlertPresentation::duration(bool /*appearing*/) const {
  return kAlertDuration;
}

void AlertPresentation::presentationWillBegin() {
  dimming_ = makeDimmingView(containerView()->bounds());
  containerView()->addSubview(dimming_);
}

void AlertPresentation::presentationHasBegun() {
  presentedViewController()->view()->becomeFirstResponder();
}

void AlertPresentation::showGone(bool appearing) {
  const auto& view = presentedViewController()->view();
  view->setAlpha(0);
  dimming_->setAlpha(0);
  if (appearing) {
    view->setTransform(CGAffineTransformMakeScale(kScaleBefore, kScaleBefore));
  }
}

void AlertPresentation::showPresented() {
  const auto& view = presentedViewController()->view();
  view->setAlpha(1);
  dimming_->setAlpha(1);
  view->setTransform(CGAffineTransformIdentity);
}

CGRect ActionSheetPresentation::frameOfPresentedView() const {
  const CGRect bounds = containerView()->bounds();
  const CGRect area = availableArea();
  const CGSize size = presentedViewController()->view()->sizeThatFits(area.size);
  const CGFloat bottom = std::min(area.maxY(), bounds.maxY() - kSheetMargin);
  return {{onPixels(area.midX() - size.width / 2), bottom - size.height}, size};
}

double ActionSheetPresentation::duration(bool /*appearing*/) const {
  return kSheetDuration;
}

void ActionSheetPresentation::touchedOutside() {
  presentedViewController()->accessibilityPerformEscape();
}

void ActionSheetPresentation::showGone(bool appearing) {
  AlertPresentation::showGone(appearing);
  const auto& view = presentedViewController()->view();
  view->setAlpha(1);
  view->setTransform(CGAffineTransformIdentity);
  moveBelow();
}

}  // namespace zephyl
