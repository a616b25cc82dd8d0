// The outline of a rectangle with some of its corners rounded. Any thread.

#pragma once

#include <QPainterPath>
#include <QRectF>

namespace zephyl::linux_host {

// `corners` are bits of UIRectCorner. A radius beyond half a side is that half.
[[nodiscard]] QPainterPath roundedPath(const QRectF& rect, qreal radiusX, qreal radiusY,
                                       unsigned corners);

}  // namespace zephyl::linux_host
