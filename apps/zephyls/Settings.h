// The settings that the user may look at and change.

#pragma once

#include <array>
#include <string>

#include "platform/foundation/Value.h"

#include "model/ZPSettings.h"

namespace zephyl::app {

enum class SettingType { kSwitch, kNumber, kMinutes };

struct Setting {
  const char* key;
  SettingType type;
  const char* help;
};

inline constexpr std::array<Setting, 5> kSettings = {{
    {settings_keys::kEnabled, SettingType::kSwitch, "whether the extension is on"},
    {settings_keys::kSortBy, SettingType::kNumber, "user groups: 0 by title, 1 by creation date"},
    {settings_keys::kSortOrder, SettingType::kNumber, "0 ascending, 1 descending"},
    {settings_keys::kRememberSession, SettingType::kSwitch,
     "whether an unlocked group stays unlocked"},
    {settings_keys::kSessionTime, SettingType::kMinutes, "for so many minutes"},
}};

// What is odd about a key of the settings file, and how it is read; empty for nothing.
[[nodiscard]] std::string whyOddSetting(const std::string& key, const Value& value);

}  // namespace zephyl::app
