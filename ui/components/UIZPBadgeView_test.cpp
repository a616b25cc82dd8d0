#include "ui/components/UIZPBadgeView.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

// The device's texts are half their font's size wide a digit and 1.2 times it high.
constexpr CGFloat kSmall = 10;

class UIZPBadgeViewTest : public ::testing::Test {
 protected:
  UIZPBadgeViewTest() {
    window_->addSubview(host_);
    host_->addSubview(badge_);
    window_->layoutWindow();
    (void)window_->takeDamage();
  }

  // A badge of 25 by 25 points for one digit.
  std::shared_ptr<UIZPBadgeView> small() {
    badge_->setFont(UIFont::boldSystemFontOfSize(kSmall));
    badge_->setBadgeValue(7);
    return badge_;
  }
  // At `position`, with the middle elsewhere before.
  CGPoint centerAt(std::uint64_t position) {
    badge_->setCenter({-7, -9});
    badge_->setPosition(position);
    return badge_->center();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIView> host_ = std::make_shared<UIView>(CGRectMake(10, 20, 100, 60));
  std::shared_ptr<UIZPBadgeView> badge_ = std::make_shared<UIZPBadgeView>();
};

TEST_F(UIZPBadgeViewTest, ANewBadgeIsAnOpaqueEmptyViewWithTheDefaults) {
  EXPECT_EQ(badge_->position(), ZPBadgePositionAutomatic);
  EXPECT_EQ(badge_->insidePosition(), 0);
  EXPECT_EQ(badge_->badgeValue(), 0);
  EXPECT_EQ(badge_->font(), UIFont::boldSystemFontOfSize(13));
  EXPECT_EQ(badge_->badgeColor(), UIColor::colorWithRed(0, 0, 1, 1));
  EXPECT_EQ(badge_->textColor(), UIColor::whiteColor());
  EXPECT_EQ(badge_->outlineColor(), UIColor::whiteColor());
  EXPECT_EQ(badge_->outlineWidth(), 2.0F);
  EXPECT_EQ(badge_->minDiameter(), 25.0F);
  EXPECT_FALSE(badge_->displayIfZero());
  EXPECT_EQ(badge_->horizontalOffset(), 0.0F);
  EXPECT_EQ(badge_->verticalOffset(), 0.0F);
  EXPECT_EQ(badge_->backgroundColor(), UIColor::clearColor());
  EXPECT_TRUE(badge_->isOpaque());
  EXPECT_EQ(badge_->tag(), 9876);
  EXPECT_EQ(badge_->frame(), CGRect());
}

TEST_F(UIZPBadgeViewTest, ASmallNumberTakesTheSmallestDiameter) {
  EXPECT_EQ(small()->bounds(), CGRectMake(0, 0, 25, 25));
}

TEST_F(UIZPBadgeViewTest, AWideNumberWidensTheBadgeByItsTextAndThePadding) {
  small()->setBadgeValue(1234);
  EXPECT_EQ(badge_->bounds(), CGRectMake(0, 0, 4 * kSmall / 2 + 11, 25));
}

TEST_F(UIZPBadgeViewTest, ATallNumberHeightensTheBadgeRoundedToSinglePrecision) {
  badge_->setFont(UIFont::boldSystemFontOfSize(13));
  badge_->setBadgeValue(7);
  const CGFloat height = static_cast<float>(13 * 1.2 + 11);
  EXPECT_EQ(badge_->bounds(), CGRectMake(0, 0, height, height));
}

TEST_F(UIZPBadgeViewTest, ASizeUpdateKeepsTheMiddle) {
  badge_->setPosition(ZPBadgePositionCenterLeft);
  badge_->setCenter({30, 40});
  small();
  EXPECT_EQ(badge_->center(), (CGPoint{30, 40}));
}

TEST_F(UIZPBadgeViewTest, TheSizeOfTheExtremeNumbersIsThatOfTheirTexts) {
  small()->setBadgeValue(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(badge_->bounds().width(), 20 * kSmall / 2 + 11);
  EXPECT_EQ(badge_->accessibilityLabel(), "-9223372036854775808");
}

TEST_F(UIZPBadgeViewTest, ZeroHidesByAnEmptyFrame) {
  small()->setBadgeValue(0);
  EXPECT_EQ(badge_->frame(), CGRect());
  EXPECT_FALSE(badge_->isHidden());
}

// Kept: only an automatic position is found again.
TEST_F(UIZPBadgeViewTest, ABadgeThatComesBackIsPlacedOnlyInAutomaticPosition) {
  small()->setPosition(ZPBadgePositionTopRight);
  badge_->setBadgeValue(0);
  badge_->setBadgeValue(3);
  EXPECT_EQ(badge_->center(), CGPoint());
  badge_->setBadgeValue(0);
  badge_->setPosition(ZPBadgePositionAutomatic);
  badge_->setBadgeValue(4);
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
}

TEST_F(UIZPBadgeViewTest, ZeroIsShownWhenAskedFor) {
  badge_->setFont(UIFont::boldSystemFontOfSize(kSmall));
  badge_->setBadgeValue(5);
  badge_->setDisplayIfZero(true);
  badge_->setBadgeValue(0);
  EXPECT_EQ(badge_->bounds().size, (CGSize{25, 25}));
  badge_->setDisplayIfZero(false);
  EXPECT_EQ(badge_->frame(), CGRect());
  badge_->setDisplayIfZero(true);
  EXPECT_EQ(badge_->bounds().size, (CGSize{25, 25}));
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
}

TEST_F(UIZPBadgeViewTest, EachPositionIsAPointOnTheEdgeOfTheHost) {
  small();
  EXPECT_EQ(centerAt(ZPBadgePositionCenterLeft), (CGPoint{0, 30}));
  EXPECT_EQ(centerAt(ZPBadgePositionCenterRight), (CGPoint{100, 30}));
  EXPECT_EQ(centerAt(ZPBadgePositionTopLeft), (CGPoint{0, 0}));
  EXPECT_EQ(centerAt(ZPBadgePositionTopRight), (CGPoint{100, 0}));
  EXPECT_EQ(centerAt(ZPBadgePositionBottomLeft), (CGPoint{0, 60}));
  EXPECT_EQ(centerAt(ZPBadgePositionBottomRight), (CGPoint{100, 60}));
}

TEST_F(UIZPBadgeViewTest, OffsetsAreAddedWhenTheBadgeIsNextPlaced) {
  small()->setPosition(ZPBadgePositionTopLeft);
  badge_->setHorizontalOffset(3.5F);
  badge_->setVerticalOffset(-2);
  EXPECT_EQ(badge_->center(), CGPoint());
  badge_->zp_updateBadgeViewPosition();
  EXPECT_EQ(badge_->center(), (CGPoint{3.5, -2}));
}

TEST_F(UIZPBadgeViewTest, APositionBeyondTheKnownOnesMovesNothing) {
  small();
  EXPECT_EQ(centerAt(7), (CGPoint{-7, -9}));
  EXPECT_EQ(centerAt(std::numeric_limits<std::uint64_t>::max()), (CGPoint{-7, -9}));
}

// The point beside the host, half a badge above it, is measured against the screen's size.
TEST_F(UIZPBadgeViewTest, TheAutomaticPositionIsACornerByWhereTheHostIs) {
  small();
  const auto placed = [&](CGFloat x, CGFloat y, const CGRect& container) {
    const auto outer = std::make_shared<UIView>(container);
    window_->addSubview(outer);
    outer->addSubview(host_);
    host_->setFrame(CGRectMake(x, y, 100, 60));
    badge_->zp_updateBadgeViewPosition();
    EXPECT_EQ(badge_->position(), ZPBadgePositionAutomatic);
    return badge_->center();
  };
  EXPECT_EQ(placed(10, 20, {}), (CGPoint{100, 60}));
  // The point in the host's coordinates grows as the outer view moves away to the upper left.
  const CGRect leftAway = CGRectMake(-300, 0, 0, 0);
  EXPECT_EQ(placed(10, 20, leftAway), (CGPoint{0, 60}));
  const CGRect farUp = CGRectMake(0, -1000, 0, 0);
  EXPECT_EQ(placed(10, 20, farUp), (CGPoint{100, 0}));
  const CGRect both = CGRectMake(-300, -1000, 0, 0);
  EXPECT_EQ(placed(10, 20, both), CGPoint());
}

TEST_F(UIZPBadgeViewTest, InsideMovesHalfABadgeInwardsAndDownwards) {
  struct Case {
    std::uint64_t position;
    float horizontal;
  };
  for (const Case& each : {Case{0, 12.5F}, Case{1, -12.5F}, Case{2, 12.5F}, Case{3, -12.5F},
                           Case{4, 12.5F}, Case{5, -12.5F}, Case{6, 12.5F}}) {
    small()->setInsidePosition(0);
    badge_->setPosition(each.position);
    badge_->setInsidePosition(1);
    EXPECT_EQ(badge_->horizontalOffset(), each.horizontal) << each.position;
    EXPECT_EQ(badge_->verticalOffset(), 12.5F) << each.position;
  }
}

TEST_F(UIZPBadgeViewTest, InsideTheUpperRightCornerIsHalfABadgeFromBothEdges) {
  small()->setPosition(ZPBadgePositionTopRight);
  badge_->setInsidePosition(1);
  EXPECT_EQ(badge_->center(), (CGPoint{87.5, 12.5}));
  badge_->setInsidePosition(2);
  EXPECT_EQ(badge_->horizontalOffset(), -12.5F);
  EXPECT_EQ(badge_->center(), (CGPoint{87.5, 12.5}));
}

TEST_F(UIZPBadgeViewTest, ABadgeWithoutASizeHasNoInsideOffsets) {
  badge_->setInsidePosition(1);
  EXPECT_EQ(badge_->horizontalOffset(), 0.0F);
  EXPECT_EQ(badge_->verticalOffset(), 0.0F);
}

TEST_F(UIZPBadgeViewTest, ABadgeThatIsInNoViewIsPlacedAtItsOffsets) {
  const auto alone = std::make_shared<UIZPBadgeView>();
  alone->setHorizontalOffset(5);
  alone->setBadgeValue(7);
  EXPECT_EQ(alone->center(), (CGPoint{5, 0}));
}

TEST_F(UIZPBadgeViewTest, NumbersThatAreNoneLeaveTheBadgeUsable) {
  badge_->setOutlineWidth(std::numeric_limits<float>::quiet_NaN());
  badge_->setHorizontalOffset(std::numeric_limits<float>::infinity());
  badge_->setBadgeValue(7);
  EXPECT_GE(badge_->bounds().width(), 0);
  badge_->setHorizontalOffset(0);
  badge_->setOutlineWidth(2);
  badge_->setBadgeValue(8);
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
}

// The device's text is 15.6 points high: higher than what the smallest diameter leaves.
TEST_F(UIZPBadgeViewTest, WithTheFirstFontTheTextDeterminesTheSize) {
  const CGFloat height = static_cast<float>(1.2 * 13 + 11);
  badge_->setBadgeValue(7);
  EXPECT_EQ(badge_->bounds().size, (CGSize{height, height}));
  badge_->setBadgeValue(1234);
  EXPECT_EQ(badge_->bounds().size, (CGSize{4 * 6.5 + 11, height}));
}

// Kept: the number is still not drawn.
TEST_F(UIZPBadgeViewTest, ANewFontBringsBackABadgeThatZeroHid) {
  small()->setBadgeValue(0);
  ASSERT_EQ(badge_->frame(), CGRect());
  badge_->setFont(UIFont::boldSystemFontOfSize(20));
  EXPECT_EQ(badge_->bounds().size, (CGSize{35, 35}));
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
  EXPECT_FALSE(badge_->isAccessibilityElement());
}

}  // namespace
}  // namespace zephyl
