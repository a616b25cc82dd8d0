#include "platform/uikit/Interpolation.h"

#include <numbers>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

constexpr CGFloat kNear = 1e-9;

void expectNear(const CGAffineTransform& a, const CGAffineTransform& b) {
  EXPECT_NEAR(a.a, b.a, kNear);
  EXPECT_NEAR(a.b, b.b, kNear);
  EXPECT_NEAR(a.c, b.c, kNear);
  EXPECT_NEAR(a.d, b.d, kNear);
  EXPECT_NEAR(a.tx, b.tx, kNear);
  EXPECT_NEAR(a.ty, b.ty, kNear);
}

TEST(Interpolation, RectanglesMoveAndGrow) {
  EXPECT_EQ(mix(CGRectMake(0, 0, 10, 10), CGRectMake(4, 8, 30, 0), 0.25),
            CGRectMake(1, 2, 15, 7.5));
}

TEST(Interpolation, AClearColorHasTheOthersHue) {
  const fake::Device device;
  const UIColor half = mix(UIColor(), UIColor::redColor(), 0.5);
  EXPECT_EQ(half, UIColor::redColor().colorWithAlphaComponent(0.5));
  EXPECT_EQ(mix(UIColor(), UIColor(), 0.5), UIColor());
}

TEST(Interpolation, DynamicColorsStayDynamic) {
  const fake::Device device;
  const UIColor mixed = mix(UIColor::blackColor(),
                            UIColor::dynamic(UIColor::blackColor(), UIColor::whiteColor()), 0.5);
  EXPECT_EQ(mixed.resolvedColor(UIUserInterfaceStyle::kLight), UIColor::blackColor());
  EXPECT_EQ(mixed.resolvedColor(UIUserInterfaceStyle::kDark),
            UIColor::colorWithRed(0.5, 0.5, 0.5, 1));
}

TEST(Interpolation, ATurnKeepsTheSize) {
  const CGFloat quarter = std::numbers::pi / 2;
  expectNear(mix(CGAffineTransform(), CGAffineTransformMakeRotation(quarter), 0.5),
             CGAffineTransformMakeRotation(quarter / 2));
  // The shorter way round, over half a turn.
  expectNear(mix(CGAffineTransformMakeRotation(0.75 * std::numbers::pi),
                 CGAffineTransformMakeRotation(-0.75 * std::numbers::pi), 0.5),
             CGAffineTransformMakeRotation(std::numbers::pi));
}

TEST(Interpolation, TheEndsAreWhatWasGiven) {
  const CGAffineTransform odd{1, 2, -3, 4, 5, 6};
  const CGAffineTransform mirrored{-1, 0, 0, 1, 0, 0};
  expectNear(mix(odd, mirrored, 0), odd);
  expectNear(mix(odd, mirrored, 1), mirrored);
  const CGAffineTransform flat{0, 0, 0, 0, 1, 1};
  expectNear(mix(flat, CGAffineTransform(), 0), flat);
  expectNear(mix(flat, CGAffineTransform(), 0.5), {0.5, 0, 0, 0.5, 0.5, 0.5});
  const CGAffineTransform line{0, 0, -2, 0, 0, 0};
  expectNear(mix(line, CGAffineTransform(), 0), line);
}

}  // namespace
}  // namespace zephyl
