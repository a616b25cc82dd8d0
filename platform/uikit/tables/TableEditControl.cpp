#include "platform/uikit/tables/TableEditControl.h"

#include "platform/uikit/UIKitText.h"

namespace zephyl {
namespace {

constexpr CGFloat kLine = 2;
constexpr CGFloat kArm = 5.5;

}  // namespace

TableEditControl::TableEditControl() {
  setOpaque(false);
}

void TableEditControl::setEditingStyle(UITableViewCellEditingStyle style) {
  if (style == style_) {
    return;
  }
  style_ = style;
  setUserInteractionEnabled(style != UITableViewCellEditingStyle::kMultiSelect);
  setHidden(style == UITableViewCellEditingStyle::kNone);
  setNeedsDisplay();
}

void TableEditControl::drawRect(CGContext& context, const CGRect& rect) {
  const CGRect circle = CGRectMake(rect.midX() - kSide / 2, rect.midY() - kSide / 2, kSide, kSide);
  if (style_ == UITableViewCellEditingStyle::kMultiSelect) {
    return drawTick(context, circle);
  }
  const bool deletes = style_ == UITableViewCellEditingStyle::kDelete;
  context.fillEllipse(circle, deletes ? UIColor::systemRedColor() : UIColor::systemGreenColor());
  const CGPoint middle = {circle.midX(), circle.midY()};
  context.stroke(Polyline{{{middle.x - kArm, middle.y}, {middle.x + kArm, middle.y}}}, kLine,
                 UIColor::whiteColor());
  if (!deletes) {
    context.stroke(Polyline{{{middle.x, middle.y - kArm}, {middle.x, middle.y + kArm}}}, kLine,
                   UIColor::whiteColor());
  }
}

void TableEditControl::drawTick(CGContext& context, const CGRect& circle) const {
  if (!isSelected()) {
    context.stroke(RoundedRect{circle, kSide / 2}, 1, UIColor::systemGray3Color());
    return;
  }
  context.fillEllipse(circle, tintColor());
  const CGFloat x = circle.x();
  const CGFloat y = circle.y();
  context.stroke(Polyline{{{x + 6, y + 11.5}, {x + 9.5, y + 15}, {x + 16, y + 7.5}}}, kLine,
                 UIColor::whiteColor());
}

bool TableEditControl::isAccessibilityElement() const {
  // What is ticked, the row says.
  return style_ == UITableViewCellEditingStyle::kDelete ||
         style_ == UITableViewCellEditingStyle::kInsert;
}

std::string TableEditControl::derivedAccessibilityLabel() const {
  return style_ == UITableViewCellEditingStyle::kInsert ? uikitText("Add") : uikitText("Delete");
}

std::string TableEditControl::describe() const {
  switch (style_) {
    case UITableViewCellEditingStyle::kNone:
      break;
    case UITableViewCellEditingStyle::kDelete:
      return "minus";
    case UITableViewCellEditingStyle::kInsert:
      return "plus";
    case UITableViewCellEditingStyle::kMultiSelect:
      return isSelected() ? "ticked" : "not ticked";
  }
  return {};
}

}  // namespace zephyl
