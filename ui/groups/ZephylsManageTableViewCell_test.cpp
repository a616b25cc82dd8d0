#include "ui/groups/ZephylsManageTableViewCell.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "ui/groups/ManageCellTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class ZephylsManageTableViewCellTest : public test::ManageCellTest {};

TEST_F(ZephylsManageTableViewCellTest, TheSubviewsAreMadeForTheFirstSizeOfTheCell) {
  const CGSize size = cell_->bounds().size;
  EXPECT_EQ(size, (CGSize{320, 44}));
  EXPECT_EQ(cell_->viewWithTag(Cell::kLockTag)->frame(), CGRectMake(7, 10, 24, 24));
  EXPECT_TRUE(cell_->viewWithTag(Cell::kLockTag)->clipsToBounds());
  EXPECT_EQ(label(Cell::kCheckTag)->frame(), CGRectMake(320, 0, 16, 39));
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 20));
  EXPECT_EQ(label(Cell::kSubtitleTag)->frame(), CGRectMake(36, 22, 284, 20));
  EXPECT_EQ(cell_->viewWithTag(Cell::kMarkerTag), nullptr);
  for (const std::int64_t tag : {2, 3, 4, 5}) {
    EXPECT_EQ(cell_->viewWithTag(tag)->superview(), cell_->contentView().get()) << tag;
  }
}

TEST_F(ZephylsManageTableViewCellTest, TheLabelsLookLikeTheCellsOwn) {
  for (const std::int64_t tag : {Cell::kTitleTag, Cell::kCheckTag}) {
    EXPECT_EQ(label(tag)->font(), cell_->textLabel()->font()) << tag;
    EXPECT_EQ(label(tag)->textColor(), cell_->textLabel()->textColor()) << tag;
    EXPECT_EQ(label(tag)->textAlignment(), cell_->textLabel()->textAlignment()) << tag;
  }
  EXPECT_EQ(label(Cell::kSubtitleTag)->font(), UIFont::systemFontOfSize(13));
  EXPECT_EQ(label(Cell::kSubtitleTag)->textColor(), UIColor::grayColor());
}

TEST_F(ZephylsManageTableViewCellTest, TheCheckMarkMovesToTheEndOfTheRowFromVersion13On) {
  show(cell_, 390, 60);
  EXPECT_EQ(label(Cell::kCheckTag)->frame(), CGRectMake(360, 0, 16, 39));
}

// Kept: it stays where the cell's first width put it.
TEST_F(ZephylsManageTableViewCellTest, TheCheckMarkStaysWhereItWasBeforeVersion13) {
  device_.device().setSystemVersion("12.4");
  show(cell_, 390, 60);
  EXPECT_EQ(label(Cell::kCheckTag)->frame(), CGRectMake(320, 0, 16, 39));
}

TEST_F(ZephylsManageTableViewCellTest, WhereTheLanguageRunsTheOtherWayTheRowIsMirrored) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  show(cell_, 390, 60);
  cell_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(cell_->viewWithTag(Cell::kLockTag)->frame(), CGRectMake(390 - 7 - 24, 10, 24, 24));
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(390 - 36 - 284, 2, 284, 20));
  EXPECT_EQ(label(Cell::kSubtitleTag)->frame(), CGRectMake(390 - 36 - 284, 22, 284, 20));
  EXPECT_EQ(label(Cell::kCheckTag)->frame(), CGRectMake(30 - 16, 0, 16, 39));
}

// As far from the right as it otherwise is from the left: never over the title.
TEST_F(ZephylsManageTableViewCellTest, BeforeVersion13TheCheckMarkIsMirroredToo) {
  device_.device().setSystemVersion("12.4");
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  show(cell_, 390, 60);
  cell_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(label(Cell::kCheckTag)->frame(), CGRectMake(390 - 320 - 16, 0, 16, 39));
  EXPECT_EQ(label(Cell::kTitleTag)->frame().x(), 390 - 320);
}

TEST_F(ZephylsManageTableViewCellTest, OnlyProtectedUserGroupsShowTheLock) {
  fill(group(GroupBuilder(1, "Work").with(keys::kPasswordProtected, true)));
  EXPECT_EQ(nameOf(lock()), "locked");
  fill(group(GroupBuilder(2, "All").with(keys::kPasswordProtected, true).system(1)));
  EXPECT_EQ(lock(), nullptr);
  fill(group(GroupBuilder(3, "Home")));
  EXPECT_EQ(lock(), nullptr);
}

