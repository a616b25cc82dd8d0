// Deleting groups in the list: by marking them, and by swiping.

#include <string>
#include <vector>

#include "platform/uikit/controls/UIActivityIndicatorView.h"

#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Item = UIBarButtonSystemItem;
using Style = UITableViewCellEditingStyle;

class GroupListEditingTest : public test::GroupListTest {
 protected:
  void startSome(const std::string& version = "14.0") {
    start(version, {system(1, "All"), locked(2, "A"), locked(3, "B"), locked(4, "C"),
                    GroupBuilder(5, "D"), GroupBuilder(6, "E")});
    present(ZephylsModeManage);
  }
  void edit() {
    press(right());
    ASSERT_TRUE(table().isEditing());
  }
  void mark(const std::vector<std::int64_t>& rows) {
    for (const std::int64_t row : rows) {
      tapRow({1, row});
    }
  }
  // Runs the deletion up to the moment at which the store has done its part.
  void startDeleting() {
    EXPECT_TRUE(right().performAction());
    device_.dispatch().runGlobal();
  }
  void swipeAway(std::int64_t row) {
    screen_->commitEditingStyle(table(), Style::kDelete, {1, row});
  }
  std::string reason() { return device_.authentication().reason(); }
};

TEST_F(GroupListEditingTest, EditMarksRowsAndChangesTheBar) {
  startSome();
  edit();
  EXPECT_TRUE(screen_->isInEditing());
  ASSERT_EQ(bar().rightBarButtonItems().size(), 1U);
  EXPECT_EQ(right().title(), "Delete");
  EXPECT_EQ(right().style(), UIBarButtonItemStyle::kDone);
  EXPECT_FALSE(right().isEnabled());
  EXPECT_EQ(left().systemItem(), Item::kDone);
}

TEST_F(GroupListEditingTest, DoneLeavesEditing) {
  startSome();
  edit();
  press(left());
  EXPECT_FALSE(table().isEditing());
  EXPECT_FALSE(screen_->isInEditing());
  EXPECT_EQ(right().systemItem(), Item::kEdit);
  EXPECT_EQ(left().systemItem(), Item::kCancel);
  EXPECT_FALSE(isClosed());
}

TEST_F(GroupListEditingTest, LeavingEditingGivesAPushedScreenACancelButton) {
  start("14.0", {system(1, "All"), GroupBuilder(2, "A")});
  const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
  screen->setZephylsMode(ZephylsModeManage);
  screen->setIsViewPushed(true);
  present(screen);
  EXPECT_TRUE(bar().leftBarButtonItems().empty());
  edit();
  press(left());
  EXPECT_EQ(left().systemItem(), Item::kCancel);
}

TEST_F(GroupListEditingTest, CancelWhileEditingOnlyLeavesEditing) {
  startSome();
  edit();
  screen_->cancelButtonAction();
  settle();
  EXPECT_FALSE(table().isEditing());
  EXPECT_FALSE(isClosed());
}

TEST_F(GroupListEditingTest, TheSecondSectionCanBeEditedTheFirstCannot) {
  startSome();
  EXPECT_FALSE(screen_->canEditRowAtIndexPath(table(), {0, 0}));
  EXPECT_TRUE(screen_->canEditRowAtIndexPath(table(), {1, 0}));
  EXPECT_EQ(screen_->editingStyleForRowAtIndexPath(table(), {0, 0}), Style::kNone);
  EXPECT_EQ(screen_->editingStyleForRowAtIndexPath(table(), {1, 0}), Style::kDelete);
  edit();
  EXPECT_EQ(screen_->editingStyleForRowAtIndexPath(table(), {0, 0}), Style::kNone);
  EXPECT_EQ(screen_->editingStyleForRowAtIndexPath(table(), {1, 0}), Style::kMultiSelect);
}

TEST_F(GroupListEditingTest, UserGroupsAloneCannotBeEdited) {
  start("14.0", {GroupBuilder(2, "A")});
  present(ZephylsModeManage);
  EXPECT_FALSE(screen_->canEditRowAtIndexPath(table(), {0, 0}));
}

TEST_F(GroupListEditingTest, BrowsingNothingCanBeEdited) {
  start("14.0", {system(1, "All"), GroupBuilder(2, "A")});
  present(ZephylsModeBrowse);
  EXPECT_FALSE(screen_->canEditRowAtIndexPath(table(), {1, 0}));
}

TEST_F(GroupListEditingTest, DeleteIsEnabledWhileARowIsMarked) {
  startSome();
  edit();
  mark({3});
  EXPECT_TRUE(right().isEnabled());
  mark({4});
  mark({3});
  EXPECT_TRUE(right().isEnabled());
  mark({4});
  EXPECT_FALSE(right().isEnabled());
}

TEST_F(GroupListEditingTest, MarkedGroupsAreDeletedInOneSave) {
  startSome();
  edit();
  mark({4, 3});
  press(right());
  EXPECT_EQ(titles(1), (Words{"A", "B", "C"}));
  EXPECT_EQ(stored(5), nullptr);
  EXPECT_EQ(alert(), nullptr);
  EXPECT_FALSE(table().isEditing());
  EXPECT_EQ(right().systemItem(), Item::kEdit);
}

