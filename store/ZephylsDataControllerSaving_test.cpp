// What saving does beside the file: the hide flag, and the order of the two notifications.

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "store/StoreTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class StoreSavingTest : public test::StoreTest {
 protected:
  // What was posted system-wide when the in-process observers of `name` ran, one entry a post.
  std::vector<std::vector<std::string>> postedBefore(const std::string& name,
                                                     const std::function<void()>& save) {
    std::vector<std::vector<std::string>> before;
    NSNotificationCenter::defaultCenter()->addObserver(this, name, [&](const NSNotification&) {
      before.push_back(device_.darwinNotifications().posted());
    });
    save();
    NSNotificationCenter::defaultCenter()->removeObserver(this);
    return before;
  }

  const std::vector<std::vector<std::string>> nothingOnce_ = {{}};
};

TEST_F(StoreSavingTest, SavingRaisesTheHideFlagWhateverTheSaveGave) {
  for (const bool fails : {false, true}) {
    device_.restartProcess();
    putGroups({GroupBuilder(1, "A")});
    store()->allZephyls()->append({made(GroupBuilder(2, "Secret").hiding())});
    ASSERT_FALSE(store()->isAnyOfGroupHasHideConversationsEnabled());
    device_.files().failWriting(kGroupsFile, fails);
    EXPECT_EQ(store()->saveAllGroupsToDisk(nullptr, false, kZephylChangedNotification), !fails);
    EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled()) << fails;
  }
}

TEST_F(StoreSavingTest, ASaveIsToldInThisProcessFirst) {
  putGroups({GroupBuilder(1, "A")});
  EXPECT_EQ(postedBefore(kZephylChangedNotification,
                         [] {
                           store()->saveAllGroupsToDisk(nullptr, /*postNotification=*/true,
                                                        kZephylChangedNotification);
                         }),
            nothingOnce_);
  EXPECT_EQ(device_.darwinNotifications().posted(),
            std::vector<std::string>{kZephylChangedNotification});
}

TEST_F(StoreSavingTest, NewGroupsAreToldInThisProcessFirst) {
  EXPECT_EQ(postedBefore(kZephylAddedNotification,
                         [] {
                           store()->saveAllNewGroupsToDisk({made(GroupBuilder(1, "A"))},
                                                           /*postNotification=*/true,
                                                           kZephylAddedNotification);
                         }),
            nothingOnce_);
  EXPECT_EQ(device_.darwinNotifications().posted(),
            std::vector<std::string>{kZephylAddedNotification});
}

}  // namespace
}  // namespace zephyl
