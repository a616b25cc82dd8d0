#include "ui/components/HRBrightnessSlider.h"

#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRBrightnessCursor.h"

namespace zephyl {
namespace {

class HRBrightnessSliderTest : public ::testing::Test {
 protected:
  HRBrightnessSliderTest() {
    slider_->addAction([this](UIControl&) { ++changes_; }, kValueChanged);
    window_->addSubview(slider_);
    window_->layoutWindow();
  }

  HRBrightnessCursor& cursor() { return *test::viewOf<HRBrightnessCursor>(*slider_); }
  [[nodiscard]] const CAGradientLayer& bar() const {
    return static_cast<const CAGradientLayer&>(*slider_->layer()->sublayers().front());
  }
  bool press(UIKey key) { return slider_->pressesBegan({key, ""}); }

  fake::Device device_;
  int changes_ = 0;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  // The bar is seen from 20 to 136, and the cursor moves from 28 to 128.
  std::shared_ptr<HRBrightnessSlider> slider_ =
      std::make_shared<HRBrightnessSlider>(CGRectMake(0, 100, 156, 31));
};

TEST_F(HRBrightnessSliderTest, BarIsSeenWithinItsInsets) {
  EXPECT_EQ(bar().frame(), CGRectMake(20, 10, 116, 11));
  EXPECT_EQ(bar().state().borderWidth, 1 / 3.0);
  EXPECT_EQ(bar().startPoint(), (CGPoint{0, 0.5}));
  EXPECT_EQ(bar().endPoint(), (CGPoint{1, 0.5}));
  const CGRect rect = CGRectMake(83, 5, 100, 11);
  EXPECT_EQ(HRBrightnessSlider::frameForAlignmentRect(rect), CGRectMake(63, -5, 140, 31));
  EXPECT_EQ(HRBrightnessSlider::alignmentRectForFrame(CGRectMake(63, -5, 140, 31)), rect);
}

TEST_F(HRBrightnessSliderTest, LeftEndIsFullBrightnessAndTheRightTheLimit) {
  slider_->setBrightnessLowerLimit(0.4);
  slider_->update({28, 15});
  EXPECT_EQ(slider_->brightness(), 1);
  slider_->update({128, 15});
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.4);
  slider_->update({78, 15});
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.7);
  EXPECT_EQ(changes_, 3);
}

TEST_F(HRBrightnessSliderTest, PlacesBeyondTheEndsAreTheEnds) {
  slider_->update({-500, 15});
  EXPECT_EQ(slider_->brightness(), 1);
  slider_->update({500, 15});
  EXPECT_EQ(slider_->brightness(), 0);
  slider_->update({std::numeric_limits<CGFloat>::quiet_NaN(), 15});
  EXPECT_EQ(slider_->brightness(), 1);
}

TEST_F(HRBrightnessSliderTest, RightEndWithLimitZeroIsBlack) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 1, 1));
  slider_->update({128, 15});
  EXPECT_EQ(slider_->color(), UIColor::colorWithRed(0, 0, 0, 1));
  slider_->update({28, 15});
  EXPECT_EQ(slider_->color(), UIColor::colorWithHue(0.5, 1, 1, 1));
}

TEST_F(HRBrightnessSliderTest, CursorStandsWhereItsBrightnessIs) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.75, 1));
  EXPECT_EQ(slider_->brightness(), 0.75);
  EXPECT_EQ(cursor().center(), (CGPoint{53, 15.5}));
  slider_->setBrightnessLowerLimit(0.5);
  EXPECT_EQ(cursor().center(), (CGPoint{78, 15.5}));
  EXPECT_EQ(changes_, 0);
}

TEST_F(HRBrightnessSliderTest, LimitOfOneDoesNoHarm) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.75, 1));
  slider_->setBrightnessLowerLimit(1);
  EXPECT_EQ(cursor().center(), (CGPoint{28, 15.5}));
  slider_->update({128, 15});
  EXPECT_EQ(slider_->brightness(), 1);
}

TEST_F(HRBrightnessSliderTest, ColourIsThatOfItsBrightnessAndOpaque) {
  slider_->setColor(UIColor::colorWithRed(0, 0.5, 0, 0.25));
  EXPECT_EQ(slider_->color(), UIColor::colorWithRed(0, 0.5, 0, 1));
  slider_->update({28, 15});
  EXPECT_EQ(slider_->color(), UIColor::colorWithRed(0, 1, 0, 1));
}

