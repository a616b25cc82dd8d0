// The text form of a property-list value, for people and logs.

#pragma once

#include <string>

#include "platform/Export.h"
#include "platform/foundation/Value.h"

namespace zephyl {

[[nodiscard]] ZP_EXPORT std::string description(const Value& value);

}  // namespace zephyl
