// The dispatch queues on Linux: the main queue is Qt's event loop, the others are a few threads.

#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "platform/foundation/Dispatch.h"

namespace zephyl::linux_host {

class LinuxDispatch : public Dispatch {
 public:
  // On the thread of the QCoreApplication, which must exist and outlive this. That thread is the
  // main thread.
  LinuxDispatch();

  // Stops.
  ~LinuxDispatch() override;
  LinuxDispatch(const LinuxDispatch&) = delete;
  LinuxDispatch& operator=(const LinuxDispatch&) = delete;

  // On the main thread, not inside one of its tasks. Runs nothing more, waits for the background
  // tasks that run, and lets those go on whose `mainSync` waits for a turn that will not come. What
  // is asked for later is dropped.
  void stop();

  bool isMainThread() override;
  void mainAsync(std::function<void()> task) override;
  void globalAsync(QueuePriority priority, std::function<void()> task) override;
  void mainAfter(double seconds, std::function<void()> task) override;
  void mainSync(const std::function<void()>& task) override;
  std::shared_ptr<SerialQueue> makeSerialQueue(const std::string& label) override;

  // For programs without a running event loop. Each processes events, on the main thread, until the
  // condition holds, and tells whether it did within `limit`.

  // Until no queue has a task that waits or runs; those of `mainAfter` whose time has not come are
  // not waited for.
  bool runMainUntilIdle(std::chrono::milliseconds limit = std::chrono::minutes(1));

  // `done` is asked again after each event and must be brought about by one.
  bool runMainUntil(const std::function<bool()>& done, std::chrono::milliseconds limit);

 private:
  class MainQueue;

  std::unique_ptr<MainQueue> main_;
};

}  // namespace zephyl::linux_host
