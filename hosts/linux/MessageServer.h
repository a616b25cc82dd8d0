// What answers the messages of a message center: a function a message. Mechanism only; what the
// messages are is the business of the program that sets them.

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "platform/foundation/Dictionary.h"

namespace zephyl::linux_host {

// `userInfo` may be null and lives for the call; nothing is no reply.
using MessageHandler = std::function<std::optional<Dictionary>(const Dictionary* userInfo)>;

// The largest request and reply, in binary form: what a message bus takes at most, with a little to
// spare.
inline constexpr std::size_t kMaximumMessageBytes = 60'000'000;

class MessageServer {
 public:
  virtual ~MessageServer() = default;

  // On which thread the handler runs is told by the server. An empty one takes the message's away.
  virtual void setHandler(const std::string& center, const std::string& name,
                          MessageHandler handler) = 0;
};

}  // namespace zephyl::linux_host
