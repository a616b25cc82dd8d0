// Values between two others: `part` is 0 for the first, 1 for the second. Pure functions.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {

[[nodiscard]] ZP_EXPORT CGFloat mix(CGFloat from, CGFloat to, double part);
[[nodiscard]] ZP_EXPORT CGPoint mix(CGPoint from, CGPoint to, double part);
[[nodiscard]] ZP_EXPORT CGRect mix(const CGRect& from, const CGRect& to, double part);
// Through what is drawn: a clear colour has the other one's hue. Light and dark form each their
// own.
[[nodiscard]] ZP_EXPORT UIColor mix(const UIColor& from, const UIColor& to, double part);
// By move, turn, scale and shear, so that a turned view turns on its way and keeps its size.
[[nodiscard]] ZP_EXPORT CGAffineTransform mix(const CGAffineTransform& from,
                                              const CGAffineTransform& to, double part);

}  // namespace zephyl
