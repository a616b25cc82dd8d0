// What the tests of the message bus share: a bus of the test's own with a message center on it.

#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/bus/TestServer.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::linux_host {

class BusTest : public ::testing::Test {
 protected:
  static constexpr std::size_t kMaximumBytes = 1000;

  [[nodiscard]] static MessageCenterAddress address() {
    return {"com.example.center", "com.example.service", "/com/example/center"};
  }

  [[nodiscard]] std::shared_ptr<SessionBus> connect() {
    return std::make_shared<SessionBus>(bus_.address());
  }

  // A server whose lines are in `serverLog_`.
  [[nodiscard]] std::unique_ptr<TestServer> serve(MessageCenterService::Options options = {}) {
    return std::make_unique<TestServer>(bus_.address(), address(), serverLog_, std::move(options));
  }

  // A client whose lines are in `log_`.
  [[nodiscard]] BusMessagingCenter client(
      std::chrono::milliseconds wait = std::chrono::seconds(20)) {
    return {connect(), address(), log_, {wait, kMaximumBytes}};
  }

  test::PrivateBus bus_;
  fake::FakeSystemLog log_;
  fake::FakeSystemLog serverLog_;
};

}  // namespace zephyl::linux_host
