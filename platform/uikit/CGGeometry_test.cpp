#include "platform/uikit/CGGeometry.h"

#include <limits>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(CGGeometry, NumbersThatAreNotFiniteBecomeZero) {
  EXPECT_EQ(finite(kNaN), 0);
  EXPECT_EQ(finite(-kInfinity), 0);
  EXPECT_EQ(finite(CGRectMake(kNaN, 2, kInfinity, 4)), CGRectMake(0, 2, 0, 4));
  EXPECT_EQ(finite(1e300), 1e8);
}

TEST(CGGeometry, ANegativeSizeIsTurnedAndCoversTheSameArea) {
  EXPECT_EQ(finite(CGRectMake(10, 20, -4, -6)), CGRectMake(6, 14, 4, 6));
}

TEST(CGGeometry, ThePointOnTheRightOrLowerEdgeIsOutside) {
  const CGRect rect = CGRectMake(1, 1, 2, 2);
  EXPECT_TRUE(CGRectContainsPoint(rect, {1, 1}));
  EXPECT_FALSE(CGRectContainsPoint(rect, {3, 2}));
  EXPECT_FALSE(CGRectContainsPoint(rect, {2, 3}));
}

TEST(CGGeometry, RectanglesWithoutACommonAreaMeetInTheEmptyOne) {
  EXPECT_EQ(CGRectIntersection(CGRectMake(0, 0, 2, 2), CGRectMake(2, 0, 2, 2)), CGRect());
  EXPECT_EQ(CGRectIntersection(CGRectMake(0, 0, 3, 3), CGRectMake(1, 2, 9, 9)),
            CGRectMake(1, 2, 2, 1));
}

TEST(CGGeometry, AnEmptyRectangleAddsNothingToAUnion) {
  EXPECT_EQ(CGRectUnion(CGRectMake(5, 5, 0, 9), CGRectMake(1, 1, 2, 2)), CGRectMake(1, 1, 2, 2));
  EXPECT_EQ(CGRectUnion(CGRectMake(0, 0, 1, 1), CGRectMake(4, 2, 1, 1)), CGRectMake(0, 0, 5, 3));
}

TEST(CGGeometry, TransformsApplyFirstToLastAndInvert) {
  const CGAffineTransform moved = CGAffineTransformConcat(CGAffineTransformMakeScale(2, 3),
                                                          CGAffineTransformMakeTranslation(5, 7));
  EXPECT_EQ(CGPointApplyAffineTransform({1, 1}, moved), (CGPoint{7, 10}));
  const CGPoint back = CGPointApplyAffineTransform({7, 10}, CGAffineTransformInvert(moved));
  EXPECT_NEAR(back.x, 1, 1e-12);
  EXPECT_NEAR(back.y, 1, 1e-12);
  EXPECT_EQ(CGAffineTransformInvert(CGAffineTransformMakeScale(0, 1)), CGAffineTransformIdentity);
}

TEST(CGGeometry, ATurnedRectangleIsHeldByAnUprightOne) {
  const CGRect turned =
      CGRectApplyAffineTransform(CGRectMake(0, 0, 2, 4), CGAffineTransformMakeRotation(1.5707963));
  EXPECT_NEAR(turned.x(), -4, 1e-6);
  EXPECT_NEAR(turned.width(), 4, 1e-6);
  EXPECT_NEAR(turned.height(), 2, 1e-6);
}

}  // namespace
}  // namespace zephyl