TEST_F(GroupListEditingTest, ABusyBoxIsShownBeforeTheStoreIsAsked) {
  for (const char* version : {"11.4", "14.0"}) {
    startSome(version);
    edit();
    mark({3});
    bool wasShown = false;
    std::string text;
    NSNotificationCenter::defaultCenter()->addObserver(&text, kZephylDeletedNotification,
                                                       [&](const NSNotification&) {
                                                         const auto box = alert();
                                                         wasShown = box != nullptr;
                                                         text = wasShown ? box->message() : "";
                                                       });
    startDeleting();
    NSNotificationCenter::defaultCenter()->removeObserver(&text);
    EXPECT_TRUE(wasShown) << version;
    EXPECT_EQ(text, "Deleting\nPlease wait...\n\n\n") << version;
    ASSERT_NE(alert(), nullptr);
    EXPECT_NE(test::viewOf<UIActivityIndicatorView>(*alert()->view()), nullptr);
    settle();
    EXPECT_EQ(alert(), nullptr) << version;
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListEditingTest, AFailureIsToldAfterTheBusyBoxAndEditingEnds) {
  startSome();
  edit();
  mark({3});
  failSaves();
  press(right());
  EXPECT_EQ(alertText(), "Error: Unable to remove and save groups to disk.");
  answerAlert();
  EXPECT_EQ(alert(), nullptr);
  EXPECT_FALSE(table().isEditing());
  EXPECT_FALSE(isClosed());
}

TEST_F(GroupListEditingTest, WithoutBiometricsDeleteDeletesNothing) {
  for (const char* version : {"6.0", "8.4", "9.0", "11.4", "12.0", "14.0"}) {
    startSome(version);
    device_.authentication().setAvailable(false);
    edit();
    mark({0, 3});
    press(right());
    EXPECT_EQ(titles(1).size(), 5U) << version;
    EXPECT_FALSE(table().isEditing()) << version;
    EXPECT_EQ(alert(), nullptr) << version;
    device_.authentication().setAvailable(true);
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListEditingTest, OneProtectedGroupIsNamed) {
  startSome();
  edit();
  mark({0, 3});
  press(right());
  EXPECT_EQ(reason(), "Group 'A' is protected. Please authenticate uisng your finger print.");
  EXPECT_EQ(titles(1).size(), 5U);
  answerFinger(/*success=*/true);
  EXPECT_EQ(titles(1), (Words{"B", "C", "E"}));
}

TEST_F(GroupListEditingTest, SeveralProtectedGroupsAreNamedInTheOrderOfTheRows) {
  startSome();
  edit();
  mark({2, 1});
  EXPECT_TRUE(right().performAction());
  EXPECT_EQ(reason(),
            "Groups 'B and C' are protected. Please authenticate uisng your finger print.");
  cancelFinger();
  mark({0});
  EXPECT_TRUE(right().performAction());
  EXPECT_EQ(reason(),
            "Groups 'A, B and C' are protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupListEditingTest, ACancelledCheckLeavesTheMarksAsTheyAre) {
  startSome();
  edit();
  mark({0});
  press(right());
  cancelFinger();
  EXPECT_EQ(alert(), nullptr);
  EXPECT_TRUE(table().isEditing());
  EXPECT_EQ(table().indexPathsForSelectedRows().size(), 1U);
  EXPECT_EQ(titles(1).size(), 5U);
}

TEST_F(GroupListEditingTest, AFailedCheckIsTold) {
  startSome();
  edit();
  mark({0});
  press(right());
  answerFinger(/*success=*/false);
  EXPECT_EQ(alertText(), "Error: Unable to verify your identity.");
  EXPECT_EQ(titles(1).size(), 5U);
}

TEST_F(GroupListEditingTest, SwipingDeletesWithoutABusyBox) {
  startSome();
  swipeAway(3);
  EXPECT_EQ(stored(5), nullptr);
  EXPECT_EQ(alert(), nullptr);
  settle();
  EXPECT_EQ(titles(1), (Words{"A", "B", "C", "E"}));
}

TEST_F(GroupListEditingTest, SwipingDeletesWithoutBiometricsToo) {
  startSome();
  device_.authentication().setAvailable(false);
  swipeAway(0);
  EXPECT_EQ(stored(2), nullptr);
}

TEST_F(GroupListEditingTest, SwipingAProtectedGroupAsksForTheFingerFirst) {
  startSome();
  swipeAway(0);
  EXPECT_EQ(reason(), "Group 'A' is protected. Please authenticate uisng your finger print.");
  EXPECT_NE(stored(2), nullptr);
  answerFinger(/*success=*/true);
  EXPECT_EQ(stored(2), nullptr);
  EXPECT_EQ(titles(1), (Words{"B", "C", "D", "E"}));
}

TEST_F(GroupListEditingTest, ASwipeThatCannotBeSavedIsTold) {
  startSome("11.4");
  failSaves();
  swipeAway(3);
  settle();
  EXPECT_EQ(alertText(), "Error: Unable to remove and save groups to disk.");
}

TEST_F(GroupListEditingTest, AScreenThatIsClosedWhileItDeletesIsLetGo) {
  startSome();
  edit();
  mark({3});
  EXPECT_TRUE(right().performAction());
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  below_->dismissViewControllerAnimated(/*animated=*/false);
  animate();
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  settle();
  EXPECT_EQ(stored(5), nullptr);
}

}  // namespace
}  // namespace zephyl
