#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

// A list of 100 x 100 at (0, 20) in a window of 100 x 200; a bar may lie over it.
class CALayerScrollingTest : public ::testing::Test {
 protected:
  CALayerScrollingTest() {
    list_->setBackgroundColor(UIColor::whiteColor());
    list_->setClipsToBounds(true);
    list_->addSubview(std::make_shared<UIView>(CGRectMake(0, 0, 100, 1000)));
    window_->addSubview(list_);
    (void)window_->takeDamage();
  }

  Damage scrolledBy(CGFloat dy) {
    (void)window_->takeDamage();
    const CGRect bounds = list_->bounds();
    list_->setBounds({{bounds.x(), bounds.y() + dy}, bounds.size});
    return window_->takeDamage();
  }

  void expectDrawnAnew() {
    const Damage damage = scrolledBy(10);
    EXPECT_THAT(damage.moves, IsEmpty());
    ASSERT_THAT(damage.rects, SizeIs(1));
    EXPECT_EQ(CGRectIntersection(damage.rects[0], list_->frame()), list_->frame());
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 100, 200));
  std::shared_ptr<UIView> list_ = std::make_shared<UIView>(CGRectMake(0, 20, 100, 100));
};

TEST_F(CALayerScrollingTest, OnlyTheStripThatMovesInIsDrawn) {
  const Damage damage = scrolledBy(10);
  ASSERT_THAT(damage.moves, SizeIs(1));
  EXPECT_EQ(damage.moves[0].area, CGRectMake(0, 20, 100, 100));
  EXPECT_EQ(damage.moves[0].dx, 0);
  EXPECT_EQ(damage.moves[0].dy, -10);
  EXPECT_THAT(damage.rects, ::testing::ElementsAre(CGRectMake(0, 110, 100, 10)));
}

TEST_F(CALayerScrollingTest, WhatLiesAboveIsDrawnWhereItIsAndWhereItWasMovedTo) {
  window_->addSubview(std::make_shared<UIView>(CGRectMake(0, 0, 100, 50)));
  const Damage damage = scrolledBy(-10);
  ASSERT_THAT(damage.moves, SizeIs(1));
  CGRect whole;
  for (const CGRect& rect : damage.rects) {
    whole = CGRectUnion(whole, rect);
  }
  // The bar covers 20 to 50, and was moved down by 10.
  EXPECT_EQ(whole, CGRectMake(0, 20, 100, 40));
}

TEST_F(CALayerScrollingTest, WhatLiesBelowOrIsHiddenDoesNotMatter) {
  window_->sendSubviewToBack(list_);
  const auto below = std::make_shared<UIView>(window_->bounds());
  window_->insertSubview(below, 0);
  const auto hidden = std::make_shared<UIView>(window_->bounds());
  hidden->setHidden(true);
  window_->addSubview(hidden);
  const Damage damage = scrolledBy(10);
  EXPECT_THAT(damage.moves, SizeIs(1));
  EXPECT_THAT(damage.rects, ::testing::ElementsAre(CGRectMake(0, 110, 100, 10)));
}

TEST_F(CALayerScrollingTest, WhatIsOutsideTheClipsBelowIsLeftOut) {
  window_->setClipsToBounds(true);
  list_->setFrame(CGRectMake(0, 150, 100, 100));
  const Damage damage = scrolledBy(10);
  ASSERT_THAT(damage.moves, SizeIs(1));
  EXPECT_EQ(damage.moves[0].area, CGRectMake(0, 150, 100, 50));
}

TEST_F(CALayerScrollingTest, AClearBackgroundIsDrawnAnew) {
  list_->setBackgroundColor(UIColor::whiteColor().colorWithAlphaComponent(0.9));
  expectDrawnAnew();
}

TEST_F(CALayerScrollingTest, WhatDoesNotClipIsDrawnAnew) {
  list_->setClipsToBounds(false);
  expectDrawnAnew();
}

TEST_F(CALayerScrollingTest, RoundedCornersAreDrawnAnew) {
  list_->layer()->setCornerRadius(4);
  expectDrawnAnew();
}

TEST_F(CALayerScrollingTest, WhatIsTurnedOrFadedIsDrawnAnew) {
  window_->setAlpha(0.5);
  expectDrawnAnew();
  window_->setAlpha(1);
  list_->setTransform(CGAffineTransformMakeScale(0.5, 1));
  expectDrawnAnew();
}

TEST_F(CALayerScrollingTest, AnAnimatedScrollIsDrawnAnewEachFrame) {
  animateWithDuration(1, [&] { list_->setBounds(CGRectMake(0, 60, 100, 100)); });
  (void)window_->takeDamage();
  device_.uikit()->displayLink().runFrame();
  const Damage damage = window_->takeDamage();
  EXPECT_THAT(damage.moves, IsEmpty());
  ASSERT_THAT(damage.rects, SizeIs(1));
  // While it runs, scrolling by hand is drawn anew too.
  expectDrawnAnew();
}

}  // namespace
}  // namespace zephyl
