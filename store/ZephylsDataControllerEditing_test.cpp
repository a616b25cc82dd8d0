// What each edit changes, saves, posts and says when all goes well.

#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "store/EditingTest.h"

namespace zephyl {
namespace {

using test::EditingTest;
using test::GroupBuilder;

TEST_F(EditingTest, AnAddedGroupIsTheGivenObjectAtTheEnd) {
  putGroups({GroupBuilder(1, "A")});
  const auto group = made(GroupBuilder(2, "B"));
  store()->addZephyl(group, success(), failure());
  EXPECT_EQ(store()->allZephyls()->snapshot()->back(), group);
  EXPECT_EQ(storedTitles(), (Titles{"A", "B"}));
  EXPECT_EQ(saves(), 1);
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, AnAdditionIsPostedWithTheGroup) {
  watch("com.vantor.ZephylAddedNotification");
  const auto group = made(GroupBuilder(2, "B"));
  store()->addZephyl(group, success(), failure());
  EXPECT_EQ(carried(), group);
  EXPECT_EQ(posted(), Words{"com.vantor.ZephylAddedNotification"});
  EXPECT_FALSE(group->updatedDate().has_value());
}

TEST_F(EditingTest, TwoGroupsMayHaveTheSameTitle) {
  putGroups({GroupBuilder(1, "A")});
  store()->addZephyl(made(GroupBuilder(2, "A")), success(), failure());
  EXPECT_EQ(storedTitles(), (Titles{"A", "A"}));
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, AnUpdatePutsTheGivenObjectInThePlaceOfTheStoredOne) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B"), GroupBuilder(3, "C")});
  const auto group = made(GroupBuilder(2, "New"));
  watch("com.vantor.ZephylChangedNotification");
  store()->updateZephyl(group, success(), failure());
  EXPECT_EQ(store()->allZephyls()->snapshot()->at(1), group);
  EXPECT_EQ(storedTitles(), (Titles{"A", "New", "C"}));
  EXPECT_EQ(saves(), 1);
  EXPECT_EQ(carried(), group);
  EXPECT_EQ(posted(), Words{"com.vantor.ZephylChangedNotification"});
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, AnUpdateIsStampedByTheClockAndSavedSo) {
  putGroups({GroupBuilder(1, "A")});
  const auto group = made(GroupBuilder(1, "A"));
  store()->updateZephyl(group, success(), failure());
  EXPECT_EQ(group->updatedDate(), Date::since1970(kNow));
  EXPECT_EQ((*stored().at(0).ifDictionary())["updatedDate"], Value(Date::since1970(kNow)));
}

// Kept: the flag is ignored.
TEST_F(EditingTest, AnUpdateIsPostedWhateverTheFlagSays) {
  putGroups({GroupBuilder(1, "A")});
  for (const bool flag : {false, true}) {
    notifications_.clear();
    watch(kZephylChangedNotification);
    store()->updateZephyl(made(GroupBuilder(1, "A")), flag, success(), failure());
    EXPECT_EQ(notifications_.size(), 1U) << flag;
    NSNotificationCenter::defaultCenter()->removeObserver(this);
  }
  EXPECT_EQ(posted().size(), 2U);
}

TEST_F(EditingTest, OfTwoGroupsWithOneIdentifierTheFirstIsUpdatedOrDeleted) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "first"), GroupBuilder(2, "second")});
  store()->updateZephyl(made(GroupBuilder(2, "New")), success(), failure());
  EXPECT_EQ(listed(), (Titles{"A", "New", "second"}));
  store()->deleteZephyl(made(GroupBuilder(2, "")), success(), failure());
  EXPECT_EQ(listed(), (Titles{"A", "second"}));
  EXPECT_EQ(storedTitles(), listed());
}

