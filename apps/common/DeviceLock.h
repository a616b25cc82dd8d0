// One process at a time in the device root: held while files of it are read to be changed, so that
// no other program sees them half-written. Never held while something is shown.

#pragma once

#include <filesystem>

namespace zephyl::app {

class DeviceLock {
 public:
  // Waits for its turn, ten seconds at most; then throws CommandError. In a root that cannot be
  // written there is nothing to keep apart, and nothing is held.
  explicit DeviceLock(const std::filesystem::path& deviceRoot);
  ~DeviceLock();
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;

 private:
  int file_ = -1;
};

}  // namespace zephyl::app
