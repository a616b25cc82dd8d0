// The list of groups while something is under way: a finger is awaited, groups are deleted, or the
// list is made anew while rows are marked.

#include <vector>

#include "ui/editor/ZephylViewController.h"
#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Item = UIBarButtonSystemItem;

class GroupListWaitingTest : public test::GroupListTest {
 protected:
  void manageSome() {
    start("14.0", {system(1, "All"), locked(2, "A"), locked(3, "B"), GroupBuilder(5, "D"),
                   GroupBuilder(6, "E")});
    present(ZephylsModeManage);
  }
  void edit() { press(right()); }
  void mark(const std::vector<std::int64_t>& rows) {
    for (const std::int64_t row : rows) {
      tapRow({1, row});
    }
  }
  Words marked() {
    Words titles;
    for (const NSIndexPath& path : table().indexPathsForSelectedRows()) {
      titles.push_back(titleOf(path));
    }
    return titles;
  }
  [[nodiscard]] std::size_t screensInStack() const {
    return screen_->navigationController()->viewControllers().size();
  }
  [[nodiscard]] bool isAsked() { return device_.authentication().isWaiting(); }
};

TEST_F(GroupListWaitingTest, AProtectedGroupTappedTwiceIsAskedForAndOpenedOnce) {
  manageSome();
  tapRow({1, 0});
  tapRow({1, 0});
  answerFinger(/*success=*/true);
  EXPECT_FALSE(isAsked());
  EXPECT_EQ(screensInStack(), 2U);
}

TEST_F(GroupListWaitingTest, AGroupCanBeOpenedAfterACancelledAndAfterAFailedCheck) {
  manageSome();
  tapRow({1, 0});
  cancelFinger();
  tapRow({1, 0});
  answerFinger(/*success=*/false);
  answerAlert();
  tapRow({1, 0});
  answerFinger(/*success=*/true);
  EXPECT_EQ(screensInStack(), 2U);
}

TEST_F(GroupListWaitingTest, AnUnprotectedGroupTappedTwiceIsOpenedOnce) {
  manageSome();
  touchRow({1, 2});
  touchRow({1, 2});
  settle();
  EXPECT_EQ(screensInStack(), 2U);
}

TEST_F(GroupListWaitingTest, AFingerThatComesWhenAnotherGroupIsOpenOpensNothing) {
  manageSome();
  tapRow({1, 0});
  tapRow({1, 2});
  answerFinger(/*success=*/true);
  ASSERT_EQ(screensInStack(), 2U);
  EXPECT_EQ(screen_->navigationController()->topViewController()->title(), "D");
}

TEST_F(GroupListWaitingTest, AFingerThatComesWhenANewGroupIsBeingMadeOpensNothing) {
  manageSome();
  tapRow({1, 0});
  screen_->addGroupAction();
  settle();
  answerFinger(/*success=*/true);
  EXPECT_EQ(screensInStack(), 1U);
}

TEST_F(GroupListWaitingTest, DeletePressedTwiceAsksAndDeletesOnce) {
  manageSome();
  edit();
  mark({0, 2});
  EXPECT_TRUE(right().performAction());
  EXPECT_TRUE(right().performAction());
  answerFinger(/*success=*/true);
  EXPECT_FALSE(isAsked());
  EXPECT_EQ(titles(1), (Words{"B", "E"}));
  EXPECT_EQ(right().systemItem(), Item::kEdit);
}

TEST_F(GroupListWaitingTest, DeleteOfUnprotectedGroupsPressedTwiceSavesOnce) {
  manageSome();
  edit();
  mark({2});
  int posted = 0;
  NSNotificationCenter::defaultCenter()->addObserver(
      &posted, kZephylDeletedNotification, [&posted](const NSNotification&) { ++posted; });
  EXPECT_TRUE(right().performAction());
  EXPECT_TRUE(right().performAction());
  settle();
  NSNotificationCenter::defaultCenter()->removeObserver(&posted);
  EXPECT_EQ(posted, 1);
  EXPECT_FALSE(table().isEditing());
}

TEST_F(GroupListWaitingTest, DeletingEndsEditingAndNeverBeginsIt) {
  manageSome();
  edit();
  mark({0});
  EXPECT_TRUE(right().performAction());
  press(left());
  ASSERT_FALSE(table().isEditing());
  answerFinger(/*success=*/true);
  EXPECT_EQ(stored(2), nullptr);
  EXPECT_FALSE(table().isEditing());
  EXPECT_EQ(right().systemItem(), Item::kEdit);
}

