// Pictures in memory without a decoder of real ones: see FakePng.h. Any thread.

#pragma once

#include <atomic>
#include <memory>

#include "platform/uikit/UIGraphics.h"

#include "hosts/fake/uikit/FakePng.h"
#include "hosts/fake/uikit/FakeScreen.h"

namespace zephyl::fake {

class FakeGraphics : public UIGraphics {
 public:
  // `screen` tells the appearance that images are drawn in.
  explicit FakeGraphics(FakeScreen& screen) : screen_(screen) {}

  std::unique_ptr<ImageContext> makeImageContext(CGSize size, CGFloat scale, bool opaque) override;
  CGSize pixelSize(const Data& file) override;
  CGBitmapRef decode(const Data& file, int maximumSide, NSError* error) override;
  Data encodePNG(const CGBitmap& bitmap) override { return encodePng(bitmap); }

  [[nodiscard]] int decoded() const { return decoded_; }
  [[nodiscard]] int measured() const { return measured_; }

 private:
  FakeScreen& screen_;
  std::atomic<int> decoded_ = 0;
  std::atomic<int> measured_ = 0;
};

}  // namespace zephyl::fake
