// The number of a release of the phone's system, as command lines take it.

#pragma once

#include <string>

namespace zephyl::app {

// For CLI::Validator: empty for a decimal number as systems number their releases, such as 6.1,
// 12.4.1 and 14, from 6 to any 14.
[[nodiscard]] std::string whyNoRelease(const std::string& text);

}  // namespace zephyl::app
