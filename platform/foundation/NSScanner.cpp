#include "platform/foundation/NSScanner.h"

#include <algorithm>
#include <limits>

#include "platform/foundation/Utf8.h"
#include "platform/foundation/WhiteSpace.h"

namespace zephyl {
namespace {

std::size_t skippingWhiteSpace(std::string_view text, std::size_t at) {
  while (at < text.size()) {
    const Utf8Character character = utf8CharacterAt(text, at);
    if (character.length == 0 || !isWhiteSpaceOrNewline(character.codePoint)) {
      break;
    }
    at += character.length;
  }
  return at;
}

std::optional<std::uint32_t> hexDigit(std::string_view text, std::size_t at) {
  const char c = at < text.size() ? text[at] : '\0';
  if (c >= '0' && c <= '9') {
    return static_cast<std::uint32_t>(c - '0');
  }
  if (c >= 'a' && c <= 'f') {
    return static_cast<std::uint32_t>(c - 'a' + 10);
  }
  if (c >= 'A' && c <= 'F') {
    return static_cast<std::uint32_t>(c - 'A' + 10);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::uint32_t> NSScanner::scanHexInt() {
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint32_t>::max();
  std::size_t at = skippingWhiteSpace(text_, at_);
  const std::string_view prefix = text_.substr(at, 2);
  if ((prefix == "0x" || prefix == "0X") && hexDigit(text_, at + 2)) {
    at += 2;
  }
  if (!hexDigit(text_, at)) {
    return std::nullopt;
  }
  std::uint64_t number = 0;
  while (const auto digit = hexDigit(text_, at)) {
    number = std::min(number * 16 + *digit, kLargest);
    ++at;
  }
  at_ = at;
  return static_cast<std::uint32_t>(number);
}

}  // namespace zephyl
