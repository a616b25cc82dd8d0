// The characters that XML allows in a file.

#pragma once

#include <cstddef>
#include <string_view>

namespace zephyl::detail {

[[nodiscard]] bool isXmlCharacter(char32_t c);

// Where the first byte stands that is not UTF-8, or the first character that XML forbids; npos when
// all is well.
[[nodiscard]] std::size_t findForbiddenXml(std::string_view text);

}  // namespace zephyl::detail
