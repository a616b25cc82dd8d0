// What moves a scroll view without a finger: a flick that runs out, and a way to a place that was
// asked for. Private to the scroll view.

#pragma once

#include <memory>

#include "platform/uikit/gestures/UIGestureRecognizer.h"
#include "platform/uikit/tables/UIScrollView.h"

namespace zephyl {

struct UIScrollView::Motion {
  // Of a flick.
  bool decelerates = false;
  ScrollMotion x{0, 0};
  ScrollMotion y{0, 0};
  // Of a way to a place.
  CGPoint from;
  CGPoint to;
  // Of the frame before; negative before the first.
  double lastTime = -1;
  double elapsed = 0;
};

// Sees every finger on the scroll view, and is never recognized.
class UIScrollView::TouchWatcher : public UIGestureRecognizer {
 public:
  explicit TouchWatcher(UIScrollView& scrollView)
      : UIGestureRecognizer(nullptr), scrollView_(scrollView) {}

  void reset() override {
    UIGestureRecognizer::reset();
    leave();
  }

 protected:
  void handleTouch(const UITouch& touch) override {
    if (touch.phase == UITouchPhase::kBegan && view() != nullptr) {
      scrollView_.fingerDown();
    } else if (touches().empty()) {
      leave();
    }
  }

 private:
  void leave() {
    if (view() != nullptr) {
      scrollView_.fingerUp();
    }
  }

  UIScrollView& scrollView_;
};

}  // namespace zephyl
