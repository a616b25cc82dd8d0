// Runs the system shell as the session does: a process of its own, on a message bus and in a home
// of the test's own.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "apps/common/ShellAddress.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/MessageCenterAddress.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/testing/ChildProcess.h"
#include "hosts/linux/testing/PrivateBus.h"
#include "model/ZephylKeys.h"

namespace zephyl::app::test {

using namespace std::chrono_literals;
using zephyl::test::ChildOptions;
using zephyl::test::ChildProcess;
using zephyl::test::contentOf;
using zephyl::test::PrivateBus;

class ShellTest : public ::testing::Test {
 protected:
  static constexpr auto kLong = 10s;

  ShellTest() {
    environment_ = {{"HOME", folder_.path() + "/home"},
                    {"LANG", "C.UTF-8"},
                    {"DBUS_SESSION_BUS_ADDRESS", bus_.address()}};
  }

  // Not waited for. On the device of the test, its log in `shellLog`.
  [[nodiscard]] std::unique_ptr<ChildProcess> spawn(std::vector<std::string> words = {}) const {
    words.insert(words.begin(), {ZEPHYLS_SHELL, "--device", device_, "--verbose"});
    return spawnWith(words);
  }
  [[nodiscard]] std::unique_ptr<ChildProcess> spawnWith(
      const std::vector<std::string>& words) const {
    ChildOptions options;
    options.inheritsEnvironment = false;
    options.environment = environment_;
    options.outputFile = folder_.path() + "/out";
    options.errorFile = folder_.path() + "/log";
    return std::make_unique<ChildProcess>(words, options);
  }
  [[nodiscard]] std::string shellLog() const { return contentOf(folder_.path() + "/log"); }

  // Serves when this returns.
  [[nodiscard]] std::unique_ptr<ChildProcess> start(std::vector<std::string> words = {}) {
    auto shell = spawn(std::move(words));
    EXPECT_TRUE(comesToServe(*shell)) << shellLog();
    return shell;
  }
  bool comesToServe(ChildProcess& shell) {
    const auto start = std::chrono::steady_clock::now();
    while (!isServed()) {
      if (shell.wait(1ms) || std::chrono::steady_clock::now() - start > kLong) {
        return false;
      }
    }
    return true;
  }
  [[nodiscard]] bool isServed() { return center_.servedDevice(kLong).has_value(); }

  // The whole reply.
  std::optional<Dictionary> ask(const char* message, const Dictionary* userInfo = nullptr) {
    return center_.ask(message, userInfo).reply;
  }
  std::optional<Dictionary> ask(const char* message, const Value& data) {
    const Dictionary userInfo{{kServiceMessageData, data}};
    return ask(message, &userInfo);
  }
  // Without waiting for the reply.
  [[nodiscard]] QDBusPendingCall askLater(const char* message, const Value& data) const {
    const Data bytes = writeBinaryPropertyList(Dictionary{{kServiceMessageData, data}});
    QDBusMessage request = QDBusMessage::createMethodCall(
        QString::fromStdString(address_.center.service),
        QString::fromStdString(address_.center.path), linux_host::kMessageCenterInterface,
        linux_host::kSendMethod);
    request << message
            << QByteArray(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<qsizetype>(bytes.size()));
    return connection_->connection().asyncCall(request);
  }
  // The reply that says only this.
  static std::optional<Dictionary> saying(const Value& data) {
    return Dictionary{{kServiceMessageData, data}};
  }

  contract::TemporaryFolder folder_;
  PrivateBus bus_;
  const std::string device_ = folder_.path() + "/device";
  const ShellAddress address_ = shellAddressOf(device_);
  std::map<std::string, std::string> environment_;
  fake::FakeSystemLog log_;
  const std::shared_ptr<linux_host::SessionBus> connection_ =
      std::make_shared<linux_host::SessionBus>(bus_.address());
  linux_host::BusMessagingCenter center_{connection_, address_.center, log_};
};

}  // namespace zephyl::app::test
