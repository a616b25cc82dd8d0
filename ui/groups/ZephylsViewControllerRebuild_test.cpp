// When the list of groups is made anew, and what is seen meanwhile.

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class GroupListRebuildTest : public test::GroupListTest {
 protected:
  void startSome() {
    start("14.0", {system(1, "All"), GroupBuilder(2, "Active").active(), GroupBuilder(3, "Work"),
                   GroupBuilder(4, "Zoo")});
  }

  std::string tapped_;
};

TEST_F(GroupListRebuildTest, EveryNotificationMakesTheListAnew) {
  startSome();
  present(ZephylsModeBrowse);
  for (const char* name :
       {"com.vantor.ZephylAddedNotification", "com.vantor.ZephylChangedNotification",
        "com.vantor.ZephylDeletedNotification", "com.vantor.ZephylDataUpdateNotification",
        "com.vantor.ZephylsSettingsChangedNotification"}) {
    const std::string title = std::string("New ") + name;
    const auto identifier = static_cast<std::int64_t>(store()->allZephyls()->size()) + 10;
    store()->allZephyls()->append(
        {std::make_shared<Zephyl>(static_cast<Dictionary>(GroupBuilder(identifier, title)))});
    NSNotificationCenter::defaultCenter()->postNotificationName(name);
    EXPECT_EQ(device_.dispatch().waitingGlobal(QueuePriority::kDefault), 1U) << name;
    settle();
    const Words shown = titles(1);
    EXPECT_NE(std::find(shown.begin(), shown.end(), title), shown.end()) << name;
  }
}

TEST_F(GroupListRebuildTest, NotificationsInARowEachMakeTheListAnew) {
  startSome();
  present(ZephylsModeBrowse);
  for (int count = 0; count < 3; ++count) {
    store()->updateUnreadMessageCountForZephyls();
  }
  EXPECT_EQ(device_.dispatch().waitingGlobal(QueuePriority::kDefault), 3U);
}

// What a tap means is the row that is seen, also while the store has changed already.
TEST_F(GroupListRebuildTest, RowsStandForWhatIsSeenUntilTheListIsShownAnew) {
  startSome();
  delegate_->zp__didSelectGroup = [this](const ZephylRef& group) { tapped_ = group->title(); };
  present(ZephylsModeBrowse);
  store()->allZephyls()->removeAt(1);
  screen_->updateTableView();
  device_.dispatch().runGlobal();
  touchRow({1, 1});
  EXPECT_EQ(tapped_, "Work");
  settle();
  EXPECT_EQ(titles(1), (Words{"Work", "Zoo"}));
}

// While the first asks for the groups, the second is made; then the first finds none.
TEST_F(GroupListRebuildTest, AListThatWasBegunEarlierDoesNotReplaceALaterOne) {
  start("14.0", {});
  present(ZephylsModeBrowse);
  bool isFirst = true;
  device_.messagingCenter().setAnswer(
      kGetGroupsMessage, [&](const Dictionary*) -> std::optional<Dictionary> {
        if (std::exchange(isFirst, false)) {
          device_.dispatch().mainSync([&] { EXPECT_TRUE(device_.dispatch().runOneGlobal()); });
          store()->allZephyls()->removeAll();
          return std::nullopt;
        }
        return Dictionary{{kServiceMessageData, Array{GroupBuilder(2, "Work")}}};
      });
  screen_->updateTableView();
  screen_->updateTableView();
  settle();
  ASSERT_FALSE(isFirst);
  EXPECT_EQ(titles(0), Words{"Work"});
}

TEST_F(GroupListRebuildTest, AListThatHasGoneIsNotMadeAnew) {
  startSome();
  present(ZephylsModeBrowse);
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  screen_->updateTableView();
  below_->dismissViewControllerAnimated(/*animated=*/false);
  animate();
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  settle();
  store()->updateUnreadMessageCountForZephyls();
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
}

TEST_F(GroupListRebuildTest, OfTenThousandGroupsOnlyThoseThatAreSeenAreCells) {
  Array groups;
  for (int number = 1; number <= 10'000; ++number) {
    groups.push_back(GroupBuilder(number, "Group " + std::to_string(number)));
  }
  start("14.0", groups);
  present(ZephylsModeManage);
  EXPECT_EQ(table().numberOfRowsInSection(0), 10'000);
  EXPECT_LT(test::viewsOf<ZephylsManageTableViewCell>(table()).size(), 30U);
  table().scrollToRowAtIndexPath({0, 9'999}, UITableViewScrollPosition::kBottom,
                                 /*animated=*/false);
  settle();
  EXPECT_EQ(titleOf({0, 9'999}), "Group 9999");
  EXPECT_LT(test::viewsOf<ZephylsManageTableViewCell>(table()).size(), 40U);
}

}  // namespace
}  // namespace zephyl
