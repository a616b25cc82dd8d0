#include "hosts/linux/screen/WindowPicture.h"

#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <utility>

#include "platform/uikit/UIWindow.h"

#include "hosts/linux/screen/PixelSpace.h"
#include "hosts/linux/screen/QtContext.h"
#include "hosts/linux/screen/ScaledPictures.h"

namespace zephyl::linux_host {

namespace {

QRect pixelsOf(const CGRect& rect, CGFloat scale) {
  return outward(QTransform::fromScale(scale, scale).mapRect(rectOf(rect)));
}

std::int64_t count(const QRect& pixels) {
  return static_cast<std::int64_t>(pixels.width()) * pixels.height();
}

bool isWhole(CGFloat points, CGFloat scale) {
  constexpr CGFloat kTrace = 1e-6;
  return std::abs(points * scale - std::round(points * scale)) < kTrace;
}

// Damage is measured for the main screen's scale. At another one, pixels that would move by a part
// of one are drawn anew.
Damage forScale(Damage damage, CGFloat scale) {
  const bool whole =
      std::all_of(damage.moves.begin(), damage.moves.end(), [scale](const Damage::Move& move) {
        return isWhole(move.dx, scale) && isWhole(move.dy, scale) &&
               isWhole(move.area.x(), scale) && isWhole(move.area.y(), scale) &&
               isWhole(move.area.maxX(), scale) && isWhole(move.area.maxY(), scale);
      });
  if (!whole) {
    for (const Damage::Move& move : std::exchange(damage.moves, {})) {
      damage.rects.push_back(move.area);
    }
  }
  return damage;
}

// What of a picture a window can fill.
QSize pictureSize(const CGRect& bounds, CGFloat scale) {
  constexpr int kLongestSide = 16384;
  return pixelsOf({{0, 0}, bounds.size}, scale)
      .size()
      .expandedTo({1, 1})
      .boundedTo({kLongestSide, kLongestSide});
}

}  // namespace

WindowPicture::Update WindowPicture::update(CGFloat scale, UIUserInterfaceStyle style) {
  Update update;
  window_.layoutWindow();
  Damage damage = forScale(window_.takeDamage(), scale);
  const QSize size = pictureSize(window_.bounds(), scale);
  if (image_.size() != size || scale != scale_ || style != style_) {
    image_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
    scale_ = scale;
    style_ = style;
    damage = {{}, {window_.bounds()}};
  }
  for (const Damage::Move& move : damage.moves) {
    this->move(move, update);
  }
  for (const CGRect& rect : damage.rects) {
    const CGRect shown = CGRectOffset(rect, -window_.bounds().x(), -window_.bounds().y());
    paint(pixelsOf(shown, scale_).intersected(image_.rect()), update);
  }
  return update;
}

// Whole pixels; those that leave the area are lost.
void WindowPicture::move(const Damage::Move& move, Update& update) {
  const CGRect shown = CGRectOffset(move.area, -window_.bounds().x(), -window_.bounds().y());
  const QRect area = pixelsOf(shown, scale_).intersected(image_.rect());
  const QPoint by(static_cast<int>(std::lround(move.dx * scale_)),
                  static_cast<int>(std::lround(move.dy * scale_)));
  const QRect target = area.translated(by).intersected(area);
  if (target.isEmpty()) {
    return;
  }
  constexpr std::ptrdiff_t kBytesAPixel = 4;
  const QPoint from = target.topLeft() - by;
  for (int i = 0; i < target.height(); ++i) {
    // Downwards the last row goes first, so that none is written before it is read.
    const int row = by.y() > 0 ? target.height() - 1 - i : i;
    std::memmove(image_.scanLine(target.y() + row) + target.x() * kBytesAPixel,
                 image_.constScanLine(from.y() + row) + from.x() * kBytesAPixel,
                 static_cast<std::size_t>(target.width() * kBytesAPixel));
  }
  update.changed += target;
  update.moved += count(target);
}

// By something that fills the window: then nothing is seen of what is below.
bool WindowPicture::isCovered(const QRect& pixels) const {
  const CALayer& layer = *window_.layer();
  const LayerState shown = layer.presentation();
  const CGRect points = CGRectMake(pixels.x() / scale_, pixels.y() / scale_,
                                   pixels.width() / scale_, pixels.height() / scale_);
  return !layer.isHidden() && shown.opacity >= 1 && shown.cornerRadius <= 0 &&
         shown.transform == CGAffineTransformIdentity &&
         layer.sublayersCover(CGRectOffset(points, shown.bounds.x(), shown.bounds.y()), style_);
}

void WindowPicture::paint(const QRect& pixels, Update& update) {
  if (pixels.isEmpty()) {
    return;
  }
  QPainter painter(&image_);
  painter.setClipRect(pixels);
  if (!isCovered(pixels)) {
    painter.fillRect(pixels, Qt::black);
  }
  painter.scale(scale_, scale_);
  painter.translate(-window_.frame().x(), -window_.frame().y());
  QtContext context(painter, pixels, style_, caches_);
  window_.layer()->render(context);
  update.changed += pixels;
  update.painted += count(pixels);
}

CGBitmapRef WindowPicture::bitmap() const {
  return bitmapOf(image_);
}

}  // namespace zephyl::linux_host
