#include "hosts/linux/fingerprint/ServiceOnBus_testing.h"

#include <QDBusVirtualObject>
#include <stdexcept>

namespace zephyl::test {

namespace {

class Objects : public QDBusVirtualObject {
 public:
  explicit Objects(const ServiceOnBus::Handle& handle) : handle_(handle) {}
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
    call.setDelayedReply(true);
    handle_(call, bus);
    return true;
  }

 private:
  const ServiceOnBus::Handle& handle_;
};

}  // namespace

// Not a QThread, whose beginning and end ThreadSanitizer does not see.
ServiceOnBus::ServiceOnBus(const std::string& busAddress, const std::string& name,
                           const std::string& path, Handle handle)
    : connection_(busAddress, std::chrono::seconds(10)) {
  std::promise<bool> named;
  thread_ = std::thread(
      [this, &named, name, path, handle = std::move(handle)] { serve(name, path, handle, named); });
  if (!named.get_future().get()) {
    thread_.join();
    throw std::runtime_error("the bus does not let a test be " + name);
  }
}

ServiceOnBus::~ServiceOnBus() {
  stopping_ = true;
  events_.get_future().get()->wakeUp();
  thread_.join();
}

void ServiceOnBus::serve(const std::string& name, const std::string& path, const Handle& handle,
                         std::promise<bool>& named) {
  Objects objects(handle);
  QDBusConnection& bus = connection_.bus();
  if (!bus.registerVirtualObject(QString::fromStdString(path), &objects,
                                 QDBusConnection::SubPath) ||
      !(name.empty() || bus.registerService(QString::fromStdString(name)))) {
    named.set_value(false);
    return;
  }
  QEventLoop events;
  events_.set_value(&events);
  named.set_value(true);
  while (!stopping_) {
    events.processEvents(QEventLoop::WaitForMoreEvents);
  }
  bus.unregisterObject(QString::fromStdString(path), QDBusConnection::UnregisterTree);
}

bool ServiceOnBus::flush() {
  constexpr int kLimit = 10000;
  const QDBusMessage call = QDBusMessage::createMethodCall(
      "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId");
  return connection_.bus().call(call, QDBus::Block, kLimit).type() == QDBusMessage::ReplyMessage;
}

}  // namespace zephyl::test
