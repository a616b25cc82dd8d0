#include "model/ZPLocalizedText.h"

#include "platform/foundation/NSBundle.h"

namespace zephyl {

std::string zpLocalizedText(const std::string& key) {
  if (const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath)) {
    return bundle->localizedStringForKey(key);
  }
  return NSBundle::mainBundle()->localizedStringForKey(key, "");
}

}  // namespace zephyl
