#include "model/ZPSettings.h"

#include "platform/Once.h"
#include "platform/foundation/PropertyListFile.h"

#include "services/ZPUtils.h"

namespace zephyl {

std::shared_ptr<ZPSettings> ZPSettings::sharedSettings() {
  static Once<ZPSettings> shared;
  return shared.get([] { return std::make_shared<ZPSettings>(); });
}

ZPSettings::ZPSettings() {
  loadSettings();
}

void ZPSettings::loadSettings() {
  const Dictionary settings =
      dictionaryWithContentsOfFile(ZPUtils::settingsFilePath()).value_or(Dictionary());
  setZephylsEnabled(settings[settings_keys::kEnabled].boolValue());
  setZephylsSortBy(settings[settings_keys::kSortBy].integerValue());
  setZephylsSortOrder(settings[settings_keys::kSortOrder].integerValue());
  setRememberUnlcokSession(settings[settings_keys::kRememberSession].boolValue());
  setUnlockSessionTime(settings[settings_keys::kSessionTime].floatValue());
}

}  // namespace zephyl
