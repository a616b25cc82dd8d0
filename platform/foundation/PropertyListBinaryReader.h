// Reads the binary form of property lists.

#pragma once

#include <string_view>

#include "platform/foundation/PropertyList.h"

namespace zephyl::detail {

// `bytes` begin with "bplist".
[[nodiscard]] PropertyListResult readBinaryPropertyList(std::string_view bytes);

}  // namespace zephyl::detail
