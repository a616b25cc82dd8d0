#include "hosts/fake/uikit/FakeGraphics.h"

#include <algorithm>
#include <cmath>

#include "hosts/fake/uikit/FakeImageContext.h"

namespace zephyl::fake {
namespace {

constexpr CGFloat kMostPixels = 64 << 20;

// The nearest pixel of a smaller picture.
CGBitmapRef scaledDown(const CGBitmap& bitmap, std::size_t maximumSide) {
  const std::size_t longest = std::max(bitmap.width, bitmap.height);
  auto small = std::make_shared<CGBitmap>();
  small->width = std::max<std::size_t>(1, bitmap.width * maximumSide / longest);
  small->height = std::max<std::size_t>(1, bitmap.height * maximumSide / longest);
  small->pixels.reserve(small->width * small->height);
  for (std::size_t y = 0; y < small->height; ++y) {
    const std::size_t row = y * bitmap.height / small->height * bitmap.width;
    for (std::size_t x = 0; x < small->width; ++x) {
      small->pixels.push_back(bitmap.pixels[row + x * bitmap.width / small->width]);
    }
  }
  return small;
}

}  // namespace

std::unique_ptr<ImageContext> FakeGraphics::makeImageContext(CGSize size, CGFloat scale,
                                                             bool opaque) {
  const CGFloat width = std::ceil(size.width * scale - 1e-6);
  const CGFloat height = std::ceil(size.height * scale - 1e-6);
  // Said so that NaN is refused too.
  if (!(width >= 1 && height >= 1 && width * height <= kMostPixels)) {
    return nullptr;
  }
  return std::make_unique<FakeImageContext>(static_cast<std::size_t>(width),
                                            static_cast<std::size_t>(height), scale, opaque,
                                            screen_.userInterfaceStyle());
}

CGSize FakeGraphics::pixelSize(const Data& file) {
  ++measured_;
  const auto size = pictureSize(file);
  return size ? CGSize{static_cast<CGFloat>(size->width), static_cast<CGFloat>(size->height)}
              : CGSize();
}

CGBitmapRef FakeGraphics::decode(const Data& file, int maximumSide, NSError* error) {
  ++decoded_;
  const CGBitmapRef bitmap = decodePicture(file);
  if (bitmap == nullptr) {
    if (error != nullptr) {
      *error =
          NSError("FakeGraphics", 1, {{kNSLocalizedDescriptionKey, "The picture cannot be read."}});
    }
    return nullptr;
  }
  const auto side = static_cast<std::size_t>(std::max(maximumSide, 1));
  return std::max(bitmap->width, bitmap->height) > side ? scaledDown(*bitmap, side) : bitmap;
}

}  // namespace zephyl::fake
