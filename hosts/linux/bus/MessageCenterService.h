// The server of a message center on a message bus: answers the requests of other processes of the
// same user. Lives on the thread that makes it, whose event loop serves the requests there one at a
// time.

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "hosts/linux/MessageServer.h"
#include "hosts/linux/MessageWire.h"
#include "hosts/linux/bus/MessageCenterAddress.h"

namespace zephyl::linux_host {

class SessionBus;

class MessageCenterService : public QDBusVirtualObject, public MessageServer {
 public:
  struct Options {
    std::string device;  // what is told to whom asks which device is served
    std::size_t maximumBytes = kMaximumMessageBytes;
    // The user behind a connection to the bus, by its unique name; nothing when it cannot be told.
    // Not given: the bus is asked.
    std::function<std::optional<std::uint32_t>(const std::string& connection)> userOf;
    std::function<void()> afterRequest;  // may be empty
  };

  enum class Claim { kOwned, kTaken, kFailed };

  // Requests that come before the event loop runs wait for it. `log` must outlive this.
  MessageCenterService(std::shared_ptr<SessionBus> bus, MessageCenterAddress address,
                       SystemLog& log, Options options);
  ~MessageCenterService() override;
  MessageCenterService(const MessageCenterService&) = delete;
  MessageCenterService& operator=(const MessageCenterService&) = delete;

  // Handlers run on this object's thread. Those of other centers are refused, with a line in the
  // log. A handler that throws gives no reply.
  void setHandler(const std::string& center, const std::string& name,
                  MessageHandler handler) override;

  // Makes this the one server of the center on its bus, unless another is.
  [[nodiscard]] Claim claimName();

  // Gives the name back, answers what was sent to it until then, and waits until the answers are
  // out. After `claimName`.
  void release();

  QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

 private:
  [[nodiscard]] bool isOfThisUser(const QDBusMessage& message);
  [[nodiscard]] std::optional<std::uint32_t> askForUser(const std::string& connection);
  [[nodiscard]] QDBusMessage answerTo(const QDBusMessage& request);
  [[nodiscard]] QDBusMessage answerToSend(const QDBusMessage& request);
  [[nodiscard]] std::optional<Data> replyTo(const std::string& name, const Dictionary* userInfo);

  const std::shared_ptr<SessionBus> bus_;
  const MessageCenterAddress address_;
  SystemLog& log_;
  const Options options_;
  const MessageWire wire_;
  std::map<std::string, MessageHandler> handlers_;
  // By unique name, which the bus gives to nobody else.
  std::map<std::string, std::uint32_t> users_;
};

}  // namespace zephyl::linux_host
