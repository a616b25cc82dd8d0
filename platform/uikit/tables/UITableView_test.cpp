#include "platform/uikit/tables/UITableView.h"

#include <limits>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/tables/TableBlankRows.h"
#include "platform/uikit/testing/TableFixture.h"

#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

class UITableViewTest : public test::TableTest {};

TEST_F(UITableViewTest, ShowsTheRowsThatAreSeenAndNoOthers) {
  source_->setRows(100);
  EXPECT_EQ(shown(), "0 1 2 3 4 5 6 7 8 9 ");
  EXPECT_EQ(source_->cellCalls, 10);
  EXPECT_EQ(cell(50), nullptr);
  EXPECT_EQ(table_->contentSize().height, 4400);
}

TEST_F(UITableViewTest, ScrollingUsesCellsAgain) {
  source_->setRows(100);
  layout();
  for (int offset = 0; offset <= 3000; offset += 10) {
    table_->setContentOffset({0, static_cast<CGFloat>(offset)});
    layout();
  }
  EXPECT_EQ(shown(), "68 69 70 71 72 73 74 75 76 77 78 ");
  EXPECT_LE(source_->cellsMade, 12);
}

TEST_F(UITableViewTest, ManyRowsOfOneHeightCostNothingUntilTheyAreSeen) {
  source_->setRows(10000);
  layout();
  EXPECT_EQ(source_->sectionCalls, 1);
  EXPECT_EQ(source_->rowCalls, 1);
  EXPECT_EQ(source_->cellCalls, 10);
  EXPECT_EQ(rules_->heightCalls, 1);
  table_->setContentOffset({0, 200000});
  layout();
  table_->setNeedsLayout();
  layout();
  EXPECT_EQ(source_->rowCalls, 1);
  EXPECT_EQ(source_->cellCalls, 21);
  EXPECT_EQ(rules_->heightCalls, 1);
}

TEST_F(UITableViewTest, HeightsOfTheirOwnAreAskedForOnceEach) {
  source_->setRows(1000);
  rules_->rowHeight = [](const NSIndexPath& path) { return path.row % 2 == 0 ? 30.0 : 50.0; };
  layout();
  EXPECT_EQ(rules_->heightCalls, 1000);
  table_->setContentOffset({0, 4000});
  EXPECT_EQ(shown(), "100 101 102 103 104 105 106 107 108 109 110 111 ");
  EXPECT_EQ(rules_->heightCalls, 1000);
  EXPECT_EQ(cell(101)->frame(), CGRectMake(0, 4030, 320, 50));
}

TEST_F(UITableViewTest, ReloadingAsksAnewAndForgetsTheSelection) {
  source_->setRows(3);
  layout();
  table_->selectRowAtIndexPath({0, 1}, false, UITableViewScrollPosition::kNone);
  source_->rows = {{"a", "b"}};
  EXPECT_EQ(shown(), "0 1 2 ");
  table_->reloadData();
  EXPECT_EQ(shown(), "a b ");
  EXPECT_FALSE(table_->indexPathForSelectedRow());
  EXPECT_FALSE(cell(1)->isSelected());
}

TEST_F(UITableViewTest, CellsAreInTheOrderOfTheRowsWhateverWayOneScrolled) {
  source_->setRows(100);
  layout();
  table_->setContentOffset({0, 440});
  layout();
  table_->setContentOffset({0, 300});
  layout();
  const auto cells = test::viewsOf<UITableViewCell>(*table_);
  ASSERT_EQ(cells.size(), 11U);
  for (std::size_t i = 1; i < cells.size(); ++i) {
    EXPECT_LT(cells[i - 1]->frame().y(), cells[i]->frame().y());
  }
}

TEST_F(UITableViewTest, FindsRowsByPlaceAndPlacesByRow) {
  source_->rows = {{"a", "b"}, {"c"}};
  source_->headers = {{1, "Second"}};
  layout();
  EXPECT_EQ(table_->rectForRowAtIndexPath({1, 0}), CGRectMake(0, 116, 320, 44));
  EXPECT_EQ(table_->rectForHeaderInSection(1), CGRectMake(0, 88, 320, 28));
  EXPECT_EQ(table_->rectForSection(1).height(), 72);
  EXPECT_EQ(table_->indexPathForRowAtPoint({10, 50}), (NSIndexPath{0, 1}));
  EXPECT_FALSE(table_->indexPathForRowAtPoint({10, 100}));
  EXPECT_FALSE(table_->indexPathForRowAtPoint({10, 500}));
  EXPECT_EQ(table_->indexPathForCell(*cell(0, 1)), (NSIndexPath{1, 0}));
  EXPECT_FALSE(table_->indexPathForCell(UITableViewCell()));
}

