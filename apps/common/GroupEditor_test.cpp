// The editor on the Linux device: its picture is stored on a real thread while the screen goes.

#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/Host.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/uikit/FakeUIKit.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/MessageServer.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"
#include "ui/editor/ZephylViewController.h"

namespace zephyl::app {
namespace {

constexpr char kFile[] = "/var/mobile/Library/Preferences/Zephyls/7.png";

class GroupEditorTest : public ::testing::Test {
 protected:
  ~GroupEditorTest() override { stop(); }
  void stop() {
    window_ = nullptr;
    navigation_ = nullptr;
    editor_ = nullptr;
    uninstall();
    device_.reset();
  }
  void start(const std::string& version) {
    linux_host::DeviceOptions options;
    options.deviceRoot = root_.path();
    options.systemVersion = version;
    options.uikit = std::make_unique<fake::FakeUIKit>();
    device_.emplace(std::move(options));
    install(*device_);
    window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
    navigation_ =
        UINavigationController::initWithRootViewController(std::make_shared<UIViewController>());
    window_->setRootViewController(navigation_);
    editor_ = std::make_shared<ZephylViewController>();
    editor_->setZephyl(
        std::make_shared<Zephyl>(static_cast<Dictionary>(test::GroupBuilder(7, "Family"))));
    navigation_->pushViewController(editor_, /*animated=*/false);
    window_->layoutWindow();
  }
  void close() {
    navigation_->popViewControllerAnimated(/*animated=*/false);
    editor_ = nullptr;
  }
  void settle() { ASSERT_TRUE(device_->queues().runMainUntilIdle(std::chrono::minutes(1))); }
  static UIImageRef picture() {
    auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 1, {0xFF102030, 0xFF405060}});
    return std::make_shared<const UIImage>(bitmap, 1);
  }

  contract::TemporaryFolder root_;
  std::optional<linux_host::LinuxDevice> device_;
  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<UINavigationController> navigation_;
  std::shared_ptr<ZephylViewController> editor_;
};

TEST_F(GroupEditorTest, APictureBecomesAFile) {
  start("11.4");
  editor_->updateProfileImage(picture());
  settle();
  EXPECT_TRUE(host().files().fileExistsAtPath(kFile));
  EXPECT_EQ(editor_->zephyl()->headerImagePath(), "7.png");
  EXPECT_TRUE(editor_->navigationItem()->rightBarButtonItem()->isEnabled());
}

TEST_F(GroupEditorTest, TheScreenMayGoWhileThePictureIsWritten) {
  start("11.4");
  for (int time = 0; time < 20; ++time) {
    editor_->updateProfileImage(picture());
  }
  const ZephylRef zephyl = editor_->zephyl();
  close();
  settle();
  EXPECT_TRUE(host().files().fileExistsAtPath(kFile));
  EXPECT_EQ(zephyl->headerImagePath(), "7.png");
}

TEST_F(GroupEditorTest, TheScreenMayGoWhileTheShellStoresThePicture) {
  for (const bool stored : {true, false}) {
    if (device_) {
      stop();
    }
    start("14.0");
    std::promise<void> closed;
    std::future<void> hasClosed = closed.get_future();
    device_->messageServers().setHandler(kZephylsMessageCenter, kSaveImageMessage,
                                         [&](const Dictionary*) -> std::optional<Dictionary> {
                                           hasClosed.wait();
                                           return Dictionary{{kServiceMessageData, stored}};
                                         });
    const ZephylRef zephyl = editor_->zephyl();
    editor_->updateProfileImage(picture());
    const std::weak_ptr<UIViewController> weak = editor_;
    close();
    EXPECT_TRUE(weak.expired());
    closed.set_value();
    settle();
    EXPECT_EQ(zephyl->headerImagePath(), "7.png");
    EXPECT_EQ(navigation_->presentedViewController(), nullptr);
  }
}

}  // namespace
}  // namespace zephyl::app
