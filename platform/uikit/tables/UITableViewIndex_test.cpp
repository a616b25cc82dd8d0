#include "platform/uikit/tables/TableSectionIndex.h"
#include "platform/uikit/testing/TableFixture.h"

#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using test::touch;

class UITableViewIndexTest : public test::TableTest {
 protected:
  UITableViewIndexTest() {
    source_->rows.assign(4, std::vector<std::string>(20, "row"));
    source_->indexTitles = {UITableViewIndexSearch, "A", "B", "C", "D"};
    source_->sectionOfIndex = [](std::int64_t index) {
      return index == 0 ? NSNotFound : index - 1;
    };
    layout();
  }

  TableSectionIndex& index() { return *test::viewOf<TableSectionIndex>(*table_); }
  // The middle of an entry, in the window: 14 points a line, around the middle of the table.
  CGPoint entry(int number) { return {310, 220 - 35 + 14.0 * number + 7}; }
};

TEST_F(UITableViewIndexTest, StandsOnTheTrailingSideAndRowsMakeRoom) {
  EXPECT_EQ(index().frame(), CGRectMake(300, 0, 20, 440));
  EXPECT_EQ(cell(0)->contentView()->frame().width(), 300);
  table_->setContentOffset({0, 100});
  layout();
  EXPECT_EQ(index().frame().y(), 100);
}

TEST_F(UITableViewIndexTest, LeavesThePlaceOfTheTablesHeaderFree) {
  table_->setTableHeaderView(std::make_shared<UIView>(CGRectMake(0, 0, 320, 56)));
  layout();
  EXPECT_EQ(index().frame(), CGRectMake(300, 56, 20, 440 - 56));
  table_->setContentOffset({0, 100});
  layout();
  EXPECT_EQ(index().frame(), CGRectMake(300, 156, 20, 440 - 56));
}

TEST_F(UITableViewIndexTest, AFingerAlongItGoesToTheSections) {
  touch(*window_, UITouchPhase::kBegan, entry(2), 100);
  EXPECT_EQ(table_->contentOffset().y, 880);
  touch(*window_, UITouchPhase::kMoved, entry(3), 100.1);
  EXPECT_EQ(table_->contentOffset().y, 1760);
  touch(*window_, UITouchPhase::kMoved, {310, entry(3).y + 2}, 100.2);
  touch(*window_, UITouchPhase::kMoved, {310, 430}, 100.3);
  EXPECT_EQ(table_->contentOffset().y, 2640);
  touch(*window_, UITouchPhase::kEnded, {310, 430}, 100.4);
  EXPECT_EQ(source_->log, "index B index C index D ");
  EXPECT_FALSE(table_->isDragging());
  EXPECT_EQ(rules_->log, "");
}

TEST_F(UITableViewIndexTest, AnEntryThatLeadsNowhereIsTheDataSources) {
  table_->setContentOffset({0, 500});
  test::tap(*window_, entry(0));
  EXPECT_EQ(source_->log, "index {search} ");
  EXPECT_EQ(table_->contentOffset().y, 500);
  source_->sectionOfIndex = [](std::int64_t /*index*/) { return std::int64_t{-7}; };
  test::tap(*window_, entry(1));
  EXPECT_EQ(table_->contentOffset().y, 500);
}

TEST_F(UITableViewIndexTest, ManyTitlesAreThinnedOutWithDots) {
  source_->indexTitles.clear();
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    source_->indexTitles.emplace_back(1, letter);
  }
  table_->setFrame(CGRectMake(0, 0, 320, 140));
  table_->reloadData();
  layout();
  const auto shown = index().shownTitles();
  EXPECT_LE(shown.size(), 10U);
  EXPECT_EQ(shown.front(), "A");
  EXPECT_EQ(shown[1], "\u2022");
  EXPECT_EQ(shown.back(), "Z");
}

TEST_F(UITableViewIndexTest, TheSearchEntryIsAPictureAndTheOthersAreTexts) {
  fake::RecordingContext context;
  index().drawRect(context, index().bounds());
  EXPECT_EQ(context.texts(), (std::vector<std::string>{"A", "B", "C", "D"}));
  EXPECT_EQ(context.countOf("line"), 1);
}

TEST_F(UITableViewIndexTest, AScreenReaderGoesFromEntryToEntry) {
  EXPECT_EQ(index().accessibilityLabel(), "Section index");
  index().accessibilityIncrement();
  index().accessibilityIncrement();
  index().accessibilityIncrement();
  EXPECT_EQ(index().accessibilityValue(), "B");
  EXPECT_EQ(table_->contentOffset().y, 880);
  index().accessibilityDecrement();
  EXPECT_EQ(index().accessibilityValue(), "A");
}

TEST_F(UITableViewIndexTest, GoesWithItsTitles) {
  source_->indexTitles.clear();
  table_->reloadData();
  layout();
  EXPECT_EQ(test::viewOf<TableSectionIndex>(*table_), nullptr);
  EXPECT_EQ(cell(0)->contentView()->frame().width(), 320);
}

TEST_F(UITableViewIndexTest, StandsOnTheLeftInRightToLeftLanguages) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  table_->setNeedsLayout();
  layout();
  EXPECT_EQ(index().frame().x(), 0);
  table_->reloadData();
  layout();
  EXPECT_EQ(cell(0)->contentView()->frame().x(), 20);
}

}  // namespace
}  // namespace zephyl
