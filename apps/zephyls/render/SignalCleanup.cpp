#include "apps/zephyls/render/SignalCleanup.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace zephyl::app::render {

namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};

// Where the signal handler writes.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

// The number of the signal; no signal bears that of the end.
constexpr unsigned char kEnd = 0;

void tell(unsigned char number) {
  static_cast<void>(!write(writeEnd, &number, 1));
}

extern "C" void tellOfSignal(int number) {
  const int before = errno;
  tell(static_cast<unsigned char>(number));
  errno = before;
}

// Nothing but the signal's own doing: the other threads are in the middle of something.
void endBy(int number) {
  std::signal(number, SIG_DFL);
  sigset_t these{};
  sigemptyset(&these);
  sigaddset(&these, number);
  pthread_sigmask(SIG_UNBLOCK, &these, nullptr);
  std::raise(number);
}

}  // namespace

struct SignalCleanup::Parts {
  void wait() const {
    unsigned char number = kEnd;
    while (read(ends[0], &number, 1) < 0 && errno == EINTR) {
    }
    if (number != kEnd) {
      clean();
      endBy(number);
    }
  }

  std::function<void()> clean;
  std::array<int, 2> ends{};
  std::array<struct sigaction, kSignals.size()> before{};
  std::thread waiting;
};

SignalCleanup::SignalCleanup(std::function<void()> clean) : parts_(std::make_unique<Parts>()) {
  parts_->clean = std::move(clean);
  if (pipe2(parts_->ends.data(), O_CLOEXEC) != 0) {
    throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
  }
  writeEnd = parts_->ends[1];
  parts_->waiting = std::thread([parts = parts_.get()] { parts->wait(); });
  for (std::size_t index = 0; index < kSignals.size(); ++index) {
    struct sigaction& before = parts_->before.at(index);
    sigaction(kSignals.at(index), nullptr, &before);
    if (before.sa_handler != SIG_IGN) {
      struct sigaction action {};
      action.sa_handler = tellOfSignal;
      action.sa_flags = SA_RESTART;
      sigaction(kSignals.at(index), &action, nullptr);
    }
  }
}

SignalCleanup::~SignalCleanup() {
  for (std::size_t index = 0; index < kSignals.size(); ++index) {
    sigaction(kSignals.at(index), &parts_->before.at(index), nullptr);
  }
  tell(kEnd);
  parts_->waiting.join();
  writeEnd = -1;
  close(parts_->ends[0]);
  close(parts_->ends[1]);
}

}  // namespace zephyl::app::render
