#include "hosts/linux/bus/TestServer.h"

#include <QEventLoop>
#include <chrono>
#include <utility>

#include <gtest/gtest.h>

#include "hosts/linux/LinuxDispatch.h"
#include "hosts/linux/bus/SessionBus.h"

namespace zephyl::linux_host {

struct TestServer::Parts {
  LinuxDispatch& dispatch;
  MessageCenterService& service;
  bool stopped = false;  // on the thread
};

TestServer::TestServer(const std::string& busAddress, const MessageCenterAddress& address,
                       SystemLog& log, MessageCenterService::Options options) {
  std::promise<Parts*> started;
  thread_ = std::thread([&] { serve(busAddress, address, log, std::move(options), started); });
  parts_ = started.get_future().get();
}

void TestServer::serve(const std::string& busAddress, const MessageCenterAddress& address,
                       SystemLog& log, MessageCenterService::Options options,
                       std::promise<Parts*>& started) {
  const QEventLoop loop;  // gives a thread that Qt has not made what events need
  LinuxDispatch dispatch;
  MessageCenterService service(std::make_shared<SessionBus>(busAddress), address, log,
                               std::move(options));
  EXPECT_EQ(service.claimName(), MessageCenterService::Claim::kOwned);
  Parts parts{dispatch, service};
  started.set_value(&parts);
  dispatch.runMainUntil([&] { return parts.stopped; }, std::chrono::minutes(10));
}

TestServer::~TestServer() {
  // Not waited for: the queue is gone once this has run.
  parts_->dispatch.mainAsync([parts = parts_] { parts->stopped = true; });
  thread_.join();
}

void TestServer::run(const std::function<void(MessageCenterService&)>& task) {
  parts_->dispatch.mainSync([&] { task(parts_->service); });
}

void TestServer::answer(const std::string& center, const std::string& name,
                        MessageHandler handler) {
  run([&](MessageCenterService& service) { service.setHandler(center, name, std::move(handler)); });
}

}  // namespace zephyl::linux_host
