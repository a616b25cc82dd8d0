#include "apps/common/DeviceLock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "apps/common/CommandError.h"

namespace zephyl::app {

DeviceLock::DeviceLock(const std::filesystem::path& deviceRoot)
    : file_(open((deviceRoot / "lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
  constexpr auto kLongest = std::chrono::seconds(10);
  const auto start = std::chrono::steady_clock::now();
  while (file_ >= 0 && flock(file_, LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      // A file system without locks.
      return;
    }
    if (std::chrono::steady_clock::now() - start > kLongest) {
      close(file_);
      throw CommandError("another program is at work in " + deviceRoot.string() +
                         "; try again when it has ended");
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

DeviceLock::~DeviceLock() {
  if (file_ >= 0) {
    close(file_);
  }
}

}  // namespace zephyl::app
