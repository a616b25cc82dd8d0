#include "platform/foundation/NSOperationQueue.h"

#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class NSOperationQueueTest : public ::testing::Test {
 protected:
  std::function<void()> note(const std::string& name) {
    return [this, name] { log_ += name; };
  }

  fake::Device device_;
  std::string log_;
};

TEST_F(NSOperationQueueTest, RunsInTheBackgroundInOrder) {
  NSOperationQueue queue;
  queue.addOperation(note("a"));
  queue.addOperation([this] {
    EXPECT_FALSE(device_.dispatch().isMainThread());
    log_ += "b";
  });
  EXPECT_EQ(log_, "");
  EXPECT_EQ(queue.waitingOperationCount(), 2U);
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "ab");
  EXPECT_EQ(queue.waitingOperationCount(), 0U);
}

TEST_F(NSOperationQueueTest, SuspendedItWaits) {
  NSOperationQueue queue;
  queue.setSuspended(true);
  queue.addOperation(note("a"));
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
  queue.setSuspended(false);
  EXPECT_EQ(log_, "");
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "a");
}

TEST_F(NSOperationQueueTest, SuspendedBeforeAnOperationBeginsItWaitsAllTheSame) {
  NSOperationQueue queue;
  queue.addOperation(note("a"));
  queue.setSuspended(true);
  EXPECT_TRUE(queue.isSuspended());
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "");
  queue.setSuspended(false);
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "a");
}

TEST_F(NSOperationQueueTest, EachOperationRunsOnceHoweverOftenItIsResumed) {
  NSOperationQueue queue;
  queue.addOperation(note("a"));
  for (int times = 0; times < 3; ++times) {
    queue.setSuspended(true);
    queue.setSuspended(false);
  }
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "a");
}

TEST_F(NSOperationQueueTest, QueueMayEndBeforeItsOperations) {
  auto queue = std::make_unique<NSOperationQueue>();
  queue->addOperation(note("a"));
  queue = nullptr;
  device_.dispatch().runGlobal();
  EXPECT_EQ(log_, "a");
}

TEST_F(NSOperationQueueTest, SuspendedQueueThatEndsLosesItsOperations) {
  const auto held = std::make_shared<int>(0);
  auto queue = std::make_optional<NSOperationQueue>();
  queue->setSuspended(true);
  queue->addOperation([held] {});
  EXPECT_EQ(held.use_count(), 2);
  queue.reset();
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace zephyl
