#include "hosts/linux/LinuxDispatch.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <cassert>
#include <cmath>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include <sys/eventfd.h>
#include <unistd.h>

#include "hosts/linux/WorkerPool.h"

namespace zephyl::linux_host {

namespace {

using Time = std::chrono::steady_clock::time_point;
using Task = std::function<void()>;

std::size_t poolSize() {
  return std::clamp<std::size_t>(std::thread::hardware_concurrency(), 2, 8);
}

// Long enough for any purpose and short enough to be added to any time.
Time after(double seconds) {
  constexpr double kLongest = 1e8;
  const auto delay =
      std::chrono::duration<double>(std::isnan(seconds) ? 0.0 : std::clamp(seconds, 0.0, kLongest));
  return std::chrono::steady_clock::now() +
         std::chrono::ceil<std::chrono::steady_clock::duration>(delay);
}

}  // namespace

// What waits for the main thread. Other threads touch only the part behind the lock and wake Qt's
// loop through a descriptor, so that nothing of Qt is shared between threads.
class LinuxDispatch::MainQueue {
 public:
  MainQueue();
  ~MainQueue();
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;

  void async(Task task);
  void asyncAfter(double seconds, Task task);
  void sync(const Task& task);
  void wake();
  void stop();
  [[nodiscard]] bool isIdle();

  [[nodiscard]] bool isOnThread() const { return std::this_thread::get_id() == thread_; }
  [[nodiscard]] const std::shared_ptr<WorkerPool>& workers() const { return workers_; }

 private:
  void signal();  // for holders of the lock
  void takeTurn();
  void moveDueTasks();
  void runWaiting();

  const std::thread::id thread_ = std::this_thread::get_id();
  std::mutex mutex_;
  std::condition_variable synchronized_;
  std::deque<Task> tasks_;
  std::multimap<Time, Task> delayed_;
  bool signaled_ = false;
  bool stopped_ = false;
  const int wakeDescriptor_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  QSocketNotifier notifier_{wakeDescriptor_, QSocketNotifier::Read};
  QTimer timer_;
  std::shared_ptr<WorkerPool> workers_;
};

LinuxDispatch::MainQueue::MainQueue()
    : workers_(std::make_shared<WorkerPool>(poolSize(), [this] { wake(); })) {
  assert(QCoreApplication::instance() != nullptr);
  QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { takeTurn(); });
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { takeTurn(); });
}

LinuxDispatch::MainQueue::~MainQueue() {
  notifier_.setEnabled(false);
  ::close(wakeDescriptor_);
}

void LinuxDispatch::MainQueue::signal() {
  if (!std::exchange(signaled_, true)) {
    const std::uint64_t one = 1;
    // Never full, since it is written only once before it is read.
    static_cast<void>(::write(wakeDescriptor_, &one, sizeof one) == sizeof one);
  }
}

void LinuxDispatch::MainQueue::wake() {
  const std::lock_guard lock(mutex_);
  signal();
}

void LinuxDispatch::MainQueue::async(Task task) {
  const std::lock_guard lock(mutex_);
  if (!stopped_) {
    tasks_.push_back(std::move(task));
    signal();
  }
}

void LinuxDispatch::MainQueue::asyncAfter(double seconds, Task task) {
  const std::lock_guard lock(mutex_);
  if (!stopped_) {
    delayed_.emplace(after(seconds), std::move(task));
    signal();
  }
}

void LinuxDispatch::MainQueue::sync(const Task& task) {
  assert(!isOnThread());
  bool done = false;
  std::unique_lock lock(mutex_);
  if (stopped_) {
    return;
  }
  tasks_.push_back([&] {
    task();
    const std::lock_guard finished(mutex_);
    done = true;
    synchronized_.notify_all();
  });
  signal();
  synchronized_.wait(lock, [&] { return done || stopped_; });
}

void LinuxDispatch::MainQueue::stop() {
  // Closed before anybody is let go, who could otherwise make room for a task that waits.
  workers_->close();
  // Dropped when the lock is gone, since what a task holds may ask for a task in its destructor.
  std::deque<Task> tasks;
  std::multimap<Time, Task> delayed;
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
    tasks.swap(tasks_);
    delayed.swap(delayed_);
    synchronized_.notify_all();
  }
  timer_.stop();
  workers_->stop();
}

bool LinuxDispatch::MainQueue::isIdle() {
  // In this order: once the workers are idle only this thread adds tasks.
  if (!workers_->isIdle()) {
    return false;
  }
  const std::lock_guard lock(mutex_);
  return tasks_.empty() &&
         (delayed_.empty() || delayed_.begin()->first > std::chrono::steady_clock::now());
}

// What waits now runs, one after another; what these tasks add waits for the next turn, so that
// Qt's own events get theirs between. A task may run an event loop of its own.
void LinuxDispatch::MainQueue::takeTurn() {
  std::size_t count = 0;
  {
    const std::lock_guard lock(mutex_);
    std::uint64_t ignored = 0;
    static_cast<void>(::read(wakeDescriptor_, &ignored, sizeof ignored) == sizeof ignored);
    signaled_ = false;
    moveDueTasks();
    count = tasks_.size();
  }
  for (; count > 0; --count) {
    runWaiting();
  }
}

void LinuxDispatch::MainQueue::moveDueTasks() {
  const Time now = std::chrono::steady_clock::now();
  while (!delayed_.empty() && delayed_.begin()->first <= now) {
    tasks_.push_back(std::move(delayed_.begin()->second));
    delayed_.erase(delayed_.begin());
  }
  if (!delayed_.empty()) {
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(delayed_.begin()->first - now);
    // A timer counts in an int; after an hour it is set anew.
    timer_.start(std::min<std::chrono::milliseconds>(wait, std::chrono::hours(1)));
  }
}

void LinuxDispatch::MainQueue::runWaiting() {
  Task task;
  {
    const std::lock_guard lock(mutex_);
    if (tasks_.empty()) {
      return;
    }
    task = std::move(tasks_.front());
    tasks_.pop_front();
    if (!tasks_.empty()) {
      signal();  // for an event loop inside the task
    }
  }
  task();
}

LinuxDispatch::LinuxDispatch() : main_(std::make_unique<MainQueue>()) {}

LinuxDispatch::~LinuxDispatch() {
  stop();
}

void LinuxDispatch::stop() {
  assert(main_->isOnThread());
  main_->stop();
}

bool LinuxDispatch::isMainThread() {
  return main_->isOnThread();
}

void LinuxDispatch::mainAsync(std::function<void()> task) {
  main_->async(std::move(task));
}

void LinuxDispatch::globalAsync(QueuePriority priority, std::function<void()> task) {
  main_->workers()->async(priority, std::move(task));
}

void LinuxDispatch::mainAfter(double seconds, std::function<void()> task) {
  main_->asyncAfter(seconds, std::move(task));
}

void LinuxDispatch::mainSync(const std::function<void()>& task) {
  main_->sync(task);
}

std::shared_ptr<SerialQueue> LinuxDispatch::makeSerialQueue(const std::string& /*label*/) {
  return makeSerialQueueOn(main_->workers());
}

bool LinuxDispatch::runMainUntilIdle(std::chrono::milliseconds limit) {
  return runMainUntil([this] { return main_->isIdle(); }, limit);
}

bool LinuxDispatch::runMainUntil(const std::function<bool()>& done,
                                 std::chrono::milliseconds limit) {
  assert(main_->isOnThread());
  bool expired = false;
  QTimer timer;
  timer.setSingleShot(true);
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] { expired = true; });
  timer.start(limit);
  while (!done()) {
    if (expired) {
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

}  // namespace zephyl::linux_host
