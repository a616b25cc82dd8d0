#include <utility>

#include "platform/Host.h"

#include "hosts/contract/ScreenUnderTest.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/screen/EventLoop_testing.h"
#include "hosts/linux/screen/HeadlessInput.h"
#include "hosts/linux/screen/LinuxUIKit.h"

namespace zephyl::contract {

namespace {

class LinuxScreenUnderTest : public ScreenUnderTest {
 public:
  explicit LinuxScreenUnderTest(bool rightToLeft) : device_(options(rightToLeft)) {
    install(device_);
  }
  ~LinuxScreenUnderTest() override { uninstall(); }
  LinuxScreenUnderTest(const LinuxScreenUnderTest&) = delete;
  LinuxScreenUnderTest& operator=(const LinuxScreenUnderTest&) = delete;

  UIKitHost& kit() override { return *device_.uikit(); }

  bool passTimeUntil(const std::function<bool()>& condition) override {
    return linux_host::runUntil(condition);
  }

  void makeDark() override { screen().setStyle(UIUserInterfaceStyle::kDark); }
  void resize(double width, double height) override {
    screen().setGeometry({width, height}, screen().scale());
  }

  void cancelPicking() override {}
  TextInputClient* typedInto() override {
    return static_cast<linux_host::HeadlessTextInput&>(kit().textInput()).client();
  }

 private:
  [[nodiscard]] linux_host::LinuxScreen& screen() {
    return static_cast<linux_host::LinuxUIKit&>(*device_.uikit()).screen();
  }
  linux_host::DeviceOptions options(bool rightToLeft) {
    linux_host::UIKitOptions kit;
    kit.screen.rightToLeft = rightToLeft;
    linux_host::DeviceOptions options;
    options.deviceRoot = root_.path();
    options.uikit = std::make_unique<linux_host::LinuxUIKit>(std::move(kit));
    return options;
  }

  TemporaryFolder root_;
  linux_host::LinuxDevice device_;
};

}  // namespace

ScreenMaker linuxScreenMaker() {
  return {"Linux",
          [](bool rightToLeft) { return std::make_unique<LinuxScreenUnderTest>(rightToLeft); }};
}

}  // namespace zephyl::contract
