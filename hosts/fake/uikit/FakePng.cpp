#include "hosts/fake/uikit/FakePng.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace zephyl::fake {
namespace {

constexpr std::array<std::uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
// Signature, length and name of the first chunk.
constexpr std::size_t kHeadStart = 16;
constexpr std::size_t kHeadEnd = 33;
constexpr std::size_t kMostPixels = 64U << 20U;
constexpr std::uint32_t kGrey = 0xFF808080;

void put32(Data& data, std::uint32_t number) {
  for (const unsigned shift : {24U, 16U, 8U, 0U}) {
    data.push_back(static_cast<std::uint8_t>(number >> shift));
  }
}

std::uint32_t get32(const Data& data, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    number = (number << 8U) | data[at + i];
  }
  return number;
}

std::uint32_t crc32(const std::uint8_t* bytes, std::size_t count) {
  std::uint32_t crc = 0xFFFFFFFF;
  for (std::size_t i = 0; i < count; ++i) {
    crc ^= bytes[i];
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc >> 1U) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
    }
  }
  return ~crc;
}

std::uint32_t adler32(const Data& data) {
  constexpr std::uint32_t kModulus = 65521;
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const std::uint8_t byte : data) {
    low = (low + byte) % kModulus;
    high = (high + low) % kModulus;
  }
  return (high << 16U) | low;
}

void putChunk(Data& png, std::string_view name, const Data& content) {
  put32(png, static_cast<std::uint32_t>(content.size()));
  const std::size_t start = png.size();
  png.insert(png.end(), name.begin(), name.end());
  png.insert(png.end(), content.begin(), content.end());
  put32(png, crc32(png.data() + start, png.size() - start));
}

// A row: no filter, then red, green, blue, alpha, not multiplied.
void putPixel(Data& rows, std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24U;
  for (const unsigned shift : {16U, 8U, 0U}) {
    const std::uint32_t channel = (pixel >> shift) & 0xFFU;
    rows.push_back(static_cast<std::uint8_t>(
        alpha == 0 ? 0 : std::min<std::uint32_t>(255, (channel * 255 + alpha / 2) / alpha)));
  }
  rows.push_back(static_cast<std::uint8_t>(alpha));
}

std::uint32_t getPixel(const std::uint8_t* bytes) {
  const std::uint32_t alpha = bytes[3];
  std::uint32_t pixel = alpha;
  for (int i = 0; i < 3; ++i) {
    pixel = (pixel << 8U) | ((bytes[i] * alpha + 127) / 255);
  }
  return pixel;
}

// Blocks that say how long they are and are not compressed.
Data stored(const Data& content) {
  constexpr std::size_t kBlock = 65535;
  Data result = {0x78, 0x01};
  for (std::size_t at = 0; at < content.size(); at += kBlock) {
    const std::size_t size = std::min(kBlock, content.size() - at);
    result.push_back(at + size == content.size() ? 1 : 0);
    for (const std::size_t number : {size, ~size}) {
      result.push_back(static_cast<std::uint8_t>(number));
      result.push_back(static_cast<std::uint8_t>(number >> 8U));
    }
    const auto from = content.begin() + static_cast<std::ptrdiff_t>(at);
    result.insert(result.end(), from, from + static_cast<std::ptrdiff_t>(size));
  }
  put32(result, adler32(content));
  return result;
}

// Empty when the content is compressed.
Data unstored(const Data& file, std::size_t at, std::size_t end) {
  constexpr std::size_t kBlockHead = 5;
  Data content;
  at += 2;
  while (at + kBlockHead < end && file[at] <= 1) {
    const bool last = file[at] == 1;
    const std::size_t size = file[at + 1] + (std::size_t{file[at + 2]} << 8U);
    at += kBlockHead;
    if (size > end - at) {
      return {};
    }
    content.insert(content.end(), file.begin() + static_cast<std::ptrdiff_t>(at),
                   file.begin() + static_cast<std::ptrdiff_t>(at + size));
    at += size;
    if (last) {
      return content;
    }
  }
  return {};
}

bool isPng(const Data& file) {
  return file.size() >= kHeadEnd && std::equal(kSignature.begin(), kSignature.end(), file.begin());
}

