// White space as the platform's character sets have it. Pure functions of UTF-8 text, any thread.

#pragma once

#include <string_view>

#include "platform/Export.h"

namespace zephyl {

// Spaces of any width, the zero-width one and the tabulator among them; no line breaks.
[[nodiscard]] ZP_EXPORT bool isWhiteSpace(char32_t character);

[[nodiscard]] ZP_EXPORT bool isWhiteSpaceOrNewline(char32_t character);

// The part of `text` without white space at either end. Bytes that are no valid UTF-8 are kept.
[[nodiscard]] ZP_EXPORT std::string_view trimmedOfWhiteSpace(std::string_view text);
[[nodiscard]] ZP_EXPORT std::string_view trimmedOfWhiteSpaceAndNewlines(std::string_view text);

}  // namespace zephyl
