#include "platform/uikit/tables/UIScrollView.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/tables/ScrollIndicator.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::touch;

constexpr double kFrame = 1.0 / 60;

// Writes down what it is told.
class Listener : public UIScrollViewDelegate {
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
class UIScrollViewTest : public ::testing::Test {
 protected:
  UIScrollViewTest() {
    scroll_->setContentSize({300, 1200});
    scroll_->setScrollDelegate(listener_);
    window_->addSubview(scroll_);
    window_->layoutWindow();
  }

  // A finger from the middle, moved evenly in steps of a frame; it stays down.
  void drag(CGFloat dy, int steps = 10, CGFloat dx = 0) {
    touch(*window_, UITouchPhase::kBegan, at_, time_);
    for (int i = 1; i <= steps; ++i) {
      time_ += kFrame;
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
  std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
  CGPoint at_{150, 300};
  CGPoint finger_ = at_;
  double time_ = 100;
};

TEST_F(UIScrollViewTest, ContentsFollowTheFinger) {
  drag(-60);
  const CGFloat slop = UIPanGestureRecognizer::kSlop;
  EXPECT_NEAR(scroll_->contentOffset().y, 60 - slop, 6.1);
  EXPECT_TRUE(scroll_->isDragging());
  const CGFloat before = scroll_->contentOffset().y;
  move({150, 230});
  EXPECT_EQ(scroll_->contentOffset().y, before + 10);
  lift();
  EXPECT_FALSE(scroll_->isDragging());
  EXPECT_EQ(listener_->log, "drag drop ");
}

TEST_F(UIScrollViewTest, AFlickRunsOutAndTellsSo) {
  drag(-200);
  lift(/*rest=*/0);
  const CGFloat released = scroll_->contentOffset().y;
  EXPECT_TRUE(scroll_->isDecelerating());
  settle();
  EXPECT_GT(scroll_->contentOffset().y, released + 100);
  EXPECT_FALSE(scroll_->isDecelerating());
  EXPECT_EQ(listener_->log, "drag flick rest ");
  EXPECT_FALSE(device_.uikit()->displayLink().isFrameRequested());
}

TEST_F(UIScrollViewTest, ContentsPulledBeyondTheEdgeStretchAndSpringBack) {
  drag(200);
  const CGFloat pulled = -scroll_->contentOffset().y;
  EXPECT_GT(pulled, 50);
  EXPECT_LT(pulled, 150);
  lift();
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, WithoutBouncingTheEdgeHolds) {
  scroll_->setBounces(false);
  drag(200);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, ContentsThatFitDoNotMoveUnlessAskedTo) {
  scroll_->setContentSize({300, 100});
  window_->layoutWindow();
  drag(100);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
  lift();
  scroll_->setAlwaysBounceVertical(true);
  drag(100);
  EXPECT_LT(scroll_->contentOffset().y, -20);
}

TEST_F(UIScrollViewTest, ADragAcrossMovesNothingThatOnlyScrollsDown) {
  drag(20, 10, 150);
  EXPECT_FALSE(scroll_->isDragging());
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, AFingerStopsTheFlick) {
  drag(-200);
  lift(0);
  device_.uikit()->displayLink().runFrame();
  device_.uikit()->displayLink().runFrame();
  touch(*window_, UITouchPhase::kBegan, at_, time_);
  const CGFloat stopped = scroll_->contentOffset().y;
  EXPECT_FALSE(scroll_->isDecelerating());
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, stopped);
  touch(*window_, UITouchPhase::kEnded, at_, time_);
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, stopped);
}

TEST_F(UIScrollViewTest, AFingerThatStoppedABounceLetsItGoOnWhenItLeaves) {
  drag(200);
  lift();
  device_.uikit()->displayLink().runFrame();
  touch(*window_, UITouchPhase::kBegan, at_, time_);
  const CGFloat held = scroll_->contentOffset().y;
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, held);
  EXPECT_LT(held, 0);
  touch(*window_, UITouchPhase::kEnded, at_, time_);
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, AnAnimatedOffsetTakesItsTimeAndTellsWhenItIsThere) {
  scroll_->setContentOffset({0, 300}, /*animated=*/true);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
  device_.uikit()->displayLink().advance(0.17);
  EXPECT_GT(scroll_->contentOffset().y, 50);
  EXPECT_LT(scroll_->contentOffset().y, 250);
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 300);
  EXPECT_EQ(listener_->log, "there ");
}

TEST_F(UIScrollViewTest, WhoMindsMotionIsThereAtOnce) {
  device_.uikit()->screen().setPrefersReducedMotion(true);
  scroll_->setContentOffset({0, 300}, /*animated=*/true);
  EXPECT_EQ(scroll_->contentOffset().y, 300);
}

TEST_F(UIScrollViewTest, AWheelScrollsWithinTheLimitsAndLeavesTheRestToOthers) {
  EXPECT_TRUE(scroll_->handleScroll({{150, 300}, 0, 50}));
  EXPECT_EQ(scroll_->contentOffset().y, 50);
  EXPECT_TRUE(scroll_->handleScroll({{150, 300}, 0, 5000}));
  EXPECT_EQ(scroll_->contentOffset().y, 800);
  EXPECT_FALSE(scroll_->handleScroll({{150, 300}, 0, 10}));
  window_->sendScroll({{150, 300}, 0, -100});
  EXPECT_EQ(scroll_->contentOffset().y, 700);
}

