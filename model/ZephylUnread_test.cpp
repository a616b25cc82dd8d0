#include <atomic>
#include <thread>

#include <gtest/gtest.h>

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"
#include "store/ZephylsDataController.h"

namespace zephyl {
namespace {

using fake::chat;
using fake::known;
using fake::unknown;
using fake::unreadChat;
using test::GroupBuilder;

class ZephylUnreadTest : public ::testing::Test {
 protected:
  static ZephylRef made(const Dictionary& dictionary) {
    return std::make_shared<Zephyl>(dictionary);
  }
  static ZephylRef systemGroup(std::int64_t mode) {
    return made(GroupBuilder(1, "System").system(mode));
  }
  // The group after its conversations were loaded.
  ZephylRef loaded(const ZephylRef& group, CKConversationArray conversations) {
    device_.conversationList().setConversations(std::move(conversations));
    group->loadAffiliatedConversations(/*inBackground=*/false);
    return group;
  }
  static void hideSomewhere() {
    const auto store = ZephylsDataController::sharedInstance();
    store->allZephyls()->append({made(GroupBuilder(99, "Secret").hiding())});
    store->updateGroupsHasHideConvosStatus();
  }

  fake::Device device_;
};

TEST_F(ZephylUnreadTest, AFreshGroupCountsNothingTheFirstTimeAndProperlyTheSecond) {
  device_.conversationList().setConversations({unreadChat("a", {known(1)})});
  const auto group = made(GroupBuilder(1, "Work"));
  EXPECT_EQ(group->unreadCount(), 0);
  EXPECT_TRUE(group->unreadConversations()->empty());
  EXPECT_EQ(group->unreadCount(), 1);
  EXPECT_EQ(*group->unreadConversations(), std::set<std::string>{"a"});
  EXPECT_EQ(device_.conversationList().asked(), 1);
}

TEST_F(ZephylUnreadTest, OnlyConversationsWithUnreadMessagesCount) {
  const auto group = loaded(
      made(GroupBuilder(1, "Work")),
      {unreadChat("a", {known(1)}), chat("b", {known(2)}), unreadChat("c", {known(3), known(4)})});
  EXPECT_EQ(group->unreadCount(), 2);
  EXPECT_EQ(*group->unreadConversations(), (std::set<std::string>{"a", "c"}));
}

TEST_F(ZephylUnreadTest, AnEmptySetOfConversationsIsLoadedAgainOnEachCount) {
  const auto group = loaded(made(GroupBuilder(1, "Work")), {});
  EXPECT_EQ(group->unreadCount(), 0);
  EXPECT_EQ(group->unreadCount(), 0);
  EXPECT_EQ(device_.conversationList().asked(), 3);
}

TEST_F(ZephylUnreadTest, UnknownCountsAGroupConversationOnceForEveryUnknownParticipant) {
  const auto group =
      loaded(systemGroup(ZephylSystemModeUnknown),
             {unreadChat("g", {unknown("+1"), known(5), unknown("+2"), unknown("+3")}),
              unreadChat("k", {known(1)}), unreadChat("u", {unknown("+4")})});
  EXPECT_EQ(group->unreadCount(), 4);
  EXPECT_EQ(*group->unreadConversations(), (std::set<std::string>{"g", "u"}));
}

TEST_F(ZephylUnreadTest, AllGroupsCountsOneToOneConversationsOnlyOnceSomeGroupHides) {
  const auto group = loaded(systemGroup(ZephylSystemModeAllGroups),
                            {unreadChat("one", {known(1)}), chat("read", {known(1), known(2)})});
  EXPECT_EQ(group->unreadCount(), 0);
  hideSomewhere();
  EXPECT_EQ(group->unreadCount(), 1);
}

TEST_F(ZephylUnreadTest, AllCountsWhatIsAmongItsConversations) {
  const auto group = loaded(systemGroup(ZephylSystemModeAll), {unreadChat("a", {unknown("+1")})});
  EXPECT_EQ(group->unreadCount(), 1);
}

TEST_F(ZephylUnreadTest, AContactIdentityCountsAsRecordIdBeforeContactIdentifier) {
  const auto byIdentifier = IMHandle::withContact("+15550100", /*isContact=*/true, "ABC");
  const auto noContact = IMHandle::withContact("+15550100", /*isContact=*/false, "ABC");
  const auto group = loaded(systemGroup(ZephylSystemModeUnknown),
                            {unreadChat("a", {byIdentifier}), unreadChat("b", {noContact})});
  EXPECT_EQ(group->unreadCount(), 1);
  EXPECT_EQ(*group->unreadConversations(), std::set<std::string>{"b"});
}

TEST_F(ZephylUnreadTest, AContactWithoutAnIdentifierIsNoKnownContact) {
  const auto nameless = IMHandle::withContact("+15550100", /*isContact=*/true, "");
  const auto group = loaded(systemGroup(ZephylSystemModeUnknown), {unreadChat("a", {nameless})});
  EXPECT_EQ(group->unreadCount(), 1);
}

TEST_F(ZephylUnreadTest, AConversationThatIsListedTwiceCountsOnce) {
  const auto twice = unreadChat("a", {known(1)});
  const auto group = loaded(made(GroupBuilder(1, "Work")), {twice, chat("b", {known(2)}), twice});
  EXPECT_EQ(group->conversations()->conversations().size(), 2U);
  EXPECT_EQ(group->unreadCount(), 1);
}

TEST_F(ZephylUnreadTest, AConversationBelongsByObjectOrByItsGuid) {
  const auto held = chat("a", {known(1)});
  const auto group = loaded(made(GroupBuilder(1, "Work").members({"b"})), {held});
  EXPECT_TRUE(group->isConversationMemberOfYou(held));
  EXPECT_TRUE(group->isConversationMemberOfYou(chat("b", {known(2)})));
  EXPECT_FALSE(group->isConversationMemberOfYou(chat("a", {known(1)})));
}

TEST_F(ZephylUnreadTest, ACountThatIsNotStaleIsMadeBeforeTheCallReturns) {
  const auto group = loaded(made(GroupBuilder(1, "Work")), {unreadChat("a", {known(1)})});
  group->setRequiresUpdateForUnReadCount(false);
  std::int64_t count = -1;
  std::thread::id thread;
  group->loadUnreadCount([&](std::int64_t result) {
    count = result;
    thread = std::this_thread::get_id();
  });
  EXPECT_EQ(count, 1);
  EXPECT_EQ(thread, std::this_thread::get_id());
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
}

TEST_F(ZephylUnreadTest, AStaleCountIsMadeInTheBackgroundAndThenNoLongerStale) {
  const auto group = loaded(made(GroupBuilder(1, "Work")), {unreadChat("a", {known(1)})});
  std::int64_t count = -1;
  std::thread::id thread;
  group->loadUnreadCount([&](std::int64_t result) {
    count = result;
    thread = std::this_thread::get_id();
  });
  EXPECT_EQ(count, -1);
  EXPECT_TRUE(group->requiresUpdateForUnReadCount());
  device_.dispatch().runGlobal();
  EXPECT_EQ(count, 1);
  EXPECT_NE(thread, std::this_thread::get_id());
  EXPECT_FALSE(group->requiresUpdateForUnReadCount());
}

TEST_F(ZephylUnreadTest, AStaleCountOfAFreshGroupIsMadeTwiceAndSoIsRightAtOnce) {
  device_.conversationList().setConversations(
      {unreadChat("a", {known(1)}), unreadChat("b", {known(2)})});
  const auto group = made(GroupBuilder(1, "Work"));
  std::int64_t count = -1;
  bool stale = true;
  group->loadUnreadCount([&](std::int64_t result) {
    count = result;
    stale = group->requiresUpdateForUnReadCount();
  });
  device_.dispatch().runGlobal();
  EXPECT_EQ(count, 2);
  EXPECT_FALSE(stale);
  EXPECT_EQ(device_.conversationList().asked(), 1);
}

TEST_F(ZephylUnreadTest, BackgroundWorkStandsOnTheQueueOfHighPriority) {
  const auto group = made(GroupBuilder(1, "Work"));
  group->loadAffiliatedConversations(/*inBackground=*/true);
  EXPECT_EQ(device_.dispatch().waitingGlobal(QueuePriority::kHigh), 1U);
  group->loadUnreadCount(nullptr);
  EXPECT_EQ(device_.dispatch().waitingGlobal(QueuePriority::kHigh), 2U);
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 2U);
}

TEST_F(ZephylUnreadTest, AStaleCountNeedsNoCompletion) {
  const auto group = loaded(made(GroupBuilder(1, "Work")), {unreadChat("a", {known(1)})});
  group->loadUnreadCount(nullptr);
  device_.dispatch().runGlobal();
  EXPECT_FALSE(group->requiresUpdateForUnReadCount());
  EXPECT_EQ(group->unreadConversations()->size(), 1U);
}

TEST_F(ZephylUnreadTest, AStaleCountOfAReleasedGroupIsDropped) {
  auto group = made(GroupBuilder(1, "Work"));
  bool called = false;
  group->loadUnreadCount([&](std::int64_t) { called = true; });
  group.reset();
  device_.dispatch().runGlobal();
  EXPECT_FALSE(called);
}

TEST_F(ZephylUnreadTest, ConversationsLoadInTheBackground) {
  device_.conversationList().setConversations({chat("a", {known(1)})});
  const auto group = made(GroupBuilder(1, "Work"));
  group->loadAffiliatedConversations(/*inBackground=*/true);
  EXPECT_EQ(group->conversations(), nullptr);
  device_.dispatch().runGlobal();
  ASSERT_NE(group->conversations(), nullptr);
  EXPECT_EQ(group->conversations()->conversations().size(), 1U);
}

TEST_F(ZephylUnreadTest, AGroupIsKeptAliveOnlyWhileTheListIsAsked) {
  auto group = made(GroupBuilder(1, "Work"));
  const std::weak_ptr<Zephyl> watched = group;
  bool aliveWhenAsked = false;
  device_.conversationList().setConversations({chat("a", {known(1)})});
  device_.conversationList().setShows([&](const ZephylRef& asked, const CKConversationRef&) {
    aliveWhenAsked = asked == watched.lock();
    return true;
  });
  group->loadAffiliatedConversations(/*inBackground=*/true);
  group.reset();
  device_.dispatch().runGlobal();
  EXPECT_TRUE(aliveWhenAsked);
  EXPECT_TRUE(watched.expired());
}

TEST_F(ZephylUnreadTest, ManyThreadsMayReadWhileTheBackgroundWrites) {
  const auto group = loaded(made(GroupBuilder(1, "Work")),
                            {unreadChat("a", {known(1)}), unreadChat("b", {known(2)})});
  std::atomic<bool> stop = false;
  std::thread reader([&] {
    while (!stop) {
      const auto unread = group->unreadConversations();
      EXPECT_LE(unread->size(), 2U);
      EXPECT_LE(group->conversations()->conversations().size(), 2U);
    }
  });
  for (int round = 0; round < 50; ++round) {
    group->setRequiresUpdateForUnReadCount(true);
    group->loadUnreadCount(nullptr);
    group->loadAffiliatedConversations(/*inBackground=*/true);
    device_.dispatch().runGlobal();
  }
  stop = true;
  reader.join();
  EXPECT_EQ(group->unreadCount(), 2);
}

}  // namespace
}  // namespace zephyl
