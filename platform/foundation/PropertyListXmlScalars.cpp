#include "platform/foundation/PropertyListXmlScalars.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/foundation/PropertyListLimits.h"

namespace zephyl::detail {

namespace {

constexpr std::string_view kWhiteSpace = " \t\r\n";
constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 64;
constexpr double kSecondsFrom1970To2001 = 978307200.0;

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

// Whether there was a sign to remove is told by the sign itself: 0 when there was none.
char removeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) {
    return 0;
  }
  const char sign = text.front();
  text.remove_prefix(1);
  return sign;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase) {
  return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                    [](char left, char right) {
                      return (left >= 'A' && left <= 'Z' ? left - 'A' + 'a' : left) == right;
                    });
}

std::optional<double> parseDouble(std::string_view text) {
  const bool negative = removeSign(text) == '-';
  if (equalsIgnoringCase(text, "inf") || equalsIgnoringCase(text, "infinity")) {
    const double infinity = std::numeric_limits<double>::infinity();
    return negative ? -infinity : infinity;
  }
  if (equalsIgnoringCase(text, "nan")) {
    return std::numeric_limits<double>::quiet_NaN();
  }
  if (text.empty() || (text.front() != '.' && (text.front() < '0' || text.front() > '9'))) {
    return std::nullopt;
  }
  double value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) {
    return std::nullopt;
  }
  return negative ? -value : value;
}

// The number of exactly `digits` digits at `at`, -1 when there is none.
int digitsAt(std::string_view text, std::size_t at, std::size_t digits) {
  int value = 0;
  for (std::size_t i = at; i < at + digits; ++i) {
    if (text[i] < '0' || text[i] > '9') {
      return -1;
    }
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

// Whole seconds since 2001 of YYYY-MM-DDThh:mm:ss.
std::optional<double> parseDateAndTime(std::string_view text) {
  constexpr std::string_view kForm = "0000-00-00T00:00:00";
  if (text.size() != kForm.size()) {
    return std::nullopt;
  }
  for (std::size_t i = 0; i < kForm.size(); ++i) {
    if (kForm[i] != '0' && text[i] != kForm[i]) {
      return std::nullopt;
    }
  }
  const int year = digitsAt(text, 0, 4);
  const int month = digitsAt(text, 5, 2);
  const int day = digitsAt(text, 8, 2);
  const int hour = digitsAt(text, 11, 2);
  const int minute = digitsAt(text, 14, 2);
  const int second = digitsAt(text, 17, 2);
  if (year < 0 || month < 1 || day < 1 || hour < 0 || hour > 23 || minute < 0 || minute > 59 ||
      second < 0 || second > 59) {
    return std::nullopt;
  }
  const std::chrono::year_month_day date{std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day))};
  if (!date.ok()) {
    return std::nullopt;
  }
  const auto days = static_cast<double>(std::chrono::sys_days(date).time_since_epoch().count());
  return days * 86400.0 + hour * 3600 + minute * 60 + second - kSecondsFrom1970To2001;
}

constexpr std::array<std::uint8_t, 256> kDigitOf = [] {
  std::array<std::uint8_t, 256> digits{};
  digits.fill(kNoDigit);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    digits[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return digits;
}();

}  // namespace

std::optional<Value> parseXmlInteger(std::string_view text) {
  text = trimmed(text);
  const bool negative = removeSign(text) == '-';
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint64_t magnitude = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, magnitude, base);
  if (error != std::errc() || stop != end) {
    return std::nullopt;
  }
  if (!negative) {
    return Value::ofUnsigned(magnitude);
  }
  if (magnitude > std::uint64_t{1} << 63U) {
    return std::nullopt;
  }
  return Value(static_cast<std::int64_t>(0 - magnitude));
}

std::optional<double> parseXmlReal(std::string_view text) {
  return parseDouble(trimmed(text));
}

std::optional<Date> parseXmlDate(std::string_view text, std::optional<std::string_view> fraction) {
  text = trimmed(text);
  if (!text.ends_with('Z')) {
    return std::nullopt;
  }
  text.remove_suffix(1);
  if (const std::size_t point = text.find('.'); point != std::string_view::npos && !fraction) {
    fraction = text.substr(point);
    text = text.substr(0, point);
    if (fraction->find_first_not_of("0123456789", 1) != std::string_view::npos) {
      return std::nullopt;
    }
  }
  const std::optional<double> seconds = parseDateAndTime(text);
  const std::optional<double> part = fraction ? parseDouble(*fraction) : 0.0;
  if (!seconds || !part || !(std::abs(*part) < 1.0) || !isDateInRange(*seconds + *part)) {
    return std::nullopt;
  }
  return Date{*seconds + *part};
}

