// Notices against a notification service of the test's own, on a bus of its own.

#include "hosts/linux/notices/DesktopNotices.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantMap>
#include <chrono>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/notices/NotificationService_testing.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr auto kLimit = 10s;

class DesktopNoticesTest : public ::testing::Test {
 protected:
  explicit DesktopNoticesTest() { start(bus_.address()); }

  void start(const std::string& address) {
    notices_.emplace(DesktopNotices::Options{.programName = "Messages",
                                             .desktopEntry = "org.example.Messages",
                                             .busAddress = address,
                                             .log = [this](const std::string& line) {
                                               const std::lock_guard lock(mutex_);
                                               log_.push_back(line);
                                             }});
  }
  void serve(const QStringList& capabilities = {"body"}, uint firstNumber = 7) {
    service_.reset();
    service_.emplace(bus_.address(), capabilities, firstNumber);
  }

  // Whether the service was asked for so many notices in all.
  bool areShown(std::size_t count) {
    return dispatch_.runMainUntil([&] { return service_->shown().size() >= count; }, kLimit);
  }
  std::vector<std::string> log() {
    const std::lock_guard lock(mutex_);
    return log_;
  }
  // Events may not come from a log that is written on another thread.
  bool isLogged(std::size_t lines) {
    const auto end = std::chrono::steady_clock::now() + kLimit;
    while (log().size() < lines && std::chrono::steady_clock::now() < end) {
      dispatch_.runMainUntil([] { return false; }, 1ms);
    }
    return log().size() >= lines;
  }

  test::PrivateBus bus_;
  LinuxDispatch dispatch_;
  std::mutex mutex_;
  std::vector<std::string> log_;
  std::optional<NotificationService> service_;
  std::optional<DesktopNotices> notices_;
};

TEST_F(DesktopNoticesTest, SaysWhatItIsAndFromWhom) {
  serve();
  notices_->show({.about = "chat", .title = "Ann", .body = "hello"});
  ASSERT_TRUE(areShown(1));
  const QDBusMessage& call = service_->shown().front();
  EXPECT_EQ(call.interface().toStdString(), "org.freedesktop.Notifications");
  EXPECT_EQ(call.signature().toStdString(), "susssasa{sv}i");
  EXPECT_EQ(call.arguments().at(0).toString().toStdString(), "Messages");
  EXPECT_EQ(call.arguments().at(3).toString().toStdString(), "Ann");
  EXPECT_EQ(call.arguments().at(4).toString().toStdString(), "hello");
  const auto hints = qdbus_cast<QVariantMap>(call.arguments().at(6));
  EXPECT_EQ(hints.value("category").toString().toStdString(), "im.received");
  EXPECT_EQ(hints.value("desktop-entry").toString().toStdString(), "org.example.Messages");
}

TEST_F(DesktopNoticesTest, TakesThePlaceOfTheEarlierOneAboutTheSame) {
  serve();
  for (const char* about : {"one", "two", "one", "two", "three"}) {
    notices_->show({.about = about, .title = about, .body = ""});
    ASSERT_TRUE(areShown(service_->shown().size() + 1));
  }
  EXPECT_THAT(service_->replaced(), ElementsAre(0U, 0U, 7U, 8U, 0U));
}

TEST_F(DesktopNoticesTest, EscapesForAServiceThatTakesMarkup) {
  serve({"body", "body-markup"});
  notices_->show({.about = "chat", .title = "<Ann>", .body = "<b>1 & 2"});
  ASSERT_TRUE(areShown(1));
  EXPECT_THAT(service_->titles(), ElementsAre("<Ann>"));
  EXPECT_THAT(service_->bodies(), ElementsAre("&lt;b&gt;1 &amp; 2"));
}

TEST_F(DesktopNoticesTest, DoesNotEscapeForAServiceThatShowsTextAsItIs) {
  serve({"body"});
  notices_->show({.about = "chat", .title = "Ann", .body = "<b>1 & 2"});
  ASSERT_TRUE(areShown(1));
  EXPECT_THAT(service_->bodies(), ElementsAre("<b>1 & 2"));
}

TEST_F(DesktopNoticesTest, ANewServiceIsAskedAnewAndReplacesNothing) {
  serve({"body"});
  notices_->show({.about = "chat", .title = "Ann", .body = "<1>"});
  ASSERT_TRUE(areShown(1));
  serve({"body", "body-markup"}, /*firstNumber=*/1);
  notices_->show({.about = "chat", .title = "Ann", .body = "<2>"});
  ASSERT_TRUE(areShown(1));
  EXPECT_THAT(service_->replaced(), ElementsAre(0U));
  EXPECT_THAT(service_->bodies(), ElementsAre("&lt;2&gt;"));
}

