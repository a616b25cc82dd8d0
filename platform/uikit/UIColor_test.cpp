#include "platform/uikit/UIColor.h"

#include <limits>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using Channels = UIColor::Channels;

class UIColorTest : public ::testing::Test {
 protected:
  void makeDark() { device_.uikit()->screen().setUserInterfaceStyle(UIUserInterfaceStyle::kDark); }

  fake::Device device_;
};

TEST_F(UIColorTest, AColorWithoutChannelsIsClear) {
  EXPECT_EQ(UIColor().channels(), Channels());
  EXPECT_EQ(UIColor::clearColor(), UIColor());
}

TEST_F(UIColorTest, ChannelsAreKeptAsTheyWereGiven) {
  EXPECT_EQ(UIColor::colorWithRed(-1, 0.5, 2, 300).channels(), (Channels{-1, 0.5, 2, 300}));
  EXPECT_EQ(UIColor::colorWithWhite(0.25, 0.5).channels(), (Channels{0.25, 0.25, 0.25, 0.5}));
}

TEST_F(UIColorTest, ADynamicColorFollowsTheScreen) {
  const UIColor color = UIColor::dynamic(UIColor::redColor(), UIColor::blueColor());
  EXPECT_EQ(color.channels(), (Channels{1, 0, 0, 1}));
  makeDark();
  EXPECT_EQ(color.channels(), (Channels{0, 0, 1, 1}));
  EXPECT_EQ(UIColor::redColor().channels(), (Channels{1, 0, 0, 1}));
  device_.setHasScreen(false);
  EXPECT_EQ(color.channels(), (Channels{1, 0, 0, 1}));
}

TEST_F(UIColorTest, AResolvedColorFollowsTheScreenNoMore) {
  const UIColor light = UIColor::labelColor().resolvedColor(UIUserInterfaceStyle::kLight);
  makeDark();
  EXPECT_EQ(light, UIColor::blackColor());
  EXPECT_EQ(light.channels(), (Channels{0, 0, 0, 1}));
}

TEST_F(UIColorTest, ADynamicColorOfDynamicColorsTakesTheirForms) {
  const UIColor color = UIColor::dynamic(UIColor::labelColor(), UIColor::labelColor());
  EXPECT_EQ(color, UIColor::labelColor());
}

TEST_F(UIColorTest, DynamicColorsAreEqualWhenBothFormsAre) {
  EXPECT_EQ(UIColor::dynamic(UIColor::redColor(), UIColor::redColor()), UIColor::redColor());
  EXPECT_NE(UIColor::dynamic(UIColor::redColor(), UIColor::blueColor()), UIColor::redColor());
  EXPECT_NE(UIColor::labelColor(), UIColor::systemBackgroundColor());
}

TEST_F(UIColorTest, AnotherAlphaHoldsForBothForms) {
  const UIColor color = UIColor::labelColor().colorWithAlphaComponent(0.25);
  EXPECT_EQ(color.channels(), (Channels{0, 0, 0, 0.25}));
  makeDark();
  EXPECT_EQ(color.channels(), (Channels{1, 1, 1, 0.25}));
}

TEST_F(UIColorTest, AMultipliedAlphaKeepsTheFormsApart) {
  const UIColor color = UIColor::separatorColor().colorWithAlphaMultipliedBy(0.5);
  EXPECT_EQ(color.channels().alpha, 0.145);
  makeDark();
  EXPECT_EQ(color.channels().alpha, 0.3);
}

TEST_F(UIColorTest, HueSixthsAreTheSixFullColors) {
  const auto full = [](CGFloat hue) { return UIColor::colorWithHue(hue, 1, 1, 1).channels(); };
  EXPECT_EQ(full(0), (Channels{1, 0, 0, 1}));
  EXPECT_EQ(full(1 / 6.0), (Channels{1, 1, 0, 1}));
  EXPECT_EQ(full(1 / 3.0), (Channels{0, 1, 0, 1}));
  EXPECT_EQ(full(0.5), (Channels{0, 1, 1, 1}));
  EXPECT_EQ(full(2 / 3.0), (Channels{0, 0, 1, 1}));
  EXPECT_EQ(full(5 / 6.0).blue, 1);
  EXPECT_EQ(full(1), (Channels{1, 0, 0, 1}));
}

TEST_F(UIColorTest, SaturationAndBrightnessPullTowardsWhiteAndBlack) {
  EXPECT_EQ(UIColor::colorWithHue(0.3, 0, 0.5, 1).channels(), (Channels{0.5, 0.5, 0.5, 1}));
  EXPECT_EQ(UIColor::colorWithHue(0, 0.5, 0.5, 0.1).channels(), (Channels{0.5, 0.25, 0.25, 0.1}));
  EXPECT_EQ(UIColor::colorWithHue(0.25, 1, 1, 1).channels(), (Channels{0.5, 1, 0, 1}));
}

TEST_F(UIColorTest, HueIsClampedSaturationAndBrightnessAreNot) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  EXPECT_EQ(UIColor::colorWithHue(7, 3, 9, 1).channels(), (Channels{9, -18, -18, 1}));
  EXPECT_EQ(UIColor::colorWithHue(0, -1, 0.5, 1).channels(), (Channels{0.5, 1, 1, 1}));
  EXPECT_EQ(UIColor::colorWithHue(-7, 1, 1, 1).channels(), (Channels{1, 0, 0, 1}));
  EXPECT_EQ(UIColor::colorWithHue(kNaN, kNaN, kNaN, 1).channels(), (Channels{0, 0, 0, 1}));
}

TEST_F(UIColorTest, HueChannelsCarryTheAlpha) {
  EXPECT_EQ(UIColor::colorWithRed(1, 0, 0, 0.75).hueChannels().alpha, 0.75);
}

TEST_F(UIColorTest, ColorsOfTheSystemHaveADarkForm) {
  makeDark();
  EXPECT_EQ(UIColor::systemBackgroundColor().channels(), (Channels{0, 0, 0, 1}));
  EXPECT_EQ(UIColor::systemBlueColor().channels(), (Channels{10 / 255.0, 132 / 255.0, 1, 1}));
  EXPECT_EQ(UIColor::secondarySystemGroupedBackgroundColor().channels(),
            (Channels{28 / 255.0, 28 / 255.0, 30 / 255.0, 1}));
  EXPECT_EQ(UIColor::whiteColor().channels(), (Channels{1, 1, 1, 1}));
}

}  // namespace
}  // namespace zephyl