TEST_F(ZephylsManageTableViewCellTest, WithoutBiometricsNothingIsLocked) {
  device_.authentication().setAvailable(false);
  fill(group(GroupBuilder(1, "Work").with(keys::kPasswordProtected, true)));
  EXPECT_EQ(lock(), nullptr);
}

TEST_F(ZephylsManageTableViewCellTest, AViewInPlaceOfTheLockStaysAsItIs) {
  cell_->viewWithTag(Cell::kLockTag)->removeFromSuperview();
  const auto other = std::make_shared<UIView>();
  other->setTag(Cell::kLockTag);
  cell_->contentView()->addSubview(other);
  fill(group(GroupBuilder(1, "Work").with(keys::kPasswordProtected, true)));
  EXPECT_EQ(cell_->viewWithTag(Cell::kLockTag), other);
  EXPECT_EQ(text(Cell::kTitleTag), "Work");
}

TEST_F(ZephylsManageTableViewCellTest, TheActiveGroupIsCheckedInTheNormalMode) {
  fill(group(GroupBuilder(1, "Work").active()));
  EXPECT_EQ(text(Cell::kCheckTag), "\u2713");
  EXPECT_TRUE(cell_->accessibilityState().checked);
  fill(group(GroupBuilder(2, "Home")));
  EXPECT_EQ(text(Cell::kCheckTag), "");
  EXPECT_FALSE(cell_->accessibilityState().checked);
}

// Kept: a cell that is used again keeps the mark of its former group.
TEST_F(ZephylsManageTableViewCellTest, InOtherModesTheCheckMarkStaysAsItWas) {
  cell_->setZephylsMode(1);
  fill(group(GroupBuilder(1, "Work").active()));
  EXPECT_EQ(text(Cell::kCheckTag), "");
  cell_->setZephylsMode(0);
  fill(group(GroupBuilder(1, "Work").active()));
  cell_->setZephylsMode(2);
  fill(group(GroupBuilder(2, "Home")));
  EXPECT_EQ(text(Cell::kCheckTag), "\u2713");
}

TEST_F(ZephylsManageTableViewCellTest, TheTitleTellsTheUnreadCount) {
  fill(groupWithUnread(GroupBuilder(1, "Work"), 0));
  EXPECT_EQ(text(Cell::kTitleTag), "Work");
  fill(groupWithUnread(GroupBuilder(1, "Work"), 3));
  EXPECT_EQ(text(Cell::kTitleTag), "Work (3)");
}

TEST_F(ZephylsManageTableViewCellTest, ASubtitleStandsUnderTheTitle) {
  fill(group(GroupBuilder(1, "Work").with(keys::kSubTitle, "Nine to five")));
  EXPECT_EQ(text(Cell::kSubtitleTag), "Nine to five");
  EXPECT_FALSE(label(Cell::kSubtitleTag)->isHidden());
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 20));
}

TEST_F(ZephylsManageTableViewCellTest, ATitleAloneTakesTheWholeHeight) {
  show(cell_, 390, 60);
  fill(group(GroupBuilder(1, "Work")));
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 60));
  EXPECT_TRUE(label(Cell::kSubtitleTag)->isHidden());
}

// Kept: nothing makes a title smaller again.
TEST_F(ZephylsManageTableViewCellTest, AStretchedTitleStaysSoForTheNextGroup) {
  show(cell_, 390, 60);
  fill(group(GroupBuilder(1, "Work")));
  fill(group(GroupBuilder(2, "Home").with(keys::kSubTitle, "Family")));
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 60));
  fill(group(GroupBuilder(3, "Club").disabled()));
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 60));
}

TEST_F(ZephylsManageTableViewCellTest, WithoutATranslationADisabledGroupSaysSoInEnglish) {
  fill(group(GroupBuilder(1, "Work").disabled()));
  EXPECT_EQ(text(Cell::kSubtitleTag), "Status: Disabled");
}

