#include "hosts/fake/FakeDispatch.h"

#include <algorithm>
#include <utility>

namespace zephyl::fake {

namespace {

// Its tasks stand on a global queue of the device, where they keep their order.
class FakeSerialQueue : public SerialQueue {
 public:
  explicit FakeSerialQueue(FakeDispatch& dispatch) : dispatch_(dispatch) {}
  void async(std::function<void()> task) override {
    dispatch_.globalAsync(QueuePriority::kDefault, std::move(task));
  }

 private:
  FakeDispatch& dispatch_;
};

}  // namespace

bool FakeDispatch::isMainThread() {
  return std::this_thread::get_id() == main_;
}

void FakeDispatch::mainAsync(std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  mainTasks_.push_back(std::move(task));
}

void FakeDispatch::globalAsync(QueuePriority priority, std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  global_[static_cast<int>(priority)].push_back(std::move(task));
}

void FakeDispatch::mainAfter(double seconds, std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  delayed_.emplace(elapsed_ + seconds, std::move(task));
}

void FakeDispatch::mainSync(const std::function<void()>& task) {
  bool done = false;
  std::unique_lock lock(mutex_);
  mainRequests_.emplace_back([&] {
    task();
    const std::lock_guard finished(mutex_);
    done = true;
    changed_.notify_all();
  });
  changed_.notify_all();
  changed_.wait(lock, [&] { return done; });
}

std::shared_ptr<SerialQueue> FakeDispatch::makeSerialQueue(const std::string& label) {
  {
    const std::lock_guard lock(mutex_);
    labels_.push_back(label);
  }
  return std::make_shared<FakeSerialQueue>(*this);
}

void FakeDispatch::runMain() {
  for (;;) {
    std::function<void()> task;
    {
      const std::lock_guard lock(mutex_);
      if (mainTasks_.empty()) {
        return;
      }
      task = std::move(mainTasks_.front());
      mainTasks_.pop_front();
    }
    task();
  }
}

void FakeDispatch::serveMainUntil(const bool& done) {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [&] { return done || !mainRequests_.empty(); });
    if (mainRequests_.empty()) {
      return;
    }
    const auto request = std::move(mainRequests_.front());
    mainRequests_.pop_front();
    lock.unlock();
    request();
    lock.lock();
  }
}

bool FakeDispatch::runOneGlobal() {
  std::function<void()> task;
  {
    const std::lock_guard lock(mutex_);
    for (auto& [priority, tasks] : global_) {
      if (!tasks.empty()) {
        task = std::move(tasks.front());
        tasks.pop_front();
        break;
      }
    }
  }
  if (!task) {
    return false;
  }
  runOnOwnThread([&] {
    task();
    task = nullptr;
  });
  return true;
}

void FakeDispatch::runOnOwnThread(const std::function<void()>& task) {
  bool done = false;
  std::thread worker([&] {
    task();
    const std::lock_guard lock(mutex_);
    done = true;
    changed_.notify_all();
  });
  serveMainUntil(done);
  worker.join();
}

void FakeDispatch::runGlobal() {
  while (runOneGlobal()) {
  }
}

void FakeDispatch::runAll() {
  do {
    runMain();
  } while (runOneGlobal() || waitingMain() > 0);
}

double FakeDispatch::elapsed() {
  const std::lock_guard lock(mutex_);
  return elapsed_;
}

bool FakeDispatch::stepTowards(double end) {
  const std::lock_guard lock(mutex_);
  const bool comes = !delayed_.empty() && delayed_.begin()->first <= end;
  elapsed_ = comes ? std::max(elapsed_, delayed_.begin()->first) : end;
  while (!delayed_.empty() && delayed_.begin()->first <= elapsed_) {
    mainTasks_.push_back(std::move(delayed_.begin()->second));
    delayed_.erase(delayed_.begin());
  }
  return comes;
}

void FakeDispatch::advance(double seconds) {
  const double end = elapsed() + seconds;
  do {
    runMain();
  } while (stepTowards(end));
}

std::size_t FakeDispatch::waitingGlobal() {
  const std::lock_guard lock(mutex_);
  std::size_t waiting = 0;
  for (const auto& [priority, tasks] : global_) {
    waiting += tasks.size();
  }
  return waiting;
}

std::size_t FakeDispatch::waitingGlobal(QueuePriority priority) {
  const std::lock_guard lock(mutex_);
  const auto found = global_.find(static_cast<int>(priority));
  return found == global_.end() ? 0 : found->second.size();
}

std::size_t FakeDispatch::waitingMain() {
  const std::lock_guard lock(mutex_);
  return mainTasks_.size();
}

std::vector<std::string> FakeDispatch::serialQueueLabels() {
  const std::lock_guard lock(mutex_);
  return labels_;
}

}  // namespace zephyl::fake