std::optional<Data> parseBase64(std::string_view text) {
  Data bytes;
  bytes.reserve(text.size() / 4 * 3);
  std::uint32_t group = 0;
  unsigned digits = 0;
  unsigned padding = 0;
  for (const char c : text) {
    const std::uint8_t digit = kDigitOf[static_cast<unsigned char>(c)];
    if (digit == kNoDigit) {
      if (kWhiteSpace.find(c) != std::string_view::npos) {
        continue;
      }
      if (c != '=' || digits % 4 < 2 || ++padding + digits % 4 > 4) {
        return std::nullopt;
      }
      continue;
    }
    if (padding > 0) {
      return std::nullopt;
    }
    group = (group << 6U) | digit;
    if (++digits % 4 == 0) {
      bytes.push_back(static_cast<std::uint8_t>(group >> 16U));
      bytes.push_back(static_cast<std::uint8_t>(group >> 8U));
      bytes.push_back(static_cast<std::uint8_t>(group));
      group = 0;
    }
  }
  const unsigned left = digits % 4;
  if (left == 0) {
    return bytes;
  }
  if (left + padding != 4) {
    return std::nullopt;
  }
  group <<= 6U * padding;
  bytes.push_back(static_cast<std::uint8_t>(group >> 16U));
  if (left == 3) {
    bytes.push_back(static_cast<std::uint8_t>(group >> 8U));
  }
  return bytes;
}

void appendXmlReal(std::string& out, double value) {
  if (std::isnan(value)) {
    out += "nan";
  } else if (std::isinf(value)) {
    out += value < 0 ? "-infinity" : "infinity";
  } else {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    out.append(digits.data(), end);
  }
}

void appendXmlDate(std::string& out, Date date) {
  // Cut off toward zero: only so is the fraction exact for every double.
  const double whole = std::trunc(date.secondsSinceReferenceDate);
  const double fraction = date.secondsSinceReferenceDate - whole;
  const std::chrono::sys_seconds time{
      std::chrono::seconds(static_cast<std::int64_t>(whole + kSecondsFrom1970To2001))};
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day calendar(day);
  const std::chrono::hh_mm_ss clock(time - day);
  const auto append = [&out](std::int64_t number, std::size_t digits, char behind) {
    const std::string text = std::to_string(number);
    out.append(digits - text.size(), '0').append(text).push_back(behind);
  };
  if (fraction == 0.0) {
    out += "<date>";
  } else {
    out += "<date fraction=\"";
    appendXmlReal(out, fraction);
    out += "\">";
  }
  append(static_cast<int>(calendar.year()), 4, '-');
  append(static_cast<unsigned>(calendar.month()), 2, '-');
  append(static_cast<unsigned>(calendar.day()), 2, 'T');
  append(clock.hours().count(), 2, ':');
  append(clock.minutes().count(), 2, ':');
  append(clock.seconds().count(), 2, 'Z');
  out += "</date>";
}

void appendBase64(std::string& out, const Data& bytes, std::string_view indentation,
                  std::size_t width) {
  const std::size_t bytesInALine = width / 4 * 3;
  for (std::size_t at = 0; at < bytes.size(); at += 3) {
    if (at % bytesInALine == 0) {
      out += indentation;
    }
    const std::size_t there = std::min<std::size_t>(3, bytes.size() - at);
    std::uint32_t group = static_cast<std::uint32_t>(bytes[at]) << 16U;
    group |= there > 1 ? static_cast<std::uint32_t>(bytes[at + 1]) << 8U : 0U;
    group |= there > 2 ? bytes[at + 2] : 0U;
    out += {kAlphabet[group >> 18U], kAlphabet[(group >> 12U) & 63U],
            there > 1 ? kAlphabet[(group >> 6U) & 63U] : '=',
            there > 2 ? kAlphabet[group & 63U] : '='};
    if ((at + 3) % bytesInALine == 0 || at + 3 >= bytes.size()) {
      out += '\n';
    }
  }
}

}  // namespace zephyl::detail
