#include <algorithm>

#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

class UITableViewHeadersTest : public test::TableTest {
 protected:
  UITableViewHeadersTest() {
    source_->rows = {{"a", "b", "c", "d", "e", "f", "g", "h"}, {"i"}, {"j", "k", "l", "m", "n"}};
    source_->headers = {{0, "First"}, {2, "Third"}};
  }
};

class GroupedTableTest : public test::TableTest {
 protected:
  GroupedTableTest() : test::TableTest(UITableViewStyle::kGrouped) {
    source_->rows = {{"a", "b"}, {"c"}};
  }
};

TEST_F(UITableViewHeadersTest, ATitleStandsAboveItsRows) {
  layout();
  ASSERT_NE(table_->headerViewForSection(0), nullptr);
  EXPECT_EQ(table_->headerViewForSection(0)->frame(), CGRectMake(0, 0, 320, 28));
  EXPECT_EQ(table_->headerViewForSection(0)->accessibilityLabel(), "First");
  EXPECT_EQ(table_->headerViewForSection(0)->accessibilityRole(), UIAccessibilityRole::kHeader);
  EXPECT_EQ(table_->headerViewForSection(1), nullptr);
  EXPECT_EQ(cell(0)->frame().y(), 28);
}

TEST_F(UITableViewHeadersTest, AHeaderStaysAtTheTopUntilTheNextPushesItAway) {
  table_->setFrame(CGRectMake(0, 0, 320, 200));
  layout();
  table_->setContentOffset({0, 100});
  layout();
  EXPECT_EQ(table_->headerViewForSection(0)->frame().y(), 100);
  table_->setContentOffset({0, 360});
  layout();
  EXPECT_EQ(table_->headerViewForSection(0)->frame().y(), 8 * 44);
  table_->setContentOffset({0, 430});
  layout();
  EXPECT_EQ(table_->headerViewForSection(0), nullptr);
  EXPECT_EQ(table_->headerViewForSection(2)->frame().y(), 430);
}

TEST_F(UITableViewHeadersTest, AHeaderThatStaysIsDrawnAnewWhileTheRowsOnlyMove) {
  table_->setFrame(CGRectMake(0, 0, 320, 200));
  table_->setShowsVerticalScrollIndicator(false);
  layout();
  table_->setContentOffset({0, 100});
  layout();
  static_cast<void>(window_->takeDamage());
  table_->setContentOffset({0, 110});
  layout();
  const Damage damage = window_->takeDamage();
  ASSERT_EQ(damage.moves.size(), 1U);
  EXPECT_EQ(damage.moves[0].dy, -10);
  const bool drawn = std::any_of(damage.rects.begin(), damage.rects.end(), [](const CGRect& rect) {
    return rect.y() <= 0 && rect.maxY() >= 28 && rect.width() >= 320;
  });
  EXPECT_TRUE(drawn);
  const bool everything = std::any_of(damage.rects.begin(), damage.rects.end(),
                                      [](const CGRect& rect) { return rect.height() > 100; });
  EXPECT_FALSE(everything);
}

TEST_F(UITableViewHeadersTest, HeadersLieOverTheRows) {
  layout();
  const auto& views = table_->subviews();
  const auto header = std::find(views.begin(), views.end(), table_->headerViewForSection(0));
  const auto row = std::find(views.begin(), views.end(), cell(3));
  EXPECT_LT(row, header);
}

TEST_F(UITableViewHeadersTest, ScrollingUsesHeadersAgain) {
  source_->rows.assign(40, {"x"});
  for (std::int64_t i = 0; i < 40; ++i) {
    source_->headers[i] = "H";
  }
  layout();
  for (int offset = 0; offset < 2400; offset += 20) {
    table_->setContentOffset({0, static_cast<CGFloat>(offset)});
    layout();
  }
  EXPECT_LE(test::viewsOf<UITableViewHeaderFooterView>(*table_).size(), 9U);
}