TEST_F(EditingTest, SeveralUpdatesEachSaveAndPostAndCallBack) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B")});
  watch(kZephylChangedNotification);
  store()->updateZephyls(
      {made(GroupBuilder(1, "new A")), made(GroupBuilder(9, "?")), made(GroupBuilder(2, "new B"))},
      success(), failure());
  EXPECT_EQ(log_, (Words{"success", "failure", "success"}));
  EXPECT_EQ(saves(), 2);
  EXPECT_EQ(notifications_.size(), 2U);
  EXPECT_EQ(posted().size(), 2U);
  EXPECT_EQ(storedTitles(), (Titles{"new A", "new B"}));
}

TEST_F(EditingTest, NoUpdatesDoNothing) {
  putGroups({GroupBuilder(1, "A")});
  store()->updateZephyls({}, success(), failure());
  EXPECT_EQ(log_, Words());
  EXPECT_EQ(saves(), 0);
}

TEST_F(EditingTest, ADeletedGroupGoesAndTheGivenObjectIsStampedAndPosted) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B"), GroupBuilder(3, "C")});
  const auto group = made(GroupBuilder(2, "another record"));
  watch("com.vantor.ZephylDeletedNotification");
  store()->deleteZephyl(group, success(), failure());
  EXPECT_EQ(listed(), (Titles{"A", "C"}));
  EXPECT_EQ(storedTitles(), (Titles{"A", "C"}));
  EXPECT_EQ(saves(), 1);
  EXPECT_EQ(group->updatedDate(), Date::since1970(kNow));
  EXPECT_EQ(carried(), group);
  EXPECT_EQ(posted(), Words{"com.vantor.ZephylDeletedNotification"});
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, ThePictureOfADeletedGroupStays) {
  const std::string picture = std::string(kGroupPicturesDirectory) + "/2.png";
  device_.files().put(picture, "picture");
  putGroups({GroupBuilder(2, "B").with(keys::kHeaderImagePath, "2.png")});
  store()->deleteZephyl(store()->allZephyls()->snapshot()->front(), success(), failure());
  EXPECT_EQ(device_.files().contentsAtPath(picture), "picture");
}

TEST_F(EditingTest, SeveralGroupsAreDeletedInOneSaveWithAllThatEqualThem) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B"), GroupBuilder(2, "B again"),
             GroupBuilder(3, "C"), GroupBuilder(4, "D")});
  const auto b = made(GroupBuilder(2, ""));
  watch("com.vantor.ZephylDeletedNotification");
  store()->deleteZephyls({b, made(GroupBuilder(9, "?")), made(GroupBuilder(4, ""))}, success(),
                         failure());
  EXPECT_EQ(listed(), (Titles{"A", "C"}));
  EXPECT_EQ(storedTitles(), (Titles{"A", "C"}));
  EXPECT_EQ(saves(), 1);
  EXPECT_FALSE(b->updatedDate().has_value());
  EXPECT_EQ(carried(), nullptr);
  EXPECT_EQ(posted(), Words{"com.vantor.ZephylDeletedNotification"});
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, DeletingNothingSavesAndPostsAllTheSame) {
  putGroups({GroupBuilder(1, "A")});
  watch(kZephylDeletedNotification);
  store()->deleteZephyls({}, success(), failure());
  EXPECT_EQ(storedTitles(), Titles{"A"});
  EXPECT_EQ(saves(), 1);
  EXPECT_EQ(carried(), nullptr);
  EXPECT_EQ(log_, Words{"success"});
}

TEST_F(EditingTest, AllGroupsCanBeDeletedByTheStoresOwnList) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B")});
  store()->deleteZephyls(*store()->allZephyls()->snapshot(), success(), failure());
  EXPECT_TRUE(store()->allZephyls()->empty());
  EXPECT_EQ(stored(), Array());
}

