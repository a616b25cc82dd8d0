// The knob on the brightness bar: shows the colour. Main thread.

#pragma once

#include <memory>

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIView.h"

namespace zephyl {

class ZP_EXPORT HRBrightnessCursor : public UIView {
 public:
  // Of one size, 28 points; only the origin of `frame` counts.
  explicit HRBrightnessCursor(const CGRect& frame = {});

  [[nodiscard]] const UIColor& color() const { return color_; }
  void setColor(const UIColor& color);
  // While a finger is there: grows within a tenth of a second.
  [[nodiscard]] bool isEditing() const { return editing_; }
  void setEditing(bool editing);

  [[nodiscard]] const char* className() const override { return "HRBrightnessCursor"; }

 private:
  UIColor color_;
  std::shared_ptr<CALayer> knob_;
  std::shared_ptr<CALayer> fill_;
  bool editing_ = false;
};

}  // namespace zephyl
