#include <set>
#include <string>

#include <gtest/gtest.h>

#include "store/StoreTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class StoreUnreadTest : public test::StoreTest {
 protected:
  static void setUnread(const ZephylRef& group, std::set<std::string> guids) {
    group->setUnreadConversations(std::make_shared<const std::set<std::string>>(std::move(guids)));
  }
};

TEST_F(StoreUnreadTest, StaleMarkingReachesEveryGroupAndIsPostedInThisProcessOnly) {
  putGroups({GroupBuilder(1, "A"), GroupBuilder(2, "B").disabled()});
  for (const ZephylRef& group : *store()->allZephyls()->snapshot()) {
    group->setRequiresUpdateForUnReadCount(false);
  }
  watch(kZephylDataUpdateNotification);
  store()->updateUnreadMessageCountForZephyls();
  for (const ZephylRef& group : *store()->allZephyls()->snapshot()) {
    EXPECT_TRUE(group->requiresUpdateForUnReadCount());
  }
  ASSERT_EQ(notifications_.size(), 1U);
  EXPECT_TRUE(notifications_[0].userInfo.empty());
  EXPECT_TRUE(device_.darwinNotifications().posted().empty());
}

TEST_F(StoreUnreadTest, UnreadElsewhereIsTheUnionOfTheOthersWithoutItsOwn) {
  putGroups({GroupBuilder(1, "Own"), GroupBuilder(2, "Other"), GroupBuilder(3, "Third"),
             GroupBuilder(4, "Off").disabled()});
  const auto groups = *store()->allZephyls()->snapshot();
  setUnread(groups[0], {"a", "b"});
  setUnread(groups[1], {"b", "c"});
  setUnread(groups[2], {"c"});
  setUnread(groups[3], {"d"});
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(groups[0]), 1);
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(groups[3]), 3);
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(nullptr), 3);
}

TEST_F(StoreUnreadTest, AnotherRecordWithTheSameIdentifierCountsAsOther) {
  putGroups({GroupBuilder(1, "Own")});
  const auto group = store()->allZephyls()->snapshot()->front();
  setUnread(group, {"a"});
  const auto twin = made(GroupBuilder(1, "Own"));
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(twin), 1);
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(group), 0);
}

TEST_F(StoreUnreadTest, UnreadElsewhereRecountsNothing) {
  putGroups({GroupBuilder(1, "A").members({1}), GroupBuilder(2, "B")});
  device_.conversationList().setConversations({fake::unreadChat("a", {fake::known(1)})});
  const auto groups = *store()->allZephyls()->snapshot();
  device_.dispatch().runGlobal();
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(groups[1]), 0);
  EXPECT_EQ(groups[0]->unreadCount(), 1);
  EXPECT_EQ(store()->unreadConversationsCountForOtherGroups(groups[1]), 1);
}

}  // namespace
}  // namespace zephyl
