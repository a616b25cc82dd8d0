// A drag with any number of fingers. It begins once the fingers have moved far enough, and runs
// until the last leaves. Main thread.

#pragma once

#include <deque>

#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

enum UIPanDirections : unsigned { kPanHorizontally = 1, kPanVertically = 2 };

class ZP_EXPORT UIPanGestureRecognizer : public UIGestureRecognizer {
 public:
  // How far a finger moves before it is a drag, in points.
  static constexpr CGFloat kSlop = 10;

  using UIGestureRecognizer::UIGestureRecognizer;

  // Bits of UIPanDirections: a drag that begins mainly in another direction makes it fail. At 45
  // degrees it counts as vertical.
  void setAllowedDirections(unsigned directions) { directions_ = directions; }
  [[nodiscard]] unsigned allowedDirections() const { return directions_; }

  // How far the fingers have moved since it began, the way to get there left out; that of several
  // fingers is their mean. In the coordinates of `view`, the window's when it is null.
  [[nodiscard]] CGPoint translationInView(const UIView* view) const;
  // What is counted from now on is added to it.
  void setTranslation(CGPoint translation, const UIView* view);
  // Points a second, over the last tenth of one; zero when the finger rested before it left.
  [[nodiscard]] CGPoint velocityInView(const UIView* view) const;

  void reset() override;

 protected:
  void handleTouch(const UITouch& touch) override;

 private:
  struct Sample {
    double timestamp = 0;
    CGPoint travelled;
  };

  void touchMoved(const UITouch& touch);
  void touchEnded(const UITouch& touch);
  void count(const UITouch& touch);
  void beginIfFar();

  unsigned directions_ = kPanHorizontally | kPanVertically;
  // Where each finger was seen last: `touches` already tells where it is.
  std::vector<UITouch> before_;
  CGPoint travelled_;
  CGPoint translation_;
  CGPoint velocity_;
  std::deque<Sample> samples_;
};

}  // namespace zephyl
