#include "hosts/linux/WorkerPool.h"

#include <utility>

namespace zephyl::linux_host {

WorkerPool::WorkerPool(std::size_t maximumThreads, std::function<void()> whenIdle)
    : maximumThreads_(maximumThreads), whenIdle_(std::move(whenIdle)) {}

void WorkerPool::async(QueuePriority priority, std::function<void()> task) {
  const std::lock_guard lock(mutex_);
  if (stopped_) {
    return;
  }
  tasks_[static_cast<int>(priority)].push_back(std::move(task));
  ++waiting_;
  if (running_ + waiting_ > threads_.size() && threads_.size() < maximumThreads_) {
    threads_.emplace_back([this] { work(); });
  }
  changed_.notify_one();
}

bool WorkerPool::isIdle() {
  const std::lock_guard lock(mutex_);
  return isIdleLocked();
}

void WorkerPool::close() {
  // Dropped when the lock is gone, since what a task holds may ask for a task in its destructor.
  Tasks dropped;
  const std::lock_guard lock(mutex_);
  stopped_ = true;
  waiting_ = 0;
  dropped.swap(tasks_);
  changed_.notify_all();
}

void WorkerPool::stop() {
  close();
  std::vector<std::thread> threads;
  {
    const std::lock_guard lock(mutex_);
    threads.swap(threads_);
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

std::function<void()> WorkerPool::takeNext() {
  for (auto& [priority, tasks] : tasks_) {
    if (!tasks.empty()) {
      std::function<void()> task = std::move(tasks.front());
      tasks.pop_front();
      --waiting_;
      return task;
    }
  }
  return {};
}

void WorkerPool::work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return stopped_ || waiting_ > 0; });
    if (stopped_) {
      return;
    }
    std::function<void()> task = takeNext();
    ++running_;
    lock.unlock();
    task();
    task = nullptr;
    lock.lock();
    --running_;
    if (isIdleLocked()) {
      lock.unlock();
      whenIdle_();
      lock.lock();
    }
  }
}

namespace {

// One of its tasks at a time stands on the pool; that one puts the next there.
class PoolSerialQueue : public SerialQueue {
 public:
  explicit PoolSerialQueue(std::weak_ptr<WorkerPool> pool)
      : state_(std::make_shared<State>(std::move(pool))) {}

  void async(std::function<void()> task) override { State::add(state_, std::move(task)); }

 private:
  struct State {
    explicit State(std::weak_ptr<WorkerPool> workers) : pool(std::move(workers)) {}

    static void add(const std::shared_ptr<State>& self, std::function<void()> task) {
      {
        const std::lock_guard lock(self->mutex);
        self->tasks.push_back(std::move(task));
        if (std::exchange(self->busy, true)) {
          return;
        }
      }
      step(self);
    }

    static void step(const std::shared_ptr<State>& self) {
      if (const auto workers = self->pool.lock()) {
        workers->async(QueuePriority::kDefault, [self] { runOne(self); });
      }
    }

    static void runOne(const std::shared_ptr<State>& self) {
      std::function<void()> task;
      {
        const std::lock_guard lock(self->mutex);
        task = std::move(self->tasks.front());
        self->tasks.pop_front();
      }
      task();
      task = nullptr;
      {
        const std::lock_guard lock(self->mutex);
        self->busy = !self->tasks.empty();
        if (!self->busy) {
          return;
        }
      }
      step(self);
    }

    std::weak_ptr<WorkerPool> pool;
    std::mutex mutex;
    std::deque<std::function<void()>> tasks;
    bool busy = false;
  };

  std::shared_ptr<State> state_;
};

}  // namespace

std::shared_ptr<SerialQueue> makeSerialQueueOn(const std::shared_ptr<WorkerPool>& pool) {
  return std::make_shared<PoolSerialQueue>(pool);
}

}  // namespace zephyl::linux_host
