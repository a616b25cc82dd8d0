#include <algorithm>

#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

using Animation = UITableViewRowAnimation;

class UITableViewUpdatesTest : public test::TableTest {
 protected:
  UITableViewUpdatesTest() {
    source_->rows = {{"a", "b", "c"}, {"d"}};
    layout();
  }
  bool logged(const std::string& part) {
    const auto lines = device_.systemLog().lines();
    return std::any_of(lines.begin(), lines.end(), [&part](const std::string& line) {
      return line.find(part) != std::string::npos;
    });
  }
};

TEST_F(UITableViewUpdatesTest, ADeletedRowLeavesAndTheOthersMoveUpInTheirCells) {
  const auto c = cell(2);
  source_->rows[0].erase(source_->rows[0].begin() + 1);
  table_->deleteRowsAtIndexPaths({{0, 1}}, Animation::kAutomatic);
  EXPECT_EQ(cell(1), c);
  EXPECT_EQ(c->layer()->presentation().position.y, 110);
  settle();
  EXPECT_EQ(shown(), "a c d ");
  EXPECT_EQ(c->frame().y(), 44);
  EXPECT_EQ(test::viewsOf<UITableViewCell>(*table_).size(), 3U);
  EXPECT_EQ(source_->cellCalls, 4);
}

TEST_F(UITableViewUpdatesTest, AnInsertedRowFadesIn) {
  source_->rows[1].insert(source_->rows[1].begin(), "new");
  table_->insertRowsAtIndexPaths({{1, 0}}, Animation::kFade);
  EXPECT_EQ(cell(0, 1)->layer()->presentation().opacity, 0);
  EXPECT_EQ(cell(0, 1)->alpha(), 1);
  settle();
  EXPECT_EQ(shown(), "a b c new d ");
}

TEST_F(UITableViewUpdatesTest, WithoutAnimationAllIsThereAtOnce) {
  source_->rows[0].erase(source_->rows[0].begin());
  table_->deleteRowsAtIndexPaths({{0, 0}}, Animation::kNone);
  EXPECT_EQ(test::viewsOf<UITableViewCell>(*table_).size(), 3U);
  EXPECT_EQ(cell(0)->layer()->presentation().position.y, 22);
}

TEST_F(UITableViewUpdatesTest, AReloadedRowIsAskedForAnewAndTheOthersAreNot) {
  const auto before = cell(1);
  source_->rows[0][1] = "B";
  source_->cellCalls = 0;
  table_->reloadRowsAtIndexPaths({{0, 1}}, Animation::kNone);
  EXPECT_EQ(shown(), "a B c d ");
  EXPECT_EQ(source_->cellCalls, 1);
}

TEST_F(UITableViewUpdatesTest, AReloadedSectionMayChangeItsNumberOfRows) {
  source_->rows[0] = {"x", "y", "z", "w", "v"};
  table_->beginUpdates();
  table_->reloadSections({0}, Animation::kAutomatic);
  EXPECT_EQ(table_->numberOfRowsInSection(0), 3);
  table_->endUpdates();
  settle();
  EXPECT_EQ(shown(), "x y z w v d ");
  EXPECT_FALSE(logged("Invalid update"));
}

TEST_F(UITableViewUpdatesTest, SectionsComeAndGoWithTheirRows) {
  source_->rows = {{"n"}, {"d"}, {"m"}};
  table_->beginUpdates();
  table_->deleteSections({0}, Animation::kFade);
  table_->insertSections({0, 2}, Animation::kFade);
  table_->endUpdates();
  settle();
  EXPECT_EQ(shown(), "n d m ");
  EXPECT_EQ(table_->numberOfSections(), 3);
}

TEST_F(UITableViewUpdatesTest, ChangesTogetherCountDeletionsBeforeAndInsertionsAfter) {
  source_->rows[0] = {"new", "a", "c", "end"};
  table_->beginUpdates();
  table_->insertRowsAtIndexPaths({{0, 0}, {0, 3}}, Animation::kFade);
  table_->deleteRowsAtIndexPaths({{0, 1}}, Animation::kFade);
  table_->endUpdates();
  settle();
  EXPECT_EQ(shown(), "new a c end d ");
  EXPECT_FALSE(logged("Invalid update"));
}

