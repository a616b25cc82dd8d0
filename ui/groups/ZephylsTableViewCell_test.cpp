#include "ui/groups/ZephylsTableViewCell.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/CAGradientLayer.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "ui/components/UIZPBadgeView.h"
#include "ui/groups/GroupCellTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class ZephylsTableViewCellTest : public test::GroupCellTest {
 protected:
  std::shared_ptr<UIZPBadgeView> badge() { return zpBadgeView(*cell_->groupImageView()); }
  void fill(const ZephylRef& group) {
    cell_->setZephyl(group);
    window_->layoutWindow();
  }

  std::shared_ptr<ZephylsTableViewCell> cell_ =
      show(std::make_shared<ZephylsTableViewCell>(UITableViewCellStyle::kValue1, "defaultCell"),
           120, 80);
};

TEST_F(ZephylsTableViewCellTest, ThePictureHoldsAllButTheStrip) {
  EXPECT_EQ(cell_->reuseIdentifier(), "defaultCell");
  EXPECT_EQ(cell_->groupImageView()->superview(), cell_.get());
  EXPECT_EQ(cell_->groupColorView()->superview(), cell_.get());
  const UIView* const picture = cell_->groupImageView().get();
  EXPECT_EQ(cell_->nameLabel()->superview(), picture);
  EXPECT_EQ(cell_->groupSelectedImageView()->superview(), picture);
  EXPECT_EQ(cell_->unreadMessageAvailableView()->superview(), picture);
  EXPECT_EQ(badge()->superview(), picture);
  EXPECT_EQ(picture->layer()->sublayers().front(), cell_->gradient());
}

TEST_F(ZephylsTableViewCellTest, TheNameIsBoldWhiteCentredAndNeverShrunk) {
  const auto& name = cell_->nameLabel();
  EXPECT_EQ(name->textColor(), UIColor::whiteColor());
  EXPECT_EQ(name->textAlignment(), NSTextAlignment::kCenter);
  EXPECT_EQ(name->font(), UIFont::boldSystemFontOfSize(19));
  EXPECT_FALSE(name->adjustsFontSizeToFitWidth());
}

TEST_F(ZephylsTableViewCellTest, TheDotIsBlueAndTheDarkeningRunsFromClearToHalfBlack) {
  EXPECT_EQ(cell_->unreadMessageAvailableView()->backgroundColor(),
            UIColor::colorWithRed(0, 0.4745098039215686, 1, 1));
  EXPECT_EQ(cell_->gradient()->colors(),
            (std::vector<UIColor>{UIColor::clearColor(), UIColor::colorWithRed(0, 0, 0, 0.5)}));
  EXPECT_LT(cell_->gradient()->startPoint().y, cell_->gradient()->endPoint().y);
}

TEST_F(ZephylsTableViewCellTest, EverythingIsPlacedByTheHeightOfTheCell) {
  EXPECT_EQ(cell_->groupColorView()->frame(), CGRectMake(0, 0, 5, 80));
  EXPECT_EQ(cell_->groupImageView()->frame(), CGRectMake(5, 0, 80, 80));
  EXPECT_EQ(cell_->nameLabel()->frame(), CGRectMake(2, 62, 78, 15));
  EXPECT_EQ(cell_->unreadMessageAvailableView()->frame(), CGRectMake(68, 2, 10, 10));
  EXPECT_TRUE(cell_->unreadMessageAvailableView()->clipsToBounds());
  EXPECT_EQ(cell_->unreadMessageAvailableView()->layer()->state().cornerRadius, 5);
  EXPECT_EQ(cell_->gradient()->frame(), CGRectMake(0, 0, 80, 80));
}

TEST_F(ZephylsTableViewCellTest, TheCheckStandsInTheMiddleOfTheCellFromVersion13On) {
  EXPECT_EQ(cell_->groupSelectedImageView()->frame(), CGRectMake(37.5, 17.5, 45, 45));
  device_.device().setSystemVersion("12.4");
  cell_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(cell_->groupSelectedImageView()->frame(), CGRectMake(17.5, 17.5, 45, 45));
  EXPECT_EQ(kCheckedImageViewWidth, 45);
}

TEST_F(ZephylsTableViewCellTest, TheBadgeStandsInsideTheUpperRightCornerOfThePicture) {
  const auto cell =
      std::make_shared<ZephylsTableViewCell>(UITableViewCellStyle::kValue1, "defaultCell");
  cell->setZephyl(groupWithUnread(GroupBuilder(1, "Work"), 3));
  show(cell, 120, 80);
  const auto badge = zpBadgeView(*cell->groupImageView());
  EXPECT_EQ(badge->position(), ZPBadgePositionTopRight);
  EXPECT_EQ(badge->insidePosition(), 1U);
  const CGSize size = badge->bounds().size;
  EXPECT_NEAR(badge->center().x, 80 - size.width / 2, 0.001);
  EXPECT_NEAR(badge->center().y, size.height / 2, 0.001);
}

