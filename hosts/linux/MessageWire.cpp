#include "hosts/linux/MessageWire.h"

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/SystemLog.h"

namespace zephyl::linux_host {

namespace {

std::string tooLarge(std::size_t bytes, std::size_t maximum) {
  return std::to_string(bytes)
      .append(" bytes, more than the ")
      .append(std::to_string(maximum))
      .append(" that a message may have");
}

}  // namespace

std::optional<Data> MessageWire::encoded(const Dictionary& dictionary,
                                         const std::string& what) const {
  if (const auto reason = whyNotBinaryPropertyList(dictionary)) {
    log_.log(what + " was not sent: " + *reason);
    return std::nullopt;
  }
  Data bytes = writeBinaryPropertyList(dictionary);
  if (bytes.size() > maximumBytes_) {
    log_.log(what + " was not sent: " + tooLarge(bytes.size(), maximumBytes_));
    return std::nullopt;
  }
  return bytes;
}

std::optional<Dictionary> MessageWire::decoded(const Data& bytes, const std::string& what) const {
  if (bytes.size() > maximumBytes_) {
    log_.log(what + " was not read: " + tooLarge(bytes.size(), maximumBytes_));
    return std::nullopt;
  }
  const PropertyListResult list = readPropertyList(bytes);
  if (!list.ok() || list.value().ifDictionary() == nullptr) {
    log_.log(what +
             " was not read: " + (list.ok() ? "no dictionary" : list.error().message("message")));
    return std::nullopt;
  }
  return *list.value().ifDictionary();
}

}  // namespace zephyl::linux_host
