#include "apps/common/DeviceLock.h"

#include <chrono>

#include "apps/common/CommandError.h"

namespace zephyl::app {

DeviceLock::DeviceLock(const std::filesystem::path& deviceRoot)
    : lock_((deviceRoot / "lock").string(), linux_host::FileLock::Kind::kExclusive,
            std::chrono::seconds(10)) {
  if (lock_.timedOut()) {
    throw CommandError("another program is at work in " + deviceRoot.string() +
                       "; try again when it has ended");
  }
}

}  // namespace zephyl::app
