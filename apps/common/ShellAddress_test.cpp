#include "apps/common/ShellAddress.h"

#include <cstdlib>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::app {
namespace {

class ShellAddressTest : public ::testing::Test {
 protected:
  ShellAddressTest() { setenv("HOME", home_.path().c_str(), 1); }
  ~ShellAddressTest() override {
    setenv("HOME", oldHome_.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
  }

  [[nodiscard]] std::string ofHome() const { return home_.path() + "/.local/share/zephyls/device"; }

  contract::TemporaryFolder home_;
  const std::string oldHome_ = std::getenv("HOME") == nullptr ? "" : std::getenv("HOME");
};

TEST_F(ShellAddressTest, TheDeviceOfTheHomeHasThePlainNames) {
  const ShellAddress address = shellAddressOf(ofHome());
  EXPECT_EQ(address.center.center, "com.vantor.zephyls");
  EXPECT_EQ(address.center.service, "com.vantor.zephyls");
  EXPECT_EQ(address.center.path, "/com/vantor/zephyls");
  EXPECT_EQ(address.notifications, "/com/vantor/zephyls/notify");
  EXPECT_EQ(address.device, ofHome());
}

TEST_F(ShellAddressTest, OtherDevicesHaveNamesOfTheirOwn) {
  const ShellAddress one = shellAddressOf("/nonexistent/one");
  const ShellAddress two = shellAddressOf("/nonexistent/two");
  EXPECT_EQ(one.center.center, "com.vantor.zephyls");
  // The hash must never change: programs of several versions meet on one bus.
  EXPECT_EQ(one.center.service, "com.vantor.zephyls.d3d65c5bca1ad48de");
  EXPECT_EQ(one.center.path, "/com/vantor/zephyls/d3d65c5bca1ad48de");
  EXPECT_EQ(one.notifications, "/com/vantor/zephyls/d3d65c5bca1ad48de/notify");
  EXPECT_NE(two.center.service, one.center.service);
  EXPECT_NE(two.notifications, one.notifications);
}

TEST_F(ShellAddressTest, OneFolderHasOneAddressHoweverItIsSpelt) {
  std::filesystem::create_directories(ofHome());
  std::filesystem::create_symlink(ofHome(), home_.path() + "/link");
  for (const std::string& spelling : {ofHome() + "/", ofHome() + "/../device", ofHome() + "//",
                                      home_.path() + "/link", home_.path() + "/link/."}) {
    EXPECT_EQ(shellAddressOf(spelling).device, ofHome()) << spelling;
    EXPECT_EQ(shellAddressOf(spelling).center.service, "com.vantor.zephyls") << spelling;
  }
}

TEST_F(ShellAddressTest, AFolderThatIsNamedForDataIsNotTheHome) {
  setenv("XDG_DATA_HOME", (home_.path() + "/data").c_str(), 1);
  EXPECT_NE(shellAddressOf(home_.path() + "/data/zephyls/device").center.service,
            "com.vantor.zephyls");
  EXPECT_EQ(shellAddressOf(ofHome()).center.service, "com.vantor.zephyls");
}

}  // namespace
}  // namespace zephyl::app
