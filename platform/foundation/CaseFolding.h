// Comparing texts without regard to the case of their letters, as the platform does where it does
// not go by a language. Pure functions, any thread.

#pragma once

#include <string>
#include <string_view>

#include "platform/Export.h"

namespace zephyl {

// Each character as Unicode's simple case folding has it, one for one: "Ä" and "ä" become the same,
// "ß" and "ss" do not, and accents stay. Bytes that are no valid UTF-8 stay as they are.
[[nodiscard]] ZP_EXPORT std::string caseFolded(std::string_view text);

}  // namespace zephyl
