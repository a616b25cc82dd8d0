// The lines of the rows that a short plain table would have further down. Main thread.

#pragma once

#include "platform/uikit/UIView.h"

namespace zephyl {

class ZP_EXPORT TableBlankRows : public UIView {
 public:
  TableBlankRows();

  void setRowHeight(CGFloat height);
  // From the leading edge to where lines begin.
  void setInset(CGFloat inset);

  void drawRect(CGContext& context, const CGRect& rect) override;
  [[nodiscard]] const char* className() const override { return "UITableViewBlankRows"; }

 private:
  CGFloat rowHeight_ = 44;
  CGFloat inset_ = 0;
};

}  // namespace zephyl
