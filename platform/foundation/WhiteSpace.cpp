#include "platform/foundation/WhiteSpace.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/foundation/Utf8.h"

namespace zephyl {

namespace {

std::size_t startOfLastCharacter(std::string_view text) {
  std::size_t at = text.size() - 1;
  while (at > 0 && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U) {
    --at;
  }
  return at;
}

std::string_view trimmed(std::string_view text, bool (*isTrimmed)(char32_t)) {
  while (!text.empty()) {
    const Utf8Character first = utf8CharacterAt(text, 0);
    if (first.length == 0 || !isTrimmed(first.codePoint)) {
      break;
    }
    text.remove_prefix(first.length);
  }
  while (!text.empty()) {
    const std::size_t at = startOfLastCharacter(text);
    const Utf8Character last = utf8CharacterAt(text, at);
    if (last.length == 0 || at + last.length != text.size() || !isTrimmed(last.codePoint)) {
      break;
    }
    text.remove_suffix(last.length);
  }
  return text;
}

}  // namespace

bool isWhiteSpace(char32_t character) {
  constexpr std::array<char32_t, 7> kSpaces = {U' ', U'\t', 0xA0, 0x1680, 0x202F, 0x205F, 0x3000};
  return (character >= 0x2000 && character <= 0x200B) ||
         std::find(kSpaces.begin(), kSpaces.end(), character) != kSpaces.end();
}

bool isWhiteSpaceOrNewline(char32_t character) {
  return isWhiteSpace(character) || (character >= 0x0A && character <= 0x0D) || character == 0x85 ||
         character == 0x2028 || character == 0x2029;
}

std::string_view trimmedOfWhiteSpace(std::string_view text) {
  return trimmed(text, isWhiteSpace);
}

std::string_view trimmedOfWhiteSpaceAndNewlines(std::string_view text) {
  return trimmed(text, isWhiteSpaceOrNewline);
}

}  // namespace zephyl
