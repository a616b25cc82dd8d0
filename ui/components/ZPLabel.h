// A label whose text keeps 5 points away from its left and right edges. Main thread.

#pragma once

#include "platform/uikit/text/UILabel.h"

namespace zephyl {

class ZP_EXPORT ZPLabel : public UILabel {
 public:
  explicit ZPLabel(const CGRect& frame = {}) : UILabel(frame) {}

  void drawTextInRect(CGContext& context, const CGRect& rect) override;
  // Kept: neither the bounds nor the number of lines count, and the rectangle begins left of 0. It
  // is the text's own in an area of 999 x 999, and 5 points on either side.
  [[nodiscard]] CGRect textRectForBounds(const CGRect& bounds, int numberOfLines) const override;

  [[nodiscard]] const char* className() const override { return "ZPLabel"; }
};

}  // namespace zephyl
