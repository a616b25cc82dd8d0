// The digits of a phone number as people write it.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zephyl::linux_host {

// Digits of any script as "0" to "9", letters that stand for digits as those ("1-800-MY-APPLE"),
// without what is dialled after the number (pauses, extensions). Empty when `text` is no number.
[[nodiscard]] std::string dialledDigits(std::string_view text);

// The last seven digits as a number; nullopt when there are fewer.
[[nodiscard]] std::optional<std::uint32_t> endingOf(std::string_view digits);

}  // namespace zephyl::linux_host
