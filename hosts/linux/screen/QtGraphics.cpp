#include "hosts/linux/screen/QtGraphics.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <cmath>
#include <utility>

#include "platform/uikit/UIScreen.h"

#include "hosts/linux/screen/HeifPictures.h"
#include "hosts/linux/screen/PaintCaches.h"
#include "hosts/linux/screen/PictureFile.h"
#include "hosts/linux/screen/QtContext.h"

namespace zephyl::linux_host {

namespace {

constexpr CGFloat kMostPixels = 64 << 20;
constexpr CGFloat kLongestSide = 32767;  // of Qt's painter

class QtImageContext : public ImageContext {
 public:
  QtImageContext(QSize pixels, CGFloat scale, bool opaque, UIUserInterfaceStyle style,
                 PaintCaches& caches)
      : image_(pixels, QImage::Format_ARGB32_Premultiplied) {
    image_.fill(opaque ? Qt::black : Qt::transparent);
    painter_.begin(&image_);
    painter_.scale(scale, scale);
    context_ = std::make_unique<QtContext>(painter_, image_.rect(), style, caches);
  }

  CGContext& context() override { return *context_; }

  CGBitmapRef bitmap() override {
    context_ = nullptr;
    painter_.end();
    return bitmapOf(image_);
  }

 private:
  QImage image_;
  QPainter painter_;
  std::unique_ptr<QtContext> context_;
};

}  // namespace

QtGraphics::QtGraphics(UIScreen& screen, PaintCaches& caches) : screen_(screen), caches_(caches) {
  constexpr int kMostMegabytes = 512;
  QImageReader::setAllocationLimit(kMostMegabytes);
}

std::unique_ptr<ImageContext> QtGraphics::makeImageContext(CGSize size, CGFloat scale,
                                                           bool opaque) {
  // What arithmetic adds to a whole number of pixels is no pixel more.
  constexpr CGFloat kTolerance = 1e-6;
  const CGFloat width = std::ceil(size.width * scale - kTolerance);
  const CGFloat height = std::ceil(size.height * scale - kTolerance);
  // Said so that NaN is refused too.
  if (!(width >= 1 && height >= 1 && width <= kLongestSide && height <= kLongestSide &&
        width * height <= kMostPixels)) {
    return nullptr;
  }
  return std::make_unique<QtImageContext>(QSize(static_cast<int>(width), static_cast<int>(height)),
                                          scale, opaque, screen_.userInterfaceStyle(), caches_);
}

CGSize QtGraphics::pixelSize(const Data& file) {
  const QSize size = pictureSize(file);
  return {static_cast<CGFloat>(size.width()), static_cast<CGFloat>(size.height())};
}

CGBitmapRef QtGraphics::decode(const Data& file, int maximumSide, NSError* error) {
  Picture picture = readPicture(file, std::max(1, maximumSide));
  if (picture.image.isNull()) {
    if (error != nullptr) {
      *error = NSError("com.vantor.zephyls.pictures", 1,
                       {{kNSLocalizedDescriptionKey, std::move(picture.problem)}});
    }
    return nullptr;
  }
  return bitmapOf(picture.image);
}

Data QtGraphics::encodePNG(const CGBitmap& bitmap) {
  // Not owned, and not kept.
  const CGBitmapRef borrowed(&bitmap, [](const CGBitmap*) {});
  const QImage image = imageOf(borrowed);
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  if (image.isNull() || !image.convertToFormat(QImage::Format_ARGB32).save(&file, "PNG")) {
    return {};
  }
  return {file.data().begin(), file.data().end()};
}

}  // namespace zephyl::linux_host
