// What a context draws that is made of pictures: shadows, images and texts.

#include <QColor>
#include <algorithm>
#include <cmath>
#include <optional>

#include "hosts/linux/screen/PaintCaches.h"
#include "hosts/linux/screen/PixelSpace.h"
#include "hosts/linux/screen/QtContext.h"
#include "hosts/linux/screen/QtTextLayout.h"

namespace zephyl::linux_host {

namespace {

// Pixels a side, beyond which nothing is drawn or kept.
constexpr int kLargestShadow = 4096;
constexpr int kLargestScaled = 4096;
constexpr CGFloat kLargestBlur = 400;

// Pixels a point, whatever the turn.
CGFloat scaleOf(const QTransform& transform) {
  return std::sqrt(std::abs(transform.determinant()));
}

// The shadow of a rectangle of `size`, all in pixels.
ShadowShape shadowShape(QSize size, CGFloat radius, unsigned corners, CGFloat blur, QRgb color) {
  const CGFloat limit = std::min(size.width(), size.height()) / 2.0;
  return {size, static_cast<int>(std::lround(std::clamp(radius, 0.0, limit))), corners,
          static_cast<int>(std::lround(std::min(blur, kLargestBlur))), color};
}

}  // namespace

void QtContext::drawShadow(const RoundedRect& shape, const Shadow& shadow) {
  const QColor color = colorOf(shadow.color);
  RoundedRect moved = shape;
  moved.rect =
      CGRectOffset(finite(shape.rect), finite(shadow.offset.width), finite(shadow.offset.height));
  if (color.alpha() == 0 || moved.rect.isEmpty()) {
    return;
  }
  const CGFloat blur = std::max(0.0, finite(shadow.blur));
  if (!isUpright()) {
    drawTurnedShadow(moved, blur, color.rgba());
    return;
  }
  const QRect pixels = mapped(moved.rect, /*toWholePixels=*/true).toRect();
  const CGFloat scale = painter_->transform().m11();
  const ShadowShape picture = shadowShape(pixels.size(), finite(shape.radius) * scale,
                                          shape.corners, blur * scale, color.rgba());
  const int reach = ShadowPictures::margin(picture.blur);
  if (pixels.width() > kLargestShadow || pixels.height() > kLargestShadow ||
      isClippedAway(pixels.adjusted(-reach, -reach, reach, reach))) {
    return;
  }
  const InPixels inPixels(*painter_);
  caches_.shadows.draw(*painter_, picture, pixels.topLeft());
}

void QtContext::draw(const UIImage& image, const CGRect& rect, const UIColor& tint) {
  const CGRect target = finite(rect);
  std::optional<QRgb> color;
  if (image.renderingMode() == UIImageRenderingMode::kAlwaysTemplate) {
    color = colorOf(tint).rgba();
  }
  const QRectF exact = mapped(target, /*toWholePixels=*/false);
  if (target.isEmpty() || isClippedAway(exact)) {
    return;
  }
  const QSize pixels(std::max(1, static_cast<int>(std::lround(exact.width()))),
                     std::max(1, static_cast<int>(std::lround(exact.height()))));
  if (!isUpright() || pixels.width() > kLargestScaled || pixels.height() > kLargestScaled) {
    drawTurnedImage(image, target, color);
    return;
  }
  const QImage scaled = caches_.pictures.scaled(image.bitmap(), pixels, color);
  if (!scaled.isNull()) {
    const InPixels inPixels(*painter_);
    painter_->drawImage(QPoint(static_cast<int>(nearestPixel(exact.x())),
                               static_cast<int>(nearestPixel(exact.y()))),
                        scaled);
  }
}

void QtContext::drawTurnedShadow(const RoundedRect& shape, CGFloat blur, QRgb color) {
  const CGFloat scale = scaleOf(painter_->transform());
  const QSizeF exact = rectOf(shape.rect).size() * scale;
  if (!(scale > 0) || exact.width() > kLargestShadow || exact.height() > kLargestShadow) {
    return;
  }
  const QSize size(std::max(1, static_cast<int>(std::lround(exact.width()))),
                   std::max(1, static_cast<int>(std::lround(exact.height()))));
  const ShadowShape picture =
      shadowShape(size, finite(shape.radius) * scale, shape.corners, blur * scale, color);
  const int reach = ShadowPictures::margin(picture.blur);
  QImage image(size + QSize(2 * reach, 2 * reach), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter onImage(&image);
  caches_.shadows.draw(onImage, picture, QPoint(reach, reach));
  onImage.end();
  const CGFloat margin = reach / scale;
  painter_->drawImage(rectOf(CGRectInset(shape.rect, -margin, -margin)), image);
}

void QtContext::drawTurnedImage(const UIImage& image, const CGRect& rect,
                                const std::optional<QRgb>& tint) {
  const CGFloat scale = scaleOf(painter_->transform());
  const auto side = [scale](CGFloat points) {
    return std::clamp(static_cast<int>(std::lround(std::min(points * scale, 1e6))), 1,
                      kLargestScaled);
  };
  const QImage scaled =
      caches_.pictures.scaled(image.bitmap(), {side(rect.width()), side(rect.height())}, tint);
  if (!scaled.isNull()) {
    painter_->drawImage(rectOf(rect), scaled);
  }
}

void QtContext::draw(const TextLayout& text, CGPoint origin) {
  // Only what this host's own text system gave can be drawn.
  const auto* const layout = dynamic_cast<const QtTextLayout*>(&text);
  const CGPoint at = finite(origin);
  if (layout != nullptr) {
    layout->draw(*painter_, QPointF(at.x, at.y), clipBounds(), style_);
  }
}

}  // namespace zephyl::linux_host
