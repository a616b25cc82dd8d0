// What a row shows anew when it is highlighted or selected.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "ui/groups/ManageCellTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class ZephylsManageTableViewCellSelectionTest : public test::ManageCellTest {};

TEST_F(ZephylsManageTableViewCellSelectionTest, ASelectionFillsTitleAndSubtitleAgain) {
  const auto work = groupWithUnread(GroupBuilder(1, "Work").with(keys::kSubTitle, "Before"), 0);
  fill(work);
  work->setTitle("Play");
  work->setSubTitle("After");
  cell_->setSelected(true, /*animated=*/false);
  EXPECT_TRUE(cell_->isSelected());
  EXPECT_EQ(text(Cell::kTitleTag), "Play");
  EXPECT_EQ(text(Cell::kSubtitleTag), "After");
}

// Kept: a selection stretches the title, but hides nothing and looks at no disabled group.
TEST_F(ZephylsManageTableViewCellSelectionTest, ASelectionShowsAndHidesNothing) {
  const auto work = group(GroupBuilder(1, "Work").with(keys::kSubTitle, "Before"));
  fill(work);
  work->setSubTitle("");
  cell_->setSelected(true, /*animated=*/false);
  EXPECT_EQ(label(Cell::kTitleTag)->frame().height(), 44);
  EXPECT_FALSE(label(Cell::kSubtitleTag)->isHidden());
  EXPECT_EQ(text(Cell::kSubtitleTag), "Before");
  work->setEnabled(false);
  cell_->setSelected(false, /*animated=*/false);
  EXPECT_EQ(text(Cell::kSubtitleTag), "Before");
}

TEST_F(ZephylsManageTableViewCellSelectionTest, HighlightAndSelectionLeaveTheMarkerItsColour) {
  const auto marker = addMarker();
  fill(group(GroupBuilder(1, "Work").with(keys::kMarkerCode, "00ff00ff")));
  cell_->setHighlighted(true, /*animated=*/false);
  EXPECT_EQ(marker->backgroundColor(), UIColor::greenColor());
  cell_->setHighlighted(false, /*animated=*/false);
  EXPECT_EQ(marker->backgroundColor(), UIColor::greenColor());
  cell_->setSelected(true, /*animated=*/false);
  EXPECT_EQ(marker->backgroundColor(), UIColor::greenColor());
  cell_->setSelected(false, /*animated=*/false);
  EXPECT_EQ(marker->backgroundColor(), UIColor::greenColor());
}

TEST_F(ZephylsManageTableViewCellSelectionTest, ADisabledGroupKeepsTheHeightOfItsTitle) {
  fill(group(GroupBuilder(1, "Work").disabled()));
  for (const bool selected : {true, false}) {
    cell_->setSelected(selected, /*animated=*/false);
    EXPECT_EQ(label(Cell::kTitleTag)->frame(), CGRectMake(36, 2, 284, 20)) << selected;
    EXPECT_EQ(text(Cell::kSubtitleTag), "Status: Disabled") << selected;
    EXPECT_FALSE(label(Cell::kSubtitleTag)->isHidden()) << selected;
  }
}

}  // namespace
}  // namespace zephyl
