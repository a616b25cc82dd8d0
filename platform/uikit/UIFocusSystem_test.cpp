#include "platform/uikit/UIFocusSystem.h"

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class Modal : public UIView {
 public:
  [[nodiscard]] bool accessibilityViewIsModal() const override { return true; }
};

class UIFocusSystemTest : public ::testing::Test {
 protected:
  std::shared_ptr<UIControl> control(std::int64_t tag) {
    auto made =
        std::make_shared<UIControl>(CGRectMake(20, 50.0 * static_cast<double>(tag), 90, 40));
    made->setTag(tag);
    return made;
  }

  void press(UIKey key, bool shift = false) { window_->sendKey({key, "", shift, false}); }

  [[nodiscard]] std::int64_t focused() const {
    const auto* const view = dynamic_cast<UIView*>(window_->firstResponder());
    return view == nullptr ? 0 : view->tag();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
};

TEST_F(UIFocusSystemTest, TabGoesThroughControlsInReadingOrderAndRound) {
  window_->addSubview(control(1));
  window_->addSubview(test::tree<UIView>().with(control(2)));
  window_->addSubview(control(3));
  std::vector<std::int64_t> visited;
  for (int i = 0; i < 4; ++i) {
    press(UIKey::kTab);
    visited.push_back(focused());
  }
  EXPECT_EQ(visited, (std::vector<std::int64_t>{1, 2, 3, 1}));
  press(UIKey::kTab, /*shift=*/true);
  EXPECT_EQ(focused(), 3);
}

TEST_F(UIFocusSystemTest, WhatIsHiddenOrNotEnabledIsPassedOver) {
  window_->addSubview(control(1));
  window_->addSubview(control(2));
  window_->addSubview(control(3));
  window_->viewWithTag(1)->setHidden(true);
  dynamic_cast<UIControl&>(*window_->viewWithTag(2)).setEnabled(false);
  press(UIKey::kTab);
  EXPECT_EQ(focused(), 3);
}

TEST_F(UIFocusSystemTest, AnAlertKeepsTheFocusInside) {
  window_->addSubview(control(1));
  window_->addSubview(test::tree<Modal>().with(control(2)));
  press(UIKey::kTab);
  EXPECT_EQ(focused(), 2);
  press(UIKey::kTab);
  EXPECT_EQ(focused(), 2);
}

TEST_F(UIFocusSystemTest, TheRingLiesAroundTheFocusedControlAndFollowsIt) {
  const auto button = control(1);
  window_->addSubview(button);
  press(UIKey::kTab);
  ASSERT_NE(window_->focusSystem().ring(), nullptr);
  EXPECT_EQ(window_->focusSystem().ring()->frame(), CGRectMake(17, 47, 96, 46));
  button->setFrame(CGRectMake(20, 100, 90, 40));
  window_->layoutWindow();
  EXPECT_EQ(window_->focusSystem().ring()->frame().y(), 97);
}

TEST_F(UIFocusSystemTest, ATouchTakesTheRingAway) {
  window_->addSubview(control(1));
  press(UIKey::kTab);
  test::tap(*window_, {300, 700});
  EXPECT_EQ(window_->focusSystem().ring(), nullptr);
}

TEST_F(UIFocusSystemTest, WithoutAnythingToUseTabDoesNothing) {
  window_->sendKey({UIKey::kTab, "", false, false});
  EXPECT_EQ(window_->firstResponder(), nullptr);
  EXPECT_EQ(window_->focusSystem().ring(), nullptr);
}

TEST_F(UIFocusSystemTest, TheRingGoesWithItsControl) {
  const auto button = control(1);
  window_->addSubview(button);
  press(UIKey::kTab);
  button->removeFromSuperview();
  window_->layoutWindow();
  EXPECT_EQ(window_->focusSystem().ring(), nullptr);
}

}  // namespace
}  // namespace zephyl