std::optional<std::pair<PictureSize, std::uint32_t>> readFake(const Data& file) {
  const std::string text(file.begin(), file.end());
  PictureSize size;
  unsigned color = 0;
  if (std::sscanf(text.c_str(), "FAKE %ux%u %x", &size.width, &size.height, &color) != 3) {
    return std::nullopt;
  }
  return std::pair(size, color);
}

CGBitmapRef filled(PictureSize size, std::uint32_t color) {
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = size.width;
  bitmap->height = size.height;
  bitmap->pixels.assign(bitmap->width * bitmap->height, color);
  return bitmap;
}

CGBitmapRef fromRows(PictureSize size, const Data& rows) {
  const std::size_t rowSize = 1 + std::size_t{size.width} * 4;
  if (rows.size() != rowSize * size.height) {
    return filled(size, kGrey);
  }
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = size.width;
  bitmap->height = size.height;
  bitmap->pixels.reserve(bitmap->width * bitmap->height);
  for (std::size_t y = 0; y < size.height; ++y) {
    for (std::size_t x = 0; x < size.width; ++x) {
      bitmap->pixels.push_back(getPixel(rows.data() + y * rowSize + 1 + x * 4));
    }
  }
  return bitmap;
}

// The first IDAT. Null when the file ends too early.
CGBitmapRef decodePng(PictureSize size, const Data& file) {
  constexpr std::size_t kChunkFrame = 12;
  CGBitmapRef bitmap;
  std::size_t at = kSignature.size();
  while (file.size() - at >= kChunkFrame) {
    const std::size_t length = get32(file, at);
    if (length > file.size() - at - kChunkFrame) {
      return nullptr;
    }
    const std::string_view name(reinterpret_cast<const char*>(file.data() + at + 4), 4);
    if (name == "IEND") {
      return bitmap;
    }
    if (name == "IDAT" && bitmap == nullptr) {
      bitmap = fromRows(size, unstored(file, at + 8, at + 8 + length));
    }
    at += length + kChunkFrame;
  }
  return nullptr;
}

}  // namespace

Data fakePicture(int width, int height, std::uint32_t color) {
  std::array<char, 64> text{};
  const int length =
      std::snprintf(text.data(), text.size(), "FAKE %dx%d %08x", width, height, color);
  return {text.begin(), text.begin() + length};
}

std::optional<PictureSize> pictureSize(const Data& file) {
  PictureSize size;
  if (isPng(file)) {
    size = {get32(file, kHeadStart), get32(file, kHeadStart + 4)};
  } else if (const auto picture = readFake(file)) {
    size = picture->first;
  }
  if (size.width == 0 || size.height == 0) {
    return std::nullopt;
  }
  return size;
}

CGBitmapRef decodePicture(const Data& file) {
  const auto size = pictureSize(file);
  if (!size || std::size_t{size->width} * size->height > kMostPixels) {
    return nullptr;
  }
  if (isPng(file)) {
    return decodePng(*size, file);
  }
  return filled(*size, readFake(file)->second);
}

Data encodePng(const CGBitmap& bitmap) {
  if (bitmap.width == 0 || bitmap.height == 0) {
    return {};
  }
  Data head;
  put32(head, static_cast<std::uint32_t>(bitmap.width));
  put32(head, static_cast<std::uint32_t>(bitmap.height));
  // Eight bits a channel, with alpha, nothing interlaced.
  head.insert(head.end(), {8, 6, 0, 0, 0});
  Data rows;
  rows.reserve(bitmap.height * (bitmap.width * 4 + 1));
  for (std::size_t y = 0; y < bitmap.height; ++y) {
    rows.push_back(0);
    for (std::size_t x = 0; x < bitmap.width; ++x) {
      putPixel(rows, bitmap.pixels[y * bitmap.width + x]);
    }
  }
  Data png(kSignature.begin(), kSignature.end());
  putChunk(png, "IHDR", head);
  putChunk(png, "IDAT", stored(rows));
  putChunk(png, "IEND", {});
  return png;
}

}  // namespace zephyl::fake