TEST_F(HRBrightnessSliderTest, GradientRunsFromFullBrightnessToTheLimit) {
  slider_->setBrightnessLowerLimit(0.4);
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.75, 1));
  const std::vector<UIColor> expected = {UIColor::colorWithHue(0.5, 1, 1, 1),
                                         UIColor::colorWithHue(0.5, 1, 0.4, 1)};
  EXPECT_EQ(bar().colors(), expected);
}

// A brightness above 1 is that of a colour out of range.
TEST_F(HRBrightnessSliderTest, CursorStaysWhereItIsForABrightnessBeyondTheLeftEnd) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.75, 1));
  slider_->setColor(UIColor::colorWithRed(1.5, 0, 0, 1));
  EXPECT_EQ(slider_->brightness(), 1.5);
  EXPECT_EQ(cursor().center(), (CGPoint{53, 15.5}));
  slider_->setColor(UIColor::colorWithRed(1, 0, 0, 1));
  EXPECT_EQ(cursor().center(), (CGPoint{28, 15.5}));
}

TEST_F(HRBrightnessSliderTest, LimitThatIsSetAfterTheColourIsAppliedToIt) {
  const UIColor color = UIColor::colorWithHue(0.5, 1, 0.75, 1);
  slider_->setColor(color);
  slider_->setBrightnessLowerLimit(0.5);
  EXPECT_EQ(slider_->color(), color);
  EXPECT_EQ(bar().colors().back(), UIColor::colorWithHue(0.5, 1, 0.5, 1));
  EXPECT_EQ(cursor().center(), (CGPoint{78, 15.5}));
  // Kept: it limits what is chosen, not what is set.
  slider_->setBrightnessLowerLimit(0.9);
  EXPECT_EQ(slider_->brightness(), 0.75);
  EXPECT_EQ(slider_->color(), color);
}

TEST_F(HRBrightnessSliderTest, FingerDragsTheCursor) {
  test::touch(*window_, UITouchPhase::kBegan, {28, 115});
  test::touch(*window_, UITouchPhase::kMoved, {40, 115});
  test::touch(*window_, UITouchPhase::kMoved, {78, 115});
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.5);
  EXPECT_TRUE(cursor().isEditing());
  test::touch(*window_, UITouchPhase::kEnded, {78, 115});
  EXPECT_FALSE(cursor().isEditing());
  test::tap(*window_, {53, 115}, 1);
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.75);
  EXPECT_EQ(changes_, 2);
}

TEST_F(HRBrightnessSliderTest, SliderWithoutWidthTakesNoTouches) {
  slider_->setFrame(CGRectMake(0, 0, 40, 31));
  window_->layoutWindow();
  slider_->update({20, 15});
  EXPECT_EQ(changes_, 0);
}

TEST_F(HRBrightnessSliderTest, KeysMoveItByATwentiethAndToTheEnds) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.5, 1));
  EXPECT_TRUE(press(UIKey::kLeft));
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.55);
  EXPECT_TRUE(press(UIKey::kRight));
  EXPECT_TRUE(press(UIKey::kRight));
  EXPECT_DOUBLE_EQ(slider_->brightness(), 0.45);
  EXPECT_TRUE(press(UIKey::kHome));
  EXPECT_EQ(slider_->brightness(), 1);
  EXPECT_TRUE(press(UIKey::kLeft));
  EXPECT_TRUE(press(UIKey::kEnd));
  EXPECT_EQ(slider_->brightness(), 0);
  EXPECT_EQ(changes_, 5);
}

TEST_F(HRBrightnessSliderTest, ScreenReaderReadsAndAdjustsIt) {
  slider_->setColor(UIColor::colorWithHue(0.5, 1, 0.5, 1));
  EXPECT_EQ(accessibilityDescription(*slider_), "slider \"Brightness\" value \"50 %\"\n");
  slider_->accessibilityIncrement();
  EXPECT_EQ(slider_->accessibilityValue(), "55 %");
  slider_->setEnabled(false);
  slider_->accessibilityDecrement();
  EXPECT_EQ(slider_->accessibilityValue(), "55 %");
}

}  // namespace
}  // namespace zephyl
