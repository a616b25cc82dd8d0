#include "hosts/linux/InProcessMessagingCenter.h"

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl::linux_host {

void InProcessMessagingCenter::setHandler(const std::string& center, const std::string& name,
                                          Handler handler) {
  const std::lock_guard lock(mutex_);
  if (handler) {
    handlers_[{center, name}] = std::move(handler);
  } else {
    handlers_.erase({center, name});
  }
}

InProcessMessagingCenter::Handler InProcessMessagingCenter::handlerFor(const Key& key) {
  const std::lock_guard lock(mutex_);
  const auto found = handlers_.find(key);
  return found == handlers_.end() ? Handler() : found->second;
}

std::optional<Dictionary> InProcessMessagingCenter::overTheWire(const Dictionary& dictionary,
                                                                const std::string& what) {
  if (const auto reason = whyNotBinaryPropertyList(dictionary)) {
    log_.log(what + " was not sent: " + *reason);
    return std::nullopt;
  }
  const Data bytes = writeBinaryPropertyList(dictionary);
  if (bytes.size() > maximumBytes_) {
    log_.log(what + " was not sent: " + std::to_string(bytes.size()) + " bytes, more than the " +
             std::to_string(maximumBytes_) + " that a message may have");
    return std::nullopt;
  }
  const PropertyListResult arrived = readPropertyList(bytes);
  if (!arrived.ok() || arrived.value().ifDictionary() == nullptr) {
    log_.log(what + " did not arrive: " +
             (arrived.ok() ? "no dictionary" : arrived.error().message("message")));
    return std::nullopt;
  }
  return *arrived.value().ifDictionary();
}

std::optional<Dictionary> InProcessMessagingCenter::sendMessageAndReceiveReplyName(
    const std::string& center, const std::string& name, const Dictionary* userInfo) {
  const Handler handler = handlerFor({center, name});
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
