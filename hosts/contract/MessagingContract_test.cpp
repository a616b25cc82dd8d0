#include <string>
#include <thread>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

class MessagingContract : public ContractTest {
 protected:
  std::optional<Dictionary> send(const std::string& name, const Dictionary* userInfo = nullptr) {
    return host().messagingCenter().sendMessageAndReceiveReplyName("com.example.center", name,
                                                                   userInfo);
  }
  void answer(const std::string& name, DeviceUnderTest::Handler handler) {
    device().answer("com.example.center", name, std::move(handler));
  }
};
ZEPHYLS_MESSAGING_CONTRACT(MessagingContract);

TEST_P(MessagingContract, WithoutAServerThereIsNoReply) {
  answer("other", [](const Dictionary*) { return Dictionary(); });
  EXPECT_EQ(send("get"), std::nullopt);
}

TEST_P(MessagingContract, AServerMayGiveNoReply) {
  answer("get", [](const Dictionary*) { return std::nullopt; });
  EXPECT_EQ(send("get"), std::nullopt);
}

TEST_P(MessagingContract, AnEmptyReplyIsAReply) {
  answer("get", [](const Dictionary*) { return Dictionary(); });
  EXPECT_EQ(send("get"), Dictionary());
}

TEST_P(MessagingContract, AbsentUserInfoArrivesAbsent) {
  bool isNull = false;
  answer("get", [&](const Dictionary* userInfo) {
    isNull = userInfo == nullptr;
    return Dictionary();
  });
  const Dictionary empty;
  EXPECT_EQ(send("get", &empty), Dictionary());
  EXPECT_FALSE(isNull);
  EXPECT_EQ(send("get"), Dictionary());
  EXPECT_TRUE(isNull);
}

TEST_P(MessagingContract, RequestAndReplyArriveAsTheyWereSent) {
  const Dictionary message{{"flag", false},
                           {"number", std::int64_t{1} << 40U},
                           {"share", 0.1},
                           {"when", Date{12.5}},
                           {"text", "naïve"},
                           {"bytes", Data{0, 255}},
                           {"list", Array{Value(Dictionary{{"id", 1}}), Value("")}}};
  answer("echo", [](const Dictionary* userInfo) { return *userInfo; });
  EXPECT_EQ(send("echo", &message), message);
}

TEST_P(MessagingContract, AServerMaySendMessagesItself) {
  answer("inner", [](const Dictionary*) { return Dictionary({{"depth", 2}}); });
  answer("outer", [this](const Dictionary*) { return send("inner"); });
  EXPECT_EQ(send("outer"), Dictionary({{"depth", 2}}));
}

TEST_P(MessagingContract, AnyThreadMaySend) {
  answer("get", [](const Dictionary*) { return Dictionary({{"ok", true}}); });
  std::optional<Dictionary> reply;
  std::thread([&] { reply = send("get"); }).join();
  EXPECT_EQ(reply, Dictionary({{"ok", true}}));
}

}  // namespace
}  // namespace zephyl::contract
