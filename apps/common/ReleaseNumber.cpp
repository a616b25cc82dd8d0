#include "apps/common/ReleaseNumber.h"

#include <charconv>

namespace zephyl::app {

namespace {

// Zero for a text that does not begin with a number.
int majorNumber(const std::string& release) {
  int major = 0;
  std::from_chars(release.data(), release.data() + release.size(), major);
  return major;
}

}  // namespace

bool hasDarkAppearance(const std::string& release) {
  constexpr int kFirstDark = 13;
  return majorNumber(release) >= kFirstDark;
}

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
  const int major = majorNumber(text);
  return major >= kFirst && major <= kLast
             ? std::string()
             : "no release that is known: " + text + "; known are those from 6 to 14";
}

}  // namespace zephyl::app
