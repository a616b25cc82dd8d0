#include "platform/uikit/tables/ScrollMotion.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

constexpr double kFrame = 1.0 / 60;
constexpr ScrollRange kRange{0, 1000};

// The number of frames until it rests; no more than a minute's.
int runToRest(ScrollMotion& motion, const ScrollRange& range, bool bounces) {
  int frames = 0;
  while (frames < 3600 && motion.step(kFrame, range, bounces)) {
    ++frames;
  }
  return frames;
}

TEST(ScrollMotion, VelocityFallsToAThousandthPartEachMillisecond) {
  ScrollMotion motion(0, 1000);
  EXPECT_TRUE(motion.step(0.1, {0, 1e5}, true));
  EXPECT_NEAR(motion.velocity(), 1000 * std::pow(0.998, 100), 1e-6);
  EXPECT_NEAR(motion.offset(), 1000 * (1 - std::pow(0.998, 100)) / 2.002, 1e-2);
}

TEST(ScrollMotion, FramesOfAnyLengthLeadToTheSamePlace) {
  ScrollMotion fine(0, 800);
  ScrollMotion coarse(0, 800);
  for (int i = 0; i < 100; ++i) {
    fine.step(0.005, {0, 1e5}, true);
  }
  coarse.step(0.5, {0, 1e5}, true);
  EXPECT_NEAR(fine.offset(), coarse.offset(), 1e-6);
}

TEST(ScrollMotion, ComesToRestWithinTheRange) {
  ScrollMotion motion(500, 300);
  const int frames = runToRest(motion, kRange, true);
  EXPECT_GT(frames, 20);
  EXPECT_LT(frames, 200);
  EXPECT_TRUE(kRange.contains(motion.offset()));
}

TEST(ScrollMotion, RunsBeyondTheEdgeAndComesBackToItExactly) {
  ScrollMotion motion(990, 3000);
  CGFloat furthest = 0;
  while (motion.step(kFrame, kRange, true)) {
    furthest = std::max(furthest, motion.offset());
  }
  EXPECT_GT(furthest, 1010);
  EXPECT_EQ(motion.offset(), 1000);
}

TEST(ScrollMotion, StopsAtTheEdgeWhereItMayNotBounce) {
  ScrollMotion motion(990, 3000);
  CGFloat furthest = 0;
  bool moves = true;
  while (moves) {
    moves = motion.step(kFrame, kRange, false);
    furthest = std::max(furthest, motion.offset());
  }
  EXPECT_EQ(furthest, 1000);
  EXPECT_EQ(motion.offset(), 1000);
}

TEST(ScrollMotion, APullWithoutVelocityComesBackWithoutOvershooting) {
  ScrollMotion motion(-120, 0);
  CGFloat last = motion.offset();
  while (motion.step(kFrame, kRange, true)) {
    EXPECT_GE(motion.offset(), last);
    last = motion.offset();
  }
  EXPECT_EQ(motion.offset(), 0);
}

TEST(ScrollMotion, NumbersThatAreNoneEndTheMotion) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  ScrollMotion motion(nan, nan);
  EXPECT_FALSE(motion.step(nan, kRange, true));
  EXPECT_EQ(motion.offset(), 0);
  ScrollMotion fast(0, 1e300);
  EXPECT_LT(runToRest(fast, kRange, true), 3600);
  EXPECT_EQ(fast.offset(), 1000);
}

TEST(ScrollMotion, ARubberBandGivesLessAndLessAndNeverTheWholeExtent) {
  EXPECT_EQ(rubberBand(500, kRange, 600), 500);
  const CGFloat first = -rubberBand(-100, kRange, 600);
  const CGFloat second = -rubberBand(-200, kRange, 600) - first;
  EXPECT_GT(first, 40);
  EXPECT_LT(first, 60);
  EXPECT_LT(second, first);
  EXPECT_GT(rubberBand(-1e6, kRange, 600), -600);
  EXPECT_GT(rubberBand(1100, kRange, 600), 1040);
  EXPECT_EQ(rubberBand(-100, kRange, 0), 0);
}

TEST(ScrollMotion, WhatTheFingerAsksForIsFoundAgainFromWhatIsShown) {
  for (const CGFloat asked : {-300.0, -1.0, 0.0, 400.0, 1000.0, 1001.0, 1700.0}) {
    EXPECT_NEAR(withoutRubberBand(rubberBand(asked, kRange, 600), kRange, 600), asked, 1e-6);
  }
}

}  // namespace
}  // namespace zephyl
