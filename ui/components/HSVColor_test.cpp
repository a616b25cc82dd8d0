#include "ui/components/HSVColor.h"

#include <limits>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

HSVColor hsvOf(CGFloat red, CGFloat green, CGFloat blue) {
  HSVColor hsv{0.9, 0.9, 0.9};
  HSVColorFromUIColor(UIColor::colorWithRed(red, green, blue, 0.3), &hsv);
  return hsv;
}

TEST(HSVColorTest, HueIsAFractionOfATurnFromRedOverGreenAndBlue) {
  EXPECT_EQ(hsvOf(1, 0, 0), (HSVColor{0, 1, 1}));
  EXPECT_EQ(hsvOf(1, 1, 0), (HSVColor{1.0 / 6, 1, 1}));
  EXPECT_EQ(hsvOf(0, 1, 0), (HSVColor{1.0 / 3, 1, 1}));
  EXPECT_EQ(hsvOf(0, 1, 1), (HSVColor{0.5, 1, 1}));
  EXPECT_EQ(hsvOf(0, 0, 1), (HSVColor{2.0 / 3, 1, 1}));
  EXPECT_EQ(hsvOf(1, 0, 1), (HSVColor{5.0 / 6, 1, 1}));
}

TEST(HSVColorTest, BrightnessIsTheLargestChannelAndSaturationTheRangeOfIt) {
  const HSVColor hsv = hsvOf(0.25, 0.5, 0.125);
  EXPECT_EQ(hsv.v, 0.5);
  EXPECT_EQ(hsv.s, 0.75);
}

TEST(HSVColorTest, AGreyHasNoHueAndBlackNoSaturation) {
  EXPECT_EQ(hsvOf(0.5, 0.5, 0.5), (HSVColor{0, 0, 0.5}));
  EXPECT_EQ(hsvOf(0, 0, 0), (HSVColor{0, 0, 0}));
}

TEST(HSVColorTest, ChannelsThatAreNoNumbersCountAsNone) {
  EXPECT_EQ(hsvOf(std::numeric_limits<CGFloat>::quiet_NaN(), 0, 0), (HSVColor{0, 0, 0}));
}

TEST(HSVColorTest, WithoutAPlaceToFillNothingHappens) {
  HSVColorFromUIColor(UIColor::redColor(), nullptr);
}

// All but exactly: the way there and back rounds.
TEST(HSVColorTest, AColorSurvivesTheWayThereAndBack) {
  for (int red = 0; red <= 255; red += 15) {
    for (int green = 0; green <= 255; green += 17) {
      for (int blue = 0; blue <= 255; blue += 51) {
        const HSVColor hsv = hsvOf(red / 255.0, green / 255.0, blue / 255.0);
        const auto back = UIColor::colorWithHue(hsv.h, hsv.s, hsv.v, 1).channels();
        ASSERT_NEAR(back.red, red / 255.0, 1e-12);
        ASSERT_NEAR(back.green, green / 255.0, 1e-12);
        ASSERT_NEAR(back.blue, blue / 255.0, 1e-12);
        ASSERT_EQ(back.alpha, 1);
      }
    }
  }
}

TEST(HSVColorTest, ChannelsBeyondTheRangeSurviveTheWayThereAndBack) {
  const UIColor::Channels colors[] = {
      {1.5, 0.5, 0.25, 1}, {1, -0.5, 0, 1}, {-0.25, 2, 3, 1}, {-0.5, -1, -0.75, 1}};
  for (const UIColor::Channels& color : colors) {
    const HSVColor hsv = hsvOf(color.red, color.green, color.blue);
    const auto back = UIColor::colorWithHue(hsv.h, hsv.s, hsv.v, 1).channels();
    EXPECT_NEAR(back.red, color.red, 1e-12);
    EXPECT_NEAR(back.green, color.green, 1e-12);
    EXPECT_NEAR(back.blue, color.blue, 1e-12);
  }
}

}  // namespace
}  // namespace zephyl
