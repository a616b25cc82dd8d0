// Picture files for tests, made on the spot.

#pragma once

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "platform/foundation/Value.h"

namespace zephyl::test {

// Every pixel another colour, so that no kind of file makes it small.
[[nodiscard]] inline QImage noise(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y) {
    auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width; ++x) {
      state = state * 1'664'525U + 1'013'904'223U;
      line[x] = 0xFF000000U | state >> 8U;
    }
  }
  return image;
}

[[nodiscard]] inline Data fileOf(
    const QImage& image, const char* format,
    QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone) {
  QBuffer file;
  QImageWriter writer(&file, format);
  writer.setTransformation(turned);
  EXPECT_TRUE(writer.write(image)) << format;
  return {file.data().begin(), file.data().end()};
}

[[nodiscard]] inline std::string textOf(const Data& file) {
  return {file.begin(), file.end()};
}

}  // namespace zephyl::test
