// Several threads at once. What is shared must come out whole; a thread sanitizer finds the rest.

#include <functional>
#include <latch>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "model/ZPSettings.h"
#include "services/ZPUtils.h"
#include "store/StoreTest.h"

namespace zephyl {
namespace {

using fake::known;
using fake::unreadChat;
using test::GroupBuilder;

class ThreadsTest : public test::StoreTest {
 protected:
  static constexpr std::size_t kThreads = 6;

  // Runs `work` on all threads, from the same moment on, and `meanwhile` here.
  static void atOnce(
      const std::function<void(std::size_t thread)>& work,
      const std::function<void()>& meanwhile = [] {}) {
    std::latch start(kThreads + 1);
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
      threads.emplace_back([&start, &work, thread] {
        start.arrive_and_wait();
        work(thread);
      });
    }
    start.arrive_and_wait();
    meanwhile();
    for (std::thread& thread : threads) {
      thread.join();
    }
  }
};

TEST_F(ThreadsTest, ThreadsThatAskTogetherForWhatIsMadeOnceGetTheSame) {
  struct Shared {
    std::shared_ptr<ZPSettings> settings;
    std::shared_ptr<LAContext> context;
    std::shared_ptr<ZephylsDataController> store;
    std::shared_ptr<NSNotificationCenter> center;
    // How many groups that thread found in the store when it got it.
    std::size_t groups = 0;
  };
  std::vector<Shared> got(kThreads);
  for (int round = 1; round <= 10; ++round) {
    device_.restartProcess();
    putGroups({GroupBuilder(1, "Work")});
    atOnce([&](std::size_t thread) {
      got[thread] = {ZPSettings::sharedSettings(), ZPUtils::context(), store(),
                     NSNotificationCenter::defaultCenter(), store()->allZephyls()->size()};
    });
    for (const Shared& one : got) {
      ASSERT_NE(one.store, nullptr);
      EXPECT_EQ(one.settings, got.front().settings);
      EXPECT_EQ(one.context, got.front().context);
      EXPECT_EQ(one.store, got.front().store);
      EXPECT_EQ(one.center, got.front().center);
      EXPECT_EQ(one.groups, 1U);
    }
    EXPECT_EQ(device_.files().readsOf(ZPUtils::settingsFilePath()), round);
    EXPECT_EQ(device_.files().readsOf(kGroupsFile), round);
  }
}

TEST_F(ThreadsTest, ThreadsRecountTheirGroupsWhileTheListChanges) {
  const CKConversationArray two = {unreadChat("a", {known(1)}), unreadChat("b", {known(2)})};
  const CKConversationArray three = {unreadChat("c", {known(3)}), unreadChat("d", {known(4)}),
                                     unreadChat("e", {known(5), known(6)})};
  const std::set<std::string> guidsOfTwo = {"a", "b"};
  const std::set<std::string> guidsOfThree = {"c", "d", "e"};
  device_.conversationList().setConversations(two);
  device_.conversationList().setShows(
      [](const ZephylRef& group, const CKConversationRef&) { return group->isEnabled(); });
  std::vector<ZephylRef> groups;
  for (std::size_t thread = 0; thread < kThreads; ++thread) {
    groups.push_back(made(GroupBuilder(static_cast<std::int64_t>(thread) + 1, "Group")));
  }

  atOnce(
      [&](std::size_t thread) {
        const ZephylRef& group = groups[thread];
        for (int round = 0; round < 100; ++round) {
          const auto shown = device_.conversationList().filteredConversationsByZephyl(group);
          EXPECT_TRUE(shown == two || shown == three);
          group->loadAffiliatedConversations(/*inBackground=*/false);
          const std::int64_t count = group->unreadCount();
          EXPECT_EQ(*group->unreadConversations(), count == 2 ? guidsOfTwo : guidsOfThree);
          EXPECT_TRUE(count == 2 || count == 3) << count;
        }
      },
      [&] {
        for (int round = 0; round < 100; ++round) {
          device_.conversationList().setConversations(round % 2 == 0 ? three : two);
          for (const ZephylRef& group : groups) {
            if (const auto unread = group->unreadConversations()) {
              EXPECT_LE(unread->size(), 3U);
            }
          }
        }
      });
}

}  // namespace
}  // namespace zephyl
