#include "platform/foundation/NSOperationQueue.h"

#include <deque>
#include <mutex>
#include <utility>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

namespace zephyl {

// Outlives the queue for as long as the host has tasks of it.
class NSOperationQueue::State : public std::enable_shared_from_this<State> {
 public:
  void add(std::function<void()> operation) {
    bool runs = false;
    {
      const std::lock_guard lock(mutex_);
      waiting_.push_back(std::move(operation));
      runs = !suspended_;
    }
    if (runs) {
      dispatchOne();
    }
  }

  void setSuspended(bool suspended) {
    std::size_t count = 0;
    {
      const std::lock_guard lock(mutex_);
      const bool resumes = std::exchange(suspended_, suspended) && !suspended;
      count = resumes ? waiting_.size() : 0;
    }
    // One that is too many finds nothing to run.
    for (; count > 0; --count) {
      dispatchOne();
    }
  }

  [[nodiscard]] bool isSuspended() {
    const std::lock_guard lock(mutex_);
    return suspended_;
  }

  [[nodiscard]] std::size_t waiting() {
    const std::lock_guard lock(mutex_);
    return waiting_.size();
  }

 private:
  void dispatchOne() {
    host().dispatch().globalAsync(QueuePriority::kDefault,
                                  [self = shared_from_this()] { self->runOne(); });
  }

  void runOne() {
    std::function<void()> operation;
    {
      const std::lock_guard lock(mutex_);
      if (suspended_ || waiting_.empty()) {
        return;
      }
      operation = std::move(waiting_.front());
      waiting_.pop_front();
    }
    operation();
  }

  std::mutex mutex_;
  std::deque<std::function<void()>> waiting_;
  bool suspended_ = false;
};

NSOperationQueue::NSOperationQueue() : state_(std::make_shared<State>()) {}

NSOperationQueue::~NSOperationQueue() = default;

void NSOperationQueue::addOperation(std::function<void()> operation) {
  state_->add(std::move(operation));
}

void NSOperationQueue::setSuspended(bool suspended) {
  state_->setSuspended(suspended);
}

bool NSOperationQueue::isSuspended() const {
  return state_->isSuspended();
}

std::size_t NSOperationQueue::waitingOperationCount() const {
  return state_->waiting();
}

}  // namespace zephyl