TEST_F(ZephylsTableViewCellTest, AGroupWithoutUnreadShowsItsBareTitle) {
  fill(groupWithUnread(GroupBuilder(1, "Work"), 0));
  EXPECT_EQ(cell_->nameLabel()->text(), "Work");
  EXPECT_TRUE(cell_->unreadMessageAvailableView()->isHidden());
  EXPECT_EQ(badge()->badgeValue(), 0);
  EXPECT_TRUE(badge()->bounds().isEmpty());
}

TEST_F(ZephylsTableViewCellTest, AGroupWithUnreadShowsTheCountTheDotAndTheBadge) {
  fill(groupWithUnread(GroupBuilder(1, "Work"), 3));
  EXPECT_EQ(cell_->nameLabel()->text(), "Work (3)");
  EXPECT_FALSE(cell_->unreadMessageAvailableView()->isHidden());
  EXPECT_EQ(badge()->badgeValue(), 3);
  EXPECT_FALSE(badge()->bounds().isEmpty());
  fill(groupWithUnread(GroupBuilder(1, "Work"), 0));
  EXPECT_EQ(cell_->nameLabel()->text(), "Work");
  EXPECT_TRUE(cell_->unreadMessageAvailableView()->isHidden());
}

TEST_F(ZephylsTableViewCellTest, TheBadgeHasTheColourOfTheDetailText) {
  cell_->detailTextLabel()->setTextColor(UIColor::redColor());
  fill(groupWithUnread(GroupBuilder(1, "Work"), 1));
  EXPECT_EQ(badge()->badgeColor(), UIColor::redColor());
  EXPECT_EQ(badge()->outlineColor(), UIColor::redColor());
  EXPECT_EQ(badge()->textColor(), UIColor::whiteColor());
  EXPECT_EQ(badge()->outlineWidth(), 1.0F);
}

// Each reading counts anew, so title, dot and badge could tell different numbers.
TEST_F(ZephylsTableViewCellTest, TheCountIsReadOnceAFilling) {
  device_.conversationList().setConversations({fake::unreadChat("a", {fake::known(1)})});
  const auto fresh = group(GroupBuilder(1, "Work"));
  fill(fresh);
  EXPECT_EQ(cell_->nameLabel()->text(), "Work");
  EXPECT_EQ(badge()->badgeValue(), 0);
  fill(fresh);
  EXPECT_EQ(cell_->nameLabel()->text(), "Work (1)");
  EXPECT_FALSE(cell_->unreadMessageAvailableView()->isHidden());
  EXPECT_EQ(badge()->badgeValue(), 1);
}

TEST_F(ZephylsTableViewCellTest, TheMarkerColoursTheStripAndThePicture) {
  struct Case {
    const char* marker;
    UIColor color;
  };
  for (const Case& each :
       {Case{"00ff00ff", UIColor::greenColor()}, Case{"", UIColor::clearColor()},
        Case{"#00ff00", UIColor::blackColor()}, Case{"0000ff", UIColor::blueColor()}}) {
    fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, each.marker)));
    EXPECT_EQ(cell_->groupColorView()->backgroundColor(), each.color) << each.marker;
    EXPECT_EQ(cell_->groupImageView()->backgroundColor(), each.color) << each.marker;
  }
}

TEST_F(ZephylsTableViewCellTest, ThePictureIsTheGroupsOrNone) {
  const auto picture = UIImage::imageWithData({1, 2, 3});
  const auto work = group(GroupBuilder(1, "Work"));
  work->setHeaderImage(picture);
  fill(work);
  EXPECT_EQ(cell_->groupImageView()->image(), picture);
  fill(group(GroupBuilder(2, "Home")));
  EXPECT_EQ(cell_->groupImageView()->image(), nullptr);
}

TEST_F(ZephylsTableViewCellTest, OnlyTheActiveGroupIsChecked) {
  fill(group(GroupBuilder(1, "Work").active()));
  EXPECT_EQ(nameOf(cell_->groupSelectedImageView()->image()), "check");
  EXPECT_TRUE(cell_->accessibilityState().checked);
  fill(group(GroupBuilder(2, "Home")));
  EXPECT_EQ(cell_->groupSelectedImageView()->image(), nullptr);
  EXPECT_FALSE(cell_->accessibilityState().checked);
}

TEST_F(ZephylsTableViewCellTest, WithoutTheBundleThereIsNoCheck) {
  device_.files().removeFile(std::string(kBundle).append("/check.png"));
  device_.files().removeFile(std::string(kBundle).append("/locked.png"));
  fill(group(GroupBuilder(1, "Work").active()));
  EXPECT_EQ(cell_->groupSelectedImageView()->image(), nullptr);
}

