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
  setZephylsEnabled(settings["ZephylsEnabled"].boolValue());
  setZephylsSortBy(settings["ZephylsSortBy"].integerValue());
  setZephylsSortOrder(settings["ZephylsSortOrder"].integerValue());
  setRememberUnlcokSession(settings["ZPRememberUnlockSessionEnabled"].boolValue());
  setUnlockSessionTime(settings["ZPRememberUnlockSessionTime"].floatValue());
}

}  // namespace zephyl
