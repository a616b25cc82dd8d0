// The thin bar at the trailing side of a scroll view that tells which part is seen. It is seen
// while the contents move, and fades afterwards. Main thread.

#pragma once

#include "platform/uikit/UIView.h"

namespace zephyl {

class ZP_EXPORT ScrollIndicator : public UIView {
 public:
  static constexpr CGFloat kWidth = 3;
  static constexpr CGFloat kShortest = 36;

  ScrollIndicator();

  // Where it stands: `track` is the part of the scroll view, in the coordinates of the contents,
  // that is seen and not covered; `first` and `part` are fractions of the contents. A part of 1 or
  // more leaves it hidden. Beyond the ends it gets shorter.
  void place(const CGRect& track, CGFloat first, CGFloat part);

  // At once; and away slowly, after a moment.
  void show();
  void fade();

  [[nodiscard]] const char* className() const override { return "UIScrollIndicator"; }
};

}  // namespace zephyl
