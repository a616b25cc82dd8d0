// A layer that is filled with colours running from one point to another. Main thread.

#pragma once

#include <vector>

#include "platform/uikit/CALayer.h"

namespace zephyl {

class ZP_EXPORT CAGradientLayer : public CALayer {
 public:
  // Evenly spread from the start point to the end point. Fewer than two fill nothing.
  [[nodiscard]] const std::vector<UIColor>& colors() const { return colors_; }
  void setColors(std::vector<UIColor> colors);

  // Fractions of width and height. By default from the middle of the top to that of the bottom.
  [[nodiscard]] CGPoint startPoint() const { return startPoint_; }
  [[nodiscard]] CGPoint endPoint() const { return endPoint_; }
  void setStartPoint(CGPoint point);
  void setEndPoint(CGPoint point);

  void drawInContext(CGContext& context) override;

 private:
  std::vector<UIColor> colors_;
  CGPoint startPoint_{0.5, 0};
  CGPoint endPoint_{0.5, 1};
};

}  // namespace zephyl
