#include "platform/uikit/CAGradientLayer.h"

#include <utility>

namespace zephyl {

void CAGradientLayer::setColors(std::vector<UIColor> colors) {
  if (colors == colors_) {
    return;
  }
  colors_ = std::move(colors);
  setNeedsDisplay();
}

void CAGradientLayer::setStartPoint(CGPoint point) {
  const CGPoint sane = finite(point);
  if (sane == startPoint_) {
    return;
  }
  startPoint_ = sane;
  setNeedsDisplay();
}

void CAGradientLayer::setEndPoint(CGPoint point) {
  const CGPoint sane = finite(point);
  if (sane == endPoint_) {
    return;
  }
  endPoint_ = sane;
  setNeedsDisplay();
}

void CAGradientLayer::drawInContext(CGContext& context) {
  const CGRect& bounds = state().bounds;
  if (colors_.size() >= 2 && !bounds.isEmpty()) {
    const auto at = [&](CGPoint fraction) {
      return CGPoint{bounds.x() + fraction.x * bounds.width(),
                     bounds.y() + fraction.y * bounds.height()};
    };
    Gradient gradient{{}, at(startPoint_), at(endPoint_)};
    const auto last = static_cast<CGFloat>(colors_.size() - 1);
    for (std::size_t i = 0; i < colors_.size(); ++i) {
      gradient.stops.emplace_back(static_cast<CGFloat>(i) / last,
                                  colors_[i].resolvedColor(context.userInterfaceStyle()));
    }
    context.fillGradient({bounds, state().cornerRadius, maskedCorners()}, gradient);
  }
  CALayer::drawInContext(context);
}

}  // namespace zephyl
