// One or more short touches at one place. It has no course: its action runs once, when the last
// touch of the last tap ends, in state 3. Main thread.

#pragma once

#include "platform/uikit/gestures/UIGestureRecognizer.h"

namespace zephyl {

class ZP_EXPORT UITapGestureRecognizer : public UIGestureRecognizer {
 public:
  // A finger that strays farther, or stays longer, makes no tap; nor does a second that comes
  // later. Points and seconds.
  static constexpr CGFloat kAllowableMovement = 45;
  static constexpr double kMaximumDuration = 0.75;
  static constexpr double kMaximumInterval = 0.35;

  using UIGestureRecognizer::UIGestureRecognizer;

  [[nodiscard]] int numberOfTapsRequired() const { return tapsRequired_; }
  // At least 1.
  void setNumberOfTapsRequired(int taps) { tapsRequired_ = taps < 1 ? 1 : taps; }

  void reset() override;

 protected:
  void handleTouch(const UITouch& touch) override;

 private:
  void touchBegan(const UITouch& touch);
  void touchEnded(const UITouch& touch);
  [[nodiscard]] bool strayed(CGPoint location) const;

  int tapsRequired_ = 1;
  int taps_ = 0;
  CGPoint start_;
  double startTime_ = 0;
  double endTime_ = 0;
};

}  // namespace zephyl
