// A Linux device with a screen, installed for as long as a test runs, and a canvas to draw on.

#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/uikit/NSAttributedString.h"

#include "hosts/linux/screen/QtContext.h"
#include "hosts/linux/screen/ScreenDevice_testing.h"

namespace zephyl::linux_host {

class ScreenTest : public ::testing::Test {
 protected:
  explicit ScreenTest(UIKitOptions options = {}) : device_(std::move(options)) {}

  [[nodiscard]] LinuxUIKit& kit() { return device_.kit(); }

  [[nodiscard]] static NSAttributedString text(const std::string& words, CGFloat size = 17,
                                               const UIColor& color = UIColor::blackColor()) {
    return {words, {UIFont::systemFontOfSize(size), color}};
  }
  [[nodiscard]] TextLayoutRef layout(const std::string& words, const TextStyle& style) {
    return kit().textSystem().layout(text(words), style);
  }

 private:
  ScreenDevice device_;
};

// White paper of some points, and a context on it.
class Canvas {
 public:
  Canvas(int width, int height, CGFloat scale, PaintCaches& caches,
         UIUserInterfaceStyle style = UIUserInterfaceStyle::kLight)
      : image_(static_cast<int>(width * scale), static_cast<int>(height * scale),
               QImage::Format_ARGB32_Premultiplied) {
    image_.fill(Qt::white);
    painter_.begin(&image_);
    painter_.scale(scale, scale);
    context_ = std::make_unique<QtContext>(painter_, image_.rect(), style, caches);
  }

  [[nodiscard]] CGContext& context() { return *context_; }
  QtContext* operator->() { return context_.get(); }

  // Ends the drawing.
  [[nodiscard]] const QImage& image() {
    if (context_ != nullptr) {
      context_ = nullptr;
      painter_.end();
    }
    return image_;
  }
  // Of the pixels so far.
  [[nodiscard]] QColor at(int x, int y) const { return image_.pixelColor(x, y); }
  // How many pixels are not as the paper was.
  [[nodiscard]] int inked() const {
    int count = 0;
    for (int y = 0; y < image_.height(); ++y) {
      for (int x = 0; x < image_.width(); ++x) {
        count += static_cast<int>(image_.pixel(x, y) != 0xFFFFFFFFU);
      }
    }
    return count;
  }

 private:
  QImage image_;
  QPainter painter_;
  std::unique_ptr<QtContext> context_;
};

}  // namespace zephyl::linux_host
