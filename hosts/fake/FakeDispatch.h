// Dispatch queues that run by hand. The thread that made this is the main thread; background tasks
// run on real threads, but only while a `run...` call waits for them.

#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/foundation/Dispatch.h"

namespace zephyl::fake {

class FakeDispatch : public Dispatch {
 public:
  bool isMainThread() override;
  void mainAsync(std::function<void()> task) override;
  void globalAsync(QueuePriority priority, std::function<void()> task) override;
  void mainAfter(double seconds, std::function<void()> task) override;
  void mainSync(const std::function<void()>& task) override;
  std::shared_ptr<SerialQueue> makeSerialQueue(const std::string& label) override;

  // All for the main thread.

  // What stands on the main queue now and whatever these tasks add, delayed tasks apart.
  void runMain();
  // One background task, on a thread of its own, the main thread serving what it asks for
  // meanwhile. False when none waits. The highest priority goes first.
  bool runOneGlobal();
  // Until none waits.
  void runGlobal();
  // Runs the task on a thread of its own and returns when it has ended, serving the main queue's
  // synchronous requests meanwhile.
  void runOnOwnThread(const std::function<void()>& task);
  // Until nothing waits anywhere, delayed tasks apart.
  void runAll();
  // Lets `seconds` pass, from one delayed task to the next: each joins the main queue when its time
  // comes, and what it delays in turn counts from that time. Runs the main queue at each stop.
  void advance(double seconds);

  [[nodiscard]] std::size_t waitingGlobal();
  [[nodiscard]] std::size_t waitingGlobal(QueuePriority priority);
  [[nodiscard]] std::size_t waitingMain();
  // Of every serial queue that was made.
  [[nodiscard]] std::vector<std::string> serialQueueLabels();

 private:
  void serveMainUntil(const bool& done);
  [[nodiscard]] double elapsed();
  // To the next delayed task, or to `end` when none comes before; whether one came.
  bool stepTowards(double end);

  const std::thread::id main_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::function<void()>> mainTasks_;
  std::deque<std::function<void()>> mainRequests_;
  std::multimap<double, std::function<void()>> delayed_;
  double elapsed_ = 0.0;
  // By priority, the highest first.
  std::map<int, std::deque<std::function<void()>>, std::greater<>> global_;
  std::vector<std::string> labels_;
};

}  // namespace zephyl::fake
