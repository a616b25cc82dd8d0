#include "hosts/linux/screen/QtContext.h"

#include <QColor>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <utility>

#include "hosts/linux/screen/PixelSpace.h"
#include "hosts/linux/screen/RoundedPath.h"
#include "hosts/linux/screen/ScreenColors.h"

namespace zephyl::linux_host {

namespace {

QTransform transformOf(const CGAffineTransform& t) {
  return {finite(t.a), finite(t.b), finite(t.c), finite(t.d), finite(t.tx), finite(t.ty)};
}

bool isDisc(const RoundedRect& shape) {
  return shape.corners == kAllCorners &&
         shape.radius * 2 >= std::min(shape.rect.width(), shape.rect.height());
}

}  // namespace

QtContext::QtContext(QPainter& painter, QRect pixels, UIUserInterfaceStyle style,
                     PaintCaches& caches)
    : painter_(&painter), style_(style), caches_(caches), clips_{pixels} {
  painter_->setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
}

QtContext::~QtContext() {
  while (!layers_.empty()) {
    endLayer();
  }
  while (clips_.size() > 1) {
    restoreState();
  }
}

void QtContext::saveState() {
  painter_->save();
  clips_.push_back(clips_.back());
}

void QtContext::restoreState() {
  if (clips_.size() > 1) {
    painter_->restore();
    clips_.pop_back();
  }
}

void QtContext::concat(const CGAffineTransform& transform) {
  painter_->setTransform(transformOf(transform), /*combine=*/true);
}

void QtContext::clip(const RoundedRect& shape) {
  const QPainterPath outline = path(shape);
  const QRectF bounds = outline.boundingRect();
  clips_.back() = clipPixels().intersected(outward(bounds));
  const InPixels inPixels(*painter_);
  if (isUpright() && shape.radius <= 0) {
    painter_->setClipRect(outward(bounds), Qt::IntersectClip);
  } else {
    painter_->setClipPath(outline, Qt::IntersectClip);
  }
}

void QtContext::beginLayer(CGFloat alpha, const CGRect& bounds) {
  Layer layer;
  layer.alpha = std::clamp(finite(alpha), 0.0, 1.0);
  layer.below = painter_;
  if (layer.alpha >= 1) {
    saveState();
    layers_.push_back(std::move(layer));
    return;
  }
  QRect pixels = clipPixels().intersected(outward(mapped(bounds, /*toWholePixels=*/false)));
  if (layer.alpha <= 0 || pixels.isEmpty()) {
    pixels = QRect(clipPixels().topLeft(), QSize(1, 1));
    layer.alpha = 0;
  }
  layer.origin = pixels.topLeft();
  layer.picture = std::make_unique<QImage>(pixels.size(), QImage::Format_ARGB32_Premultiplied);
  layer.picture->fill(Qt::transparent);
  layer.painter = std::make_unique<QPainter>(layer.picture.get());
  layer.painter->setRenderHints(painter_->renderHints());
  layer.painter->setTransform(painter_->transform() *
                              QTransform::fromTranslate(-pixels.x(), -pixels.y()));
  painter_ = layer.painter.get();
  layer.clipsBelow =
      std::exchange(clips_, {layer.alpha > 0 ? QRect(QPoint(0, 0), pixels.size()) : QRect()});
  layers_.push_back(std::move(layer));
}

void QtContext::endLayer() {
  if (layers_.empty()) {
    return;
  }
  Layer layer = std::move(layers_.back());
  layers_.pop_back();
  if (layer.painter == nullptr) {
    restoreState();
    return;
  }
  while (clips_.size() > 1) {
    restoreState();
  }
  layer.painter->end();
  painter_ = layer.below;
  clips_ = std::move(layer.clipsBelow);
  if (layer.alpha > 0) {
    const InPixels inPixels(*painter_);
    painter_->setOpacity(layer.alpha);
    painter_->drawImage(layer.origin, *layer.picture);
    painter_->setOpacity(1);
  }
}

void QtContext::fill(const RoundedRect& shape, const UIColor& color) {
  const QColor paint = colorOf(color);
  if (paint.alpha() > 0) {
    fillPixels(shape, paint);
  }
}

void QtContext::fillEllipse(const CGRect& rect, const UIColor& color) {
  const QRectF bounds = rectOf(finite(rect));
  const QColor paint = colorOf(color);
  if (bounds.isEmpty() || paint.alpha() == 0) {
    return;
  }
  QPainterPath ellipse;
  ellipse.addEllipse(bounds);
  painter_->fillPath(ellipse, paint);
}

void QtContext::stroke(const RoundedRect& shape, CGFloat width, const UIColor& color) {
  const CGFloat thickness = finite(width);
  const QColor paint = colorOf(color);
  if (thickness <= 0 || paint.alpha() == 0 || finite(shape.rect).isEmpty()) {
    return;
  }
  const QPainterPath line = ring(shape, thickness);
  const InPixels inPixels(*painter_);
  painter_->fillPath(line, paint);
}

void QtContext::stroke(const Polyline& line, CGFloat width, const UIColor& color) {
  const CGFloat thickness = finite(width);
  const QColor paint = colorOf(color);
  if (line.points.size() < 2 || thickness <= 0 || paint.alpha() == 0) {
    return;
  }
  QPainterPath path;
  bool first = true;
  for (const CGPoint& point : line.points) {
    const CGPoint at = finite(point);
    if (std::exchange(first, false)) {
      path.moveTo(at.x, at.y);
    } else {
      path.lineTo(at.x, at.y);
    }
  }
  if (line.closed) {
    path.closeSubpath();
  }
  painter_->strokePath(path, QPen(paint, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

void QtContext::fillGradient(const RoundedRect& shape, const Gradient& gradient) {
  if (gradient.stops.empty()) {
    return;
  }
  const CGPoint start = finite(gradient.start);
  const CGPoint end = finite(gradient.end);
  if (gradient.stops.size() == 1 || start == end) {
    fill(shape, gradient.stops.back().second);
    return;
  }
  QLinearGradient colors(start.x, start.y, end.x, end.y);
  // Kept: a colour that runs into clear darkens on the way when clear is a clear black.
  colors.setInterpolationMode(QGradient::ComponentInterpolation);
  for (const auto& [place, color] : gradient.stops) {
    colors.setColorAt(std::clamp(finite(place), 0.0, 1.0), colorOf(color));
  }
  QBrush brush(colors);
  brush.setTransform(painter_->transform());
  fillPixels(shape, brush);
}

CGRect QtContext::clipBounds() const {
  bool invertible = false;
  const QTransform inverse = painter_->transform().inverted(&invertible);
  if (!invertible || clipPixels().isEmpty()) {
    return {};
  }
  const QRectF bounds = inverse.mapRect(QRectF(clipPixels()));
  return CGRectMake(bounds.x(), bounds.y(), bounds.width(), bounds.height());
}

bool QtContext::isUpright() const {
  const QTransform& t = painter_->transform();
  return t.type() <= QTransform::TxScale && t.m11() > 0 && t.m22() > 0;
}

QColor QtContext::colorOf(const UIColor& color) const {
  return screenColor(color, style_);
}

QRectF QtContext::mapped(const CGRect& rect, bool toWholePixels) const {
  const QRectF pixels = painter_->transform().mapRect(rectOf(finite(rect)));
  return toWholePixels && isUpright() ? wholePixels(pixels) : pixels;
}

QPainterPath QtContext::path(const RoundedRect& shape) const {
  const CGRect rect = finite(shape.rect);
  const CGFloat radius = std::max(0.0, finite(shape.radius));
  const QTransform& t = painter_->transform();
  if (isUpright()) {
    return roundedPath(mapped(rect, !isDisc(shape)), radius * t.m11(), radius * t.m22(),
                       shape.corners);
  }
  return t.map(roundedPath(rectOf(rect), radius, radius, shape.corners));
}

QPainterPath QtContext::ring(const RoundedRect& shape, CGFloat width) const {
  const QTransform& t = painter_->transform();
  const CGRect rect = finite(shape.rect);
  const CGFloat radius =
      std::clamp(finite(shape.radius), 0.0, std::min(rect.width(), rect.height()) / 2);
  const CGFloat innerRadius = std::max(0.0, radius - width);
  QPainterPath outline = path(shape);
  if (isUpright()) {
    const bool snapped = !isDisc(shape);
    const QRectF outer = mapped(rect, snapped);
    const qreal thickness = snapped ? std::max(1.0, std::round(width * t.m11())) : width * t.m11();
    const QRectF inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
    if (inner.width() > 0 && inner.height() > 0) {
      outline.addPath(
          roundedPath(inner, innerRadius * t.m11(), innerRadius * t.m22(), shape.corners));
    }
    return outline;
  }
  const QRectF inner = rectOf(rect).adjusted(width, width, -width, -width);
  if (inner.width() > 0 && inner.height() > 0) {
    outline.addPath(t.map(roundedPath(inner, innerRadius, innerRadius, shape.corners)));
  }
  return outline;
}

bool QtContext::isClippedAway(const QRectF& pixels) const {
  return clipPixels().isEmpty() || !pixels.intersects(QRectF(clipPixels()));
}

void QtContext::fillPixels(const RoundedRect& shape, const QBrush& brush) {
  const CGRect rect = finite(shape.rect);
  if (rect.isEmpty()) {
    return;
  }
  if (isUpright() && finite(shape.radius) <= 0) {
    const QRectF pixels = mapped(rect, /*toWholePixels=*/true).intersected(QRectF(clipPixels()));
    const InPixels inPixels(*painter_);
    painter_->fillRect(pixels, brush);
    return;
  }
  const QPainterPath outline = path(shape);
  if (!isClippedAway(outline.boundingRect())) {
    const InPixels inPixels(*painter_);
    painter_->fillPath(outline, brush);
  }
}

}  // namespace zephyl::linux_host
