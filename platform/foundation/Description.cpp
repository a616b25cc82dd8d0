#include "platform/foundation/Description.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <vector>

#include "platform/foundation/Dictionary.h"

namespace zephyl {

namespace {

constexpr std::size_t kIndent = 4;

bool isBareWord(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
}

std::string quoted(const std::string& text) {
  if (isBareWord(text)) {
    return text;
  }
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      result += '\\';
    }
    if (c == '\n') {
      result += "\\n";
    } else {
      result += c;
    }
  }
  return result + "\"";
}

std::string real(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.16g", value);
  return text;
}

// As a number when it lies outside the years that the calendar knows.
std::string date(const Date& value) {
  const double seconds = value.secondsSince1970();
  if (!std::isfinite(seconds) || std::abs(seconds) > 9e11) {
    return real(seconds);
  }
  const std::chrono::sys_seconds time(
      std::chrono::seconds(static_cast<std::int64_t>(std::floor(seconds))));
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day calendar(day);
  const std::chrono::hh_mm_ss clock(time - day);
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d +0000",
                static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                static_cast<unsigned>(calendar.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text;
}

std::string data(const Data& bytes) {
  std::string result = "<";
  for (const std::uint8_t byte : bytes) {
    char text[3];
    std::snprintf(text, sizeof text, "%02x", byte);
    result += text;
  }
  return result + ">";
}

std::string scalar(const Value& value) {
  switch (value.type()) {
    case Value::Type::kBoolean:
    case Value::Type::kInteger:
      return std::to_string(value.integerValue());
    case Value::Type::kUnsigned:
      return std::to_string(*value.ifUnsigned());
    case Value::Type::kReal:
      return quoted(real(*value.ifReal()));
    case Value::Type::kDate:
      return quoted(date(*value.ifDate()));
    case Value::Type::kUid:
      return "<uid " + std::to_string(value.ifUid()->index) + ">";
    case Value::Type::kString:
      return quoted(*value.ifString());
    case Value::Type::kData:
      return data(*value.ifData());
    default:
      return "(null)";
  }
}

// One container that is being written, and how far it has come.
struct Level {
  const Array* array = nullptr;
  std::vector<const Dictionary::Entry*> entries;
  std::size_t next = 0;

  explicit Level(const Value& value) : array(value.ifArray()) {
    if (const Dictionary* dictionary = value.ifDictionary()) {
      for (const auto& entry : *dictionary) {
        entries.push_back(&entry);
      }
      std::sort(entries.begin(), entries.end(),
                [](const auto* left, const auto* right) { return left->first < right->first; });
    }
  }
  [[nodiscard]] std::size_t size() const { return array ? array->size() : entries.size(); }
};

bool isContainer(const Value& value) {
  return value.ifArray() != nullptr || value.ifDictionary() != nullptr;
}

}  // namespace

std::string description(const Value& root) {
  if (!isContainer(root)) {
    return scalar(root);
  }
  std::string text;
  std::vector<Level> levels;
  const auto open = [&](const Value& value) {
    levels.emplace_back(value);
    text += levels.back().array ? "(\n" : "{\n";
  };
  open(root);
  while (!levels.empty()) {
    Level& level = levels.back();
    const std::string indent((levels.size() - 1) * kIndent, ' ');
    if (level.next == level.size()) {
      text += indent + (level.array ? ")" : "}");
      const bool outermost = levels.size() == 1;
      levels.pop_back();
      if (!outermost) {
        const Level& outer = levels.back();
        text += outer.array ? (outer.next < outer.size() ? ",\n" : "\n") : ";\n";
      }
      continue;
    }
    const std::size_t at = level.next++;
    const Value& value = level.array ? (*level.array)[at] : level.entries[at]->second;
    text += indent + std::string(kIndent, ' ');
    if (!level.array) {
      text += quoted(level.entries[at]->first) + " = ";
    }
    if (isContainer(value)) {
      text += level.array ? "" : std::string(kIndent, ' ');
      open(value);
    } else {
      text += scalar(value);
      text += level.array ? (level.next < level.size() ? ",\n" : "\n") : ";\n";
    }
  }
  return text;
}

}  // namespace zephyl
