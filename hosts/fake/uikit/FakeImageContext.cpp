#include "hosts/fake/uikit/FakeImageContext.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zephyl::fake {
namespace {

// How much of the pixel from `at` to `at` + 1 lies between `from` and `to`.
CGFloat covered(std::size_t at, CGFloat from, CGFloat to) {
  const auto start = static_cast<CGFloat>(at);
  return std::clamp(std::min(to, start + 1) - std::max(from, start), 0.0, 1.0);
}

// `source` is not multiplied by `alpha`.
std::uint32_t over(std::uint32_t pixel, const std::array<CGFloat, 3>& source, CGFloat alpha) {
  const auto blend = [&](CGFloat above, unsigned shift) {
    const CGFloat below = static_cast<CGFloat>((pixel >> shift) & 0xFFU) / 255;
    const CGFloat sum = std::clamp(above + below * (1 - alpha), 0.0, 1.0);
    return static_cast<std::uint32_t>(std::lround(sum * 255)) << shift;
  };
  return blend(alpha, 24) | blend(source[0] * alpha, 16) | blend(source[1] * alpha, 8) |
         blend(source[2] * alpha, 0);
}

std::shared_ptr<CGBitmap> blank(std::size_t width, std::size_t height, bool opaque) {
  auto bitmap = std::make_shared<CGBitmap>();
  bitmap->width = width;
  bitmap->height = height;
  bitmap->pixels.assign(width * height, opaque ? 0xFF000000 : 0);
  return bitmap;
}

}  // namespace

FakeImageContext::FakeImageContext(std::size_t width, std::size_t height, CGFloat scale,
                                   bool opaque, UIUserInterfaceStyle style)
    : bitmap_(blank(width, height, opaque)), context_(*bitmap_, scale, style) {}

FakeImageContext::Painter::Painter(CGBitmap& bitmap, CGFloat scale, UIUserInterfaceStyle style)
    : RecordingContext(CGRectMake(0, 0, static_cast<CGFloat>(bitmap.width) / scale,
                                  static_cast<CGFloat>(bitmap.height) / scale),
                       style),
      bitmap_(bitmap),
      scale_(scale) {}

void FakeImageContext::Painter::fill(const RoundedRect& shape, const UIColor& color) {
  RecordingContext::fill(shape, color);
  const UIColor::Channels channels = color.resolvedColor(userInterfaceStyle()).channels();
  const CGFloat alpha = std::clamp(finite(channels.alpha), 0.0, 1.0);
  const CGRect area = CGRectIntersection(resolved(shape.rect), resolvedClip());
  if (shape.radius > 0 || area.isEmpty() || alpha <= 0) {
    return;
  }
  const std::array<CGFloat, 3> source = {std::clamp(finite(channels.red), 0.0, 1.0),
                                         std::clamp(finite(channels.green), 0.0, 1.0),
                                         std::clamp(finite(channels.blue), 0.0, 1.0)};
  const CGFloat left = area.x() * scale_;
  const CGFloat right = area.maxX() * scale_;
  const CGFloat top = area.y() * scale_;
  const CGFloat bottom = area.maxY() * scale_;
  const auto endX = std::min(bitmap_.width, static_cast<std::size_t>(std::ceil(right)));
  const auto endY = std::min(bitmap_.height, static_cast<std::size_t>(std::ceil(bottom)));
  for (auto y = static_cast<std::size_t>(top); y < endY; ++y) {
    for (auto x = static_cast<std::size_t>(left); x < endX; ++x) {
      std::uint32_t& pixel = bitmap_.pixels[y * bitmap_.width + x];
      pixel = over(pixel, source, alpha * covered(x, left, right) * covered(y, top, bottom));
    }
  }
}

}  // namespace zephyl::fake
