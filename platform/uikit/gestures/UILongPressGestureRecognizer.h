// A finger that rests. It begins after a while, changes while the finger moves, and ends when it
// leaves. Main thread.

#pragma once

#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

class ZP_EXPORT UILongPressGestureRecognizer : public UIGestureRecognizer {
 public:
  // A finger that moves farther before it begins makes it fail, in points.
  static constexpr CGFloat kAllowableMovement = 10;

  using UIGestureRecognizer::UIGestureRecognizer;

  // Seconds; by default half a second.
  [[nodiscard]] double minimumPressDuration() const { return duration_; }
  void setMinimumPressDuration(double seconds);

  void reset() override;

 protected:
  void handleTouch(const UITouch& touch) override;

 private:
  void touchBegan(const UITouch& touch);
  void touchMoved(const UITouch& touch);

  double duration_ = 0.5;
  CGPoint start_;
  // Tells the press that a timer was started for from later ones.
  unsigned press_ = 0;
};

}  // namespace zephyl
