// Whether a form of property lists can hold a value; asked before anything is written.

#pragma once

#include <optional>
#include <string>

#include "platform/foundation/Value.h"

namespace zephyl::detail {

enum class PropertyListForm { kXml, kBinary };

// The reason with the way to the part at fault, "REASON, at [2].contacts[0]"; null when all is
// well.
[[nodiscard]] std::optional<std::string> whyNotPropertyList(const Value& root,
                                                            PropertyListForm form);

}  // namespace zephyl::detail
