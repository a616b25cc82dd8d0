#include "hosts/fake/uikit/FakeScreen.h"

namespace zephyl::fake {

void FakeScreen::setBounds(const CGRect& bounds) {
  bounds_ = bounds;
  tell();
}

void FakeScreen::setScale(CGFloat scale) {
  scale_ = scale;
  tell();
}

void FakeScreen::setSafeAreaInsets(const UIEdgeInsets& insets) {
  safeAreaInsets_ = insets;
  tell();
}

void FakeScreen::setUserInterfaceStyle(UIUserInterfaceStyle style) {
  style_ = style;
  tell();
}

void FakeScreen::setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection direction) {
  direction_ = direction;
  tell();
}

void FakeScreen::setPrefersReducedMotion(bool reduced) {
  reducedMotion_ = reduced;
  tell();
}

void FakeScreen::tell() {
  // A copy, since the handler may set another.
  if (const auto handler = changeHandler_) {
    handler();
  }
}

}  // namespace zephyl::fake
