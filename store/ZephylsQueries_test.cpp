#include <gtest/gtest.h>

#include "store/StoreTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class StoreQueriesTest : public test::StoreTest {
 protected:
  void putUsualGroups() {
    putGroups({GroupBuilder(1, "Work"), GroupBuilder(2, "Old").disabled().active(),
               GroupBuilder(3, "All").system(1), GroupBuilder(4, "Work").active(),
               GroupBuilder(5, "Known").system(5).disabled()});
  }
};

TEST_F(StoreQueriesTest, EachQueryAnswersInStoreOrder) {
  putUsualGroups();
  EXPECT_EQ(titles(store()->activeZephyls()), (Titles{"Work", "All", "Work"}));
  EXPECT_EQ(store()->enabledZephyls(), store()->activeZephyls());
  EXPECT_EQ(titles(store()->enabledUserCreatedZephyls()), (Titles{"Work", "Work"}));
  EXPECT_EQ(titles(store()->disabledZephyls()), (Titles{"Old", "Known"}));
}

TEST_F(StoreQueriesTest, ATitleIsFoundExactlyAndOnlyAmongEnabledGroups) {
  putUsualGroups();
  EXPECT_EQ(store()->activeZephylByName("Work")->identifier(), 1);
  EXPECT_EQ(store()->activeZephylByName("work"), nullptr);
  EXPECT_EQ(store()->activeZephylByName("Old"), nullptr);
}

TEST_F(StoreQueriesTest, TheCurrentGroupIsTheFirstThatIsEnabledAndActive) {
  putUsualGroups();
  EXPECT_EQ(store()->currentActiveZephyl()->identifier(), 4);
  putGroups({GroupBuilder(1, "Work")});
  store()->reloadAllZephyls();
  EXPECT_EQ(store()->currentActiveZephyl(), nullptr);
}

TEST_F(StoreQueriesTest, ASystemGroupIsFoundEnabledOrNot) {
  putUsualGroups();
  EXPECT_EQ(store()->systemZephyl(ZephylSystemModeKnown)->identifier(), 5);
  EXPECT_EQ(store()->systemZephyl(ZephylSystemModeUser)->identifier(), 1);
  EXPECT_EQ(store()->systemZephyl(ZephylSystemModeUnknown), nullptr);
}

TEST_F(StoreQueriesTest, AllIsTheStoresOwnListAndNeverLoads) {
  const auto all = store()->allZephyls();
  EXPECT_EQ(store()->allZephyls(), all);
  all->append({made(GroupBuilder(1, "Live"))});
  EXPECT_EQ(titles(store()->activeZephyls()), Titles{"Live"});
  all->removeAll();
  putUsualGroups();
  EXPECT_TRUE(store()->allZephyls()->empty());
}

TEST_F(StoreQueriesTest, TheOtherQueriesLoadAnEmptyList) {
  using Query = std::size_t (*)(ZephylsDataController&);
  const Query queries[] = {
      [](ZephylsDataController& s) { return s.activeZephyls().size(); },
      [](ZephylsDataController& s) { return s.enabledZephyls().size(); },
      [](ZephylsDataController& s) { return s.enabledUserCreatedZephyls().size(); },
      [](ZephylsDataController& s) { return s.disabledZephyls().size(); },
      [](ZephylsDataController& s) { return s.activeZephylByName("Work") ? 1UL : 0UL; },
      [](ZephylsDataController& s) { return s.currentActiveZephyl() ? 1UL : 0UL; },
      [](ZephylsDataController& s) { return s.systemZephyl(1) ? 1UL : 0UL; }};
  for (const Query& query : queries) {
    device_.files().removeFile(kGroupsFile);
    device_.restartProcess();
    ASSERT_TRUE(store()->allZephyls()->empty());
    putUsualGroups();
    EXPECT_GT(query(*store()), 0U);
    EXPECT_EQ(store()->allZephyls()->size(), 5U);
  }
}

TEST_F(StoreQueriesTest, TheHideFlagIsRaisedByAnEnabledHidingGroupAndNeverLowered) {
  putGroups({GroupBuilder(1, "A").hiding().disabled()});
  EXPECT_FALSE(store()->isAnyOfGroupHasHideConversationsEnabled());
  putGroups({GroupBuilder(1, "A").hiding()});
  store()->reloadAllZephyls();
  EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
  putGroups({});
  store()->reloadAllZephyls();
  store()->updateGroupsHasHideConvosStatus();
  EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
  device_.restartProcess();
  EXPECT_FALSE(store()->isAnyOfGroupHasHideConversationsEnabled());
}

TEST_F(StoreQueriesTest, TheHideFlagIsRaisedByASystemGroupToo) {
  putGroups({GroupBuilder(1, "All").system(1).hiding().disabled()});
  EXPECT_FALSE(store()->isAnyOfGroupHasHideConversationsEnabled());
  putGroups({GroupBuilder(1, "All").system(1).hiding()});
  store()->reloadAllZephyls();
  EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
}

