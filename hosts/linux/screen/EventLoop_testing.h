// Letting the event loop of a test run.

#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <functional>

namespace zephyl::linux_host {

// Until the condition holds; false when it does not within ten seconds.
inline bool runUntil(const std::function<bool()>& condition) {
  constexpr int kLongest = 10'000;
  constexpr int kSlice = 20;
  QElapsedTimer timer;
  timer.start();
  while (!condition()) {
    if (timer.hasExpired(kLongest)) {
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, kSlice);
  }
  return true;
}

}  // namespace zephyl::linux_host
