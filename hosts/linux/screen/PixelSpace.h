// Upright rectangles moved to whole pixels, and painting in pixels. For painters of one thread.

#pragma once

#include <QPainter>
#include <QRect>
#include <QRectF>
#include <QTransform>
#include <cmath>
#include <utility>

#include "platform/uikit/CGGeometry.h"

namespace zephyl::linux_host {

[[nodiscard]] inline QRectF rectOf(const CGRect& rect) {
  return {rect.x(), rect.y(), rect.width(), rect.height()};
}

// The pixels that the rectangle touches, but for traces that arithmetic left.
[[nodiscard]] inline QRect outward(const QRectF& rect) {
  constexpr qreal kTrace = 1e-6;
  const int left = static_cast<int>(std::floor(rect.left() + kTrace));
  const int top = static_cast<int>(std::floor(rect.top() + kTrace));
  return {left, top, static_cast<int>(std::ceil(rect.right() - kTrace)) - left,
          static_cast<int>(std::ceil(rect.bottom() - kTrace)) - top};
}

// Halves go to the right and down, also those that arithmetic left a trace below.
[[nodiscard]] inline qreal nearestPixel(qreal at) {
  constexpr qreal kTrace = 1e-6;
  return std::floor(at + 0.5 + kTrace);
}

// Both ends at the nearest pixel, but not the same one: what is thinner keeps a whole pixel that it
// touched.
[[nodiscard]] inline std::pair<qreal, qreal> wholePixels(qreal from, qreal to) {
  const qreal first = nearestPixel(from);
  const qreal last = nearestPixel(to);
  return last > first ? std::pair(first, last) : std::pair(std::floor(from), std::floor(from) + 1);
}

// An empty one stays as it is.
[[nodiscard]] inline QRectF wholePixels(const QRectF& rect) {
  if (rect.isEmpty()) {
    return rect;
  }
  const auto [left, right] = wholePixels(rect.left(), rect.right());
  const auto [top, bottom] = wholePixels(rect.top(), rect.bottom());
  return {left, top, right - left, bottom - top};
}

// Clears the painter's transform for as long as it lives.
class InPixels {
 public:
  explicit InPixels(QPainter& painter) : painter_(painter), old_(painter.transform()) {
    painter_.resetTransform();
  }
  ~InPixels() { painter_.setTransform(old_); }
  InPixels(const InPixels&) = delete;
  InPixels& operator=(const InPixels&) = delete;

 private:
  QPainter& painter_;
  const QTransform old_;
};

}  // namespace zephyl::linux_host
