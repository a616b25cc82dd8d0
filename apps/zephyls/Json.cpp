#include "apps/zephyls/Json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <ctime>

#include <nlohmann/json.hpp>

#include "platform/foundation/Dictionary.h"

#include "apps/zephyls/Base64.h"

namespace zephyl::app {

namespace {

using Json = nlohmann::ordered_json;

// Property-list readers allow no deeper nesting, so this bounds the recursion below.
constexpr int kDeepest = 512;

Json jsonOf(const Value& value, int depth) {
  if (depth > kDeepest) {
    return nullptr;
  }
  switch (value.type()) {
    case Value::Type::kNull:
      return nullptr;
    case Value::Type::kBoolean:
      return *value.ifBoolean();
    case Value::Type::kInteger:
      return *value.ifInteger();
    case Value::Type::kUnsigned:
      return *value.ifUnsigned();
    case Value::Type::kReal:
      return *value.ifReal();
    case Value::Type::kDate:
      return isoTime(value.ifDate()->secondsSince1970());
    case Value::Type::kUid:
      return Json{{"CF$UID", value.ifUid()->index}};
    case Value::Type::kString:
      return *value.ifString();
    case Value::Type::kData:
      return base64(*value.ifData());
    case Value::Type::kArray: {
      Json array = Json::array();
      for (const Value& element : *value.ifArray()) {
        array.push_back(jsonOf(element, depth + 1));
      }
      return array;
    }
    case Value::Type::kDictionary: {
      Json object = Json::object();
      for (const auto& [key, element] : *value.ifDictionary()) {
        object[key] = jsonOf(element, depth + 1);
      }
      return object;
    }
  }
  return nullptr;
}

}  // namespace

nlohmann::ordered_json jsonOf(const Value& value) {
  return jsonOf(value, 0);
}

std::string isoTime(double seconds) {
  // To the microsecond: what doubles keep of times in this century. Databases and property lists
  // hold no time outside these bounds.
  constexpr double kFurthest = 9e12;
  constexpr std::int64_t kMicros = 1'000'000;
  const std::int64_t micros = std::llround(std::clamp(seconds, -kFurthest, kFurthest) * kMicros);
  const std::int64_t fraction = ((micros % kMicros) + kMicros) % kMicros;
  const std::time_t time = (micros - fraction) / kMicros;
  std::tm parts{};
  gmtime_r(&time, &parts);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &parts);
  std::string result = text.data();
  if (fraction > 0) {
    std::snprintf(text.data(), text.size(), ".%06lld", static_cast<long long>(fraction));
    result += text.data();
    result.erase(result.find_last_not_of('0') + 1);
  }
  return result + "Z";
}

std::optional<double> secondsOfIsoTime(const std::string& text) {
  std::tm parts{};
  const char* end = strptime(text.c_str(), "%Y-%m-%dT%H:%M:%S", &parts);
  if (end == nullptr || text.size() > 40) {
    return std::nullopt;
  }
  const std::string rest = end;
  const std::size_t digits = rest.starts_with('.') ? rest.find_first_not_of("0123456789", 1) : 0;
  if (digits == std::string::npos || digits == 1 || rest.substr(digits) != "Z") {
    return std::nullopt;
  }
  double fraction = 0;
  std::from_chars(rest.data(), rest.data() + digits, fraction);
  return static_cast<double>(timegm(&parts)) + fraction;
}

std::string localTime(double seconds) {
  const std::time_t time = static_cast<std::time_t>(std::floor(seconds));
  std::tm parts{};
  localtime_r(&time, &parts);
  std::array<char, 64> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts);
  return text.data();
}

}  // namespace zephyl::app