TEST_F(GroupListWaitingTest, DonePressedTwiceAsksAndAddsOnce) {
  start("14.0", {system(1, "All"), locked(2, "A")});
  present(std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain,
                                                  fake::chat("SMS;-;bob", {fake::known(1)})));
  tapRow({0, 0});
  EXPECT_TRUE(right().performAction());
  EXPECT_TRUE(right().performAction());
  answerFinger(/*success=*/true);
  EXPECT_FALSE(isAsked());
  EXPECT_EQ(membersOf(stored(2)), std::vector<Member>{"SMS;-;bob"});
  EXPECT_TRUE(isClosed());
}

// Kept: nothing is collected then; the store is asked all the same.
TEST_F(GroupListWaitingTest, WithoutBiometricsTheUnchangedGroupsAreSavedAndPosted) {
  manageSome();
  device_.authentication().setAvailable(false);
  edit();
  mark({2});
  int posted = 0;
  NSNotificationCenter::defaultCenter()->addObserver(
      &posted, kZephylDeletedNotification, [&posted](const NSNotification&) { ++posted; });
  const std::size_t before = device_.messagingCenter().sent().size();
  press(right());
  NSNotificationCenter::defaultCenter()->removeObserver(&posted);
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(device_.messagingCenter().sent().size(), before + 1);
  EXPECT_EQ(titles(1).size(), 4U);
}

TEST_F(GroupListWaitingTest, EditTakesEffectOnTheMainQueue) {
  manageSome();
  EXPECT_TRUE(right().performAction());
  EXPECT_FALSE(table().isEditing());
  device_.dispatch().runMain();
  EXPECT_TRUE(table().isEditing());
}

TEST_F(GroupListWaitingTest, AGroupThatIsSwipedAwayGoesOnTheMainQueueAfterTheCheck) {
  manageSome();
  screen_->commitEditingStyle(table(), UITableViewCellEditingStyle::kDelete, {1, 0});
  device_.authentication().answer(/*success=*/true);
  EXPECT_NE(stored(2), nullptr);
  device_.dispatch().runMain();
  EXPECT_EQ(stored(2), nullptr);
}

TEST_F(GroupListWaitingTest, ACheckThatFailsWhileSwipingIsToldAndDeletesNothing) {
  manageSome();
  screen_->commitEditingStyle(table(), UITableViewCellEditingStyle::kDelete, {1, 0});
  cancelFinger();
  EXPECT_EQ(alert(), nullptr);
  screen_->commitEditingStyle(table(), UITableViewCellEditingStyle::kDelete, {1, 0});
  answerFinger(/*success=*/false);
  EXPECT_EQ(alertText(), "Error: Unable to verify your identity.");
  EXPECT_NE(stored(2), nullptr);
}

TEST_F(GroupListWaitingTest, MarksStayWithTheirGroupsWhenTheListIsMadeAnew) {
  manageSome();
  edit();
  mark({1, 2});
  store()->deleteZephyl(stored(2), nullptr, nullptr);
  settle();
  EXPECT_EQ(marked(), (Words{"B", "D"}));
  EXPECT_TRUE(cell({1, 0})->isSelected());
  EXPECT_TRUE(right().isEnabled());
}

TEST_F(GroupListWaitingTest, DeleteIsDisabledWhenTheLastMarkedGroupIsGone) {
  manageSome();
  edit();
  mark({2});
  store()->deleteZephyl(stored(5), nullptr, nullptr);
  settle();
  EXPECT_TRUE(marked().empty());
  EXPECT_TRUE(table().isEditing());
  EXPECT_FALSE(right().isEnabled());
}

TEST_F(GroupListWaitingTest, AGroupThatComesIntoTheFirstSectionLosesItsMark) {
  manageSome();
  edit();
  mark({2});
  store()->allZephyls()->removeAt(0);
  screen_->updateTableView();
  settle();
  EXPECT_TRUE(marked().empty());
  EXPECT_FALSE(right().isEnabled());
}

TEST_F(GroupListWaitingTest, ARebuildLeavesTheButtonsAloneWhileNothingIsMarked) {
  manageSome();
  screen_->updateTableView();
  settle();
  EXPECT_EQ(right().systemItem(), Item::kEdit);
  EXPECT_TRUE(right().isEnabled());
}

}  // namespace
}  // namespace zephyl
