// Picture files for tests.

#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

#include "platform/foundation/Value.h"

namespace zephyl::linux_host {

// The left half red, the right half blue, with a pattern that does not pack well.
[[nodiscard]] inline QImage halves(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int noise = (x * 7 + y * 13 + x * y) % 40;
      image.setPixel(x, y, x < width / 2 ? qRgb(255 - noise, 0, 0) : qRgb(0, 0, 255 - noise));
    }
  }
  return image;
}

[[nodiscard]] inline Data fileOf(const QImage& image, const char* format,
                                 QImageIOHandler::Transformations turned = {}) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(90);
  writer.setTransformation(turned);
  writer.write(image);
  return {buffer.data().begin(), buffer.data().end()};
}

[[nodiscard]] inline Data cut(Data file, double part) {
  file.resize(static_cast<std::size_t>(static_cast<double>(file.size()) * part));
  return file;
}

}  // namespace zephyl::linux_host
