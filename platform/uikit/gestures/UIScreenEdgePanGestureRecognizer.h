// A drag inwards from the leading edge of a view: the way back. It goes before what begins in the
// views that lie there, and begins sooner than other drags. Main thread.

#pragma once

#include <deque>

#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

class ZP_EXPORT UIScreenEdgePanGestureRecognizer : public UIGestureRecognizer {
 public:
  // How near the edge it starts, and how far the finger moves before it is a drag, in points.
  static constexpr CGFloat kEdge = 24;
  static constexpr CGFloat kSlop = 6;

  using UIGestureRecognizer::UIGestureRecognizer;

  // Inwards since it began; negative beyond where it began.
  [[nodiscard]] CGFloat distance() const { return distance_; }
  // Points a second inwards, over the last tenth of one.
  [[nodiscard]] CGFloat velocity() const;

  void reset() override;
  [[nodiscard]] bool precedesInner() const override { return true; }

 protected:
  void handleTouch(const UITouch& touch) override;

 private:
  struct Sample {
    double timestamp = 0;
    CGFloat inwards = 0;
  };

  [[nodiscard]] CGFloat inwards(CGPoint location) const;
  void moved(const UITouch& touch);

  UITouch start_;
  CGFloat begin_ = 0;
  CGFloat distance_ = 0;
  std::deque<Sample> samples_;
};

}  // namespace zephyl