TEST_F(EditingTest, EveryEnabledGroupLoadsItsConversationsSystemGroupsIncluded) {
  putGroups({GroupBuilder(1, "Active").active(), GroupBuilder(2, "All").system(1),
             GroupBuilder(3, "Off").disabled(), GroupBuilder(4, "Off").disabled().active()});
  device_.conversationList().setConversations({fake::chat("a", {fake::known(1)})});
  const auto groups = *store()->allZephyls()->snapshot();
  groups[0]->setConversations(nullptr);
  store()->addZephyl(made(GroupBuilder(5, "New")), success(), failure());
  EXPECT_NE(groups[0]->conversations(), nullptr);
  EXPECT_EQ(groups[1]->conversations(), nullptr);
  device_.dispatch().runGlobal();
  EXPECT_NE(groups[1]->conversations(), nullptr);
  EXPECT_EQ(groups[2]->conversations(), nullptr);
  EXPECT_EQ(groups[3]->conversations(), nullptr);
  EXPECT_NE(store()->allZephyls()->snapshot()->back()->conversations(), nullptr);
}

TEST_F(EditingTest, LoadsComeBeforeTheSaveAndTheNotificationsBeforeTheCallback) {
  struct Edit {
    const char* notification;
    std::function<void()> run;
    int loadsBehind;
  };
  const auto add = [&] {
    store()->addZephyl(made(GroupBuilder(3, "C")), lateSuccess(), failure());
  };
  const auto update = [&] {
    store()->updateZephyl(made(GroupBuilder(1, "A").active()), lateSuccess(), failure());
  };
  const auto remove = [&] {
    store()->deleteZephyl(made(GroupBuilder(2, "B")), lateSuccess(), failure());
  };
  const auto removeSeveral = [&] { store()->deleteZephyls({}, lateSuccess(), failure()); };
  for (const Edit& edit :
       {Edit{kZephylAddedNotification, add, 2}, Edit{kZephylChangedNotification, update, 1},
        Edit{kZephylDeletedNotification, remove, 0},
        Edit{kZephylDeletedNotification, removeSeveral, 1}}) {
    startWith({GroupBuilder(1, "A").active(), GroupBuilder(2, "B").system(1)});
    answerSavesByMessage(/*saved=*/true, edit.notification);
    edit.run();
    EXPECT_EQ(log_, (Words{"save after 1 load here and " + std::to_string(edit.loadsBehind),
                           "posted here after 0 everywhere", "success after 1 everywhere"}));
    device_.dispatch().runGlobal();
  }
}

TEST_F(EditingTest, CallbacksAreCalledBeforeTheEditReturnsAndMayBeMissing) {
  putGroups({GroupBuilder(1, "A")});
  store()->addZephyl(made(GroupBuilder(2, "B")), nullptr, nullptr);
  store()->updateZephyl(made(GroupBuilder(2, "B")), nullptr, nullptr);
  store()->deleteZephyl(made(GroupBuilder(2, "B")), nullptr, nullptr);
  store()->deleteZephyls({made(GroupBuilder(1, "A"))}, nullptr, nullptr);
  EXPECT_EQ(saves(), 4);
  EXPECT_TRUE(store()->allZephyls()->empty());
}

TEST_F(EditingTest, ANameExistsWhenSomeGroupHasExactlyThatTitle) {
  putGroups({GroupBuilder(1, "All").system(1), GroupBuilder(2, "Work").disabled()});
  EXPECT_TRUE(store()->isZephylNameAlreadyExists("All"));
  EXPECT_TRUE(store()->isZephylNameAlreadyExists("Work"));
  EXPECT_FALSE(store()->isZephylNameAlreadyExists("work"));
  EXPECT_FALSE(store()->isZephylNameAlreadyExists(" Work"));
  EXPECT_FALSE(store()->isZephylNameAlreadyExists("Wor"));
  EXPECT_FALSE(store()->isZephylNameAlreadyExists(""));
}

TEST_F(EditingTest, NobodysNameNeverExists) {
  putGroups({GroupBuilder(1, "")});
  EXPECT_TRUE(store()->isZephylNameAlreadyExists(""));
  EXPECT_FALSE(store()->isZephylNameAlreadyExists(std::nullopt));
}

}  // namespace
}  // namespace zephyl
