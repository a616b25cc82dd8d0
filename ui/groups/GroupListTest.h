// For the tests of the list of groups: a device with groups, and the list on a window's screen.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/NSNotificationCenter.h"
#include "platform/foundation/PropertyList.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/ZPSettings.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"
#include "ui/groups/ZephylsManageTableViewCell.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl::test {

class GroupListTest : public ::testing::Test {
 protected:
  using Words = std::vector<std::string>;
  using ScreenRef = std::shared_ptr<ZephylsViewController>;

  static constexpr char kGroupsFile[] =
      "/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist";

  // Presented by the screen below, as a host does.
  GroupListTest() { window_->setRootViewController(below_); }

  static std::shared_ptr<ZephylsDataController> store() {
    return ZephylsDataController::sharedInstance();
  }
  static GroupBuilder system(std::int64_t identifier, const std::string& title) {
    return GroupBuilder(identifier, title).system(ZephylSystemModeAll);
  }
  static GroupBuilder locked(std::int64_t identifier, const std::string& title) {
    return GroupBuilder(identifier, title).with(keys::kPasswordProtected, true);
  }
  static ZephylRef stored(std::int64_t identifier) {
    for (const ZephylRef& group : *store()->allZephyls()->snapshot()) {
      if (group->identifier() == identifier) {
        return group;
      }
    }
    return nullptr;
  }

  // Another process with these groups and settings. From 12 on groups travel by message, and each
  // save is answered with `savesSucceed_`.
  void start(const std::string& version, const Array& groups, const Dictionary& settings = {}) {
    device_.restartProcess();
    device_.device().setSystemVersion("11.4");
    device_.files().put(kGroupsFile, writeXmlPropertyList(Value(groups)));
    device_.files().put(ZPUtils::settingsFilePath(), writeXmlPropertyList(Value(settings)));
    EXPECT_EQ(store()->allZephyls()->size(), groups.size());
    device_.device().setSystemVersion(version);
    device_.messagingCenter().setAnswer(kSaveGroupsMessage, [this](const Dictionary*) {
      return Dictionary{{kServiceMessageData, savesSucceed_}};
    });
  }
  void failSaves() {
    savesSucceed_ = false;
    device_.files().failWriting(kGroupsFile);
  }

  // The list in a navigation controller over the screen below.
  void present(const ScreenRef& screen) {
    screen_ = screen;
    below_->presentViewController(UINavigationController::initWithRootViewController(screen),
                                  /*animated=*/false);
    settle();
  }
  void present(std::int64_t mode) {
    const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    screen->setZephylsMode(mode);
    screen->setZephylsDelegate(delegate_);
    present(screen);
  }
  void animate() {
    window_->layoutWindow();
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  // All queues and what is seen to move.
  void settle() {
    for (int round = 0; round < 4; ++round) {
      device_.dispatch().runAll();
      animate();
    }
  }
  [[nodiscard]] bool isClosed() const { return below_->presentedViewController() == nullptr; }

  UITableView& table() { return *screen_->tableView(); }
  UINavigationItem& bar() { return *screen_->navigationItem(); }
  UIBarButtonItem& left() { return *bar().leftBarButtonItem(); }
  UIBarButtonItem& right() { return *bar().rightBarButtonItem(); }
  void press(UIBarButtonItem& button) {
    EXPECT_TRUE(button.performAction());
    settle();
  }
  // Of the section's rows, as they are shown.
  Words titles(std::int64_t section) {
    Words shown;
    for (std::int64_t row = 0; row < table().numberOfRowsInSection(section); ++row) {
      shown.push_back(titleOf({section, row}));
    }
    return shown;
  }
  std::string titleOf(const NSIndexPath& path) {
    const auto found = cell(path);
    return found == nullptr ? "no cell" : label(*found, ZephylsManageTableViewCell::kTitleTag);
  }
  static std::string label(UIView& cell, std::int64_t tag) {
    return dynamic_cast<UILabel&>(*cell.viewWithTag(tag)).text();
  }
  // Null while the row is not seen.
  std::shared_ptr<UITableViewCell> cell(const NSIndexPath& path) {
    return table().cellForRowAtIndexPath(path);
  }
  // With a finger, and nothing that comes of it.
  void touchRow(const NSIndexPath& path) {
    const CGRect rect = table().rectForRowAtIndexPath(path);
    tap(*window_, table().convertPointToView({rect.midX(), rect.midY()}, nullptr));
  }
  void tapRow(const NSIndexPath& path) {
    touchRow(path);
    settle();
  }
  void answerFinger(bool success, const NSError* error = nullptr) {
    ASSERT_TRUE(device_.authentication().isWaiting());
    device_.authentication().answer(success, error);
    settle();
  }
  // As the user does.
  void cancelFinger() {
    const NSError error("com.apple.LocalAuthentication", -2);
    answerFinger(/*success=*/false, &error);
  }

  // The box or alert over the list; null for none.
  std::shared_ptr<UIAlertController> alert() {
    const auto navigation = screen_->navigationController();
    return navigation == nullptr ? nullptr
                                 : std::dynamic_pointer_cast<UIAlertController>(
                                       navigation->presentedViewController());
  }
  std::string alertText() {
    const auto shown = alert();
    return shown == nullptr ? "no alert" : shown->title() + ": " + shown->message();
  }
  void answerAlert() {
    const auto shown = alert();
    ASSERT_NE(shown, nullptr);
    shown->choose(shown->actions().at(0));
    settle();
  }
  static std::vector<Member> membersOf(const ZephylRef& group) {
    const auto members = group->contacts();
    return {members->begin(), members->end()};
  }

  fake::Device device_;
  bool savesSucceed_ = true;
  std::shared_ptr<ZephylsViewControllerDelegate> delegate_ =
      std::make_shared<ZephylsViewControllerDelegate>();
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> below_ = std::make_shared<UIViewController>();
  ScreenRef screen_;
};

}  // namespace zephyl::test
