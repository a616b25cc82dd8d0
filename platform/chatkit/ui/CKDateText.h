// When something was, as lists of conversations say it: the time today, "Yesterday", the day of the
// last week, else the date; in the user's language and this machine's time zone. Any thread.

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

// Both in seconds since 1970. Empty for what is no time.
[[nodiscard]] ZP_EXPORT std::string conversationDateText(double date, double now);

}  // namespace zephyl
