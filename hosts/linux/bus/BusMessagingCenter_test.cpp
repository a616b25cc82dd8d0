#include "hosts/linux/bus/BusMessagingCenter.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/foundation/PropertyList.h"

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/BusTest.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using BusMessagingCenterTest = BusTest;

constexpr auto kShort = 300ms;
constexpr auto kLong = 10s;

TEST_F(BusMessagingCenterTest, WithoutAServiceTheRequestReachesNobody) {
  BusMessagingCenter center = client();
  const auto answer = center.ask("get", nullptr);
  EXPECT_FALSE(answer.isServed);
  EXPECT_EQ(answer.reply, std::nullopt);
  EXPECT_EQ(center.servedDevice(kLong), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(BusMessagingCenterTest, WithoutABusTheRequestReachesNobody) {
  BusMessagingCenter center(std::make_shared<SessionBus>("unix:path=/nonexistent/bus"), address(),
                            log_);
  EXPECT_FALSE(center.ask("get", nullptr).isServed);
  EXPECT_EQ(center.servedDevice(kLong), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(BusMessagingCenterTest, OtherCentersAreNotServed) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) { return Dictionary(); });
  BusMessagingCenter center = client();
  EXPECT_EQ(center.sendMessageAndReceiveReplyName("com.example.center", "get", nullptr),
            Dictionary());
  EXPECT_EQ(center.sendMessageAndReceiveReplyName("com.example.other", "get", nullptr),
            std::nullopt);
}

TEST_F(BusMessagingCenterTest, TheServerTellsItsDevice) {
  MessageCenterService::Options options;
  options.device = "/home/ann/groups";
  const auto server = serve(std::move(options));
  EXPECT_EQ(client().servedDevice(kLong), "/home/ann/groups");
}

TEST_F(BusMessagingCenterTest, ATooLargeRequestIsNotSent) {
  const auto server = serve();
  server->answer("com.example.center", "save", [](const Dictionary*) { return Dictionary(); });
  BusMessagingCenter center = client();
  const Dictionary large{{"data", Data(2000)}};
  EXPECT_EQ(center.ask("save", &large).reply, std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("save"), HasSubstr("1000"))));
  const Dictionary small{{"data", Data(100)}};
  EXPECT_EQ(center.ask("save", &small).reply, Dictionary());
}

TEST_F(BusMessagingCenterTest, ATooLargeReplyIsNone) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) {
    return Dictionary{{"data", Data(2000)}};
  });
  EXPECT_EQ(client().ask("get", nullptr).reply, std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("get"), HasSubstr("1000"))));
}

TEST_F(BusMessagingCenterTest, AFrozenServiceIsWaitedForOnlySoLong) {
  std::promise<void> thaw;
  const auto server = serve();
  server->answer("com.example.center", "get", [&](const Dictionary*) {
    thaw.get_future().wait_for(kLong);
    return Dictionary();
  });
  const auto answer = client(kShort).ask("get", nullptr);
  EXPECT_TRUE(answer.isServed);
  EXPECT_FALSE(answer.isInTime);
  EXPECT_EQ(answer.reply, std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("get"), HasSubstr("NoReply"))));
  thaw.set_value();
}

TEST_F(BusMessagingCenterTest, AFrozenBusIsWaitedForOnlySoLong) {
  const auto server = serve();
  server->answer("com.example.center", "get", [](const Dictionary*) { return Dictionary(); });
  BusMessagingCenter center = client(kShort);
  ASSERT_EQ(center.ask("get", nullptr).reply, Dictionary());
  bus_.freeze();
  EXPECT_EQ(center.ask("get", nullptr).reply, std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("NoReply")));
  bus_.thaw();
  EXPECT_EQ(center.ask("get", nullptr).reply, Dictionary());
}

TEST_F(BusMessagingCenterTest, ABusThatGoesAwayInTheMiddleOfARequestEndsIt) {
  std::promise<void> arrived;
  std::promise<void> end;
  const auto server = serve();
  server->answer("com.example.center", "get", [&](const Dictionary*) {
    arrived.set_value();
    end.get_future().wait_for(kLong);
    return Dictionary();
  });
  BusMessagingCenter center = client(1min);
  auto reply = std::async(std::launch::async, [&] { return center.ask("get", nullptr); });
  ASSERT_EQ(arrived.get_future().wait_for(kLong), std::future_status::ready);
  bus_.kill();
  ASSERT_EQ(reply.wait_for(kLong), std::future_status::ready);
  const auto answer = reply.get();
  EXPECT_TRUE(answer.isServed);
  EXPECT_TRUE(answer.isInTime);
  EXPECT_EQ(answer.reply, std::nullopt);
  EXPECT_EQ(log_.lines().size(), 1U);
  end.set_value();
  // The bus was there once, so its owner may be: nobody else is to answer in its place.
  EXPECT_TRUE(center.ask("get", nullptr).isServed);
}