TEST_F(ZephylsManageTableViewCellTest, ADisabledGroupSaysSoInPlaceOfASubtitle) {
  device_.files().put(std::string(kBundle).append("/en.lproj/Localizable.strings"),
                      "\"Status: Disabled\" = \"Asleep\";");
  fill(group(GroupBuilder(1, "Work")));
  fill(group(GroupBuilder(2, "Home").disabled()));
  EXPECT_EQ(text(Cell::kSubtitleTag), "Asleep");
  EXPECT_FALSE(label(Cell::kSubtitleTag)->isHidden());
  cell_->setSelected(true, /*animated=*/false);
  EXPECT_EQ(text(Cell::kSubtitleTag), "Asleep");
}

// Kept: whether the label is shown is not looked at when there is a subtitle.
TEST_F(ZephylsManageTableViewCellTest, ASubtitleAfterATitleAloneStaysHidden) {
  fill(group(GroupBuilder(1, "Work")));
  fill(group(GroupBuilder(2, "Home").with(keys::kSubTitle, "Family")));
  EXPECT_EQ(text(Cell::kSubtitleTag), "Family");
  EXPECT_TRUE(label(Cell::kSubtitleTag)->isHidden());
}

TEST_F(ZephylsManageTableViewCellTest, AMarkerThatSomebodyAddsGetsTheColour) {
  const auto marker = addMarker();
  fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, "00ff00ff")));
  EXPECT_EQ(marker->backgroundColor(), UIColor::greenColor());
  fill(group(GroupBuilder(2, "Work").with(keys::kMarkerCode, "00ff00f")));
  EXPECT_EQ(marker->backgroundColor(), UIColor::blackColor());
  fill(group(GroupBuilder(3, "Home")));
  EXPECT_EQ(marker->backgroundColor(), UIColor::clearColor());
}

TEST_F(ZephylsManageTableViewCellTest, WithoutInteractionTitleAndSubtitleAreDimmed) {
  cell_->setUserInteractionEnabled(false);
  EXPECT_FALSE(cell_->isUserInteractionEnabled());
  for (const std::int64_t tag : {Cell::kTitleTag, Cell::kSubtitleTag}) {
    EXPECT_FALSE(label(tag)->isUserInteractionEnabled()) << tag;
    EXPECT_EQ(label(tag)->alpha(), 0.439216) << tag;
  }
  cell_->setUserInteractionEnabled(true);
  for (const std::int64_t tag : {Cell::kTitleTag, Cell::kSubtitleTag}) {
    EXPECT_TRUE(label(tag)->isUserInteractionEnabled()) << tag;
    EXPECT_EQ(label(tag)->alpha(), 1) << tag;
  }
}

TEST_F(ZephylsManageTableViewCellTest, AScreenReaderReadsWhatIsShown) {
  fill(group(GroupBuilder(1, "Work")
                 .with(keys::kSubTitle, "Nine to five")
                 .with(keys::kPasswordProtected, true)));
  EXPECT_EQ(cell_->accessibilityLabel(), "Work, Nine to five, Password protected");
  fill(group(GroupBuilder(2, "Home")));
  EXPECT_EQ(cell_->accessibilityLabel(), "Home");
}

TEST_F(ZephylsManageTableViewCellTest, ACellWithoutAGroupCanBeUsed) {
  cell_->setZephyl(nullptr);
  cell_->setSelected(true, /*animated=*/false);
  cell_->setHighlighted(true, /*animated=*/false);
  show(cell_, 390, 60);
  EXPECT_EQ(text(Cell::kTitleTag), "");
}

TEST_F(ZephylsManageTableViewCellTest, ACellWhoseLabelsWereTakenAwayCanBeFilled) {
  for (const std::int64_t tag : {2, 3, 4, 5}) {
    cell_->viewWithTag(tag)->removeFromSuperview();
  }
  fill(group(GroupBuilder(1, "Work").disabled().active()));
  cell_->setSelected(true, /*animated=*/false);
  cell_->setUserInteractionEnabled(false);
  EXPECT_EQ(cell_->accessibilityLabel(), "");
}

TEST_F(ZephylsManageTableViewCellTest, AnEndlessTitleInvalidTextAndTheOtherDirectionAreStood) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  device_.uikit()->screen().setUserInterfaceStyle(UIUserInterfaceStyle::kDark);
  show(cell_, 390, 60);
  fill(group(GroupBuilder(1, std::string(100000, 'W')).with(keys::kSubTitle, "\xFF\xFE")));
  EXPECT_EQ(text(Cell::kTitleTag).size(), 100000U);
  EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(390 - 36 - 284, 2, 284, 20));
}

}  // namespace
}  // namespace zephyl
