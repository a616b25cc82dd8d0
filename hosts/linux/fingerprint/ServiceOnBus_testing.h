// A service that a test plays on a bus: a name and the objects below one path, answered on a thread
// of its own.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QEventLoop>
#include <atomic>
#include <functional>
#include <future>
#include <string>
#include <thread>

#include "hosts/linux/fingerprint/BusConnection.h"

namespace zephyl::test {

class ServiceOnBus {
 public:
  // On the service's thread; sends its answer, or none, itself.
  using Handle = std::function<void(const QDBusMessage& call, const QDBusConnection& bus)>;

  // Throws std::runtime_error when the bus does not give it the name. Empty: no name.
  ServiceOnBus(const std::string& busAddress, const std::string& name, const std::string& path,
               Handle handle);
  ~ServiceOnBus();
  ServiceOnBus(const ServiceOnBus&) = delete;
  ServiceOnBus& operator=(const ServiceOnBus&) = delete;

  // Any thread.
  void send(const QDBusMessage& signal) { connection_.bus().send(signal); }

  // Whether the bus has passed on what was sent, which it does before it answers.
  [[nodiscard]] bool flush();

 private:
  void serve(const std::string& name, const std::string& path, const Handle& handle,
             std::promise<bool>& named);

  linux_host::BusConnection connection_;
  std::atomic<bool> stopping_ = false;
  std::promise<QEventLoop*> events_;
  std::thread thread_;
};

}  // namespace zephyl::test
