#include "platform/foundation/PropertyListXmlCharacters.h"

#include <algorithm>

#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

constexpr std::size_t kStretch = 64;

// Also of the control characters only those that XML allows.
bool isPlainAscii(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte >= 0x20 && byte < 0x80) || byte == '\t' || byte == '\n' || byte == '\r';
}

// Of `kStretch` bytes. Without a branch, so that many are looked at in one instruction.
bool isPlainAscii(const char* bytes) {
  unsigned wrong = 0;
  for (std::size_t i = 0; i < kStretch; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    const unsigned isControl =
        static_cast<unsigned>(byte < 0x20) & static_cast<unsigned>(byte != '\t') &
        static_cast<unsigned>(byte != '\n') & static_cast<unsigned>(byte != '\r');
    wrong |= isControl | static_cast<unsigned>(byte >= 0x80);
  }
  return wrong == 0;
}

}  // namespace

bool isXmlCharacter(char32_t c) {
  return c >= 0x20 ? c <= 0xD7FF || (c >= 0xE000 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0x10FFFF)
                   : c == '\t' || c == '\n' || c == '\r';
}

std::size_t findForbiddenXml(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    if (text.size() - at >= kStretch && isPlainAscii(text.data() + at)) {
      at += kStretch;
      continue;
    }
    const std::size_t end = std::min(at + kStretch, text.size());
    while (at < end) {
      if (isPlainAscii(text[at])) {
        ++at;
        continue;
      }
      const Utf8Character character = utf8CharacterAt(text, at);
      if (character.length == 0 || !isXmlCharacter(character.codePoint)) {
        return at;
      }
      at += character.length;
    }
  }
  return std::string_view::npos;
}

}  // namespace zephyl::detail
