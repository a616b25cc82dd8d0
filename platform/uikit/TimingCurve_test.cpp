#include "platform/uikit/TimingCurve.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/UIViewEnumerations.h"

namespace zephyl {
namespace {

TEST(TimingCurve, BeginsAndEndsWithTheTime) {
  const TimingCurve curve = TimingCurve::forOptions(kAnimationCurveEaseInOut);
  EXPECT_EQ(curve.at(-1), 0);
  EXPECT_EQ(curve.at(0), 0);
  EXPECT_EQ(curve.at(1), 1);
  EXPECT_EQ(curve.at(7), 1);
  EXPECT_EQ(curve.at(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(TimingCurve, CurvesAreThePlatforms) {
  // Reference values of the cubic curves at a quarter of the time.
  EXPECT_NEAR(TimingCurve::forOptions(kAnimationCurveEaseInOut).at(0.25), 0.1291, 1e-3);
  EXPECT_NEAR(TimingCurve::forOptions(kAnimationCurveEaseIn).at(0.25), 0.0935, 1e-3);
  EXPECT_NEAR(TimingCurve::forOptions(kAnimationCurveEaseOut).at(0.25), 0.3781, 1e-3);
  EXPECT_EQ(TimingCurve::forOptions(kAnimationCurveLinear).at(0.25), 0.25);
}

TEST(TimingCurve, OtherOptionsDoNotMatter) {
  EXPECT_EQ(TimingCurve::forOptions(kAnimationCurveLinear | kAnimationAllowUserInteraction).at(0.3),
            0.3);
}

TEST(TimingCurve, NeverGoesBack) {
  const TimingCurve curve(0.1, 0, 0.9, 1);
  double last = 0;
  for (int i = 1; i <= 100; ++i) {
    const double next = curve.at(i / 100.0);
    EXPECT_GE(next, last);
    last = next;
  }
}

}  // namespace
}  // namespace zephyl
