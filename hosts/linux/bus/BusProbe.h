// Whether a message bus answers, found out in bounded time: the library for the bus waits long for
// one that hangs. Any thread.

#pragma once

#include <chrono>
#include <string>

namespace zephyl::linux_host {

// Begins to introduce itself at each socket that `address` names, until one answers within `limit`.
// True without asking when the address names something else than sockets of this machine.
[[nodiscard]] bool busAnswers(const std::string& address, std::chrono::milliseconds limit);

}  // namespace zephyl::linux_host
