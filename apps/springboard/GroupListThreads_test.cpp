// The list of groups on the Linux device, whose queues are real threads. A thread sanitizer finds
// what the expectations do not.

#include <QCoreApplication>
#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/PropertyList.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "apps/springboard/GroupsService.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/Conversations.h"
#include "hosts/fake/uikit/FakeUIKit.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "model/TestGroups.h"
#include "store/ZephylsDataController.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class GroupListThreadsTest : public ::testing::Test {
 protected:
  static constexpr int kGroups = 40;

  GroupListThreadsTest() {
    Array groups = {GroupBuilder(1, "All").system(ZephylSystemModeAll)};
    for (int number = 0; number < kGroups; ++number) {
      groups.push_back(GroupBuilder(10 + number, "Group " + std::to_string(number)));
    }
    folder_.put("/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist",
                writeXmlPropertyList(Value(groups)));
    linux_host::DeviceOptions options;
    options.deviceRoot = folder_.path();
    options.hasBiometrics = true;
    auto screen = std::make_unique<fake::FakeUIKit>();
    uikit_ = screen.get();
    options.uikit = std::move(screen);
    device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
    install(*device_);
    app::serveGroups(device_->messageServers());
    window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
    window_->setRootViewController(below_);
  }
  ~GroupListThreadsTest() override {
    screen_ = nullptr;
    window_ = nullptr;
    device_->queues().stop();
    uninstall();
  }

  static std::shared_ptr<ZephylsDataController> store() {
    return ZephylsDataController::sharedInstance();
  }
  void present(const std::shared_ptr<ZephylsViewController>& screen) {
    screen_ = screen;
    below_->presentViewController(UINavigationController::initWithRootViewController(screen),
                                  /*animated=*/false);
  }
  void presentToManage() {
    const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    screen->setZephylsMode(ZephylsModeManage);
    present(screen);
  }
  void presentToAdd() {
    present(std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain,
                                                    fake::chat("chat", {fake::known(1)})));
  }
  void close() {
    below_->dismissViewControllerAnimated(/*animated=*/false);
    finishAllAnimations();
    screen_ = nullptr;
  }
  void settle() {
    for (int round = 0; round < 4; ++round) {
      window_->layoutWindow();
      EXPECT_TRUE(device_->queues().runMainUntilIdle());
      finishAllAnimations();
      uikit_->displayLink().runUntilIdle();
    }
    window_->layoutWindow();
  }
  // What a running window does: events, and the rows that are seen.
  void runForAMoment() {
    QCoreApplication::processEvents();
    window_->layoutWindow();
  }
  std::size_t rows() { return screen_->zephylsDict().at(kUserSectionKey).size(); }
  void editRows(const std::vector<std::int64_t>& rows) {
    UITableView& table = *screen_->tableView();
    screen_->editButtonAction();
    settle();
    for (const std::int64_t row : rows) {
      table.selectRowAtIndexPath({1, row}, /*animated=*/false, UITableViewScrollPosition::kNone);
    }
  }

  contract::TemporaryFolder folder_;
  fake::FakeUIKit* uikit_ = nullptr;
  std::unique_ptr<linux_host::LinuxDevice> device_;
  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<UIViewController> below_ = std::make_shared<UIViewController>();
  std::shared_ptr<ZephylsViewController> screen_;
};

TEST_F(GroupListThreadsTest, RowsAreReadWhileListsAreMadeAndGroupsDeleted) {
  presentToManage();
  settle();
  ASSERT_EQ(rows(), kGroups);
  device_->queues().globalAsync(QueuePriority::kHigh, [] {
    for (int number = 0; number < kGroups / 2; ++number) {
      const auto groups = store()->allZephyls()->snapshot();
      store()->deleteZephyl(groups->back(), nullptr, nullptr);
      store()->updateUnreadMessageCountForZephyls();
    }
  });
  while (store()->allZephyls()->size() > kGroups / 2 + 1) {
    runForAMoment();
  }
  settle();
  EXPECT_EQ(rows(), kGroups / 2);
}

TEST_F(GroupListThreadsTest, NotificationsComeFromAnyThread) {
  presentToManage();
  settle();
  for (int round = 0; round < 20; ++round) {
    device_->queues().globalAsync(QueuePriority::kLow, [] {
      NSNotificationCenter::defaultCenter()->postNotificationName(kZephylChangedNotification);
    });
    runForAMoment();
  }
  settle();
  EXPECT_EQ(rows(), kGroups);
}

TEST_F(GroupListThreadsTest, AScreenIsClosedWhileItsListIsMade) {
  for (int round = 0; round < 20; ++round) {
    presentToManage();
    screen_->updateTableView();
    runForAMoment();
    const std::weak_ptr<ZephylsViewController> gone = screen_;
    device_->queues().globalAsync(QueuePriority::kHigh,
                                  [] { store()->updateUnreadMessageCountForZephyls(); });
    close();
    EXPECT_TRUE(gone.expired());
  }
  settle();
}

// The background waits for the box to be shown, and the save asks the main thread for the reader.
TEST_F(GroupListThreadsTest, MarkedGroupsAreDeletedBehindTheBusyBox) {
  presentToManage();
  settle();
  editRows({0, 1, 2});
  screen_->deleteButtonAction();
  settle();
  EXPECT_EQ(rows(), kGroups - 3);
  EXPECT_EQ(store()->allZephyls()->size(), kGroups - 2U);
  EXPECT_FALSE(screen_->tableView()->isEditing());
  EXPECT_EQ(screen_->navigationController()->presentedViewController(), nullptr);
}

TEST_F(GroupListThreadsTest, AScreenIsClosedWhileItDeletes) {
  presentToManage();
  settle();
  editRows({0});
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  screen_->deleteButtonAction();
  close();
  EXPECT_TRUE(gone.expired());
  settle();
  EXPECT_EQ(store()->allZephyls()->size(), kGroups + 0U);
}

TEST_F(GroupListThreadsTest, TickedGroupsGetTheConversationAndTheScreenCloses) {
  presentToAdd();
  settle();
  int runs = 0;
  screen_->setDismissAction([&] { ++runs; });
  for (const std::int64_t row : {0, 3}) {
    screen_->didSelectRowAtIndexPath(*screen_->tableView(), {0, row});
  }
  const ZephylVector ticked = screen_->selectedGroups();
  screen_->doneButtonAction();
  settle();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(below_->presentedViewController(), nullptr);
  for (const ZephylRef& group : ticked) {
    EXPECT_TRUE(group->contacts()->contains(Member("chat")));
  }
}

TEST_F(GroupListThreadsTest, AScreenIsClosedWhileItAdds) {
  presentToAdd();
  settle();
  screen_->didSelectRowAtIndexPath(*screen_->tableView(), {0, 0});
  const ZephylRef ticked = screen_->selectedGroups().at(0);
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  screen_->doneButtonAction();
  close();
  EXPECT_TRUE(gone.expired());
  settle();
  EXPECT_TRUE(ticked->contacts()->contains(Member("chat")));
}

}  // namespace
}  // namespace zephyl
