#include "platform/uikit/UIKitHost.h"

#include <cassert>

#include "platform/Host.h"

namespace zephyl {

UIKitHost& uikitHost() {
  UIKitHost* const screenHalf = host().uikit();
  assert(screenHalf != nullptr);
  return *screenHalf;
}

}  // namespace zephyl
