// The library's user-visible texts: the key is the English text. Any thread.

#pragma once

#include <string>
#include <vector>

#include "platform/Export.h"

namespace zephyl {

// The path of the settings bundle on the phone.
inline constexpr char kZephylsSettingsBundlePath[] =
    "/System/Library/PreferenceBundles/ZephylsSettings.bundle";

// From the settings bundle, opened anew each time; when it cannot be opened, from the main bundle.
// A key that no table knows comes back as it is.
[[nodiscard]] ZP_EXPORT std::string zpLocalizedText(const std::string& key);

// The format with its places "%@" filled in order; places for which there is no text stay.
[[nodiscard]] ZP_EXPORT std::string zpFilledText(const std::string& format,
                                                 const std::vector<std::string>& texts);

}  // namespace zephyl
