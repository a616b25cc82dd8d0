#include "hosts/linux/screen/LinuxScreen.h"

#include <algorithm>
#include <cmath>

namespace zephyl::linux_host {

namespace {

CGFloat saneScale(CGFloat scale) {
  constexpr CGFloat kSmallest = 0.5;
  constexpr CGFloat kLargest = 16;
  return std::isfinite(scale) ? std::clamp(scale, kSmallest, kLargest) : 1;
}

CGRect boundsOf(CGSize size) {
  return CGRectMake(0, 0, std::max(finite(size.width), 1.0), std::max(finite(size.height), 1.0));
}

}  // namespace

LinuxScreen::LinuxScreen(const ScreenOptions& options)
    : wantedStyle_(options.style),
      wantedReducedMotion_(options.reducedMotion),
      bounds_(boundsOf(options.size)),
      safeAreaInsets_(options.safeAreaInsets),
      scale_(saneScale(options.scale)),
      direction_(options.rightToLeft ? UIUserInterfaceLayoutDirection::kRightToLeft
                                     : UIUserInterfaceLayoutDirection::kLeftToRight) {
  settle();
}

void LinuxScreen::setGeometry(CGSize size, CGFloat scale) {
  const CGRect bounds = boundsOf(size);
  const CGFloat sane = saneScale(scale);
  if (bounds == bounds_ && sane == scale_) {
    return;
  }
  bounds_ = bounds;
  scale_ = sane;
  tell();
}

void LinuxScreen::setSafeAreaInsets(const UIEdgeInsets& insets) {
  if (insets != safeAreaInsets_) {
    safeAreaInsets_ = insets;
    tell();
  }
}

void LinuxScreen::setStyle(std::optional<UIUserInterfaceStyle> style) {
  wantedStyle_ = style;
  if (settle()) {
    tell();
  }
}

void LinuxScreen::setDesktopSettings(std::optional<UIUserInterfaceStyle> style,
                                     std::optional<bool> reducedMotion) {
  desktopStyle_ = style;
  desktopReducedMotion_ = reducedMotion;
  if (settle()) {
    tell();
  }
}

bool LinuxScreen::settle() {
  const UIUserInterfaceStyle style =
      wantedStyle_.value_or(desktopStyle_.value_or(UIUserInterfaceStyle::kLight));
  const bool reduced = wantedReducedMotion_.value_or(desktopReducedMotion_.value_or(false));
  if (style == style_ && reduced == reducedMotion_) {
    return false;
  }
  style_ = style;
  reducedMotion_ = reduced;
  return true;
}

void LinuxScreen::tell() {
  // The handler may set another one.
  if (const auto handler = changeHandler_) {
    handler();
  }
}

}  // namespace zephyl::linux_host
