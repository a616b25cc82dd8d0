#include "platform/uikit/controls/UISwitch.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class UISwitchTest : public ::testing::Test {
 protected:
  UISwitchTest() {
    window_->addSubview(switch_);
    switch_->addAction([this](UIControl&) { ++changes_; }, kValueChanged);
  }

  void touch(UITouchPhase phase, CGFloat x, CGFloat y = 110) {
    test::touch(*window_, phase, {x, y});
  }
  // Where the thumb comes to rest.
  [[nodiscard]] CGRect thumb() const { return switch_->layer()->sublayers().front()->frame(); }

  fake::Device device_;
  int changes_ = 0;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UISwitch> switch_ = std::make_shared<UISwitch>(CGRectMake(100, 100, 0, 0));
};

TEST_F(UISwitchTest, HasOneSizeWhateverIsAsked) {
  EXPECT_EQ(switch_->frame(), CGRectMake(100, 100, 51, 31));
  switch_->setFrame(CGRectMake(5, 6, std::numeric_limits<CGFloat>::quiet_NaN(), -4));
  EXPECT_EQ(switch_->frame(), CGRectMake(5, 6, 51, 31));
  EXPECT_EQ(switch_->sizeThatFits({}), UISwitch::kSize);
}

TEST_F(UISwitchTest, ScreenThatSetsItIsNotToldSo) {
  switch_->setOn(true);
  EXPECT_TRUE(switch_->isOn());
  EXPECT_EQ(changes_, 0);
  EXPECT_EQ(switch_->backgroundColor(), UIColor::systemGreenColor());
}

TEST_F(UISwitchTest, TapTurnsItAndSaysSo) {
  test::tap(*window_, *switch_);
  EXPECT_TRUE(switch_->isOn());
  EXPECT_EQ(changes_, 1);
  test::tap(*window_, *switch_);
  EXPECT_FALSE(switch_->isOn());
  EXPECT_EQ(changes_, 2);
}

TEST_F(UISwitchTest, ThumbMovesWithinAQuarterOfASecond) {
  EXPECT_EQ(thumb(), CGRectMake(2, 2, 27, 27));
  test::tap(*window_, *switch_);
  EXPECT_EQ(thumb(), CGRectMake(22, 2, 27, 27));
  const auto& layer = switch_->layer()->sublayers().front();
  device_.uikit()->displayLink().advance(0.1);
  EXPECT_LT(layer->presentation().position.x, layer->state().position.x);
  device_.uikit()->displayLink().advance(0.2);
  EXPECT_EQ(layer->presentation().position, layer->state().position);
  EXPECT_FALSE(device_.uikit()->displayLink().isFrameRequested());
}

TEST_F(UISwitchTest, ThumbGrowsWhileItIsHeld) {
  touch(UITouchPhase::kBegan, 110);
  EXPECT_EQ(thumb(), CGRectMake(2, 2, 34, 27));
  touch(UITouchPhase::kCancelled, 110);
  EXPECT_EQ(thumb(), CGRectMake(2, 2, 27, 27));
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISwitchTest, DragTurnsItWhereTheFingerLeaves) {
  touch(UITouchPhase::kBegan, 110);
  touch(UITouchPhase::kMoved, 140);
  EXPECT_FALSE(switch_->isOn());
  EXPECT_EQ(changes_, 0);
  touch(UITouchPhase::kEnded, 140);
  EXPECT_TRUE(switch_->isOn());
  EXPECT_EQ(changes_, 1);
}

TEST_F(UISwitchTest, DragThereAndBackChangesNothing) {
  touch(UITouchPhase::kBegan, 110);
  touch(UITouchPhase::kMoved, 140);
  touch(UITouchPhase::kMoved, 105);
  touch(UITouchPhase::kEnded, 105);
  EXPECT_FALSE(switch_->isOn());
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISwitchTest, LostDragPutsItBack) {
  touch(UITouchPhase::kBegan, 110);
  touch(UITouchPhase::kMoved, 140);
  touch(UITouchPhase::kCancelled, 140);
  EXPECT_FALSE(switch_->isOn());
  EXPECT_EQ(thumb(), CGRectMake(2, 2, 27, 27));
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISwitchTest, RightToLeftIsMirrored) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  switch_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(thumb(), CGRectMake(22, 2, 27, 27));
  touch(UITouchPhase::kBegan, 140);
  touch(UITouchPhase::kMoved, 110);
  touch(UITouchPhase::kEnded, 110);
  EXPECT_TRUE(switch_->isOn());
  EXPECT_EQ(thumb(), CGRectMake(2, 2, 27, 27));
}

TEST_F(UISwitchTest, DragAlongItIsNoDragOfTheRowAround) {
  int drags = 0;
  const auto pan =
      std::make_shared<UIPanGestureRecognizer>([&drags](UIGestureRecognizer&) { ++drags; });
  pan->setAllowedDirections(kPanHorizontally);
  window_->addGestureRecognizer(pan);
  touch(UITouchPhase::kBegan, 110);
  touch(UITouchPhase::kMoved, 140);
  touch(UITouchPhase::kEnded, 140);
  EXPECT_EQ(drags, 0);
  EXPECT_TRUE(switch_->isOn());
}

TEST_F(UISwitchTest, DragAcrossItScrollsWhatIsAround) {
  int drags = 0;
  window_->addGestureRecognizer(
      std::make_shared<UIPanGestureRecognizer>([&drags](UIGestureRecognizer&) { ++drags; }));
  touch(UITouchPhase::kBegan, 110);
  touch(UITouchPhase::kMoved, 110, 130);
  touch(UITouchPhase::kEnded, 110, 130);
  EXPECT_EQ(drags, 2);
  EXPECT_FALSE(switch_->isOn());
}

TEST_F(UISwitchTest, ScreenReaderIsToldAndTurnsIt) {
  EXPECT_EQ(switch_->accessibilityRole(), UIAccessibilityRole::kSwitch);
  EXPECT_EQ(switch_->accessibilityValue(), "Off");
  EXPECT_TRUE(switch_->accessibilityActivate());
  EXPECT_EQ(switch_->accessibilityValue(), "On");
  EXPECT_TRUE(switch_->accessibilityState().checked);
  EXPECT_EQ(changes_, 1);
}

TEST_F(UISwitchTest, DisabledOneIsPaleAndStays) {
  switch_->setEnabled(false);
  device_.uikit()->displayLink().runUntilIdle();
  EXPECT_EQ(switch_->alpha(), 0.5);
  test::tap(*window_, *switch_);
  EXPECT_FALSE(switch_->accessibilityActivate());
  EXPECT_FALSE(switch_->isOn());
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISwitchTest, SpaceTurnsIt) {
  EXPECT_TRUE(switch_->pressesBegan({UIKey::kSpace, " "}));
  EXPECT_TRUE(switch_->isOn());
}

}  // namespace
}  // namespace zephyl
