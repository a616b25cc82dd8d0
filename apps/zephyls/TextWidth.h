// How text takes up room on a terminal, and how text from elsewhere is made safe to show there.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zephyl::app {

// Columns that valid UTF-8 takes: two for wide characters and emoji, one for each other character
// as the reader sees it, combining marks included.
[[nodiscard]] std::size_t textWidth(std::string_view text);

// The text cut to at most `width` columns, its end replaced by an ellipsis when something was cut.
[[nodiscard]] std::string cutToWidth(std::string_view text, std::size_t width);

// One line without control characters, which could steer a terminal, and without the marks that
// reverse the order of what follows: each becomes a space or U+FFFD.
[[nodiscard]] std::string safeForTerminal(std::string_view text);

}  // namespace zephyl::app