TEST_F(StoreQueriesTest, NoFavouritesAreNotAskedForAgainUntilTheReload) {
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->empty());
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->empty());
  EXPECT_EQ(device_.favorites().asked(), 1);
  store()->reloadFavoritesContactsABUIDs();
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->empty());
  EXPECT_EQ(device_.favorites().asked(), 2);
}

TEST_F(StoreQueriesTest, FavouritesAreReadOnceUnderTheReleasesName) {
  ABFavoritesEntry both;
  both.abUid = 7;
  both.privateAbUid = 8;
  both.abDatabaseUUID = "UUID";
  both.contactIdentifier = "unused";
  ABFavoritesEntry other;
  other.privateAbUid = 9;
  other.contactIdentifier = "CONTACT";
  device_.favorites().setEntries("CNFavorites", {both, other, ABFavoritesEntry{}});
  EXPECT_EQ(store()->favoritesContactsABUIDs()->array(), (Array{7, "UUID", 9, "CONTACT"}));
  EXPECT_EQ(store()->favoritesContactsABUIDs(), store()->favoritesContactsABUIDs());
  EXPECT_EQ(device_.favorites().asked(), 1);

  device_.favorites().setEntries("CNFavorites", {});
  EXPECT_EQ(store()->favoritesContactsABUIDs()->size(), 4U);
  store()->reloadFavoritesContactsABUIDs();
  EXPECT_EQ(device_.favorites().asked(), 1);
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->empty());
}

TEST_F(StoreQueriesTest, BeforeNineFavouritesComeFromTheOlderClass) {
  ABFavoritesEntry entry;
  entry.abUid = 7;
  device_.favorites().setEntries("ABFavoritesListManager", {entry});
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->empty());
  device_.device().setSystemVersion("8.4");
  store()->reloadFavoritesContactsABUIDs();
  EXPECT_TRUE(store()->favoritesContactsABUIDs()->contains(std::int64_t{7}));
}

class DefaultGroupsTest : public StoreQueriesTest {
 protected:
  void expectRisingIdentifiers() {
    std::int64_t last = 0;
    for (const Value& group : stored()) {
      const std::int64_t identifier = (*group.ifDictionary())[keys::kIdentifier].integerValue();
      EXPECT_GT(identifier, last);
      last = identifier;
    }
  }

  const Titles all_ = {"All", "Favorites", "All Groups", "Unknown", "Known"};
};

TEST_F(DefaultGroupsTest, WithoutAnyTheyGoStraightToTheFile) {
  watch(kZephylAddedNotification);
  EXPECT_TRUE(store()->allZephyls()->empty());
  store()->createDefaultGroups();
  EXPECT_TRUE(store()->allZephyls()->empty());
  EXPECT_TRUE(notifications_.empty());
  EXPECT_EQ(storedTitles(), all_);
  expectRisingIdentifiers();
  store()->reloadAllZephyls();
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), all_);
}

TEST_F(DefaultGroupsTest, AnEmptyFileCountsAsNone) {
  putGroups({});
  store()->createDefaultGroups();
  EXPECT_EQ(storedTitles(), all_);
}

TEST_F(DefaultGroupsTest, OnlyMissingOnesAreAppendedInOrder) {
  putGroups({GroupBuilder(1, "Work"), GroupBuilder(2, "Mine").system(3).disabled(),
             GroupBuilder(3, "All").system(1)});
  watch(kZephylAddedNotification);
  store()->createDefaultGroups();
  EXPECT_EQ(storedTitles(), (Titles{"Work", "Mine", "All", "Favorites", "Unknown", "Known"}));
  expectRisingIdentifiers();
  EXPECT_EQ(titles(*store()->allZephyls()->snapshot()), storedTitles());
  ASSERT_EQ(notifications_.size(), 1U);
  EXPECT_TRUE(notifications_[0].userInfo.empty());
  EXPECT_EQ(device_.darwinNotifications().posted().size(), 1U);

  store()->createDefaultGroups();
  EXPECT_EQ(notifications_.size(), 1U);
  EXPECT_EQ(device_.files().writesOf(kGroupsFile), 1);
}

TEST_F(DefaultGroupsTest, AGroupThatIsNoSystemGroupCountsAsPresentByItsMode) {
  putGroups({GroupBuilder(1, "Mine").with(keys::kZephylSystemMode, ZephylSystemModeUnknown)});
  store()->createDefaultGroups();
  EXPECT_EQ(storedTitles(), (Titles{"Mine", "All", "Favorites", "All Groups", "Known"}));
}

TEST_F(DefaultGroupsTest, AnEmptyListBesideAFullFileStaysUntouched) {
  EXPECT_TRUE(store()->allZephyls()->empty());
  putGroups({GroupBuilder(1, "Work")});
  store()->createDefaultGroups();
  EXPECT_EQ(storedTitles(), Titles{"Work"});
  EXPECT_EQ(device_.files().writesOf(kGroupsFile), 0);
}

}  // namespace
}  // namespace zephyl
