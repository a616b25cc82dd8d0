// Writes the binary form of property lists.

#pragma once

#include "platform/foundation/Value.h"

namespace zephyl::detail {

// Equal scalars are written once, and so is a container that the value shares with itself.
// Precondition: `whyNotPropertyList` has nothing against the value in the binary form.
[[nodiscard]] Data writeBinary(const Value& root);

}  // namespace zephyl::detail