TEST_F(UITableViewHeadersTest, TheDelegatesViewsAndHeightsGoFirst) {
  rules_->headerHeight = [](std::int64_t section) {
    return section == 1 ? std::optional(34.0) : std::optional(0.0);
  };
  const auto mine = std::make_shared<UIView>();
  rules_->headerView = [mine](std::int64_t section) { return section == 1 ? mine : nullptr; };
  layout();
  EXPECT_EQ(table_->headerViewForSection(0), nullptr);
  EXPECT_EQ(table_->headerViewForSection(1), mine);
  EXPECT_EQ(mine->frame(), CGRectMake(0, 352, 320, 34));
  rules_->viewCalls = 0;
  table_->setNeedsLayout();
  layout();
  EXPECT_EQ(rules_->viewCalls, 0);
}

TEST_F(UITableViewHeadersTest, RegisteredHeaderViewsAreMadeAndUsedAgain) {
  table_->registerHeaderFooterClass(
      [](const std::string& identifier) {
        return std::make_shared<UITableViewHeaderFooterView>(identifier);
      },
      "mine");
  const auto view = table_->dequeueReusableHeaderFooterViewWithIdentifier("mine");
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->reuseIdentifier(), "mine");
  EXPECT_EQ(table_->dequeueReusableHeaderFooterViewWithIdentifier("other"), nullptr);
}

TEST_F(GroupedTableTest, GroupsStandApartFromOneAnother) {
  layout();
  EXPECT_EQ(cell(0)->frame().y(), 35);
  EXPECT_EQ(cell(0, 1)->frame().y(), 35 + 88 + 36);
  EXPECT_EQ(cell(0)->frame().width(), 320);
  EXPECT_EQ(table_->backgroundColor(), UIColor::systemGroupedBackgroundColor());
  EXPECT_EQ(cell(0)->backgroundColor(), UIColor::secondarySystemGroupedBackgroundColor());
}

TEST_F(GroupedTableTest, LinesGoAroundAGroupAndAreIndentedInIt) {
  layout();
  EXPECT_TRUE(cell(0)->surroundings().topSeparator);
  EXPECT_FALSE(cell(0)->surroundings().endsGroup);
  EXPECT_FALSE(cell(1)->surroundings().topSeparator);
  EXPECT_TRUE(cell(1)->surroundings().endsGroup);
}

TEST_F(GroupedTableTest, AFootersTitleHasAsManyLinesAsItNeeds) {
  source_->footers = {{0, "short"}};
  layout();
  const CGFloat one = table_->rectForFooterInSection(0).height();
  std::string text;
  for (int i = 0; i < 30; ++i) {
    text += "words ";
  }
  source_->footers = {{0, text}};
  table_->reloadData();
  layout();
  EXPECT_GT(table_->rectForFooterInSection(0).height(), 2 * one);
  EXPECT_EQ(table_->footerViewForSection(0)->accessibilityRole(), UIAccessibilityRole::kStaticText);
}

TEST_F(GroupedTableTest, AViewOfTheDelegatesIsClearLikeTheTablesOwn) {
  const auto view = std::make_shared<UITableViewHeaderFooterView>("mine");
  rules_->footerView = [view](std::int64_t section) { return section == 0 ? view : nullptr; };
  layout();
  EXPECT_EQ(view->superview(), table_.get());
  EXPECT_EQ(view->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(view->textLabel()->font().pointSize(), 13);
}

TEST_F(GroupedTableTest, HeightsWithoutAViewAreRoomAndAskedForOnce) {
  rules_->footerHeight = [](std::int64_t /*section*/) { return std::optional(100.0); };
  layout();
  EXPECT_EQ(table_->rectForFooterInSection(0).height(), 100);
  EXPECT_EQ(table_->footerViewForSection(0), nullptr);
  const int calls = rules_->viewCalls;
  table_->setContentOffset({0, 1});
  layout();
  EXPECT_EQ(rules_->viewCalls, calls);
}

}  // namespace
}  // namespace zephyl
