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

[[nodiscard]] inline Data fileOf(const QImage& image, const char* format) {
  QBuffer file;
  EXPECT_TRUE(QImageWriter(&file, format).write(image)) << format;
  return {file.data().begin(), file.data().end()};
}

// A JPEG whose file says that the camera was held sideways: a note is put in right at its start.
[[nodiscard]] inline Data sideways(Data jpeg) {
  const Data note = {
      0xFF, 0xE1, 0, 34, 'E', 'x', 'i', 'f', 0, 0, 'I', 'I', '*', 0, 8, 0, 0, 0, 1, 0,  // one entry
      0x12, 0x01, 3, 0,  1,   0,   0,   0,   6, 0, 0,   0,  // orientation: a quarter turn
      0,    0,    0, 0};
  jpeg.insert(jpeg.begin() + 2, note.begin(), note.end());
  return jpeg;
}

[[nodiscard]] inline std::string textOf(const Data& file) {
  return {file.begin(), file.end()};
}

}  // namespace zephyl::test
