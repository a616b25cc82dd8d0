// Where a message center is found on a message bus, and the form of what it is asked there.

#pragma once

#include <string>

namespace zephyl::linux_host {

struct MessageCenterAddress {
  std::string center;   // the name that programs know it by
  std::string service;  // on the bus
  std::string path;     // of its object
};

// Send(s name, ay userInfo) -> (b hasReply, ay reply), dictionaries as property lists; no bytes at
// all are no user info. Device() -> s tells which device is served.
inline constexpr char kMessageCenterInterface[] = "com.vantor.zephyls.MessageCenter";
inline constexpr char kSendMethod[] = "Send";
inline constexpr char kSendSignature[] = "say";
inline constexpr char kReplySignature[] = "bay";
inline constexpr char kDeviceMethod[] = "Device";

}  // namespace zephyl::linux_host
