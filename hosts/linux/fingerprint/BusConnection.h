// A connection of its own to a message bus, closed with the object; a service that keeps something
// for a client, such as a claimed reader, then lets go of it.

#pragma once

#include <QDBusConnection>
#include <QString>
#include <chrono>
#include <string>

namespace zephyl::linux_host {

// Where the environment, or else the custom of the system, says that the system bus is.
[[nodiscard]] std::string systemBusAddress();

class BusConnection {
 public:
  // Any thread. Not connected when the bus does not answer within the limit.
  BusConnection(const std::string& address, std::chrono::milliseconds limit);
  ~BusConnection();
  BusConnection(const BusConnection&) = delete;
  BusConnection& operator=(const BusConnection&) = delete;

  [[nodiscard]] bool isConnected() const { return bus_.isConnected(); }
  [[nodiscard]] QDBusConnection& bus() { return bus_; }

 private:
  QString name_;
  QDBusConnection bus_;
};

}  // namespace zephyl::linux_host
