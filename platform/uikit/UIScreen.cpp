#include "platform/uikit/UIScreen.h"

#include "platform/uikit/UIKitHost.h"

namespace zephyl {

UIScreen& UIScreen::mainScreen() {
  return uikitHost().screen();
}

CGRect UIScreen::applicationFrame() {
  return UIEdgeInsetsInsetRect(bounds(), {safeAreaInsets().top, 0, 0, 0});
}

}  // namespace zephyl
