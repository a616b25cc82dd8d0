#include "platform/uikit/TimingCurve.h"

#include "platform/uikit/UIViewEnumerations.h"

namespace zephyl {
namespace {

constexpr unsigned kCurveBits = 3U << 16U;
// Halving so often finds the place on the curve to well under a pixel of any screen.
constexpr int kHalvings = 40;

double bezier(double first, double second, double t) {
  const double rest = 1 - t;
  return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

}  // namespace

TimingCurve TimingCurve::forOptions(unsigned options) {
  switch (options & kCurveBits) {
    case kAnimationCurveEaseIn:
      return {0.42, 0, 1, 1};
    case kAnimationCurveEaseOut:
      return {0, 0, 0.58, 1};
    case kAnimationCurveLinear:
      return {0, 0, 1, 1};
    default:
      return {0.42, 0, 0.58, 1};
  }
}

double TimingCurve::at(double time) const {
  if (!(time > 0)) {
    return 0;
  }
  if (time >= 1) {
    return 1;
  }
  if (x1_ == y1_ && x2_ == y2_) {
    return time;
  }
  double low = 0;
  double high = 1;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2;
    (bezier(x1_, x2_, middle) < time ? low : high) = middle;
  }
  return bezier(y1_, y2_, (low + high) / 2);
}

}  // namespace zephyl
