#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/testing/ScrollFixture.h"

namespace zephyl {
namespace {

using test::touch;

class UIScrollViewDraggingTest : public test::ScrollTest {};

TEST_F(UIScrollViewDraggingTest, ContentsFollowTheFinger) {
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

TEST_F(UIScrollViewDraggingTest, AFlickRunsOutAndTellsSo) {
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

TEST_F(UIScrollViewDraggingTest, ContentsPulledBeyondTheEdgeStretchAndSpringBack) {
  drag(200);
  const CGFloat pulled = -scroll_->contentOffset().y;
  EXPECT_GT(pulled, 50);
  EXPECT_LT(pulled, 150);
  lift();
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewDraggingTest, WithoutBouncingTheEdgeHolds) {
  scroll_->setBounces(false);
  drag(200);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewDraggingTest, ContentsThatFitDoNotMoveUnlessAskedTo) {
  scroll_->setContentSize({300, 100});
  window_->layoutWindow();
  drag(100);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
  lift();
  scroll_->setAlwaysBounceVertical(true);
  drag(100);
  EXPECT_LT(scroll_->contentOffset().y, -20);
}

TEST_F(UIScrollViewDraggingTest, ADragAcrossMovesNothingThatOnlyScrollsDown) {
  drag(20, 10, 150);
  EXPECT_FALSE(scroll_->isDragging());
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewDraggingTest, AFingerStopsTheFlick) {
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

TEST_F(UIScrollViewDraggingTest, AFingerThatStoppedABounceLetsItGoOnWhenItLeaves) {
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

}  // namespace
}  // namespace zephyl
