// The commands about the extension's settings file.

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Host.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListFile.h"

#include "apps/common/CommandError.h"
#include "apps/common/DeviceLock.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Json.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "apps/zephyls/Settings.h"
#include "model/ZPSettings.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

const Setting& settingNamed(const std::string& key) {
  std::string names;
  for (const Setting& setting : kSettings) {
    if (key == setting.key) {
      return setting;
    }
    names += std::string(" ") + setting.key;
  }
  throw CommandError("no setting is named \"" + key + "\"; there are:" + names, kWrongUsage);
}

// The file as it is; a file that cannot be read is an error, so that nothing in it is lost.
Dictionary storedSettings(const Session& session) {
  const std::string path = ZPUtils::settingsFilePath();
  const std::string shown = session.places().onDevice(path).string();
  const auto bytes = host().files().contentsAtPath(path);
  if (!bytes) {
    throw CommandError("cannot read the settings " + shown);
  }
  const PropertyListResult list = readPropertyList(*bytes);
  if (!list.ok()) {
    throw CommandError(list.error().message(shown) +
                       "; mend the file, or move it away to start with new settings");
  }
  if (list.value().ifDictionary() == nullptr) {
    throw CommandError(shown +
                       ": the root is no dictionary; mend the file, or move it away to "
                       "start with new settings");
  }
  return *list.value().ifDictionary();
}

// As stored, converted to the type of the setting; null where the file says nothing.
Value valueOf(const Dictionary& settings, const Setting& setting) {
  const Value* stored = settings.find(setting.key);
  if (stored == nullptr) {
    return {};
  }
  switch (setting.type) {
    case SettingType::kSwitch:
      return stored->boolValue();
    case SettingType::kNumber:
      return stored->integerValue();
    case SettingType::kMinutes:
      return stored->doubleValue();
  }
  return {};
}

std::optional<Value> switchFrom(const std::string& text) {
  for (const char* yes : {"on", "true", "yes", "1"}) {
    if (text == yes) {
      return Value(true);
    }
  }
  for (const char* no : {"off", "false", "no", "0"}) {
    if (text == no) {
      return Value(false);
    }
  }
  return std::nullopt;
}

template <class Number>
std::optional<Value> numberFrom(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(Value(number)) : std::nullopt;
}

Value valueFrom(const std::string& text, const Setting& setting) {
  std::optional<Value> value;
  std::string wanted;
  switch (setting.type) {
    case SettingType::kSwitch:
      value = switchFrom(text);
      wanted = "on or off,";
      break;
    case SettingType::kNumber:
      value = numberFrom<std::int64_t>(text);
      if (value && (value->integerValue() < 0 || value->integerValue() > setting.last)) {
        value.reset();
      }
      wanted = std::string("one of these numbers: ").append(setting.help) + ";";
      break;
    case SettingType::kMinutes:
      value = numberFrom<double>(text);
      if (value && !(std::isfinite(value->doubleValue()) && value->doubleValue() >= 0)) {
        value.reset();
      }
      wanted = "a number of minutes,";
      break;
  }
  if (!value) {
    throw CommandError(std::string(setting.key) + " takes " + wanted + " not \"" + text + "\"",
                       kWrongUsage);
  }
  return *value;
}

std::string textOf(const Value& value) {
  if (value.isNull()) {
    return "not set";
  }
  return value.ifBoolean() != nullptr ? (*value.ifBoolean() ? "on" : "off") : jsonOf(value).dump();
}

void printOne(Output& output, const Setting& setting, const Value& value) {
  if (output.isJson()) {
    output.object({{"key", setting.key}, {"value", jsonOf(value)}});
  } else {
    output.line(textOf(value));
  }
}

}  // namespace

std::string whyOddSetting(const std::string& key, const Value& value) {
  for (const Setting& setting : kSettings) {
    if (key != setting.key) {
      continue;
    }
    const bool isNumber = value.ifInteger() != nullptr || value.ifReal() != nullptr;
    const bool fits = setting.type == SettingType::kSwitch
                          ? value.ifBoolean() != nullptr || value.ifInteger() != nullptr
                          : isNumber;
    return fits ? std::string()
                : "has another type than it is written with; it is read as " +
                      textOf(valueOf(Dictionary{{key, value}}, setting));
  }
  return "is not known; it is kept";
}

int listSettings(Session& session, Output& output) {
  session.startDevice();
  const Dictionary settings = storedSettings(session);
  std::vector<Row> rows;
  for (const Setting& setting : kSettings) {
    const Value value = valueOf(settings, setting);
    if (output.isJson()) {
      printOne(output, setting, value);
    } else {
      rows.push_back({{setting.key, Style::kBold}, {textOf(value)}, {setting.help, Style::kDim}});
    }
  }
  output.table(rows);
  return session.exitStatus();
}

int getSetting(Session& session, Output& output) {
  const Setting& setting = settingNamed(session.options().key);
  session.startDevice();
  printOne(output, setting, valueOf(storedSettings(session), setting));
  return session.exitStatus();
}

int setSetting(Session& session, Output& output) {
  const Setting& setting = settingNamed(session.options().key);
  const Value value = valueFrom(session.options().value, setting);
  session.startDevice();
  const DeviceLock lock(session.places().device);
  Dictionary settings = storedSettings(session);
  settings.set(setting.key, value);
  const std::string path = ZPUtils::settingsFilePath();
  if (!writeToFile(settings, path)) {
    throw CommandError("cannot write the settings " + session.places().onDevice(path).string());
  }
  printOne(output, setting, value);
  return session.exitStatus();
}

}  // namespace zephyl::app
