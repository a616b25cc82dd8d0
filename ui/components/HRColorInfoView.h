// What the colour picker has chosen: a swatch, and the colour as text below it. Main thread.

#pragma once

#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class UILabel;

ZP_EXPORT extern const double kHRColorInfoViewLabelHeight;
ZP_EXPORT extern const double kHRColorInfoViewCornerRadius;

class ZP_EXPORT HRColorInfoView : public UIView {
 public:
  explicit HRColorInfoView(const CGRect& frame = {});
  ~HRColorInfoView() override;

  // Clear, and without a text, until one is set.
  [[nodiscard]] const UIColor& color() const { return color_; }
  void setColor(const UIColor& color);
  [[nodiscard]] const std::shared_ptr<UILabel>& hexColorLabel() const { return label_; }

  void layoutSubviews() override;
  [[nodiscard]] const char* className() const override { return "HRColorInfoView"; }

 private:
  UIColor color_;
  std::shared_ptr<CALayer> swatch_;
  std::shared_ptr<UILabel> label_;
};

}  // namespace zephyl
