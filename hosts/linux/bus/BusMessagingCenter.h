// A message center whose server is another process on the message bus. Any thread.

#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

#include "hosts/linux/MessageWire.h"
#include "hosts/linux/bus/MessageCenterAddress.h"

class QDBusMessage;

namespace zephyl::linux_host {

class SessionBus;

class BusMessagingCenter : public CPDistributedMessagingCenter {
 public:
  struct Limits {
    std::chrono::milliseconds wait = std::chrono::seconds(25);  // for one reply
    std::size_t bytes = kMaximumMessageBytes;
  };

  // What came of a request. Nobody serves: the request reached nobody, and may be sent elsewhere.
  // In time: false when the limit ran out, so that the next one would most likely wait as long.
  struct Answer {
    bool isServed = false;
    bool isInTime = true;
    std::optional<Dictionary> reply;
  };

  // `log` must outlive this.
  BusMessagingCenter(std::shared_ptr<SessionBus> bus, MessageCenterAddress address, SystemLog& log,
                     Limits limits);
  BusMessagingCenter(std::shared_ptr<SessionBus> bus, MessageCenterAddress address, SystemLog& log);

  // Nothing from a service that does not answer in time or goes away, from a bus that does, and in
  // place of a reply that makes no sense: then with a line in the log. Starts no service.
  [[nodiscard]] Answer ask(const std::string& name, const Dictionary* userInfo);

  // The same; nothing for other centers.
  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override;

  // Which device the server says it serves; empty when it says nothing sensible within `limit`.
  // Nothing when nobody serves.
  [[nodiscard]] std::optional<std::string> servedDevice(std::chrono::milliseconds limit);

 private:
  [[nodiscard]] QDBusMessage callOf(const char* method) const;
  [[nodiscard]] std::optional<Dictionary> replyIn(const QDBusMessage& message,
                                                  const std::string& name) const;

  const std::shared_ptr<SessionBus> bus_;
  const MessageCenterAddress address_;
  SystemLog& log_;
  const Limits limits_;
  const MessageWire wire_;
};

}  // namespace zephyl::linux_host
