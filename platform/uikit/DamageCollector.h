// Gathers what has to be drawn anew between two pictures, as few rectangles that do not overlap,
// and pixels that only move. Never loses an area; may give more than was asked. Main thread.

#pragma once

#include <vector>

#include "platform/Export.h"
#include "platform/uikit/LayerSurface.h"

namespace zephyl {

class ZP_EXPORT DamageCollector {
 public:
  // Empty rectangles are nothing.
  void add(const CGRect& rect);

  // What is seen in `area` moves by (dx, dy). What was to be drawn anew in it moves along, and the
  // strips that move in are to be drawn anew.
  void move(const CGRect& area, CGFloat dx, CGFloat dy);

  [[nodiscard]] bool empty() const { return rects_.empty() && moves_.empty(); }

  // All since the last call: rectangles of whole pixels, at `scale` pixels a point, inside
  // `bounds`, at most `kMostRects`. Moves that are no whole number of pixels are drawn anew
  // instead.
  [[nodiscard]] Damage take(const CGRect& bounds, CGFloat scale);

  static constexpr std::size_t kMostRects = 12;

 private:
  void keepWithinPixels(Damage::Move& move, CGFloat scale);

  std::vector<CGRect> rects_;
  std::vector<Damage::Move> moves_;
};

}  // namespace zephyl
