// A message center whose servers are parts of this process. Requests and replies take the form in
// which they would go from process to process. Any thread.

#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

#include "platform/appsupport/CPDistributedMessagingCenter.h"

#include "hosts/linux/MessageServer.h"
#include "hosts/linux/MessageWire.h"

namespace zephyl {
class SystemLog;
}  // namespace zephyl

namespace zephyl::linux_host {

class InProcessMessagingCenter : public CPDistributedMessagingCenter, public MessageServer {
 public:
  // A request or reply larger than `maximumBytes` is not passed on: there is no reply, and a line
  // in `log`, which must outlive this.
  explicit InProcessMessagingCenter(SystemLog& log, std::size_t maximumBytes = kMaximumMessageBytes)
      : wire_(log, maximumBytes) {}

  // Handlers run on the thread of the sender, without a lock.
  void setHandler(const std::string& center, const std::string& name,
                  MessageHandler handler) override;

  std::optional<Dictionary> sendMessageAndReceiveReplyName(const std::string& center,
                                                           const std::string& name,
                                                           const Dictionary* userInfo) override;

 private:
  using Key = std::pair<std::string, std::string>;  // center and name

  [[nodiscard]] MessageHandler handlerFor(const Key& key);
  // As it arrives; nothing when it cannot be sent.
  [[nodiscard]] std::optional<Dictionary> overTheWire(const Dictionary& dictionary,
                                                      const std::string& what);

  const MessageWire wire_;
  std::mutex mutex_;
  std::map<Key, MessageHandler> handlers_;
};

}  // namespace zephyl::linux_host
