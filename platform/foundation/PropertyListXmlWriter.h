// Writes the XML form of property lists.

#pragma once

#include <string>

#include "platform/foundation/Value.h"

namespace zephyl::detail {

// Precondition: `whyNotPropertyList` has nothing against the value in XML.
[[nodiscard]] std::string writeXml(const Value& root);

}  // namespace zephyl::detail
