#include "hosts/fake/FakeDispatch.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl::fake {
namespace {

class FakeDispatchTest : public ::testing::Test {
 protected:
  // A task that writes down its name.
  std::function<void()> writes(const std::string& name) {
    return [this, name] { written_ += name; };
  }

  FakeDispatch dispatch_;
  std::string written_;
};

TEST_F(FakeDispatchTest, NothingRunsUntilTheTestSaysSo) {
  dispatch_.mainAsync(writes("m"));
  dispatch_.globalAsync(QueuePriority::kHigh, writes("g"));
  dispatch_.mainAfter(0.0, writes("d"));
  EXPECT_EQ(written_, "");
  EXPECT_EQ(dispatch_.waitingMain(), 1U);
  EXPECT_EQ(dispatch_.waitingGlobal(), 1U);
}

TEST_F(FakeDispatchTest, RunningTheMainQueueLeavesTheBackgroundWaiting) {
  dispatch_.mainAsync([this] {
    written_ += "a";
    dispatch_.mainAsync(writes("b"));
    dispatch_.globalAsync(QueuePriority::kHigh, writes("g"));
  });
  dispatch_.runMain();
  EXPECT_EQ(written_, "ab");
  EXPECT_EQ(dispatch_.waitingGlobal(), 1U);
}

TEST_F(FakeDispatchTest, OneBackgroundTaskRunsAtATimeTheHighestPriorityFirst) {
  dispatch_.globalAsync(QueuePriority::kBackground, writes("z"));
  dispatch_.globalAsync(QueuePriority::kDefault, writes("d"));
  dispatch_.globalAsync(QueuePriority::kHigh, writes("h"));
  EXPECT_TRUE(dispatch_.runOneGlobal());
  EXPECT_EQ(written_, "h");
  EXPECT_TRUE(dispatch_.runOneGlobal());
  EXPECT_EQ(written_, "hd");
  EXPECT_TRUE(dispatch_.runOneGlobal());
  EXPECT_FALSE(dispatch_.runOneGlobal());
  EXPECT_EQ(written_, "hdz");
}

TEST_F(FakeDispatchTest, ABackgroundTaskThatAsksTheMainQueueIsServed) {
  bool onMain = false;
  dispatch_.globalAsync(QueuePriority::kDefault, [&] {
    dispatch_.mainSync([&] { onMain = dispatch_.isMainThread(); });
    written_ += "after";
  });
  dispatch_.runGlobal();
  EXPECT_TRUE(onMain);
  EXPECT_EQ(written_, "after");
}

TEST_F(FakeDispatchTest, RunningAllFollowsTasksFromQueueToQueue) {
  dispatch_.mainAsync([this] {
    dispatch_.globalAsync(QueuePriority::kLow, [this] { dispatch_.mainAsync(writes("end")); });
  });
  dispatch_.runAll();
  EXPECT_EQ(written_, "end");
}

TEST_F(FakeDispatchTest, DelayedTasksRunInTheOrderOfTheirTimesOnceTheyHaveCome) {
  dispatch_.mainAfter(2.0, writes("c"));
  dispatch_.mainAfter(1.0, writes("a"));
  dispatch_.mainAfter(1.0, writes("b"));
  dispatch_.runAll();
  dispatch_.advance(0.5);
  EXPECT_EQ(written_, "");
  dispatch_.advance(0.5);
  EXPECT_EQ(written_, "ab");
  dispatch_.advance(1.0);
  EXPECT_EQ(written_, "abc");
}

TEST_F(FakeDispatchTest, WhatADelayedTaskDelaysInTurnCountsFromItsOwnTime) {
  dispatch_.mainAfter(1.0, [this] {
    written_ += "a";
    dispatch_.mainAfter(1.0, writes("b"));
    dispatch_.mainAfter(3.0, writes("d"));
  });
  dispatch_.mainAfter(2.5, writes("c"));
  dispatch_.advance(3.0);
  EXPECT_EQ(written_, "abc");
  dispatch_.advance(0.5);
  EXPECT_EQ(written_, "abc");
  dispatch_.advance(0.5);
  EXPECT_EQ(written_, "abcd");
}

TEST_F(FakeDispatchTest, WhatStoodOnTheMainQueueRunsBeforeTheTimePasses) {
  dispatch_.mainAsync([this] { dispatch_.mainAfter(1.0, writes("a")); });
  dispatch_.advance(1.0);
  EXPECT_EQ(written_, "a");
}

TEST_F(FakeDispatchTest, TasksOfTheSameTimeJoinTheMainQueueTogether) {
  dispatch_.mainAfter(1.0, [this] {
    written_ += "a";
    dispatch_.mainAsync(writes("c"));
  });
  dispatch_.mainAfter(1.0, writes("b"));
  dispatch_.advance(1.0);
  EXPECT_EQ(written_, "abc");
}

TEST_F(FakeDispatchTest, WaitingTasksAreCountedByPriorityToo) {
  dispatch_.globalAsync(QueuePriority::kHigh, writes("h"));
  dispatch_.globalAsync(QueuePriority::kHigh, writes("h"));
  dispatch_.globalAsync(QueuePriority::kLow, writes("l"));
  EXPECT_EQ(dispatch_.waitingGlobal(QueuePriority::kHigh), 2U);
  EXPECT_EQ(dispatch_.waitingGlobal(QueuePriority::kLow), 1U);
  EXPECT_EQ(dispatch_.waitingGlobal(QueuePriority::kDefault), 0U);
  EXPECT_EQ(dispatch_.waitingGlobal(), 3U);
  dispatch_.runOneGlobal();
  EXPECT_EQ(dispatch_.waitingGlobal(QueuePriority::kHigh), 1U);
}

TEST_F(FakeDispatchTest, ATaskOnItsOwnThreadHasEndedOnReturn) {
  bool onMain = true;
  dispatch_.runOnOwnThread([&] { onMain = dispatch_.isMainThread(); });
  EXPECT_FALSE(onMain);
}

}  // namespace
}  // namespace zephyl::fake
