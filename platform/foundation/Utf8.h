// Strict UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF. Pure functions, any
// thread.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace zephyl {

struct Utf8Character {
  char32_t codePoint = 0;
  std::size_t length = 0;  // in bytes; 0 when no valid character starts there
};

// The character that starts at `text[at]`; `at` is inside the text.
[[nodiscard]] ZP_EXPORT Utf8Character utf8CharacterAt(std::string_view text, std::size_t at);

// Where the first byte stands that begins no valid character; npos when all is well.
[[nodiscard]] ZP_EXPORT std::size_t findInvalidUtf8(std::string_view text);

// Each byte that is part of no valid character is replaced by U+FFFD.
[[nodiscard]] ZP_EXPORT std::string repairedUtf8(std::string_view text);

// The number of UTF-16 units that the text takes, by which the platform counts characters.
[[nodiscard]] ZP_EXPORT std::size_t utf16Length(std::string_view text);

// Precondition: a Unicode scalar value, no surrogate.
ZP_EXPORT void appendUtf8(std::string& text, char32_t codePoint);

enum class ByteOrder { kLittleEndian, kBigEndian };

struct Utf16Conversion {
  std::string text;
  // Byte offset of the first unit that cannot be converted (a lone surrogate, half a unit at the
  // end); npos when all was converted.
  std::size_t invalidAt = std::string_view::npos;
};

[[nodiscard]] ZP_EXPORT Utf16Conversion utf8FromUtf16(std::string_view bytes, ByteOrder order);

}  // namespace zephyl
