// What a tree of layers is shown on: it is told what has to be drawn anew. Main thread.

#pragma once

#include <vector>

#include "platform/uikit/CGGeometry.h"

namespace zephyl {

// What is to be done to bring an old picture up to date: first the pixels of `area` move by (dx,
// dy), those that leave it are lost; then `rects`, which do not overlap, are drawn anew.
struct Damage {
  struct Move {
    CGRect area;
    CGFloat dx = 0;
    CGFloat dy = 0;
  };
  std::vector<Move> moves;
  std::vector<CGRect> rects;
  [[nodiscard]] bool empty() const { return moves.empty() && rects.empty(); }
};

class LayerSurface {
 public:
  virtual ~LayerSurface() = default;

  // In the space of the lowest layer.
  virtual void invalidate(const CGRect& rect) = 0;
  // All that is seen in `area` is moved; what moves in is invalidated by the surface.
  virtual void scroll(const CGRect& area, CGFloat dx, CGFloat dy) = 0;
};

}  // namespace zephyl
