#include "ui/components/HRColorPickerView.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRBrightnessSlider.h"
#include "ui/components/HRColorInfoView.h"
#include "ui/components/HRColorMapView.h"

namespace zephyl {
namespace {

class HRColorPickerViewTest : public ::testing::Test {
 protected:
  HRColorPickerViewTest() {
    picker_->addAction([this](UIControl&) { ++reports_; }, kValueChanged);
  }

  void show() {
    window_->addSubview(picker_);
    window_->layoutWindow();
  }
  void wait(double seconds) { device_.clock().set(device_.clock().now() + seconds); }
  HRColorMapView& map() { return *picker_->colorMapView(); }
  HRBrightnessSlider& slider() { return *picker_->brightnessSlider(); }

  fake::Device device_;
  int reports_ = 0;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<HRColorPickerView> picker_ =
      std::make_shared<HRColorPickerView>(CGRectMake(0, 0, 390, 756));
};

TEST_F(HRColorPickerViewTest, MakesItsViewsWhenTheyAreAskedFor) {
  EXPECT_TRUE(picker_->subviews().empty());
  EXPECT_EQ(map().tileSize(), 16);
  EXPECT_EQ(map().saturationUpperLimit(), 0.9);
  EXPECT_EQ(slider().brightnessLowerLimit(), 0.4);
  EXPECT_EQ(picker_->subviews().size(), 2U);
  show();
  EXPECT_EQ(picker_->subviews().size(), 3U);
}

TEST_F(HRColorPickerViewTest, HoldsTheColourOpaque) {
  picker_->setColor(UIColor::colorWithRed(0.5, 0.25, 0.25, 0.1));
  EXPECT_EQ(picker_->color(), UIColor::colorWithRed(0.5, 0.25, 0.25, 1));
  EXPECT_EQ(reports_, 0);
}

TEST_F(HRColorPickerViewTest, PassesItsColourOnToTheViewsThatAreThereAndThoseThatCome) {
  const UIColor color = UIColor::colorWithHue(0.25, 0.5, 0.75, 1);
  picker_->setColor(color);
  EXPECT_EQ(map().brightness(), 0.75);
  EXPECT_EQ(slider().brightness(), 0.75);
  EXPECT_EQ(picker_->colorInfoView()->color(), picker_->color());
  const UIColor other = UIColor::colorWithHue(0.5, 1, 0.5, 1);
  picker_->setColor(other);
  EXPECT_EQ(map().color(), other);
  EXPECT_EQ(map().brightness(), 0.5);
  EXPECT_EQ(slider().color(), other);
  EXPECT_EQ(picker_->colorInfoView()->color(), other);
}

TEST_F(HRColorPickerViewTest, WithoutAColourTheMapKeepsTheBrightnessThatMapsBeginWith) {
  EXPECT_EQ(map().brightness(), 0.5);
  show();
  EXPECT_EQ(map().brightness(), 0.5);
  EXPECT_EQ(picker_->color(), UIColor::colorWithRed(0, 0, 0, 1));
}

TEST_F(HRColorPickerViewTest, BlackThatWasSetDarkensAMapThatComesLater) {
  picker_->setColor(UIColor::blackColor());
  EXPECT_EQ(map().brightness(), 0);
}

TEST_F(HRColorPickerViewTest, TallPickerHasItsMapAtTheBottom) {
  show();
  // 24 columns, and the 40 rows that 652 points have room for.
  EXPECT_EQ(map().frame(), CGRectMake(0, 116, 384, 640));
  EXPECT_EQ(picker_->colorInfoView()->frame(), CGRectMake(8, 16, 66, 84));
  EXPECT_EQ(HRBrightnessSlider::alignmentRectForFrame(slider().frame()),
            CGRectMake(83, 71, 298, 11));
}

TEST_F(HRColorPickerViewTest, WidePickerHasASquareMap) {
  picker_->setFrame(CGRectMake(0, 0, 320, 400));
  show();
  EXPECT_EQ(map().frame(), CGRectMake(0, 80, 320, 320));
}

TEST_F(HRColorPickerViewTest, SizesOfOddKindsDoNoHarm) {
  picker_->setFrame(CGRectMake(0, 0, std::numeric_limits<CGFloat>::quiet_NaN(), -5));
  show();
  picker_->setFrame(CGRectMake(0, 0, 10, 10));
  window_->layoutWindow();
  device_.dispatch().runAll();
  EXPECT_EQ(map().alpha(), 0);
}

TEST_F(HRColorPickerViewTest, IsNotMirrored) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  show();
  EXPECT_EQ(picker_->colorInfoView()->frame().x(), 8);
}

TEST_F(HRColorPickerViewTest, SliderChangesTheBrightnessOfAll) {
  slider().setBrightnessLowerLimit(0);
  picker_->setColor(UIColor::colorWithHue(0.25, 0.5, 1, 1));
  show();
  slider().pressesBegan({UIKey::kEnd, ""});
  EXPECT_EQ(map().brightness(), 0);
  EXPECT_EQ(picker_->color(), UIColor::colorWithRed(0, 0, 0, 1));
  EXPECT_EQ(picker_->colorInfoView()->hexColorLabel()->text(), "#000000");
  slider().pressesBegan({UIKey::kHome, ""});
  // Hue and saturation are the picker's, which black has not changed.
  EXPECT_EQ(picker_->color(), UIColor::colorWithHue(0.25, 0.5, 1, 1));
  EXPECT_EQ(map().color(), picker_->color());
}

TEST_F(HRColorPickerViewTest, MapChangesHueAndSaturationOfAll) {
  picker_->setColor(UIColor::colorWithHue(0, 1, 0.5, 1));
  show();
  map().update({12.5 * 16, 8});
  EXPECT_EQ(picker_->color(), UIColor::colorWithHue(0.5, 1, 0.5, 1));
  EXPECT_EQ(slider().color(), picker_->color());
  EXPECT_EQ(picker_->colorInfoView()->color(), picker_->color());
  EXPECT_EQ(reports_, 1);
}

// Kept: the map tells its colour, and black has neither hue nor saturation.
TEST_F(HRColorPickerViewTest, WhatIsPickedOnABlackMapIsBlack) {
  slider().setBrightnessLowerLimit(0);
  picker_->setColor(UIColor::blackColor());
  show();
  map().update({12.5 * 16, 8});
  EXPECT_EQ(picker_->color(), UIColor::colorWithRed(0, 0, 0, 1));
  slider().pressesBegan({UIKey::kHome, ""});
  EXPECT_EQ(picker_->color(), UIColor::colorWithRed(1, 1, 1, 1));
}

TEST_F(HRColorPickerViewTest, ReportsAtMostAboutFifteenTimesASecond) {
  show();
  map().update({8, 8});
  map().update({24, 8});
  EXPECT_EQ(reports_, 1);
  wait(0.066);
  map().update({40, 8});
  EXPECT_EQ(reports_, 1);
  EXPECT_EQ(map().color(), UIColor::colorWithHue(2.0 / 24, 1, 0.5, 1));
  wait(0.001);
  slider().update({100, 8});
  EXPECT_EQ(reports_, 2);
}

TEST_F(HRColorPickerViewTest, ClockThatIsPutBackDoesNotSilenceIt) {
  show();
  map().update({8, 8});
  wait(-3600);
  map().update({24, 8});
  EXPECT_EQ(reports_, 2);
}

TEST_F(HRColorPickerViewTest, ViewsThatOutliveThePickerTellItNothing) {
  show();
  const auto map = picker_->colorMapView();
  window_ = nullptr;
  picker_ = nullptr;
  map->update({8, 8});
  EXPECT_EQ(reports_, 0);
}

}  // namespace
}  // namespace zephyl
