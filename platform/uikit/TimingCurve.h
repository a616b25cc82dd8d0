// How far a change has come at a moment: the cubic curves that animations run by. A value.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"

namespace zephyl {

// From (0, 0) to (1, 1) by the control points (x1, y1) and (x2, y2), whose x are from 0 to 1.
class ZP_EXPORT TimingCurve {
 public:
  constexpr TimingCurve(double x1, double y1, double x2, double y2)
      : x1_(x1), y1_(y1), x2_(x2), y2_(y2) {}

  // By the curve's bits of UIViewAnimationOptions.
  [[nodiscard]] static TimingCurve forOptions(unsigned options);

  // The part of the way at that part of the time, which is clamped to 0 to 1.
  [[nodiscard]] double at(double time) const;

 private:
  double x1_;
  double y1_;
  double x2_;
  double y2_;
};

}  // namespace zephyl
