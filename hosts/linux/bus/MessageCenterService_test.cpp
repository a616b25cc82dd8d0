#include "hosts/linux/bus/MessageCenterService.h"

#include <QByteArray>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <atomic>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

#include "platform/foundation/PropertyList.h"

#include "hosts/linux/bus/BusTest.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MessageCenterServiceTest : public BusTest {
 protected:
  static QDBusMessage request(const QVariantList& arguments, const char* method) {
    QDBusMessage message = QDBusMessage::createMethodCall(
        "com.example.service", "/com/example/center", kMessageCenterInterface, method);
    message.setArguments(arguments);
    return message;
  }

  // What the service answers.
  QDBusMessage call(const QVariantList& arguments, const char* method = kSendMethod) {
    return connection_->call(request(arguments, method), 10s);
  }

  std::shared_ptr<SessionBus> connection_ = connect();
};

TEST_F(MessageCenterServiceTest, TheFormOnTheBusIsANameAndAPropertyListBothWays) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) {
    return Dictionary{{"a", 1}};
  });
  const QDBusMessage answer = call({"get", QByteArray()});
  ASSERT_EQ(answer.signature(), "bay");
  EXPECT_TRUE(answer.arguments().at(0).toBool());
  const QByteArray bytes = answer.arguments().at(1).toByteArray();
  EXPECT_TRUE(bytes.startsWith("bplist00"));
  EXPECT_EQ(readPropertyList(bytes.toStdString()).value(), Value(Dictionary{{"a", 1}}));
}

TEST_F(MessageCenterServiceTest, NoReplyIsToldFromAnEmptyOne) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) { return std::nullopt; });
  const QDBusMessage answer = call({"get", QByteArray()});
  ASSERT_EQ(answer.signature(), "bay");
  EXPECT_FALSE(answer.arguments().at(0).toBool());
  EXPECT_TRUE(answer.arguments().at(1).toByteArray().isEmpty());
}

TEST_F(MessageCenterServiceTest, RequestsThatMakeNoSenseReachNoHandler) {
  std::atomic<int> calls = 0;
  const auto server = serve({"", kMaximumBytes, {}, {}});
  server->answer("com.example.center", "save", [&](const Dictionary*) {
    ++calls;
    return Dictionary();
  });
  const std::vector<QVariantList> strange = {{},
                                             {"save"},
                                             {"save", "text"},
                                             {5, QByteArray()},
                                             {"save", QByteArray(), 1},
                                             {"save", QByteArray("nonsense")},
                                             {"save", QByteArray(2000, 'x')}};
  for (std::size_t i = 0; i < strange.size(); ++i) {
    EXPECT_EQ(call(strange[i]).type(), QDBusMessage::ErrorMessage) << i;
    EXPECT_EQ(serverLog_.lines().size(), i + 1) << i;
  }
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(call({"save", QByteArray()}).type(), QDBusMessage::ReplyMessage);
  EXPECT_EQ(calls, 1);
}

TEST_F(MessageCenterServiceTest, AMessageThatIsNotServedHasNoReplyAndALine) {
  const auto server = serve();
  const QDBusMessage answer = call({QString(1000, 'n'), QByteArray()});
  ASSERT_EQ(answer.signature(), "bay");
  EXPECT_FALSE(answer.arguments().at(0).toBool());
  ASSERT_THAT(serverLog_.lines(), ElementsAre(HasSubstr("nnn")));
  EXPECT_LT(serverLog_.lines().front().size(), 200U);
}

TEST_F(MessageCenterServiceTest, AnUnknownMethodIsAnError) {
  const auto server = serve();
  EXPECT_EQ(call({}, "Nothing").type(), QDBusMessage::ErrorMessage);
  EXPECT_EQ(call({}, kDeviceMethod).type(), QDBusMessage::ReplyMessage);
}

TEST_F(MessageCenterServiceTest, OtherCentersAreRefused) {
  const auto server = serve();
  server->answer("com.example.other", "get", [](const Dictionary*) { return Dictionary(); });
  EXPECT_THAT(serverLog_.lines(), ElementsAre(HasSubstr("com.example.other")));
  EXPECT_FALSE(call({"get", QByteArray()}).arguments().at(0).toBool());
}

