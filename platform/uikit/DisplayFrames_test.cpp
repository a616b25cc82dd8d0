#include "platform/uikit/DisplayFrames.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;

class DisplayFramesTest : public ::testing::Test {
 protected:
  FrameCallback note(const std::string& name, int frames) {
    return [this, name, left = frames](double) mutable {
      log_.push_back(name);
      return --left > 0;
    };
  }

  fake::Device device_;
  fake::FakeDisplayLink& link_ = device_.uikit()->displayLink();
  std::vector<std::string> log_;
  std::shared_ptr<int> owner_ = std::make_shared<int>(0);
};

TEST_F(DisplayFramesTest, ServesAllInTheirOrderUntilNobodyWantsMore) {
  addFrameCallback(owner_, note("a", 2));
  addFrameCallback(owner_, note("b", 1));
  EXPECT_TRUE(link_.runFrame());
  EXPECT_TRUE(link_.runFrame());
  EXPECT_FALSE(link_.runFrame());
  EXPECT_THAT(log_, ElementsAre("a", "b", "a"));
}

TEST_F(DisplayFramesTest, OwnerThatEndedIsNotServed) {
  addFrameCallback(owner_, note("a", 5));
  owner_ = nullptr;
  link_.advance(1);
  EXPECT_TRUE(log_.empty());
  EXPECT_FALSE(link_.isFrameRequested());
}

TEST_F(DisplayFramesTest, WhatIsAddedDuringAFrameBeginsWithTheNext) {
  addFrameCallback(owner_, [this](double) {
    log_.emplace_back("first");
    addFrameCallback(owner_, note("added", 1));
    return false;
  });
  link_.runFrame();
  EXPECT_THAT(log_, ElementsAre("first"));
  link_.runFrame();
  EXPECT_THAT(log_, ElementsAre("first", "added"));
  EXPECT_FALSE(link_.isFrameRequested());
}

TEST_F(DisplayFramesTest, CallbackMayEndItsOwnerAndIsToldTheTime) {
  double seen = 0;
  addFrameCallback(owner_, [&](double timestamp) {
    seen = timestamp;
    owner_ = nullptr;
    return true;
  });
  link_.advance(1);
  EXPECT_EQ(seen, 100 + 1.0 / 60);
  EXPECT_FALSE(link_.isFrameRequested());
}

TEST_F(DisplayFramesTest, HostThatIsTakenAwayTakesTheCallbacksAlong) {
  addFrameCallback(owner_, note("a", 5));
  device_.restartProcess();
  link_.runFrame();
  EXPECT_TRUE(log_.empty());
  addFrameCallback(owner_, note("b", 1));
  link_.runFrame();
  EXPECT_THAT(log_, ElementsAre("b"));
}

}  // namespace
}  // namespace zephyl
