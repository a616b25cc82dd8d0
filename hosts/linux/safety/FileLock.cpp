#include "hosts/linux/safety/FileLock.h"

#include <cerrno>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace zephyl::linux_host {

FileLock::FileLock(const std::string& file, Kind kind, std::chrono::milliseconds longest)
    : file_(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600)) {
  if (file_ < 0) {
    failure_ = "cannot open " + file + ": " + std::generic_category().message(errno);
    return;
  }
  constexpr auto kPause = std::chrono::milliseconds(5);
  const int operation = kind == Kind::kShared ? LOCK_SH : LOCK_EX;
  const auto start = std::chrono::steady_clock::now();
  while (::flock(file_, operation | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) {
      return;
    }
    if (std::chrono::steady_clock::now() - start >= longest) {
      timedOut_ = true;
      return;
    }
    std::this_thread::sleep_for(kPause);
  }
}

FileLock::~FileLock() {
  if (file_ >= 0) {
    ::close(file_);
  }
}

}  // namespace zephyl::linux_host
