// Picture files for tests: PNG without compression, which this reads back pixel for pixel, and a
// text such as "FAKE 20x10 ff007aff", one colour, as 0xAARRGGBB multiplied by alpha. Pure
// functions.

#pragma once

#include <cstdint>
#include <optional>

#include "platform/foundation/Value.h"
#include "platform/uikit/CGBitmap.h"

namespace zephyl::fake {

struct PictureSize {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

[[nodiscard]] Data fakePicture(int width, int height, std::uint32_t color = 0xFF808080);

// By the file's head alone. None for what is no picture.
[[nodiscard]] std::optional<PictureSize> pictureSize(const Data& file);

// Null for what is damaged. A PNG of another maker, which is compressed, comes out grey.
[[nodiscard]] CGBitmapRef decodePicture(const Data& file);

// Empty for an empty bitmap.
[[nodiscard]] Data encodePng(const CGBitmap& bitmap);

}  // namespace zephyl::fake
