// The cross in a circle that empties a text field. Main thread.

#pragma once

#include "platform/uikit/controls/UIControl.h"

namespace zephyl {

class ZP_EXPORT UITextFieldClearButton : public UIControl {
 public:
  static constexpr CGFloat kSide = 19;

  UITextFieldClearButton();

  void drawRect(CGContext& context, const CGRect& rect) override;
  // A finger is larger than the button.
  [[nodiscard]] bool pointInside(CGPoint point) const override;
  // Keys stay with the field.
  [[nodiscard]] bool canBecomeFirstResponder() const override { return false; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override { return "UITextFieldClearButton"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;
  void stateDidChange() override { setNeedsDisplay(); }
};

}  // namespace zephyl
