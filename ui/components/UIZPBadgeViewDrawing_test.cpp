// What a badge draws, when it asks to be drawn, and whose badge it is.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"
#include "ui/components/UIZPBadgeView.h"

namespace zephyl {
namespace {

class UIZPBadgeViewDrawingTest : public ::testing::Test {
 protected:
  UIZPBadgeViewDrawingTest() {
    window_->addSubview(host_);
    badge_ = zpBadgeView(*host_);
    badge_->setFont(UIFont::boldSystemFontOfSize(10));
    badge_->setPosition(ZPBadgePositionTopLeft);
    badge_->setBadgeValue(7);
  }

  // Whether `change` asks for anything to be drawn anew.
  template <typename Change>
  bool redraws(Change change) {
    window_->layoutWindow();
    (void)window_->takeDamage();
    change(*badge_);
    window_->layoutWindow();
    return !window_->takeDamage().empty();
  }
  std::vector<std::string> drawn() {
    fake::RecordingContext context;
    badge_->drawRect(context, badge_->bounds());
    return context.commands();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIView> host_ = std::make_shared<UIView>(CGRectMake(10, 20, 100, 60));
  std::shared_ptr<UIZPBadgeView> badge_;
};

TEST_F(UIZPBadgeViewDrawingTest, ARingADiscAndTheNumberInTheMiddle) {
  badge_->setBadgeColor(UIColor::redColor());
  badge_->setOutlineColor(UIColor::blackColor());
  badge_->setOutlineWidth(3);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"ellipse (1 1 23 23) #000000ff",
                                               "ellipse (4 4 17 17) #ff0000ff",
                                               "text \"7\" (10 6.5 5 12) 10 bold #ffffffff"}));
}

TEST_F(UIZPBadgeViewDrawingTest, AWideBadgeIsAnEllipse) {
  badge_->setBadgeValue(1234);
  EXPECT_EQ(drawn().at(1), "ellipse (3 3 25 19) #0000ffff");
}

TEST_F(UIZPBadgeViewDrawingTest, ZeroDrawsNothingUnlessItIsToBeShown) {
  badge_->setBadgeValue(0);
  EXPECT_TRUE(drawn().empty());
  badge_->setDisplayIfZero(true);
  EXPECT_EQ(drawn().size(), 3U);
}

TEST_F(UIZPBadgeViewDrawingTest, ANewValueFontOrColourIsDrawn) {
  EXPECT_TRUE(redraws([](auto& badge) { badge.setBadgeValue(8); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setFont(UIFont::systemFontOfSize(10)); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setBadgeColor(UIColor::redColor()); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setTextColor(UIColor::redColor()); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setOutlineColor(UIColor::redColor()); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setOutlineWidth(5); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setMinDiameter(40); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setPosition(7); }));
  EXPECT_TRUE(redraws([](auto& badge) { badge.setInsidePosition(2); }));
}

TEST_F(UIZPBadgeViewDrawingTest, ValuesThatItHoldsAreNotDrawnAgain) {
  EXPECT_FALSE(redraws([](auto& badge) {
    badge.setBadgeValue(badge.badgeValue());
    badge.setFont(badge.font());
    badge.setBadgeColor(badge.badgeColor());
    badge.setTextColor(badge.textColor());
    badge.setOutlineColor(badge.outlineColor());
    badge.setOutlineWidth(badge.outlineWidth());
    badge.setMinDiameter(badge.minDiameter());
    badge.setPosition(badge.position());
    badge.setInsidePosition(badge.insidePosition());
    badge.setDisplayIfZero(badge.displayIfZero());
  }));
}

TEST_F(UIZPBadgeViewDrawingTest, AValueThatItHoldsDoesNotPlaceItEither) {
  badge_->setCenter({50, 50});
  badge_->setPosition(badge_->position());
  badge_->setBadgeValue(badge_->badgeValue());
  EXPECT_EQ(badge_->center(), (CGPoint{50, 50}));
}

TEST_F(UIZPBadgeViewDrawingTest, ShowingZeroChangesNothingWhileThereIsANumber) {
  const CGRect before = badge_->frame();
  EXPECT_FALSE(redraws([](auto& badge) { badge.setDisplayIfZero(true); }));
  EXPECT_EQ(badge_->frame(), before);
  EXPECT_TRUE(badge_->displayIfZero());
}

TEST_F(UIZPBadgeViewDrawingTest, OffsetsAloneAreNotDrawn) {
  EXPECT_FALSE(redraws([](auto& badge) {
    badge.setHorizontalOffset(4);
    badge.setVerticalOffset(4);
  }));
}

