// Text of other people's, made fit to be shown in a desktop notice: short, without characters that
// steer a screen or turn the order of what follows, and never taken for markup. Pure, any thread.

#pragma once

#include <QString>
#include <cstddef>
#include <string_view>

namespace zephyl::linux_host {

inline constexpr std::size_t kMostCharactersOfTitle = 120;
inline constexpr std::size_t kMostCharactersOfBody = 600;

// UTF-8 on one line.
[[nodiscard]] QString noticeTitle(std::string_view text);

// UTF-8 with its line breaks. `isMarkup`: whether the reader takes tags and entities for such.
[[nodiscard]] QString noticeBody(std::string_view text, bool isMarkup);

}  // namespace zephyl::linux_host
