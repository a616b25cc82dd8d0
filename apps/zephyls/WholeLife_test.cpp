// The whole life of a group on the command line: against the system shell as a process on a bus of
// the test's own, with a fingerprint service, and with a second program that looks on.

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/Host.h"
#include "platform/foundation/DarwinNotificationCenter.h"

#include "apps/common/ShellAddress.h"
#include "apps/springboard/GroupsSafety.h"
#include "apps/zephyls/EditingTest.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/fingerprint/FprintMock_testing.h"
#include "hosts/linux/testing/PrivateBus.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using zephyl::test::FprintMock;
using zephyl::test::PrivateBus;

// A program of the user's that shows the titles of the groups and looks again at every change.
class SecondProgram {
 public:
  SecondProgram(const std::string& busAddress, const std::string& deviceRoot,
                const std::string& release, const std::string& state)
      : bus_(std::make_shared<linux_host::SessionBus>(busAddress)),
        address_(shellAddressOf(deviceRoot)) {
    linux_host::DeviceOptions options;
    options.deviceRoot = deviceRoot;
    options.systemVersion = release;
    options.safety = safetyOfGroups(state, deviceRoot);
    options.makeMessagingCenter = [this](CPDistributedMessagingCenter& /*inProcess*/,
                                         SystemLog& log) {
      return std::make_unique<linux_host::BusMessagingCenter>(bus_, address_.center, log);
    };
    options.makeNotifications = [this](Dispatch& dispatch, SystemLog& log) {
      return std::make_unique<linux_host::BusNotifications>(bus_, address_.notifications, dispatch,
                                                            log);
    };
    device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
    install(*device_);
    for (const char* name :
         {kZephylAddedNotification, kZephylChangedNotification, kZephylDeletedNotification}) {
      device_->darwinNotifications().addObserver(
          name, [] { ZephylsDataController::sharedInstance()->reloadAllZephyls(); });
    }
  }
  ~SecondProgram() {
    device_->queues().stop();
    uninstall();
  }
  SecondProgram(const SecondProgram&) = delete;
  SecondProgram& operator=(const SecondProgram&) = delete;

  // Whether it comes to show exactly these, apart from the system groups.
  [[nodiscard]] bool comesToShow(const std::vector<std::string>& titles) {
    return device_->queues().runMainUntil([&] { return shown() == titles; },
                                          std::chrono::seconds(10));
  }
  [[nodiscard]] static std::vector<std::string> shown() {
    std::vector<std::string> titles;
    const auto groups = ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
    for (const ZephylRef& group : *groups) {
      if (!group->isSystem()) {
        titles.push_back(group->title());
      }
    }
    return titles;
  }

 private:
  std::shared_ptr<linux_host::SessionBus> bus_;
  ShellAddress address_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
};

class WholeLifeTest : public EditingTest, public ::testing::WithParamInterface<const char*> {
 protected:
  WholeLifeTest() {
    release_ = GetParam();
    environment_["DBUS_SESSION_BUS_ADDRESS"] = session_.address();
    environment_["DBUS_SYSTEM_BUS_ADDRESS"] = system_.address();
    environment_["XDG_STATE_HOME"] = folder_ / "state";
  }
  void nextFinger(const char* result) {
    reader_.setScript({.results = {{"VerifyStart", {result}}}});
  }

  PrivateBus session_;
  PrivateBus system_{PrivateBus::Kind::kSystem};
  FprintMock reader_{system_.address()};
};
INSTANTIATE_TEST_SUITE_P(Releases, WholeLifeTest, ::testing::Values("11", "14"));

TEST_P(WholeLifeTest, IsLivedOnTheCommandLineWhileAnotherProgramLooksOn) {
  change({"list"});
  SecondProgram window(session_.address(), device_, release_, folder_ / "state/zephyls");
  EXPECT_TRUE(window.comesToShow({}));

  write(folder_ / "picture.png", onePixelPng());
  const std::string picture = folder_ / "picture.png";
  change(
      {"create", "Work", "--colour", "#ff8000", "--picture", picture, "--member", "Ann Larkspur"});
  EXPECT_TRUE(window.comesToShow({"Work"}));
  EXPECT_EQ(group("Work")["markerCode"], "ff8000ff");
  EXPECT_TRUE(exists(pictures() / (identifierOf("Work") + ".png")));

  change({"add-member", "Work", "eve@example.com", "any;+;chat300"});
  EXPECT_EQ(group("Work")["members"].size(), 3U);
  change({"remove-member", "Work", "Ann Larkspur"});
  EXPECT_EQ(group("Work")["members"].size(), 2U);

  change({"edit", "Work", "--title", "Play", "--protect"});
  EXPECT_TRUE(window.comesToShow({"Play"}));

  // From now on a finger is asked for.
  nextFinger("verify-no-match!");
  expectRefused({"edit", "Play", "--title", "Open"},
                "Group 'Play' is protected. Please authenticate uisng your finger print.");
  nextFinger("verify-match!");
  change({"edit", "Play", "--title", "Games"});
  EXPECT_TRUE(window.comesToShow({"Games"}));

  change({"activate", "Games"});
  EXPECT_EQ(group("Games")["active"], true);
  change({"activate", "All"});
  nextFinger("verify-match!");
  change({"disable", "Games"});
  EXPECT_EQ(group("Games")["enabled"], false);

  const std::string file = folder_ / "groups.json";
  nextFinger("verify-match!");
  change({"export", file});
  nextFinger("verify-match!");
  change({"delete", "Games", "--yes"});
  EXPECT_TRUE(window.comesToShow({}));
  change({"import", file});
  EXPECT_TRUE(window.comesToShow({"Games"}));
  EXPECT_EQ(group("Games")["members"].size(), 2U);

  change({"restore", "last"});
  EXPECT_TRUE(window.comesToShow({}));
}

}  // namespace
}  // namespace zephyl::app::test