// Kept: it counts when the number or its font changes.
TEST_F(UIZPBadgeViewDrawingTest, ASmallestDiameterCountsFromTheNextValueOn) {
  badge_->setMinDiameter(40);
  EXPECT_EQ(badge_->bounds().size, (CGSize{25, 25}));
  badge_->setBadgeValue(8);
  EXPECT_EQ(badge_->bounds().size, (CGSize{40, 40}));
  badge_->setOutlineWidth(20);
  EXPECT_EQ(badge_->bounds().size, (CGSize{40, 40}));
  badge_->setFont(UIFont::boldSystemFontOfSize(20));
  EXPECT_EQ(badge_->bounds().size, (CGSize{71, 71}));
}

TEST_F(UIZPBadgeViewDrawingTest, InAutomaticPositionAWidthAndADiameterPlaceIt) {
  badge_->setPosition(ZPBadgePositionAutomatic);
  badge_->setCenter({1, 1});
  badge_->setOutlineWidth(3);
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
  badge_->setCenter({1, 1});
  badge_->setMinDiameter(30);
  EXPECT_EQ(badge_->center(), (CGPoint{100, 60}));
  badge_->setPosition(ZPBadgePositionTopLeft);
  badge_->setCenter({1, 1});
  badge_->setMinDiameter(31);
  badge_->setOutlineWidth(4);
  badge_->setBadgeValue(9);
  EXPECT_EQ(badge_->center(), (CGPoint{1, 1}));
}

TEST_F(UIZPBadgeViewDrawingTest, AViewHasOneBadgeWhichIsMadeAtTheFirstCall) {
  EXPECT_EQ(zpBadgeView(*host_), badge_);
  EXPECT_EQ(badge_->superview(), host_.get());
  EXPECT_EQ(host_->subviews().size(), 1U);
  EXPECT_NE(zpBadgeView(*window_), badge_);
}

TEST_F(UIZPBadgeViewDrawingTest, ABadgeThatIsSetIsKeptButNotAdded) {
  const auto other = std::make_shared<UIZPBadgeView>();
  setZpBadgeView(*host_, other);
  EXPECT_EQ(zpBadgeView(*host_), other);
  EXPECT_EQ(other->superview(), nullptr);
  setZpBadgeView(*host_, nullptr);
  EXPECT_NE(zpBadgeView(*host_), other);
  EXPECT_EQ(host_->subviews().size(), 2U);
}

TEST_F(UIZPBadgeViewDrawingTest, ABadgeGoesWithItsView) {
  const std::weak_ptr<UIZPBadgeView> badge = badge_;
  badge_.reset();
  host_->removeFromSuperview();
  host_.reset();
  EXPECT_TRUE(badge.expired());
}

TEST_F(UIZPBadgeViewDrawingTest, AScreenReaderReadsTheNumberWhileItIsShown) {
  EXPECT_TRUE(badge_->isAccessibilityElement());
  EXPECT_EQ(badge_->accessibilityRole(), UIAccessibilityRole::kStaticText);
  EXPECT_EQ(badge_->accessibilityLabel(), "7");
  badge_->setBadgeValue(0);
  EXPECT_FALSE(badge_->isAccessibilityElement());
  EXPECT_EQ(badge_->accessibilityLabel(), "");
  badge_->setDisplayIfZero(true);
  EXPECT_EQ(badge_->accessibilityLabel(), "0");
}

TEST_F(UIZPBadgeViewDrawingTest, AnAppearanceOrDirectionChangesNothingOfIt) {
  device_.uikit()->screen().setUserInterfaceStyle(UIUserInterfaceStyle::kDark);
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  EXPECT_EQ(drawn(), (std::vector<std::string>{"ellipse (1 1 23 23) #ffffffff",
                                               "ellipse (3 3 19 19) #0000ffff",
                                               "text \"7\" (10 6.5 5 12) 10 bold #ffffffff"}));
}

// Kept: where the size stays, a 0 that is to be shown is drawn with the next change only.
TEST_F(UIZPBadgeViewDrawingTest, ShowingZeroDoesNotAskForADrawing) {
  badge_->setBadgeValue(0);
  badge_->setFont(UIFont::boldSystemFontOfSize(11));
  const CGRect before = badge_->frame();
  EXPECT_FALSE(before.isEmpty());
  EXPECT_FALSE(redraws([](auto& badge) { badge.setDisplayIfZero(true); }));
  EXPECT_EQ(badge_->frame(), before);
  EXPECT_EQ(drawn().size(), 3U);
}

}  // namespace
}  // namespace zephyl
