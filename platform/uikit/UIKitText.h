// Texts of the system's own buttons and elements: "Done", "Cancel", "Back".

#pragma once

#include <string>

#include "platform/Export.h"

namespace zephyl {

// From the table of the system's interface framework, opened anew each time. Where that has no text
// for the key, the key, which is the English text. Any thread.
[[nodiscard]] ZP_EXPORT std::string uikitText(const std::string& key);

}  // namespace zephyl
