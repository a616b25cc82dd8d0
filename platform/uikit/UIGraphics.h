// Pictures in memory: reading picture files and drawing into bitmaps. A seam; any thread.

#pragma once

#include <memory>

#include "platform/foundation/NSError.h"
#include "platform/foundation/Value.h"
#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/CGContext.h"

namespace zephyl {

// A bitmap that is drawn into.
class ImageContext {
 public:
  virtual ~ImageContext() = default;
  [[nodiscard]] virtual CGContext& context() = 0;
  // Ends the drawing.
  [[nodiscard]] virtual CGBitmapRef bitmap() = 0;
};

class UIGraphics {
 public:
  virtual ~UIGraphics() = default;

  // `size` points at `scale` pixels a point, rounded up; clear, or black when opaque. Null when
  // that is no pixel, or too many to hold.
  [[nodiscard]] virtual std::unique_ptr<ImageContext> makeImageContext(CGSize size, CGFloat scale,
                                                                       bool opaque) = 0;

  // The size in pixels by the file's head, upright as its orientation mark says; zero for what is
  // no picture.
  [[nodiscard]] virtual CGSize pixelSize(const Data& file) = 0;

  // Upright, scaled down when a side is longer than `maximumSide`. Null, and the reason in `error`
  // when that is not null, for what is no picture or is damaged.
  [[nodiscard]] virtual CGBitmapRef decode(const Data& file, int maximumSide, NSError* error) = 0;

  // A PNG file; empty for an empty bitmap.
  [[nodiscard]] virtual Data encodePNG(const CGBitmap& bitmap) = 0;
};

}  // namespace zephyl
