// A bitmap that is drawn into: plain rectangles are filled for real, edges by the part of a pixel
// that they cover; everything else is only written down.

#pragma once

#include <memory>

#include "platform/uikit/UIGraphics.h"

#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl::fake {

class FakeImageContext : public ImageContext {
 public:
  FakeImageContext(std::size_t width, std::size_t height, CGFloat scale, bool opaque,
                   UIUserInterfaceStyle style);

  CGContext& context() override { return context_; }
  CGBitmapRef bitmap() override { return bitmap_; }

 private:
  class Painter : public RecordingContext {
   public:
    Painter(CGBitmap& bitmap, CGFloat scale, UIUserInterfaceStyle style);
    void fill(const RoundedRect& shape, const UIColor& color) override;

   private:
    CGBitmap& bitmap_;
    CGFloat scale_;
  };

  std::shared_ptr<CGBitmap> bitmap_;
  Painter context_;
};

}  // namespace zephyl::fake
