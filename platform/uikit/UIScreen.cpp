#include "platform/uikit/UIScreen.h"

#include "platform/uikit/UIKitHost.h"

namespace zephyl {

UIScreen& UIScreen::mainScreen() {
  return uikitHost().screen();
}

bool UIScreen::isRightToLeft() {
  return userInterfaceLayoutDirection() == UIUserInterfaceLayoutDirection::kRightToLeft;
}

CGRect UIScreen::applicationFrame() {
  return UIEdgeInsetsInsetRect(bounds(), {safeAreaInsets().top, 0, 0, 0});
}

}  // namespace zephyl
