#include "hosts/contract/BusUnderTest.h"

#include <memory>
#include <utility>

#include "hosts/linux/LinuxDevice.h"
#include "hosts/linux/bus/BusMessagingCenter.h"
#include "hosts/linux/bus/BusNotifications.h"
#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::contract {

namespace {

linux_host::MessageCenterAddress address() {
  return {"com.example.center", "com.example.service", "/com/example/center"};
}

}  // namespace

// That of the process whose thread asks.
class BusUnderTest::Center : public CPDistributedMessagingCenter {
 public:
  Center(BusUnderTest& owner, SystemLog& log)
      : owner_(owner),
        overBus_(std::make_shared<linux_host::SessionBus>(owner.bus_.address()), address(), log) {}

  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override {
    if (owner_.server_.isOnThread()) {
      return owner_.ofServer_.sendMessageAndReceiveReplyName(center, name, userInfo);
    }
    owner_.meet();
    auto reply = overBus_.sendMessageAndReceiveReplyName(center, name, userInfo);
    owner_.meet();
    return reply;
  }

 private:
  BusUnderTest& owner_;
  linux_host::BusMessagingCenter overBus_;
};

BusUnderTest::BusUnderTest() : server_(bus_.address(), address(), serverLog_) {}

void BusUnderTest::serve(linux_host::DeviceOptions& options) {
  options.makeMessagingCenter = [this](CPDistributedMessagingCenter& /*inProcess*/,
                                       SystemLog& log) {
    return std::make_unique<Center>(*this, log);
  };
  options.makeNotifications = [this](Dispatch& dispatch, SystemLog& log) {
    return std::make_unique<linux_host::BusNotifications>(
        std::make_shared<linux_host::SessionBus>(bus_.address()), "/com/example/notify", dispatch,
        log);
  };
}

void BusUnderTest::meet() {
  const std::lock_guard lock(oneAtATime_);
}

void BusUnderTest::answer(const std::string& center, const std::string& name,
                          const linux_host::MessageHandler& handler) {
  ofServer_.setHandler(center, name, handler);
  server_.answer(center, name, [this, handler](const Dictionary* userInfo) {
    const std::lock_guard lock(oneAtATime_);
    return handler(userInfo);
  });
}

}  // namespace zephyl::contract
