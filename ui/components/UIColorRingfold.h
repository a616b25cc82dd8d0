// Colours as texts. The conversions of group markers are members of UIColor (__zp...), whose header
// tells their contracts; this is the one that is none.

#pragma once

#include <string>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {

// "#rrggbb", what the colour picker shows. Each channel is truncated. Kept: channels beyond 0 to 1
// are not masked and reach into their neighbours.
[[nodiscard]] ZP_EXPORT std::string hexadecimalLabelText(const UIColor& color);

}  // namespace zephyl