TEST_F(ZephylsTableViewCellTest, AHighlightLeavesTheStripItsColour) {
  fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, "00ff00ff")));
  cell_->setHighlighted(true, /*animated=*/false);
  EXPECT_TRUE(cell_->isHighlighted());
  EXPECT_EQ(cell_->groupColorView()->backgroundColor(), UIColor::greenColor());
  cell_->setHighlighted(false, /*animated=*/false);
  EXPECT_EQ(cell_->groupColorView()->backgroundColor(), UIColor::greenColor());
}

TEST_F(ZephylsTableViewCellTest, ACellWithoutAGroupCanBeLaidOutAndHighlighted) {
  cell_->setZephyl(nullptr);
  cell_->setHighlighted(true, /*animated=*/false);
  window_->layoutWindow();
  EXPECT_EQ(cell_->zephyl(), nullptr);
  EXPECT_EQ(cell_->nameLabel()->text(), "");
}

TEST_F(ZephylsTableViewCellTest, TheModeIsKeptAndChangesNothing) {
  cell_->setZephylsMode(2);
  fill(group(GroupBuilder(1, "Work").active()));
  EXPECT_EQ(cell_->zephylsMode(), 2);
  EXPECT_NE(cell_->groupSelectedImageView()->image(), nullptr);
}

TEST_F(ZephylsTableViewCellTest, AScreenReaderReadsTheName) {
  fill(groupWithUnread(GroupBuilder(1, "Work"), 2));
  EXPECT_EQ(cell_->accessibilityLabel(), "Work (2)");
  EXPECT_EQ(cell_->accessibilityRole(), UIAccessibilityRole::kRow);
}

TEST_F(ZephylsTableViewCellTest, AnEndlessNameStaysInItsPlace) {
  fill(groupWithUnread(GroupBuilder(1, std::string(100000, 'W')), 1));
  EXPECT_EQ(cell_->nameLabel()->text().size(), 100004U);
  EXPECT_EQ(cell_->nameLabel()->frame(), CGRectMake(2, 62, 78, 15));
}

// Its own setters do nothing for the position that it has already.
TEST_F(ZephylsTableViewCellTest, TheBadgeFindsItsPlaceForEachSizeOfItsAndOfThePicture) {
  const auto expectInPlace = [this] {
    const CGSize size = badge()->bounds().size;
    EXPECT_GT(size.width, 0);
    EXPECT_NEAR(badge()->center().x, cell_->groupImageView()->frame().width() - size.width / 2,
                0.001);
    EXPECT_NEAR(badge()->center().y, size.height / 2, 0.001);
  };
  // Laid out without a count first.
  fill(groupWithUnread(GroupBuilder(1, "Work"), 3));
  expectInPlace();
  fill(groupWithUnread(GroupBuilder(1, "Work"), 0));
  fill(groupWithUnread(GroupBuilder(1, "Work"), 2));
  expectInPlace();
  const CGFloat narrow = badge()->bounds().width();
  fill(groupWithUnread(GroupBuilder(1, "Work"), 100));
  EXPECT_GT(badge()->bounds().width(), narrow);
  expectInPlace();
  show(cell_, 160, 110);
  expectInPlace();
}

TEST_F(ZephylsTableViewCellTest, ABadgeInItsPlaceIsNotDrawnAgainByALayout) {
  fill(groupWithUnread(GroupBuilder(1, "Work"), 3));
  (void)window_->takeDamage();
  cell_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_TRUE(window_->takeDamage().empty());
}

TEST_F(ZephylsTableViewCellTest, AFillingAsksForALayout) {
  cell_->groupImageView()->setFrame({});
  cell_->setZephyl(nullptr);
  EXPECT_EQ(cell_->groupImageView()->frame(), CGRect());
  window_->layoutWindow();
  EXPECT_EQ(cell_->groupImageView()->frame(), CGRectMake(5, 0, 80, 80));
}

// Kept: unlike a highlight, a selection leaves the strip as clear as the platform makes it.
TEST_F(ZephylsTableViewCellTest, ASelectionClearsTheStripUntilItEnds) {
  fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, "00ff00ff")));
  cell_->setSelected(true, /*animated=*/false);
  EXPECT_TRUE(cell_->isSelected());
  EXPECT_EQ(cell_->groupColorView()->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(cell_->groupImageView()->backgroundColor(), UIColor::clearColor());
  cell_->setSelected(false, /*animated=*/false);
  EXPECT_EQ(cell_->groupColorView()->backgroundColor(), UIColor::greenColor());
  EXPECT_EQ(cell_->groupImageView()->backgroundColor(), UIColor::greenColor());
}

TEST_F(ZephylsTableViewCellTest, ATileFilledWhileItIsSelectedKeepsTheNewColours) {
  fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, "00ff00ff")));
  cell_->setSelected(true, /*animated=*/false);
  fill(group(GroupBuilder(2, "Home")));
  cell_->setSelected(false, /*animated=*/false);
  EXPECT_EQ(cell_->groupColorView()->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(cell_->groupImageView()->backgroundColor(), UIColor::clearColor());
}

}  // namespace
}  // namespace zephyl
