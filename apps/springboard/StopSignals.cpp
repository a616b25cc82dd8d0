#include "apps/springboard/StopSignals.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace zephyl::app {

namespace {

sigset_t stopSignals() {
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTERM);
  sigaddset(&set, SIGINT);
  return set;
}

}  // namespace

StopSignals::StopSignals(std::function<void()> stop) {
  const sigset_t stopping = stopSignals();
  pthread_sigmask(SIG_BLOCK, &stopping, nullptr);
  descriptor_ = signalfd(-1, &stopping, SFD_CLOEXEC | SFD_NONBLOCK);
  if (descriptor_ < 0) {
    throw std::system_error(errno, std::generic_category(), "cannot wait for signals");
  }
  notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, stop = std::move(stop)] {
                     signalfd_siginfo taken{};
                     if (read(descriptor_, &taken, sizeof taken) == sizeof taken) {
                       stop();
                     }
                   });
}

StopSignals::~StopSignals() {
  notifier_.reset();
  close(descriptor_);
  const sigset_t stopping = stopSignals();
  pthread_sigmask(SIG_UNBLOCK, &stopping, nullptr);
}

}  // namespace zephyl::app
