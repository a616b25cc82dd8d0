#include "hosts/linux/bus/SessionBus.h"

#include <QString>
#include <QVariantList>
#include <atomic>
#include <cstdint>
#include <utility>

#include "hosts/linux/bus/BusProbe.h"

namespace zephyl::linux_host {

namespace {

constexpr char kBusService[] = "org.freedesktop.DBus";
constexpr char kBusPath[] = "/org/freedesktop/DBus";

QString freshName() {
  static std::atomic<std::uint64_t> last = 0;
  return QString("zephyls session bus %1").arg(++last);
}

}  // namespace

SessionBus::SessionBus(std::string address) : address_(std::move(address)), name_(freshName()) {}

SessionBus::~SessionBus() {
  QDBusConnection::disconnectFromBus(name_);
}

void SessionBus::connect() {
  constexpr auto kLongest = std::chrono::seconds(5);
  if (busAnswers(address_, kLongest)) {
    wasConnected_ =
        QDBusConnection::connectToBus(QString::fromStdString(address_), name_).isConnected();
  }
}

QDBusConnection SessionBus::connection() {
  std::call_once(connected_, [this] { connect(); });
  return QDBusConnection(name_);
}

bool SessionBus::wasConnected() {
  std::call_once(connected_, [this] { connect(); });
  return wasConnected_;
}

QDBusMessage SessionBus::call(QDBusMessage message, std::chrono::milliseconds limit) {
  message.setAutoStartService(false);
  return connection().call(message, QDBus::Block, static_cast<int>(limit.count()));
}

QDBusMessage SessionBus::callBus(const QString& method, const QVariantList& arguments,
                                 std::chrono::milliseconds limit) {
  QDBusMessage message = QDBusMessage::createMethodCall(kBusService, kBusPath, kBusService, method);
  message.setArguments(arguments);
  return call(message, limit);
}

bool SessionBus::flush(std::chrono::milliseconds limit) {
  return callBus("GetId", {}, limit).type() == QDBusMessage::ReplyMessage;
}

void SessionBus::notifyOfLoss(QObject* receiver, const char* slot) {
  connection().connect(QString(), "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local",
                       "Disconnected", receiver, slot);
}

}  // namespace zephyl::linux_host
