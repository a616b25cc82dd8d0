#include "platform/uikit/tables/TableBlankRows.h"

#include "platform/uikit/UIScreen.h"

namespace zephyl {

TableBlankRows::TableBlankRows() {
  setOpaque(false);
  setUserInteractionEnabled(false);
  setContentMode(UIViewContentMode::kRedraw);
}

void TableBlankRows::setRowHeight(CGFloat height) {
  if (height == rowHeight_) {
    return;
  }
  rowHeight_ = height;
  setNeedsDisplay();
}

void TableBlankRows::setInset(CGFloat inset) {
  if (inset == inset_) {
    return;
  }
  inset_ = inset;
  setNeedsDisplay();
}

void TableBlankRows::drawRect(CGContext& context, const CGRect& rect) {
  if (rowHeight_ < 1) {
    return;
  }
  const CGFloat line = 1 / UIScreen::mainScreen().scale();
  const CGFloat x = UIScreen::mainScreen().isRightToLeft() ? 0 : inset_;
  const auto rows = static_cast<int>(rect.height() / rowHeight_);
  for (int row = 1; row <= rows; ++row) {
    const CGFloat bottom = rowHeight_ * row;
    context.fill({CGRectMake(x, bottom - line, rect.width() - inset_, line)},
                 UIColor::separatorColor());
  }
}

}  // namespace zephyl
