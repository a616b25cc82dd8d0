#include "apps/zephyls/Interruption.h"

#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <csignal>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace zephyl::app {

namespace {

// Where the signal handler writes.
std::atomic<int> writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void tellOfInterruption(int /*number*/) {
  const char byte = 0;
  static_cast<void>(!write(writeEnd, &byte, 1));
}

}  // namespace

struct Interruption::Pipe {
  Pipe() {
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
      throw std::system_error(errno, std::generic_category(), "cannot wait for Ctrl-C");
    }
  }
  ~Pipe() {
    notifier.reset();
    close(ends[0]);
    close(ends[1]);
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  std::array<int, 2> ends{};
  std::unique_ptr<QSocketNotifier> notifier;
  struct sigaction before {};
};

Interruption::Interruption(std::function<void()> interrupted) : pipe_(std::make_unique<Pipe>()) {
  sigaction(SIGINT, nullptr, &pipe_->before);
  if (pipe_->before.sa_handler == SIG_IGN) {
    return;
  }
  pipe_->notifier = std::make_unique<QSocketNotifier>(pipe_->ends[0], QSocketNotifier::Read);
  QObject::connect(pipe_->notifier.get(), &QSocketNotifier::activated,
                   [pipe = pipe_.get(), interrupted = std::move(interrupted)] {
                     pipe->notifier->setEnabled(false);
                     interrupted();
                   });
  writeEnd = pipe_->ends[1];
  struct sigaction action {};
  action.sa_handler = tellOfInterruption;
  action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
  sigaction(SIGINT, &action, nullptr);
}

Interruption::~Interruption() {
  sigaction(SIGINT, &pipe_->before, nullptr);
  writeEnd = -1;
}

}  // namespace zephyl::app