TEST_F(UIScrollViewTest, ARectangleIsShownWithTheLeastMovement) {
  scroll_->scrollRectToVisible(CGRectMake(0, 390, 300, 44), /*animated=*/false);
  EXPECT_EQ(scroll_->contentOffset().y, 34);
  scroll_->scrollRectToVisible(CGRectMake(0, 100, 300, 44), false);
  EXPECT_EQ(scroll_->contentOffset().y, 34);
  scroll_->scrollRectToVisible(CGRectMake(0, 10, 300, 44), false);
  EXPECT_EQ(scroll_->contentOffset().y, 10);
  scroll_->scrollRectToVisible(CGRectMake(0, 1190, 300, 500), false);
  EXPECT_EQ(scroll_->contentOffset().y, 800);
}

TEST_F(UIScrollViewTest, KeysScrollByStepsPagesAndToTheEnds) {
  EXPECT_FALSE(scroll_->pressesBegan({UIKey::kUp, "", false, false}));
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kDown, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 44);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kPageDown, "", false, false}));
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kPageDown, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 44 + 2 * 356);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kEnd, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 800);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kHome, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, InsetsMoveTheLimitsAndContentsAtTheTopStayThere) {
  scroll_->setContentInset({64, 0, 34, 0});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, -64);
  scroll_->handleScroll({{150, 300}, 0, 5000});
  EXPECT_EQ(scroll_->contentOffset().y, 834);
  scroll_->setContentInset({0, 0, 0, 0});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, 800);
}

TEST_F(UIScrollViewTest, ContentsThatGetShorterAreNotLeftBehind) {
  scroll_->setContentOffset({0, 800});
  scroll_->setContentSize({300, 500});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, 100);
}

TEST_F(UIScrollViewTest, TheIndicatorTellsThePartAndFades) {
  EXPECT_EQ(indicator().alpha(), 0);
  drag(-200);
  EXPECT_EQ(indicator().alpha(), 1);
  const CGRect bar = indicator().frame();
  EXPECT_NEAR(bar.height(), 394.0 / 3, 1);
  EXPECT_EQ(bar.maxX(), 297);
  lift();
  settle();
  EXPECT_EQ(indicator().alpha(), 0);
}

TEST_F(UIScrollViewTest, TheIndicatorStandsOnTheOtherSideInRightToLeftLanguages) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  scroll_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(indicator().frame().x(), 3);
}

TEST_F(UIScrollViewTest, AStepOfScrollingMovesPixelsAndDrawsOnlyWhatComesIn) {
  scroll_->setBackgroundColor(UIColor::whiteColor());
  scroll_->setShowsVerticalScrollIndicator(false);
  window_->layoutWindow();
  static_cast<void>(window_->takeDamage());
  scroll_->setContentOffset({0, 20});
  window_->layoutWindow();
  const Damage damage = window_->takeDamage();
  ASSERT_EQ(damage.moves.size(), 1U);
  EXPECT_EQ(damage.moves[0].dy, -20);
  CGFloat drawn = 0;
  for (const CGRect& rect : damage.rects) {
    drawn += rect.width() * rect.height();
  }
  EXPECT_LE(drawn, 300 * 24);
}

TEST_F(UIScrollViewTest, ADelegateMayEndTheScrollViewOrGo) {
  class Ending : public UIScrollViewDelegate {
   public:
    explicit Ending(std::shared_ptr<UIScrollView>& view) : view_(view) {}
    void scrollViewDidScroll(UIScrollView& /*view*/) override {
      view_->removeFromSuperview();
      view_.reset();
    }

   private:
    std::shared_ptr<UIScrollView>& view_;
  };
  auto doomed = std::make_shared<UIScrollView>(CGRectMake(0, 0, 100, 100));
  const std::weak_ptr<UIScrollView> watched = doomed;
  doomed->setContentSize({100, 900});
  window_->addSubview(doomed);
  window_->layoutWindow();
  auto ending = std::make_shared<Ending>(doomed);
  doomed->setScrollDelegate(ending);
  doomed->setContentOffset({0, 500}, /*animated=*/true);
  settle();
  EXPECT_TRUE(watched.expired());
  listener_.reset();
  scroll_->setContentOffset({0, 10});
  EXPECT_EQ(scroll_->contentOffset().y, 10);
}

TEST_F(UIScrollViewTest, NumbersThatAreNoneDoNoHarm) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  scroll_->setContentSize({kNaN, -5});
  scroll_->setContentOffset({kNaN, kNaN});
  scroll_->setContentInset({kNaN, 0, -1e300, 0});
  EXPECT_FALSE(scroll_->handleScroll({{0, 0}, kNaN, kNaN}));
  window_->layoutWindow();
  EXPECT_TRUE(std::isfinite(scroll_->contentOffset().y));
}

}  // namespace
}  // namespace zephyl
