#include "platform/uikit/text/UITextFieldClearButton.h"

#include "platform/uikit/CGContext.h"
#include "platform/uikit/UIKitText.h"

namespace zephyl {
namespace {

constexpr CGFloat kCircle = 14;
// From the circle's middle to the ends of the cross.
constexpr CGFloat kArm = 2.5;
constexpr CGFloat kLineWidth = 1.25;
constexpr CGFloat kReach = 8;

}  // namespace

UITextFieldClearButton::UITextFieldClearButton() : UIControl(CGRectMake(0, 0, kSide, kSide)) {
  setOpaque(false);
}

void UITextFieldClearButton::drawRect(CGContext& context, const CGRect& rect) {
  const UIColor gray = isHighlighted() ? UIColor::systemGrayColor() : UIColor::systemGray2Color();
  const CGPoint middle{rect.midX(), rect.midY()};
  context.fillEllipse(CGRectMake(middle.x - kCircle / 2, middle.y - kCircle / 2, kCircle, kCircle),
                      gray);
  const UIColor cross = UIColor::systemBackgroundColor();
  for (const CGFloat slope : {1.0, -1.0}) {
    const Polyline line{
        {{middle.x - kArm, middle.y - slope * kArm}, {middle.x + kArm, middle.y + slope * kArm}}};
    context.stroke(line, kLineWidth, cross);
  }
}

bool UITextFieldClearButton::pointInside(CGPoint point) const {
  return CGRectContainsPoint(CGRectInset(bounds(), -kReach, -kReach), point);
}

std::string UITextFieldClearButton::derivedAccessibilityLabel() const {
  return uikitText("Clear text");
}

}  // namespace zephyl
