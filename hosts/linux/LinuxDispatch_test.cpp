#include "hosts/linux/LinuxDispatch.h"

#include <atomic>
#include <future>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "hosts/linux/WorkerPool.h"

namespace zephyl::linux_host {
namespace {

using namespace std::chrono_literals;

class LinuxDispatchTest : public ::testing::Test {
 protected:
  std::optional<LinuxDispatch> dispatch_{std::in_place};
};

TEST_F(LinuxDispatchTest, ATaskMayRunAnEventLoopInWhichTheOthersGetTheirTurn) {
  std::string written;
  dispatch_->mainAsync([&] {
    EXPECT_TRUE(dispatch_->runMainUntil([&] { return written == "b"; }, 10s));
    written += "a";
  });
  dispatch_->mainAsync([&] { written += "b"; });
  EXPECT_TRUE(dispatch_->runMainUntilIdle());
  EXPECT_EQ(written, "ba");
}

TEST_F(LinuxDispatchTest, WaitingEndsWithItsLimit) {
  EXPECT_FALSE(dispatch_->runMainUntil([] { return false; }, 1ms));
  std::promise<void> open;
  dispatch_->globalAsync(QueuePriority::kDefault, [&] { open.get_future().wait(); });
  EXPECT_FALSE(dispatch_->runMainUntilIdle(1ms));
  open.set_value();
  EXPECT_TRUE(dispatch_->runMainUntilIdle());
}

TEST_F(LinuxDispatchTest, WhatWaitsWhenTheQueuesStopNeverRuns) {
  std::atomic<int> ran = 0;
  const auto count = [&] { ++ran; };
  const auto serial = dispatch_->makeSerialQueue("com.example");
  dispatch_->mainAsync(count);
  dispatch_->mainAfter(0.0, count);
  dispatch_->stop();
  dispatch_->mainAsync(count);
  dispatch_->mainAfter(0.0, count);
  dispatch_->globalAsync(QueuePriority::kHigh, count);
  serial->async(count);
  EXPECT_TRUE(dispatch_->runMainUntilIdle());
  dispatch_.reset();
  serial->async(count);
  EXPECT_EQ(ran, 0);
}

// The task that runs waits for the main thread, so that it ends only because the queues stop.
TEST_F(LinuxDispatchTest, StoppingLetsGoOfTheTaskThatRunsWaitsForItAndDropsTheRest) {
  std::promise<void> started;
  bool ranOnMain = false;
  bool ended = false;
  std::atomic<int> ranAfter = 0;
  const auto serial = dispatch_->makeSerialQueue("com.example");
  serial->async([&] {
    started.set_value();
    dispatch_->mainSync([&] { ranOnMain = true; });
    ended = true;
  });
  serial->async([&] { ++ranAfter; });
  started.get_future().wait();
  dispatch_->stop();
  EXPECT_TRUE(ended);
  EXPECT_FALSE(ranOnMain);
  EXPECT_EQ(ranAfter, 0);
}

TEST_F(LinuxDispatchTest, WhatADroppedTaskHoldsMayStillUseTheQueues) {
  const std::shared_ptr<void> held(nullptr, [this](void*) {
    dispatch_->mainAsync([] {});
    dispatch_->globalAsync(QueuePriority::kLow, [] {});
  });
  dispatch_->mainAsync([copy = held] {});
  dispatch_->stop();
  EXPECT_TRUE(dispatch_->runMainUntilIdle());
}

TEST_F(LinuxDispatchTest, DelaysBeyondAllMeasureAreKept) {
  std::string written;
  for (const double delay : {1e300, 1e9, 3e6}) {
    dispatch_->mainAfter(delay, [&] { written += "never"; });
  }
  for (const double delay : {-1.0, 0.0, std::numeric_limits<double>::quiet_NaN()}) {
    dispatch_->mainAfter(delay, [&] { written += "x"; });
  }
  EXPECT_TRUE(dispatch_->runMainUntil([&] { return written == "xxx"; }, 10s)) << written;
}

TEST(WorkerPool, TheHighestPriorityGoesFirstAndEqualsInTheirOrder) {
  std::promise<void> idle;
  WorkerPool pool(1, [&] { idle.set_value(); });
  std::promise<void> go;
  std::string written;
  pool.async(QueuePriority::kHigh, [&] { go.get_future().wait(); });
  const auto add = [&](QueuePriority priority, char name) {
    pool.async(priority, [&, name] { written += name; });
  };
  add(QueuePriority::kBackground, 'z');
  add(QueuePriority::kLow, 'l');
  add(QueuePriority::kDefault, 'd');
  add(QueuePriority::kHigh, 'a');
  add(QueuePriority::kHigh, 'b');
  add(QueuePriority::kDefault, 'e');
  EXPECT_FALSE(pool.isIdle());
  go.set_value();
  idle.get_future().wait();
  EXPECT_TRUE(pool.isIdle());
  EXPECT_EQ(written, "abdelz");
  pool.stop();
}

TEST(WorkerPool, TasksRunSideBySide) {
  WorkerPool pool(2, [] {});
  std::promise<void> first;
  std::promise<void> second;
  std::promise<void> done;
  pool.async(QueuePriority::kDefault, [&] {
    first.set_value();
    second.get_future().wait();
    done.set_value();
  });
  pool.async(QueuePriority::kDefault, [&] {
    first.get_future().wait();
    second.set_value();
  });
  done.get_future().wait();
  pool.stop();
}

}  // namespace
}  // namespace zephyl::linux_host
