#include "hosts/linux/InProcessMessagingCenter.h"

namespace zephyl::linux_host {

void InProcessMessagingCenter::setHandler(const std::string& center, const std::string& name,
                                          MessageHandler handler) {
  const std::lock_guard lock(mutex_);
  if (handler) {
    handlers_[{center, name}] = std::move(handler);
  } else {
    handlers_.erase({center, name});
  }
}

MessageHandler InProcessMessagingCenter::handlerFor(const Key& key) {
  const std::lock_guard lock(mutex_);
  const auto found = handlers_.find(key);
  return found == handlers_.end() ? MessageHandler() : found->second;
}

std::optional<Dictionary> InProcessMessagingCenter::overTheWire(const Dictionary& dictionary,
                                                                const std::string& what) {
  const std::optional<Data> bytes = wire_.encoded(dictionary, what);
  return bytes ? wire_.decoded(*bytes, what) : std::nullopt;
}

std::optional<Dictionary> InProcessMessagingCenter::sendMessageAndReceiveReplyName(
    const std::string& center, const std::string& name, const Dictionary* userInfo) {
  const MessageHandler handler = handlerFor({center, name});
  if (!handler) {
    return std::nullopt;
  }
  std::optional<Dictionary> request;
  if (userInfo != nullptr) {
    request = overTheWire(*userInfo, "The message " + name);
    if (!request) {
      return std::nullopt;
    }
  }
  const std::optional<Dictionary> reply = handler(request ? &*request : nullptr);
  return reply ? overTheWire(*reply, "The reply to " + name) : std::nullopt;
}

}  // namespace zephyl::linux_host
