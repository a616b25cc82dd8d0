// One process at a time in the device root: held while files of it are read to be changed, so that
// no other program sees them half-written. Never held while something is shown.

#pragma once

#include <filesystem>

#include "hosts/linux/safety/FileLock.h"

namespace zephyl::app {

class DeviceLock {
 public:
  // Waits for its turn, ten seconds at most; then throws CommandError. In a root that cannot be
  // written there is nothing to keep apart, and nothing is held.
  explicit DeviceLock(const std::filesystem::path& deviceRoot);

 private:
  const linux_host::FileLock lock_;
};

}  // namespace zephyl::app
