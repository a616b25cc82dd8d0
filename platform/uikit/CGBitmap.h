// Pixels in memory: one 32-bit word a pixel, 0xAARRGGBB in the machine's byte order, colours
// multiplied by alpha, rows from the top without padding. Whoever made it fills it; once shared it
// is not changed any more.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zephyl {

struct CGBitmap {
  std::size_t width = 0;
  std::size_t height = 0;
  // width * height words.
  std::vector<std::uint32_t> pixels;
};

using CGBitmapRef = std::shared_ptr<const CGBitmap>;

}  // namespace zephyl
