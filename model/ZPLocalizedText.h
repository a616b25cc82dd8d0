// The library's user-visible texts: the key is the English text.

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

// The path of the settings bundle on the phone.
inline constexpr char kZephylsSettingsBundlePath[] =
    "/System/Library/PreferenceBundles/ZephylsSettings.bundle";

// From the settings bundle, opened anew each time; when it cannot be opened, from the main bundle.
// A key that no table knows comes back as it is. Any thread.
[[nodiscard]] ZP_EXPORT std::string zpLocalizedText(const std::string& key);

}  // namespace zephyl
