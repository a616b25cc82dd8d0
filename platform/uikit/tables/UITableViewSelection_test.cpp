#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

using test::touch;

class UITableViewSelectionTest : public test::TableTest {
 protected:
  UITableViewSelectionTest() {
    source_->setRows(30);
    layout();
  }
};

TEST_F(UITableViewSelectionTest, ATapSelectsTheRowAndTellsSo) {
  tapRow({0, 2});
  EXPECT_EQ(rules_->log, "select 0.2 ");
  EXPECT_EQ(table_->indexPathForSelectedRow(), (NSIndexPath{0, 2}));
  EXPECT_TRUE(cell(2)->isSelected());
  EXPECT_FALSE(cell(2)->isHighlighted());
}

TEST_F(UITableViewSelectionTest, OnlyOneRowIsSelectedUnlessManyMayBe) {
  tapRow({0, 2});
  tapRow({0, 4});
  EXPECT_EQ(rules_->log, "select 0.2 deselect 0.2 select 0.4 ");
  EXPECT_FALSE(cell(2)->isSelected());
  rules_->log.clear();
  table_->setAllowsMultipleSelection(true);
  tapRow({0, 5});
  tapRow({0, 4});
  EXPECT_EQ(rules_->log, "select 0.5 deselect 0.4 ");
  EXPECT_EQ(table_->indexPathsForSelectedRows(), (UITableView::Paths{{0, 5}}));
}

TEST_F(UITableViewSelectionTest, ADelegateMayRefuseARow) {
  rules_->refused = {{0, 2}};
  tapRow({0, 2});
  EXPECT_EQ(rules_->log, "");
  EXPECT_FALSE(table_->indexPathForSelectedRow());
  EXPECT_FALSE(cell(2)->isHighlighted());
}

TEST_F(UITableViewSelectionTest, ATableOrARowThatMayNotBeUsedIsNotSelected) {
  table_->setAllowsSelection(false);
  tapRow({0, 2});
  table_->setAllowsSelection(true);
  cell(3)->setUserInteractionEnabled(false);
  tapRow({0, 3});
  EXPECT_EQ(rules_->log, "");
  EXPECT_FALSE(cell(3)->accessibilityActivate());
}

TEST_F(UITableViewSelectionTest, AFingerThatRestsHighlightsAndOneThatDragsDoesNot) {
  const CGPoint at = middleOfRow({0, 2});
  touch(*window_, UITouchPhase::kBegan, at, 100);
  EXPECT_FALSE(cell(2)->isHighlighted());
  device_.uikit()->displayLink().advance(0.2);
  EXPECT_TRUE(cell(2)->isHighlighted());
  touch(*window_, UITouchPhase::kMoved, {at.x, at.y - 40}, 100.3);
  EXPECT_FALSE(cell(2)->isHighlighted());
  touch(*window_, UITouchPhase::kEnded, {at.x, at.y - 40}, 101);
  EXPECT_EQ(rules_->log, "");
}

TEST_F(UITableViewSelectionTest, ATouchThatStopsTheScrollingSelectsNothing) {
  const CGPoint at = middleOfRow({0, 8});
  touch(*window_, UITouchPhase::kBegan, at, 100);
  for (int i = 1; i <= 10; ++i) {
    touch(*window_, UITouchPhase::kMoved, {at.x, at.y - 30.0 * i}, 100 + i / 60.0);
  }
  touch(*window_, UITouchPhase::kEnded, {at.x, at.y - 300}, 100.17);
  ASSERT_TRUE(table_->isDecelerating());
  layout();
  test::tap(*window_, {160, 100}, 101);
  EXPECT_FALSE(table_->isDecelerating());
  EXPECT_EQ(rules_->log, "");
}

TEST_F(UITableViewSelectionTest, TheProgramSelectsWithoutTheDelegateHearingOfIt) {
  table_->selectRowAtIndexPath({0, 20}, false, UITableViewScrollPosition::kTop);
  EXPECT_EQ(rules_->log, "");
  layout();
  EXPECT_TRUE(cell(20)->isSelected());
  EXPECT_EQ(table_->contentOffset().y, 880);
  table_->deselectRowAtIndexPath({0, 20}, false);
  EXPECT_FALSE(cell(20)->isSelected());
  table_->selectRowAtIndexPath({7, 20}, false, UITableViewScrollPosition::kTop);
  EXPECT_FALSE(table_->indexPathForSelectedRow());
}

TEST_F(UITableViewSelectionTest, DeselectingWithAnimationFades) {
  tapRow({0, 2});
  const auto row = cell(2);
  table_->deselectRowAtIndexPath({0, 2}, /*animated=*/true);
  EXPECT_FALSE(row->isSelected());
  EXPECT_TRUE(device_.uikit()->displayLink().isFrameRequested());
  settle();
  EXPECT_FALSE(device_.uikit()->displayLink().isFrameRequested());
}

TEST_F(UITableViewSelectionTest, ASelectedRowIsStillSelectedWhenItComesBackIntoView) {
  tapRow({0, 2});
  table_->setContentOffset({0, 800});
  layout();
  EXPECT_EQ(cell(2), nullptr);
  EXPECT_FALSE(cell(20)->isSelected());
  table_->setContentOffset({0, 0});
  layout();
  EXPECT_TRUE(cell(2)->isSelected());
}

TEST_F(UITableViewSelectionTest, AScreenReaderTapsARow) {
  EXPECT_TRUE(cell(4)->accessibilityActivate());
  EXPECT_EQ(rules_->log, "select 0.4 ");
}

TEST_F(UITableViewSelectionTest, AHeaderOverARowTakesTheTap) {
  source_->headers = {{0, "Header"}};
  table_->reloadData();
  table_->setContentOffset({0, 100});
  layout();
  test::tap(*window_, {160, 10});
  EXPECT_EQ(rules_->log, "");
}

}  // namespace
}  // namespace zephyl
