#include "apps/zephyls/DeviceLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zephyl::app {

DeviceLock::DeviceLock(const std::filesystem::path& deviceRoot)
    : file_(open((deviceRoot / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  if (file_ >= 0) {
    flock(file_, LOCK_EX);
  }
}

DeviceLock::~DeviceLock() {
  if (file_ >= 0) {
    close(file_);
  }
}

}  // namespace zephyl::app
