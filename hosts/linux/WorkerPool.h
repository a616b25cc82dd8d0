// The threads behind the background queues: a few, made when they are first needed. Of the tasks
// that wait the one of the highest priority goes first, and of equals the oldest. Any thread.

#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/foundation/Dispatch.h"

namespace zephyl::linux_host {

class WorkerPool {
 public:
  // `whenIdle` is called on a worker, without a lock, each time that nothing is left to do.
  WorkerPool(std::size_t maximumThreads, std::function<void()> whenIdle);

  // Must have been stopped when it ever had a task, since the last to let go of it may be one of
  // its own threads.
  ~WorkerPool() = default;
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  void async(QueuePriority priority, std::function<void()> task);

  // Whether no task waits or runs.
  [[nodiscard]] bool isIdle();

  // Takes nothing more and drops what waits; what runs goes on.
  void close();

  // Closes, and returns when what runs has ended. Not on one of its own threads.
  void stop();

 private:
  using Tasks = std::map<int, std::deque<std::function<void()>>, std::greater<>>;

  void work();
  // For holders of the lock. Empty when none waits.
  [[nodiscard]] std::function<void()> takeNext();
  [[nodiscard]] bool isIdleLocked() const { return running_ == 0 && waiting_ == 0; }

  const std::size_t maximumThreads_;
  const std::function<void()> whenIdle_;
  std::mutex mutex_;
  std::condition_variable changed_;
  Tasks tasks_;
  std::size_t waiting_ = 0;
  std::size_t running_ = 0;
  bool stopped_ = false;
  std::vector<std::thread> threads_;
};

// A queue whose tasks run on the pool, one after another. It may outlive the pool and then drops
// what it is given.
[[nodiscard]] std::shared_ptr<SerialQueue> makeSerialQueueOn(
    const std::shared_ptr<WorkerPool>& pool);

}  // namespace zephyl::linux_host
