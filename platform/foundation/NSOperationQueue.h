// Runs operations in the background, several at once where the host can, on its global queue. Any
// thread.
//
// What is added while the queue is suspended waits. Operations that have begun go on, and those
// that a queue still has when it ends run all the same, unless it is suspended: then they are lost.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>

#include "platform/Export.h"

namespace zephyl {

class ZP_EXPORT NSOperationQueue {
 public:
  NSOperationQueue();
  ~NSOperationQueue();
  NSOperationQueue(const NSOperationQueue&) = delete;
  NSOperationQueue& operator=(const NSOperationQueue&) = delete;

  // Each begins in the order of the calls, never inside this one.
  void addOperation(std::function<void()> operation);
  void setSuspended(bool suspended);
  [[nodiscard]] bool isSuspended() const;
  // Those that have not begun.
  [[nodiscard]] std::size_t waitingOperationCount() const;

 private:
  class State;

  std::shared_ptr<State> state_;
};

}  // namespace zephyl
