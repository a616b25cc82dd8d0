// The two pictures of the colour map: hue over saturation in tiles, and what lies behind it and is
// seen as it fades. Any thread.
//
// Both are built straight as pixels. How they would be drawn is the definition of what they look
// like, and is kept for that: see `drawn...`.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

// The whole tiles that a size has room for; none when there is not a column and a row, or the tile
// has no size, or a number is none.
struct HRColorGrid {
  int columns = 0;
  int rows = 0;
  CGFloat tileSize = 0;

  [[nodiscard]] static ZP_EXPORT HRColorGrid fitting(CGSize size, CGFloat tileSize);
  [[nodiscard]] bool isEmpty() const { return columns == 0 || rows == 0; }
  // In points.
  [[nodiscard]] CGSize size() const { return {columns * tileSize, rows * tileSize}; }
  friend bool operator==(const HRColorGrid&, const HRColorGrid&) = default;
};

namespace detail {

// At the main screen's scale; null for a grid without tiles, or with more pixels than can be held.
// Hue grows by the column from 0, and saturation falls by the row from 1 to 1 - `limit`; a single
// row has saturation 1.
//
// Where a tile is no whole number of pixels its edges are rounded to whole ones; a drawn picture
// blends them.
[[nodiscard]] ZP_EXPORT UIImageRef colorMapImage(const HRColorGrid& grid, CGFloat limit);
// Black, the white below it is not seen.
[[nodiscard]] ZP_EXPORT UIImageRef colorMapBackgroundImage(const HRColorGrid& grid);

[[nodiscard]] ZP_EXPORT UIImageRef drawnColorMapImage(const HRColorGrid& grid, CGFloat limit);
[[nodiscard]] ZP_EXPORT UIImageRef drawnColorMapBackgroundImage(const HRColorGrid& grid);

}  // namespace detail
}  // namespace zephyl
