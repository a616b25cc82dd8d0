// A picture: the file it came in, or pixels. A file is decoded where it is first drawn or measured.
// Immutable; any thread.

#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/Export.h"
#include "platform/foundation/Value.h"
#include "platform/uikit/CGBitmap.h"
#include "platform/uikit/CGGeometry.h"

namespace zephyl {

class CGContext;
class NSBundle;
class UIImage;

using UIImageRef = std::shared_ptr<const UIImage>;

enum class UIImageRenderingMode { kAutomatic, kAlwaysOriginal, kAlwaysTemplate };

class ZP_EXPORT UIImage {
 public:
  // `scale` is pixels a point.
  explicit UIImage(Data file, CGFloat scale = 1);
  UIImage(CGBitmapRef bitmap, CGFloat scale);
  UIImage(const UIImage& other, UIImageRenderingMode mode);
  UIImage(const UIImage&) = delete;
  UIImage& operator=(const UIImage&) = delete;
  ~UIImage();

  // NAME@3x.png, NAME@2x.png or NAME.png of the bundle: the one for the main screen's scale, else
  // the next larger, else the next smaller. Null when there is none.
  [[nodiscard]] static UIImageRef imageNamed(const std::string& name, const NSBundle& bundle);

  // Null for an empty file. What is in the file is not looked at.
  [[nodiscard]] static UIImageRef imageWithData(Data file, CGFloat scale = 1);

  // The file's bytes; empty for an image that was made of pixels.
  [[nodiscard]] const Data& file() const { return file_; }
  [[nodiscard]] CGFloat scale() const { return scale_; }
  [[nodiscard]] UIImageRenderingMode renderingMode() const { return mode_; }

  // In points; zero when the file is no picture that the host can read.
  [[nodiscard]] CGSize size() const;

  // The pixels, decoded at the first call, at no more than `kMaxSide` a side. Null when the file is
  // no picture that the host can read, which is tried once.
  [[nodiscard]] CGBitmapRef bitmap() const;

  // The same picture to be drawn in one colour, the tint, through its alpha; or as it is.
  [[nodiscard]] UIImageRef imageWithRenderingMode(UIImageRenderingMode mode) const;

  // A picture of `size` points at the main screen's scale, drawn by `renderer`, which gets the
  // whole rectangle. Sizes under a pixel give null. Any thread.
  using Renderer = std::function<void(CGContext& context, const CGRect& rect)>;
  [[nodiscard]] static UIImageRef hr_imageWithSize(CGSize size, const Renderer& renderer);
  [[nodiscard]] static UIImageRef hr_imageWithSize(CGSize size, bool opaque,
                                                   const Renderer& renderer);

  static constexpr int kMaxSide = 4096;

 private:
  struct Decoded;

  Data file_;
  CGFloat scale_;
  UIImageRenderingMode mode_ = UIImageRenderingMode::kAutomatic;
  // Shared by the copies in other rendering modes.
  std::shared_ptr<Decoded> decoded_;
};

// The picture as a PNG file, at its own size: a PNG as it is, anything else written anew. Empty for
// what is no picture that the host can read. Any thread.
[[nodiscard]] ZP_EXPORT Data UIImagePNGRepresentation(const UIImage& image);

}  // namespace zephyl
