// SIGTERM and SIGINT as calls of the event loop, so that what is being done is finished first.
//
// One at a time, made and let go of on the thread of the event loop, before other threads start.

#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace zephyl::app {

class StopSignals {
 public:
  explicit StopSignals(std::function<void()> stop);

  // The signals act again as they did before.
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  int descriptor_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace zephyl::app
