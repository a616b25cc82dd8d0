#include "model/ZPLocalizedText.h"

#include <string_view>

#include "platform/foundation/NSBundle.h"

namespace zephyl {

std::string zpLocalizedText(const std::string& key) {
  if (const auto bundle = NSBundle::bundleWithPath(kZephylsSettingsBundlePath)) {
    return bundle->localizedStringForKey(key);
  }
  return NSBundle::mainBundle()->localizedStringForKey(key, "");
}

std::string zpFilledText(const std::string& format, const std::vector<std::string>& texts) {
  constexpr std::string_view kPlace = "%@";
  std::string result;
  std::size_t from = 0;
  for (const std::string& text : texts) {
    const std::size_t place = format.find(kPlace, from);
    if (place == std::string::npos) {
      break;
    }
    result.append(format, from, place - from).append(text);
    from = place + kPlace.size();
  }
  return result.append(format, from);
}

}  // namespace zephyl
