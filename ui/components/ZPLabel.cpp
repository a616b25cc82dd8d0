#include "ui/components/ZPLabel.h"

#include "platform/uikit/text/TextDrawing.h"

namespace zephyl {
namespace {

constexpr CGFloat kSide = 5;
constexpr CGFloat kArea = 999;

}  // namespace

void ZPLabel::drawTextInRect(CGContext& context, const CGRect& rect) {
  UILabel::drawTextInRect(
      context, CGRectMake(rect.x() + kSide, rect.y(), rect.width() - 2 * kSide, rect.height()));
}

CGRect ZPLabel::textRectForBounds(const CGRect& /*bounds*/, int /*numberOfLines*/) const {
  return CGRectInset(boundingRectWithSize(attributedText(), {kArea, kArea}), -kSide, 0);
}

}  // namespace zephyl
