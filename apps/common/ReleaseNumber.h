// The number of a release of the phone's system, as command lines take it. Any thread.

#pragma once

#include <string>

namespace zephyl::app {

// For CLI::Validator: empty for a decimal number as systems number their releases, such as 6.1,
// 12.4.1 and 14, from 6 to any 14.
[[nodiscard]] std::string whyNoRelease(const std::string& text);

// Whether the systems of that release, which is one, have a dark appearance: they do from 13 on.
// What is drawn on others is light, whatever the user or the desktop wishes: their screens have
// white grounds of their own.
[[nodiscard]] bool hasDarkAppearance(const std::string& release);

}  // namespace zephyl::app
