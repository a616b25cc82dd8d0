#include "bench/BareBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QEventLoop>
#include <future>
#include <stdexcept>

namespace zephyl::bench {

namespace {

constexpr char kService[] = "com.example.bare";
constexpr char kPath[] = "/";

class Counter : public QDBusVirtualObject {
 public:
  QString introspect(const QString& /*path*/) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    const auto bytes = message.arguments().at(0).toByteArray();
    return connection.send(message.createReply(static_cast<qlonglong>(bytes.size())));
  }
};

QDBusConnection connected(const std::string& address, const char* name) {
  auto bus = QDBusConnection::connectToBus(QString::fromStdString(address), name);
  if (!bus.isConnected()) {
    throw std::runtime_error("no message bus");
  }
  return bus;
}

}  // namespace

BareBus::BareBus(const std::string& address) : address_(address) {
  static_cast<void>(connected(address_, "bare client"));
  std::promise<QEventLoop*> started;
  thread_ = std::thread([&] {
    QEventLoop loop;
    Counter counter;
    auto bus = connected(address_, "bare server");
    bus.registerVirtualObject(kPath, &counter);
    bus.registerService(kService);
    started.set_value(&loop);
    loop.exec();
    bus.unregisterObject(kPath);
  });
  loop_ = started.get_future().get();
}

BareBus::~BareBus() {
  QMetaObject::invokeMethod(loop_, "quit", Qt::QueuedConnection);
  thread_.join();
  QDBusConnection::disconnectFromBus("bare server");
  QDBusConnection::disconnectFromBus("bare client");
}

void BareBus::send(const QByteArray& bytes) const {
  auto message = QDBusMessage::createMethodCall(kService, kPath, "com.example.Bare", "Count");
  message << bytes;
  const QDBusMessage answer = QDBusConnection("bare client").call(message);
  if (answer.type() != QDBusMessage::ReplyMessage ||
      answer.arguments().at(0).toLongLong() != bytes.size()) {
    throw std::runtime_error("the bare bus does not answer");
  }
}

}  // namespace zephyl::bench
