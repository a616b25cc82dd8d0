// Data sources that answer nonsense, or act in the middle of a question.

#include <limits>

#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

class UITableViewHostileTest : public test::TableTest {};

class Nonsense : public UITableViewDataSource, public UITableViewDelegate {
 public:
  std::int64_t numberOfSectionsInTableView(UITableView& /*tableView*/) override { return sections; }
  std::int64_t numberOfRowsInSection(UITableView& /*tableView*/,
                                     std::int64_t /*section*/) override {
    return rows;
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& /*tableView*/,
                                                         const NSIndexPath& /*path*/) override {
    return cell;
  }
  std::optional<CGFloat> heightForRowAtIndexPath(UITableView& /*tableView*/,
                                                 const NSIndexPath& /*path*/) override {
    return height;
  }

  std::int64_t sections = 1;
  std::int64_t rows = 3;
  std::shared_ptr<UITableViewCell> cell;
  std::optional<CGFloat> height;
};

TEST_F(UITableViewHostileTest, CountsBelowNothingAreNothing) {
  const auto nonsense = std::make_shared<Nonsense>();
  nonsense->sections = -3;
  table_->setDataSource(nonsense);
  layout();
  EXPECT_EQ(table_->numberOfSections(), 0);
  nonsense->sections = 2;
  nonsense->rows = std::numeric_limits<std::int64_t>::min();
  table_->reloadData();
  layout();
  EXPECT_EQ(table_->numberOfRowsInSection(1), 0);
}

TEST_F(UITableViewHostileTest, ARowWithoutACellIsEmpty) {
  const auto nonsense = std::make_shared<Nonsense>();
  table_->setDataSource(nonsense);
  layout();
  ASSERT_NE(cell(2), nullptr);
  EXPECT_EQ(cell(2)->textLabel()->text(), "");
}

TEST_F(UITableViewHostileTest, ACellThatIsGivenOutTwiceIsTheLastRows) {
  const auto nonsense = std::make_shared<Nonsense>();
  nonsense->cell = std::make_shared<UITableViewCell>();
  table_->setDataSource(nonsense);
  layout();
  EXPECT_EQ(test::viewsOf<UITableViewCell>(*table_).size(), 1U);
}

TEST_F(UITableViewHostileTest, HeightsThatAreNoneAreNothing) {
  const auto nonsense = std::make_shared<Nonsense>();
  table_->setDataSource(nonsense);
  table_->setDelegate(nonsense);
  nonsense->height = std::numeric_limits<CGFloat>::quiet_NaN();
  layout();
  EXPECT_EQ(table_->contentSize().height, 0);
  nonsense->height = -50;
  table_->reloadData();
  layout();
  EXPECT_EQ(table_->contentSize().height, 0);
  nonsense->height = 1e300;
  table_->reloadData();
  layout();
  EXPECT_TRUE(table_->contentSize().height > 0);
}

TEST_F(UITableViewHostileTest, ReloadingInTheMiddleOfAQuestionHappensAfterwards) {
  source_->setRows(5);
  int times = 0;
  source_->meanwhile = [this, &times](UITableView& table) {
    if (++times == 2) {
      source_->rows = {{"a", "b", "c", "d", "e"}};
      table.reloadData();
      EXPECT_EQ(table.numberOfRowsInSection(0), 5);
    }
  };
  EXPECT_EQ(shown(), "a b c d e ");
}

TEST_F(UITableViewHostileTest, ReloadingAtEveryQuestionEnds) {
  source_->setRows(5);
  source_->meanwhile = [](UITableView& table) { table.reloadData(); };
  layout();
  EXPECT_LT(source_->cellCalls, 1000);
}

TEST_F(UITableViewHostileTest, AskingTheTableInTheMiddleOfAQuestionIsAnswered) {
  source_->setRows(5);
  source_->meanwhile = [](UITableView& table) {
    static_cast<void>(table.cellForRowAtIndexPath({0, 0}));
    static_cast<void>(table.indexPathsForVisibleRows());
    table.layoutIfNeeded();
    table.beginUpdates();
    table.deleteRowsAtIndexPaths({{0, 0}}, UITableViewRowAnimation::kFade);
    table.endUpdates();
  };
  layout();
  source_->meanwhile = nullptr;
  EXPECT_EQ(shown(), "0 1 2 3 4 ");
}

TEST_F(UITableViewHostileTest, TheTableMayBeTakenAwayByARowThatIsTapped) {
  source_->setRows(5);
  rules_->selected = [this](UITableView& table, const NSIndexPath& /*path*/) {
    table.removeFromSuperview();
    table_.reset();
  };
  layout();
  const std::weak_ptr<UITableView> watched = table_;
  tapRow({0, 1});
  EXPECT_TRUE(watched.expired());
  EXPECT_EQ(rules_->log, "select 0.1 ");
}

TEST_F(UITableViewHostileTest, ATapOnARowThatIsGoneDoesNothing) {
  source_->setRows(5);
  layout();
  source_->setRows(2);
  table_->reloadData();
  tapRow({0, 4});
  EXPECT_EQ(rules_->log, "");
}

TEST_F(UITableViewHostileTest, ATableWithoutAnyRoomShowsNothing) {
  source_->setRows(5);
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  for (const CGRect& frame :
       {CGRectMake(0, 0, 0, 0), CGRectMake(0, 0, -5, 100), CGRectMake(kNaN, 0, kNaN, kNaN)}) {
    table_->setFrame(frame);
    layout();
    layout();
  }
  table_->setFrame(CGRectMake(0, 0, 320, 440));
  EXPECT_EQ(shown(), "0 1 2 3 4 ");
}

}  // namespace
}  // namespace zephyl
