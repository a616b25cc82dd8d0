// How a scroll view moves along one axis: with a finger, on its own after a flick, and back from
// beyond its edges. Plain numbers; no thread of its own.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"

namespace zephyl {

// The offsets at which the contents end: `highest` is never below `lowest`.
struct ZP_EXPORT ScrollRange {
  CGFloat lowest = 0;
  CGFloat highest = 0;
  [[nodiscard]] CGFloat clamp(CGFloat offset) const;
  [[nodiscard]] bool contains(CGFloat offset) const;
};

// The offset that is shown where a finger asks for `offset`: the same within the range; beyond it
// less and less, never by `extent` or more, which is the length of the scroll view.
[[nodiscard]] ZP_EXPORT CGFloat rubberBand(CGFloat offset, const ScrollRange& range,
                                           CGFloat extent);
// The other way round: what a finger asks for where `shown` is seen.
[[nodiscard]] ZP_EXPORT CGFloat withoutRubberBand(CGFloat shown, const ScrollRange& range,
                                                  CGFloat extent);

class ZP_EXPORT ScrollMotion {
 public:
  // `velocity` is in points a second, positive towards higher offsets.
  ScrollMotion(CGFloat offset, CGFloat velocity);

  [[nodiscard]] CGFloat offset() const { return offset_; }
  [[nodiscard]] CGFloat velocity() const { return velocity_; }

  // Lets `seconds` pass: within the range the velocity decays to 0.998 of itself each millisecond;
  // beyond it, where that may be, a spring pulls back. Whether it still moves.
  bool step(double seconds, const ScrollRange& range, bool bounces);

 private:
  void decelerate(double seconds);
  bool pullBack(double seconds, CGFloat edge);

  CGFloat offset_;
  CGFloat velocity_;
};

}  // namespace zephyl
