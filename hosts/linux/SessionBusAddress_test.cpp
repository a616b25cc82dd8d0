#include "hosts/linux/SessionBusAddress.h"

#include <QByteArray>
#include <string>

#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::linux_host {
namespace {

class SessionBusAddressTest : public ::testing::Test {
 protected:
  SessionBusAddressTest() {
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("XDG_RUNTIME_DIR");
  }
  ~SessionBusAddressTest() override {
    qputenv("DBUS_SESSION_BUS_ADDRESS", named_);
    qputenv("XDG_RUNTIME_DIR", runtimeFolder_);
  }

  contract::TemporaryFolder folder_;

 private:
  const QByteArray named_ = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  const QByteArray runtimeFolder_ = qgetenv("XDG_RUNTIME_DIR");
};

TEST_F(SessionBusAddressTest, WithoutAnythingThereIsNone) {
  EXPECT_EQ(sessionBusAddress(), std::nullopt);
  qputenv("DBUS_SESSION_BUS_ADDRESS", "");
  qputenv("XDG_RUNTIME_DIR", folder_.path().c_str());
  EXPECT_EQ(sessionBusAddress(), std::nullopt);
}

TEST_F(SessionBusAddressTest, TheEnvironmentNamesIt) {
  folder_.put("/bus", "");
  qputenv("XDG_RUNTIME_DIR", folder_.path().c_str());
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/somewhere");
  EXPECT_EQ(sessionBusAddress(), "unix:path=/somewhere");
}

TEST_F(SessionBusAddressTest, ElseItIsInTheRuntimeFolder) {
  folder_.put("/bus", "");
  folder_.put("/a b%/bus", "");
  qputenv("XDG_RUNTIME_DIR", folder_.path().c_str());
  EXPECT_EQ(sessionBusAddress(), "unix:path=" + folder_.path() + "/bus");
  qputenv("XDG_RUNTIME_DIR", (folder_.path() + "/a b%").c_str());
  EXPECT_EQ(sessionBusAddress(), "unix:path=" + folder_.path() + "/a%20b%25/bus");
}

TEST_F(SessionBusAddressTest, NoneIsStarted) {
  qputenv("DBUS_SESSION_BUS_ADDRESS", "autolaunch:");
  EXPECT_EQ(sessionBusAddress(), std::nullopt);
}

}  // namespace
}  // namespace zephyl::linux_host
