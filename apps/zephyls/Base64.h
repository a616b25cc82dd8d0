// Bytes as text: base64 with padding, on one line. Pure functions, any thread.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/Value.h"

namespace zephyl::app {

[[nodiscard]] std::string base64(const Data& bytes);

// Nothing for text that `base64` does not write.
[[nodiscard]] std::optional<Data> bytesOfBase64(std::string_view text);

}  // namespace zephyl::app
