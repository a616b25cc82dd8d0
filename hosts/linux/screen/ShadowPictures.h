// Blurred shapes. A shadow is blurred once for its corners and its blur, in the smallest size that
// has all that differs; larger ones are that picture stretched in its middle. Any thread.

#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <cstddef>
#include <mutex>
#include <tuple>

#include "hosts/linux/screen/RecentlyUsed.h"

class QPainter;

namespace zephyl::linux_host {

// A shadow in pixels.
struct ShadowShape {
  QSize size;
  int radius = 0;
  unsigned corners = 0;  // bits of UIRectCorner
  int blur = 0;          // twice the standard deviation
  QRgb color = 0;        // not premultiplied
};

class ShadowPictures {
 public:
  explicit ShadowPictures(std::size_t maximumBytes = 8U << 20U) : pictures_(maximumBytes) {}

  // Draws it for a shape whose upper left pixel is at `at`. The painter's transform is the
  // identity.
  void draw(QPainter& painter, const ShadowShape& shape, QPoint at);

  // How far the shadow reaches beyond its shape.
  [[nodiscard]] static int margin(int blur);

  // How many were blurred.
  [[nodiscard]] std::size_t misses() const;

 private:
  using Key = std::tuple<int, int, int, unsigned, int, QRgb>;

  // The shape with its margins, blurred.
  [[nodiscard]] QImage picture(const ShadowShape& shape);

  mutable std::mutex mutex_;
  RecentlyUsed<Key, QImage> pictures_;
  std::size_t misses_ = 0;
};

}  // namespace zephyl::linux_host
