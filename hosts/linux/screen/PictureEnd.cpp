#include "hosts/linux/screen/PictureEnd.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zephyl::linux_host {

namespace {

bool beginsWith(const Data& file, std::string_view mark) {
  return file.size() >= mark.size() &&
         std::equal(mark.begin(), mark.end(), file.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::uint32_t bigEndian(const Data& file, std::size_t at, std::size_t bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    number = (number << 8U) | file[at + i];
  }
  return number;
}

// Chunk after chunk to the one named IEND.
bool pngEnds(const Data& file) {
  constexpr std::size_t kSignature = 8;
  constexpr std::size_t kAroundData = 12;
  constexpr std::uint32_t kEnd = 0x49454E44;
  std::size_t at = kSignature;
  while (at <= file.size() && file.size() - at >= kAroundData) {
    const std::uint32_t length = bigEndian(file, at, 4);
    if (bigEndian(file, at + 4, 4) == kEnd) {
      return true;
    }
    if (length > file.size() - at - kAroundData) {
      return false;
    }
    at += kAroundData + length;
  }
  return false;
}

// Segment after segment, and the data between them, to the mark of the end. Pictures inside
// segments, such as the small one of cameras, do not count.
bool jpegEnds(const Data& file) {
  constexpr std::uint8_t kMark = 0xFF;
  constexpr std::uint8_t kEnd = 0xD9;
  const auto standsAlone = [](std::uint8_t kind) {
    return kind == 0 || kind == 1 || (kind >= 0xD0 && kind <= 0xD8);
  };
  std::size_t at = 2;
  while (at + 1 < file.size()) {
    if (file[at] != kMark || file[at + 1] == kMark) {
      ++at;
      continue;
    }
    const std::uint8_t kind = file[at + 1];
    if (kind == kEnd) {
      return true;
    }
    at += 2;
    if (standsAlone(kind)) {
      continue;
    }
    if (file.size() - at < 2) {
      return false;
    }
    const std::size_t length = bigEndian(file, at, 2);
    if (length < 2 || length > file.size() - at) {
      return false;
    }
    at += length;
  }
  return false;
}

// Past blocks of at most 255 bytes, up to and with the empty one. The size of the file when they
// do not end.
std::size_t afterGifBlocks(const Data& file, std::size_t at) {
  while (at < file.size() && file[at] != 0) {
    at += 1U + file[at];
  }
  return std::min(at + 1, file.size());
}

std::size_t gifColors(std::uint8_t flags) {
  constexpr std::size_t kBytesAColor = 3;
  return (flags & 0x80U) != 0 ? kBytesAColor << ((flags & 7U) + 1U) : 0;
}

// To the end of the first picture, which is the one that is shown.
bool gifEnds(const Data& file) {
  constexpr std::size_t kHead = 13;
  constexpr std::size_t kFlagsOfHead = 10;
  constexpr std::size_t kPictureHead = 10;
  if (file.size() < kHead) {
    return false;
  }
  std::size_t at = kHead + gifColors(file[kFlagsOfHead]);
  while (at < file.size()) {
    if (file[at] == '!') {
      at = afterGifBlocks(file, at + 2);
    } else if (file[at] == ',') {
      if (file.size() - at <= kPictureHead) {
        return false;
      }
      const std::size_t data = at + kPictureHead + gifColors(file[at + kPictureHead - 1]) + 1;
      return afterGifBlocks(file, data) < file.size();
    } else {
      return false;
    }
  }
  return false;
}

// What a BMP says of its own length; some writers say nothing.
bool bmpEnds(const Data& file) {
  constexpr std::size_t kLengthAt = 2;
  if (file.size() < kLengthAt + 4) {
    return false;
  }
  std::uint32_t length = 0;
  for (std::size_t i = 4; i-- > 0;) {
    length = (length << 8U) | file[kLengthAt + i];
  }
  return length <= file.size();
}

}  // namespace

bool hasPictureEnd(const Data& file) {
  if (beginsWith(file, "\x89PNG\r\n\x1A\n")) {
    return pngEnds(file);
  }
  if (beginsWith(file, "\xFF\xD8")) {
    return jpegEnds(file);
  }
  if (beginsWith(file, "GIF8")) {
    return gifEnds(file);
  }
  return !beginsWith(file, "BM") || bmpEnds(file);
}

}  // namespace zephyl::linux_host
