// The circle on the leading side of a row while its table is edited: a minus or a plus that can be
// tapped, or a tick that tells whether the row is selected. Main thread.

#pragma once

#include <string>

#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

class ZP_EXPORT TableEditControl : public UIControl {
 public:
  static constexpr CGFloat kSide = 22;

  TableEditControl();

  [[nodiscard]] UITableViewCellEditingStyle editingStyle() const { return style_; }
  // A tick is not tapped: its row is.
  void setEditingStyle(UITableViewCellEditingStyle style);

  void drawRect(CGContext& context, const CGRect& rect) override;
  [[nodiscard]] bool isAccessibilityElement() const override;
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kButton;
  }
  [[nodiscard]] const char* className() const override { return "UITableViewCellEditControl"; }
  [[nodiscard]] std::string describe() const override;

 protected:
  void stateDidChange() override { setNeedsDisplay(); }
  [[nodiscard]] std::string derivedAccessibilityLabel() const override;

 private:
  void drawTick(CGContext& context, const CGRect& circle) const;

  UITableViewCellEditingStyle style_ = UITableViewCellEditingStyle::kNone;
};

}  // namespace zephyl