TEST_F(UITableViewUpdatesTest, TheSelectionMovesWithItsRow) {
  table_->selectRowAtIndexPath({0, 2}, false, UITableViewScrollPosition::kNone);
  source_->rows[0].erase(source_->rows[0].begin());
  table_->deleteRowsAtIndexPaths({{0, 0}}, Animation::kNone);
  EXPECT_EQ(table_->indexPathForSelectedRow(), (NSIndexPath{0, 1}));
  source_->rows[0].erase(source_->rows[0].begin() + 1);
  table_->deleteRowsAtIndexPaths({{0, 1}}, Animation::kNone);
  EXPECT_FALSE(table_->indexPathForSelectedRow());
}

TEST_F(UITableViewUpdatesTest, WhatDoesNotAddUpIsLoggedAndReloaded) {
  source_->rows[0] = {"a"};
  table_->deleteRowsAtIndexPaths({{0, 1}}, Animation::kAutomatic);
  EXPECT_TRUE(
      logged("Invalid update of a table, which is reloaded: rows of section 0: there were "
             "3, 1 were deleted and 0 inserted, but there are 1"));
  settle();
  EXPECT_EQ(shown(), "a d ");
  table_->reloadRowsAtIndexPaths({{9, 9}}, Animation::kFade);
  table_->endUpdates();
  settle();
  EXPECT_EQ(shown(), "a d ");
}

TEST_F(UITableViewUpdatesTest, EndingTheUpdatesAloneTakesUpNewHeights) {
  rules_->rowHeight = [](const NSIndexPath& /*path*/) { return 60.0; };
  table_->beginUpdates();
  table_->endUpdates();
  settle();
  EXPECT_EQ(table_->contentSize().height, 240);
  EXPECT_EQ(cell(1)->frame().y(), 60);
}

TEST_F(UITableViewUpdatesTest, HeadersAndFootersAreMadeAnewWithoutTheRows) {
  source_->footers = {{0, "old"}};
  table_->reloadData();
  layout();
  const auto before = table_->footerViewForSection(0);
  const auto row = cell(0);
  source_->footers = {{0, "new"}};
  table_->_reloadSectionHeaderFooters({0}, Animation::kNone);
  layout();
  const auto after = table_->footerViewForSection(0);
  ASSERT_NE(after, nullptr);
  EXPECT_NE(after, before);
  EXPECT_EQ(after->accessibilityLabel(), "new");
  EXPECT_EQ(cell(0), row);
}

TEST_F(UITableViewUpdatesTest, AViewThatIsGivenOutAgainStays) {
  const auto header = std::make_shared<UIView>();
  rules_->headerHeight = [](std::int64_t section) {
    return section == 0 ? std::optional(34.0) : std::nullopt;
  };
  rules_->headerView = [header](std::int64_t section) { return section == 0 ? header : nullptr; };
  table_->reloadData();
  layout();
  table_->reloadSections({0}, Animation::kAutomatic);
  settle();
  EXPECT_EQ(header->superview(), table_.get());
  EXPECT_EQ(header->alpha(), 1);
}

TEST_F(UITableViewUpdatesTest, ATableThatWasNeverShownJustReloads) {
  const auto other = std::make_shared<UITableView>(CGRectMake(0, 0, 320, 440));
  other->setDataSource(source_);
  other->deleteRowsAtIndexPaths({{0, 0}}, Animation::kFade);
  EXPECT_EQ(other->numberOfRowsInSection(0), 3);
}

TEST_F(UITableViewUpdatesTest, UpdatesInAFewSuccessiveAnimationsEndInOrder) {
  for (int i = 0; i < 3; ++i) {
    source_->rows[0].insert(source_->rows[0].begin(), std::to_string(i));
    table_->insertRowsAtIndexPaths({{0, 0}}, Animation::kAutomatic);
    device_.uikit()->displayLink().advance(0.1);
  }
  source_->rows[0].clear();
  table_->reloadSections({0}, Animation::kAutomatic);
  settle();
  EXPECT_EQ(shown(), "d ");
  EXPECT_EQ(test::viewsOf<UITableViewCell>(*table_).size(), 1U);
}

}  // namespace
}  // namespace zephyl
