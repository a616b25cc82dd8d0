// How the system shell comes and goes.

#include <csignal>
#include <cstdlib>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"

#include "apps/springboard/ShellTest.h"
#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/notices/NotificationService_testing.h"
#include "model/ZPSettings.h"

namespace zephyl::app::test {
namespace {

using ::testing::HasSubstr;

using ShellLifeTest = ShellTest;

TEST_F(ShellLifeTest, TellsWhichDeviceItServes) {
  const auto shell = start();
  EXPECT_EQ(center_.servedDevice(kLong), device_);
}

TEST_F(ShellLifeTest, ASecondOneOfTheSameDeviceEndsAtOnce) {
  const auto shell = start();
  const auto second = spawn();
  EXPECT_EQ(second->wait(kLong), 0);
  EXPECT_THAT(shellLog(), HasSubstr("served already"));
  EXPECT_TRUE(isServed());
  EXPECT_EQ(shell->wait(0ms), std::nullopt);
}

TEST_F(ShellLifeTest, AnotherDeviceHasAShellOfItsOwn) {
  const auto shell = start();
  const std::string other = folder_.path() + "/other";
  const auto second = spawnWith({ZEPHYLS_SHELL, "--device", other});
  linux_host::BusMessagingCenter center(connection_, shellAddressOf(other).center, log_);
  while (!center.servedDevice(kLong) && !second->wait(1ms)) {
  }
  EXPECT_EQ(center.servedDevice(kLong), other);
  EXPECT_EQ(center_.servedDevice(kLong), device_);
}

TEST_F(ShellLifeTest, ASignalEndsItAndFreesTheName) {
  for (const int signal : {SIGTERM, SIGINT}) {
    const auto shell = start();
    shell->signal(signal);
    EXPECT_EQ(shell->wait(kLong), 0);
    EXPECT_FALSE(isServed());
  }
}

TEST_F(ShellLifeTest, EndsWhenNobodyHasAskedForLong) {
  const auto shell = start({"--idle-exit", "1"});
  EXPECT_EQ(shell->wait(kLong), 0);
  EXPECT_FALSE(isServed());
}

TEST_F(ShellLifeTest, ABusThatGoesAwayEndsItWithALine) {
  const auto shell = start();
  bus_.kill();
  EXPECT_EQ(shell->wait(kLong), 1);
  EXPECT_THAT(shellLog(), HasSubstr("the message bus has gone"));
}

TEST_F(ShellLifeTest, WithoutABusThereIsNothingToServe) {
  for (const char* address : {"", "unix:path=/nonexistent/bus"}) {
    environment_["DBUS_SESSION_BUS_ADDRESS"] = address;
    EXPECT_EQ(spawn()->wait(kLong), 1);
    EXPECT_THAT(shellLog(), HasSubstr("there is no message bus"));
  }
}

TEST_F(ShellLifeTest, ADeviceThatCannotBeMadeIsAnError) {
  folder_.put("/device", "a file");
  EXPECT_EQ(spawn()->wait(kLong), 1);
  EXPECT_THAT(shellLog(), HasSubstr("cannot make the device root"));
}

TEST_F(ShellLifeTest, TheBusStartsItForTheDeviceOfTheHome) {
  folder_.put("/services/com.vantor.zephyls.service",
              "[D-BUS Service]\nName=com.vantor.zephyls\nExec=/usr/bin/env -u XDG_DATA_HOME HOME=" +
                  folder_.path() + "/home " + ZEPHYLS_SHELL + " --idle-exit 60\n");
  PrivateBus bus(PrivateBus::Kind::kSession, folder_.path() + "/services");
  const auto connection = std::make_shared<linux_host::SessionBus>(bus.address());
  const QDBusMessage started =
      connection->callBus("StartServiceByName", {QString("com.vantor.zephyls"), 0U}, kLong);
  EXPECT_EQ(started.type(), QDBusMessage::ReplyMessage) << started.errorMessage().toStdString();
  linux_host::BusMessagingCenter center(
      connection, {kZephylsMessageCenter, "com.vantor.zephyls", "/com/vantor/zephyls"}, log_);
  EXPECT_EQ(center.servedDevice(kLong), folder_.path() + "/home/.local/share/zephyls/device");
  EXPECT_EQ(center.ask(kGetGroupsMessage, nullptr).reply, Dictionary());
}

TEST_F(ShellLifeTest, ReadsItsConfigurationFile) {
  folder_.put("/home/.config/zephyls/springboard.conf",
              "device = \"" + device_ + "\"\nios = 13.4\n");
  const auto shell = spawnWith({ZEPHYLS_SHELL});
  EXPECT_TRUE(comesToServe(*shell)) << shellLog();
}

TEST_F(ShellLifeTest, WhatItsConfigurationFileSaysWronglyIsToldWithTheFile) {
  const std::string file = "/home/.config/zephyls/springboard.conf";
  for (const char* line : {"colour = blue", "idle-exit = soon", "ios = new", "[device"}) {
    folder_.put(file, line);
    EXPECT_EQ(spawn()->wait(kLong), 2) << line;
    EXPECT_THAT(shellLog(), HasSubstr(file)) << line;
  }
}

TEST_F(ShellLifeTest, UnknownWordsAreAnError) {
  EXPECT_EQ(spawn({"--nonsense"})->wait(kLong), 2);
  EXPECT_EQ(spawn({"--idle-exit", "-1"})->wait(kLong), 2);
  EXPECT_EQ(spawn({"--device", ""})->wait(kLong), 2);
}

// On its way from the database to the desktop.
TEST_F(ShellLifeTest, ANewMessageIsAnnounced) {
  linux_host::LinuxDispatch dispatch;
  linux_host::NotificationService notices(bus_.address(), {"body"});
  folder_.put("/device/var/mobile/Library/Preferences/com.vantor.zephyls.plist",
              writeXmlPropertyList(Dictionary{{settings_keys::kEnabled, true}}));
  const std::string file = folder_.path() + "/sms.db";
  linux_host::TestDatabase database(file, linux_host::kMiddleSchema);
  database.run(
      "INSERT INTO handle(ROWID, id, service) VALUES (1, '+15555550101', 'SMS');"
      "INSERT INTO chat(ROWID, guid, style, chat_identifier, service_name) VALUES"
      " (1, 'SMS;-;+15555550101', 45, '+15555550101', 'SMS');"
      "INSERT INTO chat_handle_join VALUES (1, 1);");
  const auto shell = start({"--messages", file});
  database.run(
      "BEGIN; INSERT INTO message(ROWID, guid, text, handle_id, is_finished) VALUES"
      " (1, 'new', 'Hello', 1, 1); INSERT INTO chat_message_join VALUES (1, 1, 0); COMMIT;");
  EXPECT_TRUE(dispatch.runMainUntil([&] { return !notices.shown().empty(); }, kLong)) << shellLog();
  if (!notices.shown().empty()) {
    EXPECT_EQ(notices.shown().front().arguments().value(4).toString().toStdString(), "Hello");
  }
}

}  // namespace
}  // namespace zephyl::app::test
