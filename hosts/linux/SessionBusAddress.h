// Where the message bus of the user's session is, told without starting one. Any thread.

#pragma once

#include <optional>
#include <string>

namespace zephyl::linux_host {

// As the environment names it, else the socket in the user's runtime folder; nothing without
// either. Whether a bus answers there is not looked at. An address that would have one started is
// none.
[[nodiscard]] std::optional<std::string> sessionBusAddress();

}  // namespace zephyl::linux_host
