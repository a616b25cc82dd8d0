#include "apps/common/TextDirection.h"

#include <filesystem>
#include <system_error>

#include "apps/common/Places.h"
#include "hosts/linux/Languages.h"
#include "model/ZPLocalizedText.h"

namespace zephyl::app {

bool textsRunFromRightToLeft(const std::vector<std::string>& languages) {
  namespace fs = std::filesystem;
  const fs::path bundle = overlayFolder() / fs::path(kZephylsSettingsBundlePath).relative_path();
  for (const std::string& language : languages) {
    // "zh-Hans-CN" is served by "zh-Hans" and "zh" too.
    for (std::size_t end = language.size(); end != std::string::npos && end > 0;
         end = language.rfind('-', end - 1)) {
      std::error_code error;
      if (fs::is_directory(bundle / (language.substr(0, end) + ".lproj"), error)) {
        return linux_host::isRightToLeft(language);
      }
    }
  }
  return false;
}

}  // namespace zephyl::app