TEST_F(UITableViewTest, ScrollsToARow) {
  source_->setRows(100);
  layout();
  table_->scrollToRowAtIndexPath({0, 20}, UITableViewScrollPosition::kTop, false);
  EXPECT_EQ(table_->contentOffset().y, 880);
  table_->scrollToRowAtIndexPath({0, 20}, UITableViewScrollPosition::kBottom, false);
  EXPECT_EQ(table_->contentOffset().y, 484);
  table_->scrollToRowAtIndexPath({0, 20}, UITableViewScrollPosition::kMiddle, false);
  EXPECT_EQ(table_->contentOffset().y, 682);
  table_->scrollToRowAtIndexPath({0, 20}, UITableViewScrollPosition::kNone, false);
  EXPECT_EQ(table_->contentOffset().y, 682);
  table_->scrollToRowAtIndexPath({0, 99}, UITableViewScrollPosition::kTop, false);
  EXPECT_EQ(table_->contentOffset().y, 3960);
  table_->scrollToRowAtIndexPath({3, 7}, UITableViewScrollPosition::kTop, false);
  EXPECT_EQ(table_->contentOffset().y, 3960);
}

TEST_F(UITableViewTest, HeaderAndFooterOfTheTableTakeTheirRoom) {
  source_->setRows(2);
  const auto header = std::make_shared<UIView>(CGRectMake(0, 0, 10, 50));
  const auto footer = std::make_shared<UIView>(CGRectMake(0, 0, 10, 30));
  table_->setTableHeaderView(header);
  table_->setTableFooterView(footer);
  layout();
  EXPECT_EQ(header->frame(), CGRectMake(0, 0, 320, 50));
  EXPECT_EQ(cell(0)->frame().y(), 50);
  EXPECT_EQ(footer->frame(), CGRectMake(0, 138, 320, 30));
  table_->setTableHeaderView(nullptr);
  layout();
  EXPECT_EQ(cell(0)->frame().y(), 0);
  EXPECT_EQ(header->superview(), nullptr);
}

TEST_F(UITableViewTest, ARegisteredClassMakesWhatThereIsNoneLeftOf) {
  EXPECT_EQ(table_->dequeueReusableCellWithIdentifier("mine"), nullptr);
  table_->registerClass(
      [](const std::string& identifier) {
        return std::make_shared<UITableViewCell>(UITableViewCellStyle::kSubtitle, identifier);
      },
      "mine");
  const auto made = table_->dequeueReusableCellWithIdentifier("mine");
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->reuseIdentifier(), "mine");
}

TEST_F(UITableViewTest, TheTreeAndItsElementsReadAsTheTable) {
  source_->rows = {{"Work", "Home"}};
  layout();
  EXPECT_EQ(accessibilityDescription(*table_),
            "table\n"
            "  row \"Work\" value \"1 of 2\"\n"
            "  row \"Home\" value \"2 of 2\"\n");
}

TEST_F(UITableViewTest, ScrollingATableOnlyDrawsWhatComesIn) {
  source_->setRows(100);
  table_->setShowsVerticalScrollIndicator(false);
  layout();
  table_->setContentOffset({0, 100});
  layout();
  static_cast<void>(window_->takeDamage());
  table_->setContentOffset({0, 104});
  layout();
  const Damage damage = window_->takeDamage();
  ASSERT_EQ(damage.moves.size(), 1U);
  CGFloat drawn = 0;
  for (const CGRect& rect : damage.rects) {
    drawn += rect.width() * rect.height();
  }
  EXPECT_LE(drawn, 320 * 50);
}

TEST_F(UITableViewTest, ItsElementsAreReadFromTheTopWithTheHeadersBetweenTheRows) {
  source_->rows = {{"a"}, {"b"}};
  source_->headers = {{0, "First"}, {1, "Second"}};
  source_->indexTitles = {"A"};
  layout();
  EXPECT_EQ(accessibilityDescription(*table_),
            "table\n"
            "  header \"First\"\n"
            "  row \"a\" value \"1 of 1\"\n"
            "  header \"Second\"\n"
            "  row \"b\" value \"1 of 1\"\n"
            "  slider \"Section index\"\n");
}

TEST_F(UITableViewTest, AHundredThousandRowsCanAllBeReached) {
  source_->setRows(100000);
  layout();
  table_->scrollToRowAtIndexPath({0, 99999}, UITableViewScrollPosition::kBottom, false);
  EXPECT_EQ(shown().substr(0, 12), "99990 99991 ");
  ASSERT_NE(cell(99999), nullptr);
  EXPECT_EQ(cell(99999)->frame().maxY(), 4400000);
}

TEST_F(UITableViewTest, AShortTableHasTheLinesOfRowsThatMightFollow) {
  source_->setRows(8);
  layout();
  fake::RecordingContext context;
  test::viewOf<TableBlankRows>(*table_)->drawRect(context, CGRectMake(0, 0, 320, 88));
  EXPECT_EQ(context.countOf("fill"), 2);
  source_->setRows(12);
  table_->reloadData();
  layout();
  EXPECT_TRUE(test::viewOf<TableBlankRows>(*table_)->isHidden());
}

TEST_F(UITableViewTest, ATableWithoutADataSourceIsEmpty) {
  source_->setRows(3);
  layout();
  source_.reset();
  rules_.reset();
  table_->reloadData();
  EXPECT_EQ(shown(), "");
  EXPECT_EQ(table_->numberOfSections(), 1);
  EXPECT_EQ(table_->numberOfRowsInSection(0), 0);
}

}  // namespace
}  // namespace zephyl
