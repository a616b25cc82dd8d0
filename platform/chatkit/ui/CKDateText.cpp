#include "platform/chatkit/ui/CKDateText.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string_view>

#include "platform/chatkit/ui/CKText.h"

namespace zephyl {
namespace {

// The years 0 to 9999 lie within.
constexpr double kMost = 2.6e11;
constexpr std::int64_t kDaysOfWeek = 7;
constexpr const char* kTimeFormat = "SHORT_TIME_FORMAT";
constexpr const char* kDateFormat = "SHORT_DATE_FORMAT";
constexpr std::array kWeekdays = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                  "Thursday", "Friday", "Saturday"};

std::optional<std::tm> localTime(double date) {
  if (!(std::abs(date) < kMost)) {
    return std::nullopt;
  }
  const auto seconds = static_cast<std::time_t>(std::floor(date));
  std::tm parts{};
  return ::localtime_r(&seconds, &parts) == nullptr ? std::nullopt : std::optional(parts);
}

// Since some day.
std::int64_t dayNumber(const std::tm& parts) {
  const std::int64_t month = (parts.tm_mon + 10) % 12;
  const std::int64_t year = parts.tm_year + 1900 - (parts.tm_mon < 2 ? 1 : 0);
  return 365 * year + year / 4 - year / 100 + year / 400 + (month * 306 + 5) / 10 + parts.tm_mday;
}

std::string padded(int number, std::size_t digits) {
  std::string text = std::to_string(number);
  return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

// Of one letter of a pattern that stands there `count` times; empty for what is no such letter.
std::optional<std::string> field(char letter, std::size_t count, const std::tm& parts) {
  switch (letter) {
    case 'y': {
      const int year = parts.tm_year + 1900;
      return count == 2 ? padded(year % 100, 2) : padded(year, count);
    }
    case 'M':
      return padded(parts.tm_mon + 1, count);
    case 'd':
      return padded(parts.tm_mday, count);
    case 'H':
      return padded(parts.tm_hour, count);
    case 'h':
      return padded(parts.tm_hour % 12 == 0 ? 12 : parts.tm_hour % 12, count);
    case 'm':
      return padded(parts.tm_min, count);
    case 'a':
      return parts.tm_hour < 12 ? chatKitText("AM") : chatKitText("PM");
    default:
      return std::nullopt;
  }
}

std::string formatted(const std::tm& parts, std::string_view pattern) {
  std::string text;
  for (std::size_t at = 0; at < pattern.size();) {
    std::size_t end = at + 1;
    while (end < pattern.size() && pattern[end] == pattern[at]) {
      ++end;
    }
    text += field(pattern[at], end - at, parts).value_or(std::string(pattern, at, end - at));
    at = end;
  }
  return text;
}

// `otherwise` where the tables are missing.
std::string patternOr(const std::string& found, const char* key, const char* otherwise) {
  return found == key ? otherwise : found;
}

}  // namespace

std::string conversationDateText(double date, double now) {
  const auto then = localTime(date);
  const auto today = localTime(now);
  if (!then || !today) {
    return {};
  }
  const std::int64_t daysAgo = dayNumber(*today) - dayNumber(*then);
  if (daysAgo == 0) {
    return formatted(*then, patternOr(chatKitText(kTimeFormat), kTimeFormat, "HH:mm"));
  }
  if (daysAgo == 1) {
    return chatKitText("Yesterday");
  }
  if (daysAgo > 1 && daysAgo < kDaysOfWeek) {
    return chatKitText(kWeekdays.at(static_cast<std::size_t>(then->tm_wday)));
  }
  return formatted(*then, patternOr(chatKitText(kDateFormat), kDateFormat, "yyyy-MM-dd"));
}

}  // namespace zephyl
