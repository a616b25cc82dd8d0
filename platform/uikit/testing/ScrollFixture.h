// For tests: a scroll view in a window, a finger on it, and a delegate that writes down what it is
// told.

#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/tables/UIScrollView.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl::test {

// Writes down what it is told.
class ScrollListener : public UIScrollViewDelegate {
 public:
  void scrollViewDidScroll(UIScrollView& /*view*/) override { ++scrolls; }
  void scrollViewWillBeginDragging(UIScrollView& /*view*/) override { log += "drag "; }
  void scrollViewDidEndDragging(UIScrollView& /*view*/, bool willDecelerate) override {
    log += willDecelerate ? "flick " : "drop ";
  }
  void scrollViewDidEndDecelerating(UIScrollView& /*view*/) override { log += "rest "; }
  void scrollViewDidEndScrollingAnimation(UIScrollView& /*view*/) override { log += "there "; }

  int scrolls = 0;
  std::string log;
};

// A scroll view of 300 by 400 points with contents three times as high, in a window.
class ScrollTest : public ::testing::Test {
 protected:
  ScrollTest() {
    scroll_->setContentSize({300, 1200});
    scroll_->setScrollDelegate(listener_);
    window_->addSubview(scroll_);
    window_->layoutWindow();
  }

  // A finger from the middle, moved evenly in steps of a frame; it stays down.
  void drag(CGFloat dy, int steps = 10, CGFloat dx = 0) {
    touch(*window_, UITouchPhase::kBegan, at_, time_);
    for (int i = 1; i <= steps; ++i) {
      time_ += 1.0 / 60;
      move({at_.x + dx * i / steps, at_.y + dy * i / steps});
    }
  }
  void move(CGPoint to) {
    finger_ = to;
    touch(*window_, UITouchPhase::kMoved, to, time_);
    window_->layoutWindow();
  }
  // After a rest, so that nothing is flung.
  void lift(double rest = 1) {
    time_ += rest;
    touch(*window_, UITouchPhase::kEnded, finger_, time_);
    window_->layoutWindow();
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  ScrollIndicator& indicator() { return *test::viewOf<ScrollIndicator>(*scroll_); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIScrollView> scroll_ =
      std::make_shared<UIScrollView>(CGRectMake(0, 100, 300, 400));
  std::shared_ptr<ScrollListener> listener_ = std::make_shared<ScrollListener>();
  CGPoint at_{150, 300};
  CGPoint finger_ = at_;
  double time_ = 100;
};

}  // namespace zephyl::test
