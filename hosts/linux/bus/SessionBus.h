// One connection to a message bus, made when it is first needed and never made anew. Any thread,
// while there is a QCoreApplication.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <chrono>
#include <mutex>
#include <string>

class QObject;

namespace zephyl::linux_host {

class SessionBus {
 public:
  // Nothing is connected yet. `address` as sessionBusAddress() gives it.
  explicit SessionBus(std::string address);

  // Ends the connection. What was sent and not flushed may be lost.
  ~SessionBus();
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;

  // Connects at the first call, which takes long only where a bus hangs, and then some seconds at
  // most. Without a bus: a connection that is not connected.
  [[nodiscard]] QDBusConnection connection();

  [[nodiscard]] bool isConnected() { return connection().isConnected(); }

  // Whether there ever was a connection, which may have gone since.
  [[nodiscard]] bool wasConnected();

  // Sends and waits for the answer; that of a bus or service that does not answer in time is an
  // error. No service is started for it.
  [[nodiscard]] QDBusMessage call(QDBusMessage message, std::chrono::milliseconds limit);

  // The same of the bus itself.
  [[nodiscard]] QDBusMessage callBus(const QString& method, const QVariantList& arguments,
                                     std::chrono::milliseconds limit);

  // Waits until the bus has all that was sent; false when it does not answer in time.
  bool flush(std::chrono::milliseconds limit);

  // Calls the slot, which takes nothing, on the thread of `receiver` when the connection is cut.
  void notifyOfLoss(QObject* receiver, const char* slot);

 private:
  void connect();

  const std::string address_;
  const QString name_;  // under which Qt knows the connection
  std::once_flag connected_;
  bool wasConnected_ = false;
};

}  // namespace zephyl::linux_host
