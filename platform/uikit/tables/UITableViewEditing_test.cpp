#include <utility>

#include "platform/uikit/tables/TableDeleteButton.h"
#include "platform/uikit/tables/TableEditControl.h"
#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

class UITableViewEditingTest : public test::TableTest {
 protected:
  UITableViewEditingTest() {
    source_->rows = {{"System"}, {"Work", "Home", "Club"}};
    source_->canEdit = [](const NSIndexPath& path) { return path.section > 0; };
    source_->committed = [this](UITableView& table, const NSIndexPath& path) {
      auto& rows = source_->rows[static_cast<std::size_t>(path.section)];
      rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(path.row));
      table.deleteRowsAtIndexPaths({path}, UITableViewRowAnimation::kAutomatic);
    };
    layout();
  }

  TableEditControl* control(std::int64_t row, std::int64_t section) {
    return test::viewOf<TableEditControl>(*cell(row, section));
  }
  TableDeleteButton* button(std::int64_t row, std::int64_t section) {
    return test::viewOf<TableDeleteButton>(*cell(row, section));
  }
};

TEST_F(UITableViewEditingTest, OnlyRowsThatCanBeEditedGetAControl) {
  table_->setEditing(true, false);
  layout();
  EXPECT_TRUE(cell(0, 0)->isEditing());
  EXPECT_EQ(control(0, 0), nullptr);
  EXPECT_EQ(cell(0, 0)->contentView()->frame().x(), 0);
  EXPECT_EQ(control(0, 1)->describe(), "minus");
  EXPECT_EQ(cell(0, 1)->contentView()->frame().x(), 38);
  table_->setEditing(false, false);
  layout();
  EXPECT_EQ(cell(0, 1)->contentView()->frame().x(), 0);
  EXPECT_TRUE(control(0, 1)->isHidden());
}

TEST_F(UITableViewEditingTest, TheMinusUncoversAButtonThatDeletes) {
  table_->setEditing(true, false);
  layout();
  test::tap(*window_, *control(1, 1));
  settle();
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{1, 1}));
  EXPECT_EQ(source_->log, "");
  ASSERT_NE(button(1, 1), nullptr);
  EXPECT_EQ(button(1, 1)->describe(), "Delete");
  test::tap(*window_, *button(1, 1));
  EXPECT_EQ(source_->log, "delete 1.1 ");
  settle();
  EXPECT_EQ(shown(), "System Work Club ");
}

TEST_F(UITableViewEditingTest, RowsAreOnlySelectedWhileEditedWhereThatIsAllowed) {
  table_->setEditing(true, false);
  tapRow({1, 0});
  EXPECT_EQ(rules_->log, "");
  table_->setAllowsSelectionDuringEditing(true);
  tapRow({1, 0});
  EXPECT_EQ(rules_->log, "select 1.0 ");
}

TEST_F(UITableViewEditingTest, RowsOfTheMultiSelectStyleAreTicked) {
  rules_->editingStyle = UITableViewCellEditingStyle::kMultiSelect;
  table_->setEditing(true, false);
  layout();
  EXPECT_EQ(control(0, 1)->describe(), "not ticked");
  tapRow({1, 0});
  tapRow({1, 2});
  EXPECT_EQ(control(0, 1)->describe(), "ticked");
  EXPECT_EQ(table_->indexPathsForSelectedRows(), (UITableView::Paths{{1, 0}, {1, 2}}));
  tapRow({1, 0});
  EXPECT_EQ(rules_->log, "select 1.0 select 1.2 deselect 1.0 ");
  EXPECT_EQ(control(0, 1)->describe(), "not ticked");
  tapRow({0, 0});
  EXPECT_EQ(table_->indexPathsForSelectedRows(), (UITableView::Paths{{1, 2}}));
}

TEST_F(UITableViewEditingTest, MultipleSelectionDuringEditingTicksAllRowsThatCanBeEdited) {
  table_->setAllowsMultipleSelectionDuringEditing(true);
  table_->setEditing(true, false);
  layout();
  EXPECT_EQ(control(0, 1)->describe(), "not ticked");
  tapRow({1, 0});
  tapRow({1, 1});
  EXPECT_EQ(table_->indexPathsForSelectedRows(), (UITableView::Paths{{1, 0}, {1, 1}}));
}

TEST_F(UITableViewEditingTest, EnteringAndLeavingForgetTheSelection) {
  tapRow({1, 0});
  table_->setEditing(true, true);
  EXPECT_TRUE(table_->indexPathsForSelectedRows().empty());
  EXPECT_FALSE(cell(0, 1)->isSelected());
  settle();
  table_->setAllowsSelectionDuringEditing(true);
  tapRow({1, 1});
  table_->setEditing(false, true);
  EXPECT_TRUE(table_->indexPathsForSelectedRows().empty());
}

TEST_F(UITableViewEditingTest, RowsThatComeIntoViewAreEditedToo) {
  for (int i = 0; i < 40; ++i) {
    source_->rows[1].push_back("more");
  }
  table_->reloadData();
  table_->setEditing(true, false);
  table_->setContentOffset({0, 800});
  layout();
  EXPECT_EQ(control(20, 1)->describe(), "minus");
}

