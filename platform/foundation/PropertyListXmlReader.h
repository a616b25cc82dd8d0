// Reads the XML form of property lists.

#pragma once

#include <string_view>

#include "platform/foundation/PropertyList.h"

namespace zephyl::detail {

// `text` is without a byte-order mark; whether it is UTF-8 is checked here.
[[nodiscard]] PropertyListResult readXmlPropertyList(std::string_view text);

}  // namespace zephyl::detail
