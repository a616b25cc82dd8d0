#include "hosts/linux/screen/ShadowPictures.h"

#include <QColor>
#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "hosts/linux/screen/RoundedPath.h"

namespace zephyl::linux_host {

namespace {

// Three passes of a box this wide are nearly a bell of standard deviation `blur` / 2.
int boxRadius(int blur) {
  constexpr double kOfDeviation = 1.88;  // 3 sqrt(2 pi) / 4
  return std::max(0, static_cast<int>(std::lround((kOfDeviation * blur / 2 - 1) / 2)));
}

// The mean over 2 * radius + 1 values of a line, whose values lie `stride` apart; outside is 0.
void blurLine(std::uint8_t* values, int count, std::ptrdiff_t stride, int radius,
              std::vector<std::uint8_t>& old) {
  for (int i = 0; i < count; ++i) {
    old[static_cast<std::size_t>(i)] = values[i * stride];
  }
  const auto at = [&old](int place) { return int{old[static_cast<std::size_t>(place)]}; };
  const int width = 2 * radius + 1;
  int sum = 0;
  for (int i = 0; i < std::min(radius, count); ++i) {
    sum += at(i);
  }
  for (int i = 0; i < count; ++i) {
    if (i + radius < count) {
      sum += at(i + radius);
    }
    if (i - radius - 1 >= 0) {
      sum -= at(i - radius - 1);
    }
    values[i * stride] = static_cast<std::uint8_t>((sum + width / 2) / width);
  }
}

void blurMask(QImage& mask, int radius) {
  constexpr int kPasses = 3;
  if (radius == 0) {
    return;
  }
  std::vector<std::uint8_t> old(static_cast<std::size_t>(std::max(mask.width(), mask.height())));
  for (int pass = 0; pass < kPasses; ++pass) {
    for (int y = 0; y < mask.height(); ++y) {
      blurLine(mask.scanLine(y), mask.width(), 1, radius, old);
    }
    for (int x = 0; x < mask.width(); ++x) {
      blurLine(mask.bits() + x, mask.height(), mask.bytesPerLine(), radius, old);
    }
  }
}

QImage blurred(const ShadowShape& shape) {
  const int margin = ShadowPictures::margin(shape.blur);
  const QSize size = shape.size + QSize(2 * margin, 2 * margin);
  QImage mask(size, QImage::Format_Alpha8);
  mask.fill(0);
  QPainter onMask(&mask);
  onMask.setRenderHint(QPainter::Antialiasing);
  onMask.fillPath(roundedPath(QRectF(QPointF(margin, margin), QSizeF(shape.size)), shape.radius,
                              shape.radius, shape.corners),
                  Qt::black);
  onMask.end();
  blurMask(mask, boxRadius(shape.blur));
  QImage result(size, QImage::Format_ARGB32_Premultiplied);
  result.fill(QColor::fromRgba(shape.color));
  QPainter painter(&result);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
  painter.drawImage(0, 0, mask);
  return result;
}

// Where the three stretches of a side begin and end: two that keep their size, one between them.
struct Side {
  std::array<int, 4> from;
  std::array<int, 4> to;
};

Side side(int at, int pictureSide, int drawnSide) {
  const int kept = (pictureSide - 1) / 2;
  return {{0, kept, kept + 1, pictureSide}, {at, at + kept, at + drawnSide - kept, at + drawnSide}};
}

}  // namespace

int ShadowPictures::margin(int blur) {
  constexpr int kPasses = 3;
  return kPasses * boxRadius(blur) + 1;
}

void ShadowPictures::draw(QPainter& painter, const ShadowShape& shape, QPoint at) {
  const int reach = margin(shape.blur);
  const int least = 2 * (shape.radius + reach) + 1;
  ShadowShape small = shape;
  if (shape.size.width() > least && shape.size.height() > least) {
    small.size = {least, least};
  }
  const QImage image = picture(small);
  const QPoint corner = at - QPoint(reach, reach);
  if (small.size == shape.size) {
    painter.drawImage(corner, image);
    return;
  }
  const Side across = side(corner.x(), image.width(), shape.size.width() + 2 * reach);
  const Side down = side(corner.y(), image.height(), shape.size.height() + 2 * reach);
  const auto part = [](const std::array<int, 4>& x, const std::array<int, 4>& y, std::size_t column,
                       std::size_t row) {
    return QRect(QPoint(x.at(column), y.at(row)), QPoint(x.at(column + 1) - 1, y.at(row + 1) - 1));
  };
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      painter.drawImage(part(across.to, down.to, column, row), image,
                        part(across.from, down.from, column, row));
    }
  }
}

QImage ShadowPictures::picture(const ShadowShape& shape) {
  const Key key(shape.size.width(), shape.size.height(), shape.radius, shape.corners, shape.blur,
                shape.color);
  {
    const std::lock_guard lock(mutex_);
    if (const QImage* const known = pictures_.find(key)) {
      return *known;
    }
    ++misses_;
  }
  QImage image = blurred(shape);
  const std::lock_guard lock(mutex_);
  pictures_.put(key, image, static_cast<std::size_t>(image.sizeInBytes()));
  return image;
}

std::size_t ShadowPictures::misses() const {
  const std::lock_guard lock(mutex_);
  return misses_;
}

}  // namespace zephyl::linux_host
