// Compares pictures as people would: small differences, as of smoothing, do not count. For tests.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/uikit/CGBitmap.h"

namespace zephyl::app::render {

// By how much a channel may be off.
inline constexpr int kChannelTolerance = 24;
// How many of the pixels may be off by more.
inline constexpr double kPixelTolerance = 0.01;

// How many pixels of two bitmaps of one size are off by more than the tolerance.
[[nodiscard]] inline std::size_t pixelsThatDiffer(const CGBitmap& one, const CGBitmap& other) {
  std::size_t count = 0;
  for (std::size_t index = 0; index < one.pixels.size(); ++index) {
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
      const auto channel = [shift](std::uint32_t pixel) {
        return static_cast<int>(pixel >> shift & 0xFFU);
      };
      if (std::abs(channel(one.pixels[index]) - channel(other.pixels[index])) > kChannelTolerance) {
        ++count;
        break;
      }
    }
  }
  return count;
}

// Why they are not the same to people; empty when they are.
[[nodiscard]] inline std::string whyDifferent(const CGBitmap& one, const CGBitmap& other) {
  std::ostringstream why;
  if (one.width != other.width || one.height != other.height) {
    why << one.width << " x " << one.height << " pixels, not " << other.width << " x "
        << other.height;
    return why.str();
  }
  const std::size_t differing = pixelsThatDiffer(one, other);
  const auto allowed = static_cast<double>(one.pixels.size()) * kPixelTolerance;
  if (static_cast<double>(differing) > allowed) {
    why << differing << " of " << one.pixels.size() << " pixels differ";
  }
  return why.str();
}

}  // namespace zephyl::app::render
