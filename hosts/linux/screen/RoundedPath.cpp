#include "hosts/linux/screen/RoundedPath.h"

#include <algorithm>

#include "platform/uikit/CGContext.h"

namespace zephyl::linux_host {

QPainterPath roundedPath(const QRectF& rect, qreal radiusX, qreal radiusY, unsigned corners) {
  const qreal rx = std::clamp(radiusX, 0.0, std::max(0.0, rect.width() / 2));
  const qreal ry = std::clamp(radiusY, 0.0, std::max(0.0, rect.height() / 2));
  QPainterPath path;
  if (rx <= 0 || ry <= 0 || (corners & kAllCorners) == 0) {
    path.addRect(rect);
    return path;
  }
  constexpr qreal kQuarter = 90;
  const auto has = [corners](UIRectCorner corner) {
    return (corners & static_cast<unsigned>(corner)) != 0;
  };
  // An arc around the corner, or the corner itself; from the upper left on, clockwise.
  const auto turn = [&](bool rounded, qreal left, qreal top, QPointF sharp, qreal from) {
    if (!rounded) {
      path.lineTo(sharp);
    } else {
      path.arcTo(QRectF(left, top, 2 * rx, 2 * ry), from, -kQuarter);
    }
  };
  const qreal right = rect.right() - 2 * rx;
  const qreal bottom = rect.bottom() - 2 * ry;
  const bool topLeft = has(UIRectCorner::kTopLeft);
  path.moveTo(rect.left(), topLeft ? rect.top() + ry : rect.top());
  turn(topLeft, rect.left(), rect.top(), rect.topLeft(), 2 * kQuarter);
  turn(has(UIRectCorner::kTopRight), right, rect.top(), rect.topRight(), kQuarter);
  turn(has(UIRectCorner::kBottomRight), right, bottom, rect.bottomRight(), 0);
  turn(has(UIRectCorner::kBottomLeft), rect.left(), bottom, rect.bottomLeft(), -kQuarter);
  path.closeSubpath();
  return path;
}

}  // namespace zephyl::linux_host
