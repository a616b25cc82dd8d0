#include "platform/uikit/controls/UIControl.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UIControlTest : public ::testing::Test {
 protected:
  UIControlTest() {
    window_->addSubview(control_);
    note(kTouchDown, "down");
    note(kTouchUpInside, "up inside");
    note(kTouchUpOutside, "up outside");
    note(kTouchCancel, "cancel");
  }

  void note(unsigned event, const std::string& name) {
    control_->addAction([this, name](UIControl&) { log_.push_back(name); }, event);
  }
  void touch(UITouchPhase phase, CGFloat x, CGFloat y) { test::touch(*window_, phase, {x, y}); }

  fake::Device device_;
  std::vector<std::string> log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UIControl> control_ = std::make_shared<UIControl>(CGRectMake(100, 100, 50, 20));
};

TEST_F(UIControlTest, HighlightedWhileTheFingerIsNear) {
  touch(UITouchPhase::kBegan, 110, 110);
  EXPECT_TRUE(control_->isHighlighted());
  touch(UITouchPhase::kMoved, 219, 110);
  EXPECT_TRUE(control_->isHighlighted());
  touch(UITouchPhase::kMoved, 221, 110);
  EXPECT_FALSE(control_->isHighlighted());
  touch(UITouchPhase::kMoved, 110, 189);
  EXPECT_TRUE(control_->isHighlighted());
  touch(UITouchPhase::kEnded, 110, 189);
  EXPECT_FALSE(control_->isHighlighted());
  EXPECT_THAT(log_, ElementsAre("down", "up inside"));
}

TEST_F(UIControlTest, FingerThatLeavesFarAwayIsOutside) {
  touch(UITouchPhase::kBegan, 110, 110);
  touch(UITouchPhase::kEnded, 110, 191);
  EXPECT_THAT(log_, ElementsAre("down", "up outside"));
}

TEST_F(UIControlTest, LostFingerCancels) {
  touch(UITouchPhase::kBegan, 110, 110);
  touch(UITouchPhase::kCancelled, 110, 110);
  EXPECT_THAT(log_, ElementsAre("down", "cancel"));
  EXPECT_FALSE(control_->isHighlighted());
}

TEST_F(UIControlTest, DisabledWhilePressedIsCancelledAndThenTakesNothing) {
  touch(UITouchPhase::kBegan, 110, 110);
  control_->setEnabled(false);
  touch(UITouchPhase::kEnded, 110, 110);
  EXPECT_THAT(log_, ElementsAre("down", "cancel"));
  test::tap(*window_, *control_);
  EXPECT_FALSE(control_->pressesBegan({UIKey::kSpace, " "}));
  EXPECT_FALSE(control_->accessibilityActivate());
  EXPECT_EQ(log_.size(), 2U);
  EXPECT_FALSE(control_->accessibilityState().enabled);
}

TEST_F(UIControlTest, DisabledControlStillCoversWhatIsBehindIt) {
  const auto behind = std::make_shared<UIControl>(CGRectMake(0, 0, 400, 400));
  window_->insertSubview(behind, 0);
  int taps = 0;
  behind->addAction([&taps](UIControl&) { ++taps; }, kTouchUpInside);
  control_->setEnabled(false);
  test::tap(*window_, *control_);
  EXPECT_EQ(taps, 0);
  test::tap(*window_, {20, 20});
  EXPECT_EQ(taps, 1);
}

TEST_F(UIControlTest, ActionRunsForAsLongAsItsTargetLives) {
  auto target = std::make_shared<int>(0);
  control_->addTarget(
      target, [count = target.get()](UIControl&) { ++*count; }, kValueChanged);
  control_->sendActionsForControlEvents(kValueChanged);
  EXPECT_EQ(*target, 1);
  const std::weak_ptr<int> weakTarget = target;
  target = nullptr;
  EXPECT_TRUE(weakTarget.expired());
  control_->sendActionsForControlEvents(kValueChanged);
}

TEST_F(UIControlTest, TargetIsRemovedForTheseEventsOnly) {
  const auto target = std::make_shared<int>(0);
  control_->addTarget(
      target, [this](UIControl&) { log_.emplace_back("target"); }, kValueChanged | kTouchDown);
  control_->removeTarget(target, kTouchDown);
  control_->sendActionsForControlEvents(kTouchDown);
  control_->sendActionsForControlEvents(kValueChanged);
  EXPECT_THAT(log_, ElementsAre("down", "target"));
}

TEST_F(UIControlTest, ActionMayRemoveALaterOne) {
  const auto target = std::make_shared<int>(0);
  control_->addAction([&](UIControl& sender) { sender.removeTarget(target, kAllEvents); },
                      kValueChanged);
  control_->addTarget(
      target, [this](UIControl&) { log_.emplace_back("target"); }, kValueChanged);
  control_->sendActionsForControlEvents(kValueChanged);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(UIControlTest, ActionMayEndTheControl) {
  control_->addAction(
      [this](UIControl& sender) {
        sender.removeFromSuperview();
        control_ = nullptr;
      },
      kTouchUpInside);
  note(kTouchUpInside, "after");
  test::tap(*window_, {110, 110});
  EXPECT_EQ(control_, nullptr);
  EXPECT_EQ(log_.back(), "after");
}

TEST_F(UIControlTest, SpaceAndReturnAreATap) {
  EXPECT_TRUE(control_->pressesBegan({UIKey::kSpace, " "}));
  EXPECT_TRUE(control_->pressesBegan({UIKey::kReturn, "\n"}));
  EXPECT_FALSE(control_->pressesBegan({UIKey::kCharacter, "a"}));
  EXPECT_THAT(log_, ElementsAre("down", "up inside", "down", "up inside"));
}

TEST_F(UIControlTest, TapOfAViewAroundItLeavesTheControlAlone) {
  int taps = 0;
  window_->addGestureRecognizer(
      std::make_shared<UITapGestureRecognizer>([&taps](UIGestureRecognizer&) { ++taps; }));
  test::tap(*window_, *control_);
  EXPECT_EQ(taps, 0);
  EXPECT_THAT(log_, ElementsAre("down", "up inside"));
  test::tap(*window_, {20, 20});
  EXPECT_EQ(taps, 1);
}

TEST_F(UIControlTest, DragOfAViewAroundItCancelsThePress) {
  window_->addGestureRecognizer(
      std::make_shared<UIPanGestureRecognizer>([](UIGestureRecognizer&) {}));
  touch(UITouchPhase::kBegan, 110, 110);
  touch(UITouchPhase::kMoved, 110, 130);
  touch(UITouchPhase::kEnded, 110, 130);
  EXPECT_THAT(log_, ElementsAre("down", "cancel"));
}

TEST_F(UIControlTest, StateIsTheBitsOfWhatItIs) {
  EXPECT_EQ(control_->state(), kControlStateNormal);
  control_->setSelected(true);
  control_->setHighlighted(true);
  control_->setEnabled(false);
  EXPECT_EQ(control_->state(), kControlStateSelected | kControlStateHighlighted |
                                   static_cast<unsigned>(kControlStateDisabled));
  EXPECT_TRUE(control_->accessibilityState().selected);
}

// Screens and companions give them as numbers.
TEST_F(UIControlTest, EventsHaveThePlatformsBits) {
  EXPECT_EQ(kTouchDown, 1U);
  EXPECT_EQ(kTouchUpInside, 64U);
  EXPECT_EQ(kValueChanged, 4096U);
  EXPECT_EQ(kEditingChanged, 131072U);
}

}  // namespace
}  // namespace zephyl
