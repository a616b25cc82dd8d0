#include "hosts/linux/messages/ChatGuid.h"

#include <cstddef>

namespace zephyl::linux_host {

std::string canonicalChatGuid(std::string_view guid, std::string_view serviceName) {
  const std::size_t end = guid.find(';');
  if (end == std::string_view::npos) {
    return std::string(guid);
  }
  std::string_view service = guid.substr(0, end);
  if (service == "any" && !serviceName.empty()) {
    service = serviceName;
  }
  if (service == "RCS") {
    service = "SMS";
  }
  return std::string(service).append(guid.substr(end));
}

bool isGroupGuid(std::string_view guid) {
  return guid.find(";+;") != std::string_view::npos;
}

}  // namespace zephyl::linux_host
