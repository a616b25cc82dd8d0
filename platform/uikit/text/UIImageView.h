// Shows a picture, fitted by the content mode: stretched to the view unless set otherwise. Main
// thread.
//
// A template is drawn in the view's tint colour. What is larger than the view is cut at its edges.

#pragma once

#include <string>

#include "platform/uikit/UIImage.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class ZP_EXPORT UIImageView : public UIView {
 public:
  explicit UIImageView(const CGRect& frame = {});
  // As large as the picture; a null one is none.
  explicit UIImageView(const UIImageRef& image);

  [[nodiscard]] const UIImageRef& image() const { return image_; }
  void setImage(const UIImageRef& image);

  void drawRect(CGContext& context, const CGRect& rect) override;
  void tintColorDidChange() override;

  // The picture's size; nothing without one.
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override;
  [[nodiscard]] CGSize intrinsicContentSize() const override;

  // Only when a label was given: a picture says nothing of itself.
  [[nodiscard]] bool isAccessibilityElement() const override {
    return !accessibilityLabel().empty();
  }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kImage;
  }
  [[nodiscard]] const char* className() const override { return "UIImageView"; }
  // "image" when there is one.
  [[nodiscard]] std::string describe() const override { return image_ ? "image" : ""; }

 private:
  [[nodiscard]] CGRect imageRect(const CGRect& bounds) const;

  UIImageRef image_;
};

}  // namespace zephyl
