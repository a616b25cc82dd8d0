// The dispatch queues: the main queue, one concurrent queue for each priority, and serial queues.

#pragma once

#include <functional>
#include <memory>
#include <string>

namespace zephyl {

enum class QueuePriority { kHigh = 2, kDefault = 0, kLow = -2, kBackground = -32768 };

// Runs its tasks one after another, in order, on some thread of the host's.
class SerialQueue {
 public:
  virtual ~SerialQueue() = default;
  virtual void async(std::function<void()> task) = 0;
};

class Dispatch {
 public:
  virtual ~Dispatch() = default;

  [[nodiscard]] virtual bool isMainThread() = 0;

  // Each returns at once; the task runs later, never inside the call.
  virtual void mainAsync(std::function<void()> task) = 0;
  virtual void globalAsync(QueuePriority priority, std::function<void()> task) = 0;
  // On the main queue, not before `seconds` have passed.
  virtual void mainAfter(double seconds, std::function<void()> task) = 0;

  // Returns when the main thread has run the task. Not to be called on the main thread, nor while
  // the main thread waits for the caller.
  virtual void mainSync(const std::function<void()>& task) = 0;

  [[nodiscard]] virtual std::shared_ptr<SerialQueue> makeSerialQueue(const std::string& label) = 0;
};

}  // namespace zephyl
