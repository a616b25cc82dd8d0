// Under which names on the message bus the system shell of a device is found. The same for every
// program of the user, and another for each device root.

#pragma once

#include <filesystem>
#include <string>

#include "hosts/linux/bus/MessageCenterAddress.h"

namespace zephyl::app {

struct ShellAddress {
  linux_host::MessageCenterAddress center;
  std::string notifications;  // the path of the signals
  std::string device;         // the device root, in its one canonical spelling
};

// The names without a number belong to the device root in the user's home, whatever the environment
// says of other places: a shell that the bus starts has another environment.
[[nodiscard]] ShellAddress shellAddressOf(const std::filesystem::path& deviceRoot);

}  // namespace zephyl::app
