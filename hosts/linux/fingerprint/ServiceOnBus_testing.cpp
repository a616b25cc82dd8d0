#include "hosts/linux/fingerprint/ServiceOnBus_testing.h"

#include <stdexcept>

namespace zephyl::test {

ServiceOnBus::ServiceOnBus(const std::string& busAddress, const std::string& name,
                           const std::string& path, Handle handle)
    : connection_(busAddress, std::chrono::seconds(10)), objects_(std::move(handle)) {
  const bool named =
      connection_.bus().registerVirtualObject(QString::fromStdString(path), &objects_,
                                              QDBusConnection::SubPath) &&
      (name.empty() || connection_.bus().registerService(QString::fromStdString(name)));
  if (!named) {
    throw std::runtime_error("the bus does not let a test be " + name);
  }
  // Until its thread runs, the calls wait.
  objects_.moveToThread(&thread_);
  thread_.start();
}

ServiceOnBus::~ServiceOnBus() {
  thread_.quit();
  thread_.wait();
}

bool ServiceOnBus::flush() {
  constexpr int kLimit = 10000;
  const QDBusMessage call = QDBusMessage::createMethodCall(
      "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId");
  return connection_.bus().call(call, QDBus::Block, kLimit).type() == QDBusMessage::ReplyMessage;
}

}  // namespace zephyl::test
