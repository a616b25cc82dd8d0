#include "apps/common/ReleaseNumber.h"

#include <charconv>

namespace zephyl::app {

std::string whyNoRelease(const std::string& text) {
  bool digit = false;
  for (const char c : text) {
    if (c == '.' && digit) {
      digit = false;
    } else if (c >= '0' && c <= '9') {
      digit = true;
    } else {
      return "not a release number such as 12.4.1: " + text;
    }
  }
  if (!digit) {
    return "not a release number such as 12.4.1: " + text;
  }
  constexpr int kFirst = 6;
  constexpr int kLast = 14;
  int major = 0;
  const auto parsed = std::from_chars(text.data(), text.data() + text.size(), major);
  return parsed.ec == std::errc() && major >= kFirst && major <= kLast
             ? std::string()
             : "no release that is known: " + text + "; known are those from 6 to 14";
}

}  // namespace zephyl::app
