// Small text operations on the letters A to Z alone, whatever the locale; other bytes pass through.

#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace zephyl::linux_host::ascii {

[[nodiscard]] constexpr char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] constexpr char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr bool isLetter(char c) {
  return upper(c) >= 'A' && upper(c) <= 'Z';
}

[[nodiscard]] inline std::string upper(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return upper(c); });
  return result;
}

[[nodiscard]] inline std::string lower(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return lower(c); });
  return result;
}

[[nodiscard]] inline bool equal(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return upper(a) == upper(b); });
}

[[nodiscard]] inline bool startsWith(std::string_view text, std::string_view start) {
  return equal(text.substr(0, start.size()), start);
}

[[nodiscard]] constexpr std::string_view trimmed(std::string_view text) {
  constexpr std::string_view kSpace = " \t\r\n\f\v";
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

}  // namespace zephyl::linux_host::ascii
