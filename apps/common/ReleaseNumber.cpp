#include "apps/common/ReleaseNumber.h"

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
  return digit ? std::string() : "not a release number such as 12.4.1: " + text;
}

}  // namespace zephyl::app
