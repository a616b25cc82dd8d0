#include "hosts/linux/screen/ScaledPictures.h"

#include <QColor>
#include <QPainter>
#include <cstring>

namespace zephyl::linux_host {

namespace {

constexpr std::size_t kBytesAPixel = 4;

void release(void* bitmap) {
  delete static_cast<CGBitmapRef*>(bitmap);
}

QImage tinted(const QImage& image, QRgb tint) {
  QImage result(image.size(), QImage::Format_ARGB32_Premultiplied);
  result.fill(QColor::fromRgba(tint));
  QPainter painter(&result);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.drawImage(0, 0, image);
  return result;
}

}  // namespace

QImage imageOf(const CGBitmapRef& bitmap) {
  constexpr std::size_t kLongest = 1U << 15U;
  if (bitmap == nullptr || bitmap->width == 0 || bitmap->height == 0 || bitmap->width > kLongest ||
      bitmap->height > kLongest || bitmap->pixels.size() < bitmap->width * bitmap->height) {
    return {};
  }
  return QImage(reinterpret_cast<const uchar*>(bitmap->pixels.data()),
                static_cast<int>(bitmap->width), static_cast<int>(bitmap->height),
                static_cast<qsizetype>(bitmap->width * kBytesAPixel),
                QImage::Format_ARGB32_Premultiplied, release, new CGBitmapRef(bitmap));
}

CGBitmapRef bitmapOf(const QImage& image) {
  const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = static_cast<std::size_t>(pixels.width());
  bitmap->height = static_cast<std::size_t>(pixels.height());
  bitmap->pixels.resize(bitmap->width * bitmap->height);
  for (int row = 0; row < pixels.height(); ++row) {
    std::memcpy(bitmap->pixels.data() + static_cast<std::size_t>(row) * bitmap->width,
                pixels.constScanLine(row), bitmap->width * kBytesAPixel);
  }
  return bitmap;
}

QImage ScaledPictures::scaled(const CGBitmapRef& bitmap, QSize pixels,
                              const std::optional<QRgb>& tint) {
  QImage whole = imageOf(bitmap);
  if (whole.isNull() || pixels.isEmpty()) {
    return {};
  }
  if (whole.size() == pixels && !tint) {
    return whole;
  }
  const Key key(bitmap.get(), pixels.width(), pixels.height(), tint.has_value(), tint.value_or(0));
  {
    const std::lock_guard lock(mutex_);
    const Scaled* const known = scaled_.find(key);
    if (known != nullptr && known->of.lock() == bitmap) {
      return known->image;
    }
    ++misses_;
  }
  QImage image = whole.size() == pixels
                     ? whole
                     : whole.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  image = tint ? tinted(image, *tint) : image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  const std::lock_guard lock(mutex_);
  scaled_.put(key, {bitmap, image}, static_cast<std::size_t>(image.sizeInBytes()));
  return image;
}

std::size_t ScaledPictures::misses() const {
  const std::lock_guard lock(mutex_);
  return misses_;
}

std::size_t ScaledPictures::bytes() const {
  const std::lock_guard lock(mutex_);
  return scaled_.bytes();
}

}  // namespace zephyl::linux_host