TEST_F(UITableViewEditingTest, AnInsertControlCommitsAtOnce) {
  source_->committed = nullptr;
  rules_->editingStyle = UITableViewCellEditingStyle::kInsert;
  table_->setEditing(true, false);
  layout();
  EXPECT_EQ(control(0, 1)->accessibilityLabel(), "Add");
  test::tap(*window_, *control(0, 1));
  EXPECT_EQ(source_->log, "insert 1.0 ");
}

TEST_F(UITableViewEditingTest, EnteringAndLeavingReachTheRowsOfAPendingReload) {
  source_->rows = {{"System", "Other"}, {"Work"}};
  table_->reloadData();
  table_->setEditing(true, true);
  settle();
  EXPECT_EQ(control(0, 0), nullptr);
  EXPECT_EQ(control(1, 0), nullptr);
  ASSERT_NE(control(0, 1), nullptr);
  EXPECT_EQ(cell(1, 0)->surroundings().position, 2);
  EXPECT_EQ(cell(1, 0)->surroundings().count, 2);
  source_->rows = {{"System"}, {"Work", "Home"}};
  table_->reloadData();
  table_->setEditing(false, true);
  settle();
  EXPECT_EQ(cell(0, 0)->surroundings().count, 1);
  EXPECT_EQ(cell(1, 1)->surroundings().position, 2);
  EXPECT_EQ(shown(), "System Work Home ");
}

TEST_F(UITableViewEditingTest, EnteringWhileARowIsAskedForReachesAllRows) {
  bool told = false;
  source_->meanwhile = [&told](UITableView& table) {
    if (!std::exchange(told, true)) {
      table.setEditing(true, false);
    }
  };
  table_->reloadData();
  layout();
  EXPECT_TRUE(cell(0, 0)->isEditing());
  EXPECT_EQ(control(0, 0), nullptr);
  EXPECT_NE(control(0, 1), nullptr);
  EXPECT_NE(control(2, 1), nullptr);
}

TEST_F(UITableViewEditingTest, ASwipeUncoversTheButton) {
  swipeRow({1, 1}, -120);
  settle();
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{1, 1}));
  EXPECT_EQ(cell(1, 1)->deletionOffset(), cell(1, 1)->deleteButtonWidth());
  EXPECT_GE(cell(1, 1)->deleteButtonWidth(), 74);
  test::tap(*window_, *button(1, 1));
  EXPECT_EQ(source_->log, "delete 1.1 ");
  EXPECT_EQ(rules_->log, "");
}

TEST_F(UITableViewEditingTest, ASwipeTheOtherWayOrOfAnotherRowDoesNothing) {
  swipeRow({1, 1}, 120);
  swipeRow({0, 0}, -120);
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  rules_->editingStyle = UITableViewCellEditingStyle::kNone;
  swipeRow({1, 1}, -120);
  EXPECT_FALSE(table_->indexPathForSwipedRow());
}

TEST_F(UITableViewEditingTest, InRightToLeftLanguagesOneSwipesToTheRight) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  swipeRow({1, 1}, -120);
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  swipeRow({1, 1}, 120);
  settle();
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{1, 1}));
  const CGPoint middle = test::middleOf(*button(1, 1));
  EXPECT_GT(middle.x, 0);
  EXPECT_LT(middle.x, 80);
}

TEST_F(UITableViewEditingTest, ASwipeOverMostOfTheRowDeletesAtOnce) {
  swipeRow({1, 1}, -280);
  EXPECT_EQ(source_->log, "delete 1.1 ");
  settle();
  EXPECT_EQ(shown(), "System Work Club ");
}

TEST_F(UITableViewEditingTest, ARowThatIsNotDeletedMovesBack) {
  source_->committed = nullptr;
  swipeRow({1, 1}, -280);
  settle();
  EXPECT_EQ(source_->log, "delete 1.1 ");
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  EXPECT_EQ(cell(1, 1)->deletionOffset(), 0);
  EXPECT_TRUE(button(1, 1)->isHidden());
}

TEST_F(UITableViewEditingTest, AnyTouchClosesTheSwipedRowAndSelectsNothing) {
  swipeRow({1, 1}, -120);
  settle();
  tapRow({1, 2});
  settle();
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  EXPECT_EQ(rules_->log, "");
  EXPECT_EQ(cell(1, 1)->bounds().x(), 0);
}

TEST_F(UITableViewEditingTest, TheSecondButtonUncoversItToo) {
  const CGPoint at = middleOfRow({1, 2});
  window_->sendTouch({0, UITouchPhase::kBegan, at, 100, /*secondary=*/true});
  settle();
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{1, 2}));
  window_->sendTouch({0, UITouchPhase::kBegan, middleOfRow({0, 0}), 101, /*secondary=*/true});
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{1, 2}));
}

TEST_F(UITableViewEditingTest, AReloadClosesTheSwipedRow) {
  swipeRow({1, 1}, -120);
  settle();
  table_->reloadData();
  layout();
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  EXPECT_EQ(cell(1, 1)->deletionOffset(), 0);
}

}  // namespace
}  // namespace zephyl
