// Sizes that rows, headers and tables share, in points.

#pragma once

#include "platform/uikit/CGGeometry.h"

namespace zephyl {

// From the edge of a table of that width to its texts.
[[nodiscard]] CGFloat marginOfRows(CGFloat width);

constexpr CGFloat kRowHeight = 44;

}  // namespace zephyl
