#include "hosts/linux/fingerprint/BusConnection.h"

#include <atomic>
#include <cstdlib>

#include "hosts/linux/bus/BusProbe.h"

namespace zephyl::linux_host {

namespace {

QString freshName() {
  static std::atomic<int> made = 0;
  return QStringLiteral("zephyls fingerprint %1").arg(++made);
}

QDBusConnection connectionTo(const std::string& address, const QString& name,
                             std::chrono::milliseconds limit) {
  return busAnswers(address, limit)
             ? QDBusConnection::connectToBus(QString::fromStdString(address), name)
             : QDBusConnection(QString());
}

}  // namespace

std::string systemBusAddress() {
  const char* named = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
  return named == nullptr || *named == '\0' ? "unix:path=/run/dbus/system_bus_socket" : named;
}

BusConnection::BusConnection(const std::string& address, std::chrono::milliseconds limit)
    : name_(freshName()), bus_(connectionTo(address, name_, limit)) {}

// Without a bus the library for it stays untouched: its first use starts a thread.
BusConnection::~BusConnection() {
  if (!bus_.name().isEmpty()) {
    bus_ = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(name_);
  }
}

}  // namespace zephyl::linux_host
