#include "platform/uikit/tables/UIRefreshControl.h"

#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

using test::touch;

class UIRefreshControlTest : public test::TableTest {
 protected:
  UIRefreshControlTest() {
    source_->setRows(30);
    control_->addAction([this](UIControl& /*sender*/) { ++asked_; }, kValueChanged);
    table_->setRefreshControl(control_);
    layout();
  }
  void pull(CGFloat distance) {
    time_ += 10;
    for (int i = 0; i <= 10; ++i) {
      touch(*window_, i == 0 ? UITouchPhase::kBegan : UITouchPhase::kMoved,
            {160, 20 + distance * i / 10}, time_ + i / 60.0);
    }
  }
  void letGo(CGFloat distance) {
    touch(*window_, UITouchPhase::kEnded, {160, 20 + distance}, time_ + 2);
    settleMotion();
  }
  // The wheel turns for ever: not until nothing moves, but long enough.
  void settleMotion() {
    device_.uikit()->displayLink().advance(3);
    layout();
  }

  std::shared_ptr<UIRefreshControl> control_ = std::make_shared<UIRefreshControl>();
  int asked_ = 0;
  double time_ = 100;
};

TEST_F(UIRefreshControlTest, APullThatIsLongEnoughAsksOnceAndKeepsTheWheelInSight) {
  pull(400);
  EXPECT_EQ(asked_, 1);
  EXPECT_TRUE(control_->isRefreshing());
  letGo(400);
  EXPECT_EQ(table_->contentOffset().y, -60);
  EXPECT_EQ(asked_, 1);
  control_->endRefreshing();
  settleMotion();
  EXPECT_FALSE(control_->isRefreshing());
  EXPECT_EQ(table_->contentOffset().y, 0);
}

TEST_F(UIRefreshControlTest, AShortPullAsksNothing) {
  pull(100);
  letGo(100);
  EXPECT_EQ(asked_, 0);
  EXPECT_EQ(table_->contentOffset().y, 0);
}

TEST_F(UIRefreshControlTest, WhatEndsAtOnceIsNotAskedForAgainByTheSamePull) {
  control_->addAction([this](UIControl& /*sender*/) { control_->endRefreshing(); }, kValueChanged);
  pull(400);
  touch(*window_, UITouchPhase::kMoved, {160, 460}, time_ + 1);
  EXPECT_EQ(asked_, 1);
  letGo(440);
  EXPECT_EQ(table_->contentOffset().y, 0);
  pull(400);
  EXPECT_EQ(asked_, 2);
  letGo(400);
}

TEST_F(UIRefreshControlTest, TheProgramBeginsItAndTellsNobody) {
  control_->beginRefreshing();
  settleMotion();
  EXPECT_EQ(asked_, 0);
  EXPECT_EQ(table_->contentOffset().y, -60);
  EXPECT_TRUE(control_->accessibilityState().busy);
  EXPECT_EQ(control_->accessibilityLabel(), "In progress");
  control_->endRefreshing();
  control_->endRefreshing();
  settleMotion();
  EXPECT_EQ(table_->contentOffset().y, 0);
  EXPECT_FALSE(control_->isAccessibilityElement());
}

TEST_F(UIRefreshControlTest, TakenAwayItTakesItsRoomAlong) {
  control_->beginRefreshing();
  table_->setRefreshControl(nullptr);
  settleMotion();
  EXPECT_EQ(table_->adjustedContentInset().top, 0);
  EXPECT_EQ(control_->superview(), nullptr);
  control_->endRefreshing();
}

TEST_F(UIRefreshControlTest, OutlivesItsTable) {
  control_->beginRefreshing();
  table_->removeFromSuperview();
  table_.reset();
  control_->endRefreshing();
  EXPECT_FALSE(control_->isRefreshing());
}

}  // namespace
}  // namespace zephyl
