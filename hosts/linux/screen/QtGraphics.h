// Picture files and bitmaps with Qt, HEIC pictures with libheif where this build has it. Any
// thread, while there is a QGuiApplication.
//
// What is read is bounded: the head of a file is looked at first, and what would take too many
// pixels is scaled while it is read or refused. Only kinds of pictures that people have are read.

#pragma once

#include <QSize>
#include <memory>

#include "platform/uikit/UIGraphics.h"

namespace zephyl {
class UIScreen;
}

namespace zephyl::linux_host {

struct PaintCaches;

class QtGraphics : public UIGraphics {
 public:
  // `screen` tells the appearance that images are drawn in. Both outlive this and its contexts.
  QtGraphics(UIScreen& screen, PaintCaches& caches);

  [[nodiscard]] std::unique_ptr<ImageContext> makeImageContext(CGSize size, CGFloat scale,
                                                               bool opaque) override;
  [[nodiscard]] CGSize pixelSize(const Data& file) override;
  [[nodiscard]] CGBitmapRef decode(const Data& file, int maximumSide, NSError* error) override;
  [[nodiscard]] Data encodePNG(const CGBitmap& bitmap) override;

 private:
  UIScreen& screen_;
  PaintCaches& caches_;
};

}  // namespace zephyl::linux_host
