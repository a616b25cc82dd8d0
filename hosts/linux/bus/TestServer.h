// A message center that a test serves on a thread of its own, as another process would.

#pragma once

#include <functional>
#include <future>
#include <memory>
#include <string>
#include <thread>

#include "hosts/linux/bus/MessageCenterService.h"

namespace zephyl {
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class LinuxDispatch;
class SessionBus;

class TestServer {
 public:
  // Serves when this returns. `log` must outlive this.
  TestServer(const std::string& busAddress, const MessageCenterAddress& address, SystemLog& log,
             MessageCenterService::Options options = {});

  // Ends once the request in hand is answered.
  ~TestServer();
  TestServer(const TestServer&) = delete;
  TestServer& operator=(const TestServer&) = delete;

  // On the server's thread; returns when it has run. Not inside a handler.
  void run(const std::function<void(MessageCenterService&)>& task);

  // Returns when the handler is set.
  void answer(const std::string& center, const std::string& name, MessageHandler handler);

  [[nodiscard]] bool isOnThread() const { return std::this_thread::get_id() == thread_.get_id(); }

 private:
  struct Parts;

  void serve(const std::string& busAddress, const MessageCenterAddress& address, SystemLog& log,
             MessageCenterService::Options options, std::promise<Parts*>& started);

  Parts* parts_ = nullptr;  // of the thread
  std::thread thread_;
};

}  // namespace zephyl::linux_host
