// Going back by dragging the topmost screen away.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controllers/testing/LoggingController.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::Log;
using test::screen;
using test::taken;

class SwipeTest : public ::testing::Test {
 protected:
  SwipeTest() {
    first_->view();
    navigation_ = UINavigationController::initWithRootViewController(first_);
    navigation_->pushViewController(second_, /*animated=*/false);
    window_->setRootViewController(navigation_);
    window_->layoutWindow();
    log_.clear();
  }

  // In steps of 20 points, 20 milliseconds apart: too fast to be anything but a flick.
  void drag(CGFloat from, CGFloat to, CGFloat dy = 0) {
    test::touch(*window_, UITouchPhase::kBegan, {from, 400}, time_);
    const CGFloat step = to > from ? 20 : -20;
    CGFloat y = 400;
    for (CGFloat x = from; step > 0 ? x <= to : x >= to; x += step) {
      y += dy;
      time_ += 0.02;
      test::touch(*window_, UITouchPhase::kMoved, {x, y}, time_);
    }
    at_ = {to, y};
  }
  void rest() {
    time_ += 1;
    test::touch(*window_, UITouchPhase::kMoved, at_, time_);
  }
  void lift(UITouchPhase phase = UITouchPhase::kEnded) { test::touch(*window_, phase, at_, time_); }
  void settle() { device_.uikit()->displayLink().runUntilIdle(); }

  fake::Device device_;
  Log log_;
  double time_ = 0;
  CGPoint at_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<test::LoggingController> first_ = screen("1", log_);
  std::shared_ptr<test::LoggingController> second_ = screen("2", log_);
  std::shared_ptr<UINavigationController> navigation_;
};

TEST_F(SwipeTest, TheScreenFollowsTheFinger) {
  drag(5, 145);
  EXPECT_EQ(taken(log_), (Log{"2 willDisappear*", "1 willAppear*"}));
  EXPECT_EQ(second_->view()->transform().tx, 120);
  EXPECT_LT(first_->view()->transform().tx, 0);
  EXPECT_EQ(navigation_->topViewController(), second_);
}

TEST_F(SwipeTest, BeyondTheMiddleItGoesBack) {
  drag(5, 305);
  rest();
  lift();
  EXPECT_EQ(navigation_->topViewController(), first_);
  settle();
  EXPECT_EQ(log_, (Log{"2 willDisappear*", "1 willAppear*", "2 willLeave", "2 didDisappear*",
                       "1 didAppear*", "2 didLeave", "1 didJoin"}));
  EXPECT_EQ(second_->view()->superview(), nullptr);
  EXPECT_EQ(first_->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(SwipeTest, BeforeTheMiddleItComesBack) {
  drag(5, 105);
  rest();
  lift();
  settle();
  EXPECT_EQ(log_, (Log{"2 willDisappear*", "1 willAppear*", "1 willDisappear*", "2 willAppear*",
                       "1 didDisappear*", "2 didAppear*"}));
  EXPECT_EQ(navigation_->topViewController(), second_);
  EXPECT_EQ(first_->view()->superview(), nullptr);
  EXPECT_EQ(second_->view()->superview(), navigation_->view().get());
  EXPECT_EQ(second_->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(SwipeTest, AFlickGoesBackFromAnywhere) {
  drag(5, 105);
  lift();
  EXPECT_EQ(navigation_->topViewController(), first_);
}

TEST_F(SwipeTest, ACancelledDragComesBack) {
  drag(5, 305);
  lift(UITouchPhase::kCancelled);
  settle();
  EXPECT_EQ(navigation_->topViewController(), second_);
  EXPECT_TRUE(second_->hasAppeared());
}

TEST_F(SwipeTest, ADragFromTheMiddleOrDownwardsIsNone) {
  drag(100, 300);
  lift();
  drag(5, 305, /*dy=*/30);
  lift();
  EXPECT_TRUE(log_.empty());
}

TEST_F(SwipeTest, RightToLeftItBeginsAtTheRightEdge) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  drag(5, 305);
  lift();
  EXPECT_TRUE(log_.empty());
  drag(385, 85);
  EXPECT_LT(second_->view()->transform().tx, 0);
  lift();
  EXPECT_EQ(navigation_->topViewController(), first_);
}

TEST_F(SwipeTest, WhereThereIsNoBackButtonThereIsNoWayBack) {
  second_->navigationItem()->setLeftBarButtonItem(
      std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kCancel, second_, nullptr));
  drag(5, 305);
  lift();
  second_->navigationItem()->setLeftBarButtonItem(nullptr);
  second_->navigationItem()->setHidesBackButton(true);
  drag(5, 305);
  lift();
  EXPECT_TRUE(log_.empty());
}

TEST_F(SwipeTest, TheRootStays) {
  navigation_->popViewControllerAnimated(/*animated=*/false);
  log_.clear();
  drag(5, 305);
  lift();
  EXPECT_TRUE(log_.empty());
}

TEST_F(SwipeTest, ItGoesBeforeTheDragsOfTheScreen) {
  int pans = 0;
  second_->view()->addGestureRecognizer(
      std::make_shared<UIPanGestureRecognizer>([&](UIGestureRecognizer&) { ++pans; }));
  drag(5, 305);
  lift();
  EXPECT_EQ(navigation_->topViewController(), first_);
  EXPECT_EQ(pans, 0);
}

TEST_F(SwipeTest, AChangeOfTheStackEndsTheDrag) {
  const auto third = screen("3", log_);
  drag(5, 305);
  navigation_->pushViewController(third, /*animated=*/false);
  lift();
  settle();
  EXPECT_EQ(navigation_->viewControllers(),
            (UINavigationController::Controllers{first_, second_, third}));
  EXPECT_TRUE(third->hasAppeared());
  EXPECT_FALSE(second_->hasAppeared());
  EXPECT_FALSE(first_->hasAppeared());
  EXPECT_EQ(first_->view()->superview(), nullptr);
}

TEST_F(SwipeTest, WhileScreensSlideNothingOnThemIsTouched) {
  navigation_->popViewControllerAnimated(/*animated=*/true);
  EXPECT_EQ(window_->hitTest({200, 400}), navigation_->view().get());
  settle();
  EXPECT_EQ(window_->hitTest({200, 400}), first_->view().get());
}

}  // namespace
}  // namespace zephyl