TEST_F(MessageCenterServiceTest, AHandlerThatThrowsGivesNoReply) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) -> std::optional<Dictionary> {
    throw std::runtime_error("out of paper");
  });
  EXPECT_FALSE(call({"get", QByteArray()}).arguments().at(0).toBool());
  EXPECT_THAT(serverLog_.lines(), ElementsAre(AllOf(HasSubstr("get"), HasSubstr("out of paper"))));
}

TEST_F(MessageCenterServiceTest, OnlyTheSameUserIsServed) {
  std::atomic<bool> reached = false;
  std::atomic<int> asked = 0;
  std::atomic<std::int64_t> user = static_cast<std::int64_t>(::geteuid()) + 1;
  MessageCenterService::Options options;
  options.device = "/device";
  options.userOf = [&](const std::string& connection) -> std::optional<std::uint32_t> {
    ++asked;
    EXPECT_EQ(connection.front(), ':');
    return user < 0 ? std::nullopt
                    : std::optional<std::uint32_t>(static_cast<std::uint32_t>(user.load()));
  };
  const auto server = serve(std::move(options));
  server->answer("com.example.center", "get", [&](const Dictionary*) {
    reached = true;
    return Dictionary();
  });
  EXPECT_EQ(call({"get", QByteArray()}).errorName().toStdString(),
            "org.freedesktop.DBus.Error.AccessDenied");
  EXPECT_EQ(call({}, kDeviceMethod).errorName().toStdString(),
            "org.freedesktop.DBus.Error.AccessDenied");
  EXPECT_EQ(asked, 1);
  connection_ = connect();
  user = -1;
  EXPECT_EQ(call({"get", QByteArray()}).errorName().toStdString(),
            "org.freedesktop.DBus.Error.AccessDenied");
  EXPECT_FALSE(reached);
  EXPECT_EQ(serverLog_.lines().size(), 3U);
  connection_ = connect();
  user = ::geteuid();
  EXPECT_EQ(call({"get", QByteArray()}).type(), QDBusMessage::ReplyMessage);
  EXPECT_TRUE(reached);
}

TEST_F(MessageCenterServiceTest, ThereIsOneServiceOfAName) {
  const auto server = serve();
  MessageCenterService second(connect(), address(), log_, {});
  EXPECT_EQ(second.claimName(), MessageCenterService::Claim::kTaken);
  server->run([](MessageCenterService& service) { service.release(); });
  // Nobody stands in line for it.
  EXPECT_FALSE(client().ask("get", nullptr).isServed);
  EXPECT_EQ(second.claimName(), MessageCenterService::Claim::kOwned);
  EXPECT_EQ(second.claimName(), MessageCenterService::Claim::kOwned);
  bus_.kill();
  EXPECT_EQ(second.claimName(), MessageCenterService::Claim::kFailed);
}

TEST_F(MessageCenterServiceTest, WhatWasSentBeforeTheNameIsGivenBackIsAnswered) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) { return Dictionary(); });
  std::optional<QDBusPendingCall> pending;
  server->run([&](MessageCenterService& service) {
    // The server is at work in here: the request waits for it.
    pending =
        connection_->connection().asyncCall(request({"get", QByteArray()}, kSendMethod), 5000);
    EXPECT_TRUE(connection_->flush(10s));
    service.release();
    pending->waitForFinished();
  });
  ASSERT_EQ(pending->reply().signature(), "bay");
  EXPECT_TRUE(pending->reply().arguments().at(0).toBool());
}

TEST_F(MessageCenterServiceTest, EveryRequestIsTold) {
  std::atomic<int> told = 0;
  MessageCenterService::Options options;
  options.afterRequest = [&] { ++told; };
  const auto server = serve(std::move(options));
  call({"get", QByteArray()});
  call({}, kDeviceMethod);
  server->run([](MessageCenterService& /*service*/) {});
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace zephyl::linux_host
