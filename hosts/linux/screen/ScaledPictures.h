// Pictures in the sizes that they were drawn at last, so that a row which is drawn again scales
// nothing. Keeps a bounded number of bytes. Any thread.

#pragma once

#include <QImage>
#include <QSize>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <tuple>

#include "platform/uikit/CGBitmap.h"

#include "hosts/linux/screen/RecentlyUsed.h"

namespace zephyl::linux_host {

// The bitmap's own pixels as Qt sees them, kept alive by the image. Null for a bitmap without
// pixels, or with fewer than it says.
[[nodiscard]] QImage imageOf(const CGBitmapRef& bitmap);

// A copy of the pixels of an image.
[[nodiscard]] CGBitmapRef bitmapOf(const QImage& image);

class ScaledPictures {
 public:
  explicit ScaledPictures(std::size_t maximumBytes = 48U << 20U) : scaled_(maximumBytes) {}

  // The picture in exactly that many pixels; with a tint (not premultiplied), that colour through
  // the picture's alpha. Null for a bitmap without pixels or an empty size.
  [[nodiscard]] QImage scaled(const CGBitmapRef& bitmap, QSize pixels,
                              const std::optional<QRgb>& tint);

  // How often a picture had to be scaled or tinted.
  [[nodiscard]] std::size_t misses() const;
  [[nodiscard]] std::size_t bytes() const;

 private:
  // Which bitmap, width, height, whether there is a tint and which.
  using Key = std::tuple<const CGBitmap*, int, int, bool, QRgb>;
  struct Scaled {
    // Another bitmap may come to lie at the same address.
    std::weak_ptr<const CGBitmap> of;
    QImage image;
  };

  mutable std::mutex mutex_;
  RecentlyUsed<Key, Scaled> scaled_;
  std::size_t misses_ = 0;
};

}  // namespace zephyl::linux_host
