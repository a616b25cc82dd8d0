// The user's preferences for the extension: read once per process, read-only ever after.
//
// Another program writes the file. Kept: its change notification does not make this read it again.

#pragma once

#include <cstdint>
#include <memory>

#include "platform/Export.h"

namespace zephyl {

// Posted in this process by whoever changed the settings file.
inline constexpr char kZephylsSettingsChangedNotification[] =
    "com.vantor.ZephylsSettingsChangedNotification";

// The keys of the settings file.
namespace settings_keys {

inline constexpr char kEnabled[] = "ZephylsEnabled";
inline constexpr char kSortBy[] = "ZephylsSortBy";
inline constexpr char kSortOrder[] = "ZephylsSortOrder";
inline constexpr char kRememberSession[] = "ZPRememberUnlockSessionEnabled";
inline constexpr char kSessionTime[] = "ZPRememberUnlockSessionTime";

}  // namespace settings_keys

class ZP_EXPORT ZPSettings {
 public:
  // Made once per process; any thread.
  [[nodiscard]] static std::shared_ptr<ZPSettings> sharedSettings();

  // Reads the settings file.
  ZPSettings();

  // A missing key, or a file that is missing or damaged, gives zero values: the extension counts as
  // disabled until the preferences say otherwise.
  void loadSettings();

  [[nodiscard]] bool isZephylsEnabled() const { return zephylsEnabled_; }
  void setZephylsEnabled(bool value) { zephylsEnabled_ = value; }

  // 0: user groups stand by title; any other value: by creation date.
  [[nodiscard]] std::int64_t zephylsSortBy() const { return zephylsSortBy_; }
  void setZephylsSortBy(std::int64_t value) { zephylsSortBy_ = value; }

  // 0: ascending; any other value: descending.
  [[nodiscard]] std::int64_t zephylsSortOrder() const { return zephylsSortOrder_; }
  void setZephylsSortOrder(std::int64_t value) { zephylsSortOrder_ = value; }

  // Kept: the letters are transposed; other code calls it so.
  [[nodiscard]] bool isRememberUnlcokSession() const { return rememberUnlcokSession_; }
  void setRememberUnlcokSession(bool value) { rememberUnlcokSession_ = value; }

  // Minutes, fractions allowed; passed through single precision when it was read.
  [[nodiscard]] double unlockSessionTime() const { return unlockSessionTime_; }
  void setUnlockSessionTime(double value) { unlockSessionTime_ = value; }

 private:
  bool zephylsEnabled_ = false;
  std::int64_t zephylsSortBy_ = 0;
  std::int64_t zephylsSortOrder_ = 0;
  bool rememberUnlcokSession_ = false;
  double unlockSessionTime_ = 0.0;
};

}  // namespace zephyl