TEST_F(DesktopNoticesTest, WaitsForAnAnswerBeforeTheNextAndShowsOnlyTheLatestOfEach) {
  serve();
  service_->setSilent();
  notices_->show({.about = "first", .title = "1", .body = ""});
  ASSERT_TRUE(areShown(1));
  for (const char* title : {"2", "3", "4"}) {
    notices_->show({.about = "same", .title = title, .body = ""});
  }
  notices_->show({.about = "other", .title = "5", .body = ""});
  service_->answer();
  ASSERT_TRUE(areShown(3));
  EXPECT_THAT(service_->titles(), ElementsAre("1", "4", "5"));
}

TEST_F(DesktopNoticesTest, OfTooManyThatWaitTheOldestAreDropped) {
  serve();
  service_->setSilent();
  notices_->show({.about = "first", .title = "first", .body = ""});
  ASSERT_TRUE(areShown(1));
  for (std::size_t i = 0; i <= DesktopNotices::kMostWaiting; ++i) {
    notices_->show({.about = std::to_string(i), .title = std::to_string(i), .body = ""});
  }
  service_->answer();
  ASSERT_TRUE(areShown(1 + DesktopNotices::kMostWaiting));
  EXPECT_EQ(service_->titles().at(1), "1");
  EXPECT_EQ(service_->titles().back(), std::to_string(DesktopNotices::kMostWaiting));
}

TEST_F(DesktopNoticesTest, WithoutAServiceOneLineIsLoggedAndLaterItWorks) {
  notices_->show({.about = "1", .title = "secret", .body = "secret"});
  ASSERT_TRUE(isLogged(1));
  notices_->show({.about = "2", .title = "secret", .body = "secret"});
  serve();
  notices_->show({.about = "3", .title = "shown", .body = "shown"});
  // The second may have waited until there was a service.
  EXPECT_TRUE(dispatch_.runMainUntil(
      [&] { return !service_->shown().empty() && service_->titles().back() == "shown"; }, kLimit));
  EXPECT_THAT(log(), ElementsAre("no notices of new messages on the desktop: "
                                 "org.freedesktop.DBus.Error.ServiceUnknown"));
}

TEST_F(DesktopNoticesTest, WhatAServiceRefusesIsNotLogged) {
  serve();
  service_->setFails(true);
  notices_->show({.about = "1", .title = "secret", .body = "secret"});
  ASSERT_TRUE(isLogged(1));
  EXPECT_THAT(log(), ElementsAre("no notices of new messages on the desktop: org.example.Refused"));
  service_->setFails(false);
  notices_->show({.about = "2", .title = "shown", .body = ""});
  ASSERT_TRUE(areShown(2));
}

TEST_F(DesktopNoticesTest, WithoutABusNobodyWaits) {
  for (const std::string address : {"", "unix:path=/nonexistent/bus", "rubbish"}) {
    start(address);
    const std::size_t before = log().size();
    for (const char* about : {"1", "2"}) {
      notices_->show({.about = about, .title = "secret", .body = "secret"});
    }
    ASSERT_TRUE(isLogged(before + 1)) << address;
  }
  notices_.reset();
  EXPECT_THAT(log(), SizeIs(3));
  for (const std::string& line : log()) {
    EXPECT_THAT(line, HasSubstr("no notices")) << line;
  }
}

TEST_F(DesktopNoticesTest, ABusThatBreaksIsLoggedAndNobodyWaits) {
  serve();
  notices_->show({.about = "1", .title = "shown", .body = ""});
  ASSERT_TRUE(areShown(1));
  bus_.kill();
  notices_->show({.about = "2", .title = "secret", .body = ""});
  ASSERT_TRUE(isLogged(1));
}

TEST_F(DesktopNoticesTest, NobodyWaitsForAServiceThatIsSilent) {
  serve();
  service_->setSilent();
  notices_->show({.about = "1", .title = "1", .body = ""});
  ASSERT_TRUE(areShown(1));
  bus_.freeze();
  notices_->show({.about = "2", .title = "2", .body = ""});
  notices_.reset();
  bus_.thaw();
  EXPECT_THAT(service_->shown(), SizeIs(1));
}

TEST_F(DesktopNoticesTest, NobodyWaitsLongForABusThatHangsBeforeTheFirstNotice) {
  bus_.freeze();
  notices_->show({.about = "1", .title = "secret", .body = "secret"});
  // Well under the time after which the library for the bus gives up.
  const bool isTold = isLogged(1);
  bus_.thaw();
  EXPECT_TRUE(isTold);
  EXPECT_THAT(log(), ElementsAre("no notices of new messages on the desktop: "
                                 "the session bus does not answer"));
}

}  // namespace
}  // namespace zephyl::linux_host
