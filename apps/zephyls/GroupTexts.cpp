#include "apps/zephyls/GroupTexts.h"

#include "platform/foundation/Utf8.h"

#include "apps/common/CommandError.h"

namespace zephyl::app {

namespace {

void checkFilled(const std::optional<std::string>& text, const char* what) {
  if (text && text->empty()) {
    throw CommandError(std::string(what) + " must not be empty", kWrongUsage);
  }
  checkText(text, what);
}

}  // namespace

void checkText(const std::optional<std::string>& text, const char* what) {
  if (text && findInvalidUtf8(*text) != std::string::npos) {
    throw CommandError(std::string(what) + " is no valid UTF-8", kWrongUsage);
  }
}

void checkTitle(const std::optional<std::string>& title) {
  checkFilled(title, "the title");
}

void checkMaskedText(const std::optional<std::string>& text) {
  checkFilled(text, "the masked text");
}

std::string markerCodeFrom(const std::string& colour) {
  if (colour == "none") {
    return {};
  }
  std::string digits = colour.starts_with('#') ? colour.substr(1) : colour;
  for (char& digit : digits) {
    if (digit >= 'A' && digit <= 'F') {
      digit = static_cast<char>(digit - 'A' + 'a');
    }
  }
  if ((digits.size() != 6 && digits.size() != 8) ||
      digits.find_first_not_of("0123456789abcdef") != std::string::npos) {
    throw CommandError("no colour such as ff8000, #ff8000 or ff8000c0: \"" + colour + "\"",
                       kWrongUsage);
  }
  return digits.size() == 6 ? digits + "ff" : digits;
}

}  // namespace zephyl::app
