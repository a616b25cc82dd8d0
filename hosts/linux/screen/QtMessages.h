// What Qt tells on the standard error, without its remarks on what is no fault of the user's.

#pragma once

#include <string_view>

namespace zephyl::linux_host {

// From now on, for the whole process. To be called before the application is made.
void leaveOutQtRemarks();

// Whether a message of Qt's is a remark that needs nobody: that it chose a folder itself because
// the session has none, or that a font cannot shape a script for which another one is then taken.
[[nodiscard]] bool isQtRemark(std::string_view message);

}  // namespace zephyl::linux_host