// Answers every call with what a test wants, or not at all when that is no message.
class StrangeService : public QDBusVirtualObject {
 public:
  using Answer = std::function<QDBusMessage(const QDBusMessage& request)>;

  explicit StrangeService(Answer answer) : answer_(std::move(answer)) {}

  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    const QDBusMessage reply = answer_(message);
    if (reply.type() != QDBusMessage::InvalidMessage) {
      connection.send(reply);
    }
    return true;
  }

 private:
  const Answer answer_;
};

// The reply to one request of a client on another thread, while the service runs on this one.
class StrangeServiceTest : public BusTest {
 protected:
  std::optional<Dictionary> replyOf(StrangeService::Answer answer) {
    StrangeService service(std::move(answer));
    connection_ = std::make_unique<SessionBus>(bus_.address());
    EXPECT_TRUE(connection_->connection().registerVirtualObject("/com/example/center", &service));
    EXPECT_TRUE(connection_->connection().registerService("com.example.service"));
    bool done = false;
    std::optional<Dictionary> reply;
    std::thread asking([&] {
      reply = client().ask("get", nullptr).reply;
      dispatch_.mainAsync([&] { done = true; });
    });
    EXPECT_TRUE(dispatch_.runMainUntil([&] { return done; }, kLong));
    asking.join();
    connection_.reset();
    return reply;
  }

  // The reply of a service that answers with these arguments, all of them sent once a test.
  std::optional<Dictionary> replyWith(const QVariantList& arguments) {
    return replyOf([&](const QDBusMessage& request) { return request.createReply(arguments); });
  }

  static QByteArray bytesOf(const Value& value) {
    const Data bytes = writeBinaryPropertyList(value);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
  }

  LinuxDispatch dispatch_;
  std::unique_ptr<SessionBus> connection_;  // of the service
};

TEST_F(StrangeServiceTest, ASensibleReplyIsTaken) {
  EXPECT_EQ(replyWith({true, bytesOf(Value(Dictionary{{"a", 1}}))}), Dictionary({{"a", 1}}));
  EXPECT_EQ(replyWith({false, QByteArray()}), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(StrangeServiceTest, RepliesThatMakeNoSenseAreNone) {
  const std::vector<QVariantList> strange = {{},
                                             {true},
                                             {QByteArray()},
                                             {1, QByteArray()},
                                             {true, "text"},
                                             {true, QByteArray(), 5},
                                             {true, QByteArray()},
                                             {true, QByteArray("nonsense")},
                                             {true, bytesOf(Value(Array{1, 2}))},
                                             {true, bytesOf(Value(Dictionary())).left(20)},
                                             {true, QByteArray(2000, 'x')}};
  for (std::size_t i = 0; i < strange.size(); ++i) {
    EXPECT_EQ(replyWith(strange[i]), std::nullopt) << i;
    EXPECT_EQ(log_.lines().size(), i + 1) << i;
  }
}

TEST_F(StrangeServiceTest, AnErrorIsNoReplyAndItsTextIsNotLogged) {
  const auto reply = replyOf([](const QDBusMessage& request) {
    return request.createErrorReply("com.example.Strange", "call +15550100");
  });
  EXPECT_EQ(reply, std::nullopt);
  EXPECT_THAT(log_.lines(),
              ElementsAre(AllOf(HasSubstr("com.example.Strange"), Not(HasSubstr("+15550100")))));
}

TEST_F(StrangeServiceTest, AServiceThatGoesAwayGivesNoReply) {
  const auto reply = replyOf([this](const QDBusMessage& /*request*/) {
    dispatch_.mainAsync([this] { connection_.reset(); });
    return QDBusMessage();
  });
  EXPECT_EQ(reply, std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("NoReply")));
}

}  // namespace
}  // namespace zephyl::linux_host
