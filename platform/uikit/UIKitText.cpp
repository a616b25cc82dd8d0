#include "platform/uikit/UIKitText.h"

#include "platform/foundation/NSBundle.h"

namespace zephyl {

std::string uikitText(const std::string& key) {
  const auto bundle = NSBundle::bundleWithPath("/System/Library/Frameworks/UIKit.framework");
  return bundle == nullptr ? key : bundle->localizedStringForKey(key, key, "UIKit");
}

}  // namespace zephyl
