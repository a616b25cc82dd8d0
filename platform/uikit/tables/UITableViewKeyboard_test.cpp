#include "platform/uikit/testing/TableFixture.h"

namespace zephyl {
namespace {

class UITableViewKeyboardTest : public test::TableTest {
 protected:
  UITableViewKeyboardTest() {
    source_->setRows(30);
    layout();
  }
  std::int64_t focused() {
    const auto path = table_->indexPathForFocusedRow();
    return path ? path->row : -1;
  }
};

TEST_F(UITableViewKeyboardTest, ArrowsMoveTheFocusFromTheFirstVisibleRow) {
  table_->setContentOffset({0, 440});
  layout();
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_EQ(focused(), 10);
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_EQ(focused(), 11);
  EXPECT_TRUE(press(UIKey::kUp));
  EXPECT_EQ(focused(), 10);
}

TEST_F(UITableViewKeyboardTest, TheFocusedRowIsBroughtIntoSight) {
  EXPECT_TRUE(press(UIKey::kEnd));
  EXPECT_EQ(focused(), 29);
  EXPECT_EQ(table_->contentOffset().y, 30 * 44 - 440);
  EXPECT_TRUE(press(UIKey::kPageUp));
  EXPECT_EQ(focused(), 21);
  EXPECT_TRUE(press(UIKey::kHome));
  EXPECT_EQ(focused(), 0);
  EXPECT_EQ(table_->contentOffset().y, 0);
  EXPECT_TRUE(press(UIKey::kUp));
  EXPECT_EQ(focused(), 0);
}

TEST_F(UITableViewKeyboardTest, ReturnAndSpaceTapTheFocusedRowOnly) {
  EXPECT_FALSE(press(UIKey::kReturn));
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_TRUE(press(UIKey::kReturn));
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_TRUE(press(UIKey::kSpace));
  EXPECT_EQ(rules_->log, "select 0.0 deselect 0.0 select 0.1 ");
}

TEST_F(UITableViewKeyboardTest, ARingLiesAroundTheFocusedRowUntilAFingerComes) {
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_TRUE(cell(1)->accessibilityState().focused);
  EXPECT_FALSE(cell(0)->accessibilityState().focused);
  const auto ring = [this] {
    for (const auto& view : table_->subviews()) {
      if (view->layer()->state().borderWidth > 0) {
        return view;
      }
    }
    return std::shared_ptr<UIView>();
  };
  ASSERT_NE(ring(), nullptr);
  EXPECT_EQ(ring()->frame().midY(), 66);
  tapRow({0, 5});
  layout();
  EXPECT_TRUE(ring()->isHidden());
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_EQ(focused(), 5);
  EXPECT_FALSE(ring()->isHidden());
}

TEST_F(UITableViewKeyboardTest, DeleteAsksAndASecondOneDeletes) {
  source_->canEdit = [](const NSIndexPath& path) { return path.row > 0; };
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_FALSE(press(UIKey::kDelete));
  EXPECT_TRUE(press(UIKey::kDown));
  EXPECT_TRUE(press(UIKey::kBackspace));
  EXPECT_EQ(table_->indexPathForSwipedRow(), (NSIndexPath{0, 1}));
  EXPECT_EQ(source_->log, "");
  EXPECT_TRUE(press(UIKey::kEscape));
  EXPECT_FALSE(table_->indexPathForSwipedRow());
  EXPECT_TRUE(press(UIKey::kDelete));
  EXPECT_TRUE(press(UIKey::kDelete));
  EXPECT_EQ(source_->log, "delete 0.1 ");
}

TEST_F(UITableViewKeyboardTest, OtherKeysAreLeftToOthers) {
  EXPECT_FALSE(press(UIKey::kEscape));
  EXPECT_FALSE(press(UIKey::kLeft));
  EXPECT_FALSE(table_->pressesBegan({UIKey::kCharacter, "a", false, false}));
  source_->rows = {};
  table_->reloadData();
  EXPECT_FALSE(table_->handleKey({UIKey::kDown, "", false, false}));
}

TEST_F(UITableViewKeyboardTest, TabComesToTheTableAndShowsTheRow) {
  EXPECT_TRUE(window_->sendKey({UIKey::kTab, "", false, false}));
  EXPECT_TRUE(table_->isFirstResponder());
  EXPECT_EQ(focused(), 0);
  EXPECT_TRUE(window_->sendKey({UIKey::kDown, "", false, false}));
  EXPECT_EQ(focused(), 1);
}

}  // namespace
}  // namespace zephyl
