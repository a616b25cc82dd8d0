#include <atomic>
#include <string>
#include <thread>

#include "platform/foundation/Dispatch.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

class DispatchContract : public ContractTest {
 protected:
  Dispatch& dispatch() { return host().dispatch(); }

  // A task that writes down its name; for tasks of one thread.
  std::function<void()> writes(const std::string& name) {
    return [this, name] { written_ += name; };
  }

  std::string written_;
};
ZEPHYLS_CONTRACT(DispatchContract);

TEST_P(DispatchContract, TheThreadThatMadeTheDeviceIsTheMainThread) {
  bool elsewhere = true;
  std::thread([&] { elsewhere = dispatch().isMainThread(); }).join();
  EXPECT_TRUE(dispatch().isMainThread());
  EXPECT_FALSE(elsewhere);
}

TEST_P(DispatchContract, MainTasksRunLaterInOrderOnTheMainThread) {
  bool onMain = false;
  dispatch().mainAsync([&] { onMain = dispatch().isMainThread(); });
  for (const char* name : {"a", "b", "c"}) {
    dispatch().mainAsync(writes(name));
  }
  EXPECT_EQ(written_, "");
  device().settle();
  EXPECT_TRUE(onMain);
  EXPECT_EQ(written_, "abc");
}

TEST_P(DispatchContract, ATaskAddedByATaskRunsAfterThoseThatWaited) {
  dispatch().mainAsync([this] {
    dispatch().mainAsync(writes("new"));
    written_ += "first ";
  });
  dispatch().mainAsync(writes("second "));
  device().settle();
  EXPECT_EQ(written_, "first second new");
}

TEST_P(DispatchContract, EveryPriorityRunsInTheBackground) {
  std::atomic<int> inBackground = 0;
  for (const auto priority : {QueuePriority::kBackground, QueuePriority::kLow,
                              QueuePriority::kDefault, QueuePriority::kHigh}) {
    dispatch().globalAsync(priority, [&] { inBackground += dispatch().isMainThread() ? 0 : 1; });
  }
  device().settle();
  EXPECT_EQ(inBackground, 4);
}

TEST_P(DispatchContract, TasksGivenByManyThreadsAllRun) {
  std::atomic<int> ran = 0;
  onThreads(4, [&](int) {
    for (int i = 0; i < 100; ++i) {
      dispatch().globalAsync(QueuePriority::kDefault, [&] { ++ran; });
      dispatch().mainAsync([&] { ++ran; });
    }
  });
  device().settle();
  EXPECT_EQ(ran, 800);
}

TEST_P(DispatchContract, ASerialQueueKeepsItsOrder) {
  const auto queue = dispatch().makeSerialQueue("com.example.serial");
  const auto other = dispatch().makeSerialQueue("com.example.serial");
  std::string otherWritten;
  std::atomic<int> onMain = 0;
  for (char name = 'a'; name <= 'z'; ++name) {
    queue->async([&, name] {
      onMain += dispatch().isMainThread() ? 1 : 0;
      written_ += name;
    });
    other->async([&, name] { otherWritten += name; });
  }
  device().settle();
  EXPECT_EQ(written_, "abcdefghijklmnopqrstuvwxyz");
  EXPECT_EQ(otherWritten, written_);
  EXPECT_EQ(onMain, 0);
}

TEST_P(DispatchContract, ASynchronousRequestReturnsWhenTheMainThreadHasRunIt) {
  dispatch().globalAsync(QueuePriority::kHigh, [this] {
    bool onMain = false;
    dispatch().mainSync([&] {
      onMain = dispatch().isMainThread();
      written_ += "main ";
    });
    EXPECT_TRUE(onMain);
    written_ += "background";
  });
  device().settle();
  EXPECT_EQ(written_, "main background");
}

TEST_P(DispatchContract, SettlingFollowsTasksFromQueueToQueue) {
  const auto queue = dispatch().makeSerialQueue("com.example.serial");
  dispatch().globalAsync(QueuePriority::kLow, [&] {
    queue->async([&] {
      dispatch().mainAsync(
          [&] { dispatch().globalAsync(QueuePriority::kHigh, writes("the end")); });
    });
  });
  device().settle();
  EXPECT_EQ(written_, "the end");
}

TEST_P(DispatchContract, DelayedTasksRunOnTheMainThreadInTheOrderOfTheirTimes) {
  bool onMain = false;
  dispatch().mainAfter(0.02, writes("second"));
  dispatch().mainAfter(0.01, [&] {
    onMain = dispatch().isMainThread();
    written_ += "first ";
  });
  EXPECT_EQ(written_, "");
  EXPECT_TRUE(device().passTimeUntil([this] { return written_ == "first second"; })) << written_;
  EXPECT_TRUE(onMain);
}

TEST_P(DispatchContract, ADelayedTaskDoesNotRunBeforeItsTime) {
  dispatch().mainAfter(100'000.0, writes("late"));
  dispatch().mainAfter(0.001, writes("soon"));
  EXPECT_TRUE(device().passTimeUntil([this] { return !written_.empty(); }));
  device().settle();
  EXPECT_EQ(written_, "soon");
}

TEST_P(DispatchContract, AnyThreadMayDelayATask) {
  std::thread([this] { dispatch().mainAfter(0.001, writes("ran")); }).join();
  EXPECT_TRUE(device().passTimeUntil([this] { return written_ == "ran"; }));
}

}  // namespace
}  // namespace zephyl::contract
