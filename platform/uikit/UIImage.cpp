#include "platform/uikit/UIImage.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/Host.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/uikit/UIGraphics.h"
#include "platform/uikit/UIKitHost.h"
#include "platform/uikit/UIScreen.h"

namespace zephyl {

// What is found out about a file once, by whoever asks first.
struct UIImage::Decoded {
  std::mutex mutex;
  std::optional<CGSize> pixelSize;
  bool tried = false;
  CGBitmapRef bitmap;
};

UIImage::UIImage(Data file, CGFloat scale)
    : file_(std::move(file)), scale_(scale), decoded_(std::make_shared<Decoded>()) {}

UIImage::UIImage(CGBitmapRef bitmap, CGFloat scale)
    : scale_(scale), decoded_(std::make_shared<Decoded>()) {
  decoded_->tried = true;
  decoded_->pixelSize = CGSize();
  if (bitmap != nullptr) {
    decoded_->pixelSize =
        CGSize{static_cast<CGFloat>(bitmap->width), static_cast<CGFloat>(bitmap->height)};
  }
  decoded_->bitmap = std::move(bitmap);
}

UIImage::UIImage(const UIImage& other, UIImageRenderingMode mode)
    : file_(other.file_), scale_(other.scale_), mode_(mode), decoded_(other.decoded_) {}

UIImage::~UIImage() = default;

UIImageRef UIImage::imageWithData(Data file, CGFloat scale) {
  return file.empty() ? nullptr : std::make_shared<const UIImage>(std::move(file), scale);
}

UIImageRef UIImage::imageNamed(const std::string& name, const NSBundle& bundle) {
  constexpr std::array<const char*, 3> kSuffixes = {".png", "@2x.png", "@3x.png"};
  const int wanted = static_cast<int>(std::clamp(UIScreen::mainScreen().scale() + 0.99, 1.0, 3.0));
  // The wanted scale, then larger ones, then smaller ones from the largest on.
  std::array<int, 3> order = {wanted, 0, 0};
  std::size_t next = 1;
  for (int scale = wanted + 1; scale <= 3; ++scale) {
    order.at(next++) = scale;
  }
  for (int scale = wanted - 1; scale >= 1; --scale) {
    order.at(next++) = scale;
  }
  for (const int scale : order) {
    const std::string path =
        bundle.bundlePath() + "/" + name + kSuffixes.at(static_cast<std::size_t>(scale - 1));
    if (const auto bytes = host().files().contentsAtPath(path); bytes && !bytes->empty()) {
      return imageWithData(Data(bytes->begin(), bytes->end()), scale);
    }
  }
  return nullptr;
}

CGSize UIImage::size() const {
  const std::lock_guard lock(decoded_->mutex);
  if (!decoded_->pixelSize) {
    decoded_->pixelSize = uikitHost().graphics().pixelSize(file_);
  }
  return {decoded_->pixelSize->width / scale_, decoded_->pixelSize->height / scale_};
}

CGBitmapRef UIImage::bitmap() const {
  const std::lock_guard lock(decoded_->mutex);
  if (!decoded_->tried) {
    decoded_->tried = true;
    decoded_->bitmap = uikitHost().graphics().decode(file_, kMaxSide, nullptr);
  }
  return decoded_->bitmap;
}

UIImageRef UIImage::imageWithRenderingMode(UIImageRenderingMode mode) const {
  return std::make_shared<const UIImage>(*this, mode);
}

UIImageRef UIImage::hr_imageWithSize(CGSize size, const Renderer& renderer) {
  return hr_imageWithSize(size, /*opaque=*/false, renderer);
}

UIImageRef UIImage::hr_imageWithSize(CGSize size, bool opaque, const Renderer& renderer) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  const auto drawing = uikitHost().graphics().makeImageContext(size, scale, opaque);
  if (drawing == nullptr) {
    return nullptr;
  }
  renderer(drawing->context(), {{0, 0}, size});
  return std::make_shared<const UIImage>(drawing->bitmap(), scale);
}

Data UIImagePNGRepresentation(const UIImage& image) {
  constexpr std::array<std::uint8_t, 8> kSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  const Data& file = image.file();
  UIGraphics& graphics = uikitHost().graphics();
  const CGBitmapRef bitmap = file.empty()
                                 ? image.bitmap()
                                 : graphics.decode(file, std::numeric_limits<int>::max(), nullptr);
  if (bitmap == nullptr) {
    return {};
  }
  const bool isPng = file.size() > kSignature.size() &&
                     std::equal(kSignature.begin(), kSignature.end(), file.begin());
  return isPng ? file : graphics.encodePNG(*bitmap);
}

}  // namespace zephyl
