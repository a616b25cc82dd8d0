// The sign on the trailing side of a row: a chevron, or a check mark in the tint colour. Main
// thread.

#pragma once

#include "platform/uikit/UIView.h"
#include "platform/uikit/tables/UITableViewEnumerations.h"

namespace zephyl {

class ZP_EXPORT TableAccessoryView : public UIView {
 public:
  TableAccessoryView();

  [[nodiscard]] UITableViewCellAccessoryType type() const { return type_; }
  void setType(UITableViewCellAccessoryType type);

  [[nodiscard]] static CGSize sizeOfType(UITableViewCellAccessoryType type);
  [[nodiscard]] CGSize sizeThatFits(CGSize /*size*/) const override { return sizeOfType(type_); }
  void drawRect(CGContext& context, const CGRect& rect) override;
  void tintColorDidChange() override { setNeedsDisplay(); }
  [[nodiscard]] const char* className() const override { return "UITableViewCellAccessory"; }
  [[nodiscard]] std::string describe() const override;

 private:
  UITableViewCellAccessoryType type_ = UITableViewCellAccessoryType::kNone;
};

}  // namespace zephyl
