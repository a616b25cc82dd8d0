// The settings that the user may look at and change.

#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/foundation/Value.h"

#include "model/ZPSettings.h"

namespace zephyl::app {

enum class SettingType { kSwitch, kNumber, kMinutes };

struct Setting {
  const char* key;
  SettingType type;
  const char* help;
  // Of a number: what there is are those from 0 to this one, which the help tells apart.
  std::int64_t last = 0;
};

inline constexpr std::array<Setting, 5> kSettings = {{
    {settings_keys::kEnabled, SettingType::kSwitch, "whether the extension is on"},
    {settings_keys::kSortBy, SettingType::kNumber, "user groups: 0 by title, 1 by creation date",
     1},
    {settings_keys::kSortOrder, SettingType::kNumber, "0 ascending, 1 descending", 1},
    {settings_keys::kRememberSession, SettingType::kSwitch,
     "whether an unlocked group stays unlocked"},
    {settings_keys::kSessionTime, SettingType::kMinutes, "for so many minutes"},
}};

// What is odd about a key of the settings file, and how it is read; empty for nothing.
[[nodiscard]] std::string whyOddSetting(const std::string& key, const Value& value);

}  // namespace zephyl::app
