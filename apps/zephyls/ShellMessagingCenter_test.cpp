// A program that lives long, and shells that come and go beside it.

#include "apps/zephyls/ShellMessagingCenter.h"

#include <QDBusMessage>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "hosts/linux/bus/SessionBus.h"
#include "hosts/linux/testing/PrivateBus.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// What this process itself answers is told from what a shell does.
class ShellMessagingCenterTest : public ::testing::Test {
 protected:
  ShellMessagingCenterTest() {
    setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
    inProcess_.setHandler(kZephylsMessageCenter, kGetGroupsMessage, [](const Dictionary*) {
      return Dictionary{{"from", "this process"}};
    });
    inProcess_.setHandler("com.example.other", "get", [](const Dictionary*) {
      return Dictionary{{"from", "another"}};
    });
  }
  ~ShellMessagingCenterTest() override {
    setenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
  }

  [[nodiscard]] std::unique_ptr<ShellMessagingCenter> center(
      const std::string& program = ZEPHYLS_SHELL) {
    ShellStart::Options start;
    start.program = program;
    start.iosVersion = "14.0";
    return std::make_unique<ShellMessagingCenter>(
        connection_, address_, std::move(start), inProcess_, log_,
        [this](const std::string& message) { told_.push_back(message); });
  }
  static std::optional<Dictionary> getFrom(ShellMessagingCenter& center) {
    return center.sendMessageAndReceiveReplyName(kZephylsMessageCenter, kGetGroupsMessage, nullptr);
  }
  static Dictionary fromThisProcess() { return {{"from", "this process"}}; }

  void endShell() {
    const QDBusMessage answer = connection_->callBus(
        "GetConnectionUnixProcessID", {QString::fromStdString(address_.center.service)}, 10s);
    ASSERT_EQ(answer.signature(), "u");
    kill(static_cast<pid_t>(answer.arguments().at(0).toUInt()), SIGTERM);
    linux_host::BusMessagingCenter client(connection_, address_.center, log_);
    const auto start = std::chrono::steady_clock::now();
    while (client.servedDevice(10s)) {
      ASSERT_LT(std::chrono::steady_clock::now() - start, 10s);
    }
  }

  contract::TemporaryFolder folder_;
  test::PrivateBus bus_;
  fake::FakeSystemLog log_;
  const ShellAddress address_ = shellAddressOf(folder_.path() + "/device");
  linux_host::InProcessMessagingCenter inProcess_{log_};
  const std::shared_ptr<linux_host::SessionBus> connection_ =
      std::make_shared<linux_host::SessionBus>(bus_.address());
  std::vector<std::string> told_;
};

TEST_F(ShellMessagingCenterTest, AShellThatWasIdleIsFollowedByAnother) {
  const auto program = center();
  EXPECT_EQ(getFrom(*program), Dictionary());
  endShell();
  EXPECT_EQ(getFrom(*program), Dictionary());
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(ShellMessagingCenterTest, WhereNoShellCanBeStartedTheUserIsToldOnce) {
  for (const char* program : {"/nonexistent/shell", "/bin/false"}) {
    told_.clear();
    const auto alone = center(program);
    EXPECT_EQ(getFrom(*alone), fromThisProcess());
    EXPECT_EQ(getFrom(*alone), fromThisProcess());
    EXPECT_THAT(told_, ElementsAre(HasSubstr(program)));
  }
}

TEST_F(ShellMessagingCenterTest, WhoeverHasTheNameAndSaysNothingSensibleIsLeftToIt) {
  // Nothing is served at the path, and nobody else may take the groups for his own.
  ASSERT_EQ(connection_
                ->callBus("RequestName", {QString::fromStdString(address_.center.service), 4U}, 10s)
                .arguments()
                .value(0)
                .toUInt(),
            1U);
  const auto program = center();
  EXPECT_EQ(getFrom(*program), std::nullopt);
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_EQ(log_.lines().size(), 1U);
}

TEST_F(ShellMessagingCenterTest, OtherCentersAreThoseOfThisProcess) {
  const auto program = center();
  EXPECT_EQ(program->sendMessageAndReceiveReplyName("com.example.other", "get", nullptr),
            Dictionary({{"from", "another"}}));
  linux_host::BusMessagingCenter client(connection_, address_.center, log_);
  EXPECT_EQ(client.servedDevice(10s), std::nullopt);
}

TEST_F(ShellMessagingCenterTest, WithoutABusThisProcessAnswersSilently) {
  const auto noBus = std::make_shared<linux_host::SessionBus>("unix:path=/nonexistent/bus");
  ShellStart::Options start;
  start.program = ZEPHYLS_SHELL;
  ShellMessagingCenter program(noBus, address_, std::move(start), inProcess_, log_,
                               [this](const std::string& message) { told_.push_back(message); });
  EXPECT_EQ(getFrom(program), fromThisProcess());
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

}  // namespace
}  // namespace zephyl::app
