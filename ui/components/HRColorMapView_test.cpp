#include "ui/components/HRColorMapView.h"

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIViewAnimation.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRColorCursor.h"

namespace zephyl {
namespace {

class HRColorMapViewTest : public ::testing::Test {
 protected:
  HRColorMapViewTest() {
    map_->setTileSize(10);
    map_->addAction([this](UIControl&) { ++changes_; }, kValueChanged);
    window_->addSubview(map_);
    window_->layoutWindow();
  }

  void showMap() {
    device_.dispatch().runAll();
    device_.uikit()->displayLink().runUntilIdle();
  }
  HRColorCursor& cursor() { return *test::viewOf<HRColorCursor>(*map_); }
  // The middle of the cursor, from the corner of the map.
  CGPoint cursorPlace() { return {cursor().transform().tx, cursor().transform().ty}; }
  [[nodiscard]] const CALayer& background() const { return *map_->layer()->sublayers().at(0); }
  [[nodiscard]] const CALayer& image() const { return *map_->layer()->sublayers().at(1); }
  [[nodiscard]] const CALayer& hairline() const { return *map_->layer()->sublayers().at(2); }

  fake::Device device_;
  int changes_ = 0;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  // Room for 12 columns and 5 rows.
  std::shared_ptr<HRColorMapView> map_ =
      std::make_shared<HRColorMapView>(CGRectMake(20, 30, 125, 58), /*saturationUpperLimit=*/1);
};

TEST_F(HRColorMapViewTest, BeginsAsTheInitialiserSays) {
  const HRColorMapView map;
  EXPECT_EQ(map.brightness(), 0.5);
  EXPECT_EQ(map.saturationUpperLimit(), 0.95);
  EXPECT_EQ(map.alpha(), 0);
  EXPECT_EQ(map.backgroundColor(), UIColor::whiteColor());
  EXPECT_EQ(map.intrinsicContentSize(), CGSize());
}

TEST_F(HRColorMapViewTest, ShowsNothingUntilItsImagesAreThereAndThenFadesIn) {
  EXPECT_EQ(map_->alpha(), 0);
  EXPECT_EQ(image().contents(), nullptr);
  device_.dispatch().runGlobal();
  EXPECT_EQ(map_->alpha(), 0);
  device_.dispatch().runMain();
  ASSERT_NE(image().contents(), nullptr);
  EXPECT_EQ(image().contents()->size(), (CGSize{120, 50}));
  EXPECT_EQ(background().contents()->size(), (CGSize{120, 50}));
  EXPECT_EQ(image().frame(), CGRectMake(0, 0, 120, 50));
  EXPECT_LT(map_->layer()->presentation().opacity, 1);
  device_.uikit()->displayLink().runUntilIdle();
  EXPECT_EQ(map_->alpha(), 1);
  EXPECT_EQ(map_->layer()->presentation().opacity, 1);
}

// Nothing is made before the map has a size.
TEST_F(HRColorMapViewTest, ImagesWaitInASuspendedQueueUntilTheFirstLayout) {
  const auto map = std::make_shared<HRColorMapView>();
  EXPECT_TRUE(map->imageQueue().isSuspended());
  device_.dispatch().runAll();
  window_->addSubview(map);
  EXPECT_TRUE(map->imageQueue().isSuspended());
  window_->layoutWindow();
  EXPECT_FALSE(map->imageQueue().isSuspended());
}

TEST_F(HRColorMapViewTest, MapMayEndWhileItsImagesAreMade) {
  window_ = nullptr;
  map_ = nullptr;
  device_.dispatch().runAll();
}

TEST_F(HRColorMapViewTest, ImagesOfASizeThatIsNoMoreAreNotShown) {
  device_.dispatch().runGlobal();
  map_->setFrame(CGRectMake(0, 0, 60, 60));
  window_->layoutWindow();
  device_.dispatch().runMain();
  EXPECT_EQ(image().contents(), nullptr);
  showMap();
  EXPECT_EQ(image().contents()->size(), (CGSize{60, 60}));
}

TEST_F(HRColorMapViewTest, ImagesAreMadeOnceForASize) {
  showMap();
  const UIImageRef before = image().contents();
  map_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(device_.dispatch().waitingGlobal(), 0U);
  map_->setSaturationUpperLimit(0.5);
  window_->layoutWindow();
  showMap();
  EXPECT_NE(image().contents(), before);
}

TEST_F(HRColorMapViewTest, MapWithoutATileStaysUnseen) {
  map_->setTileSize(0);
  window_->layoutWindow();
  showMap();
  EXPECT_EQ(map_->alpha(), 0);
  map_->update({5, 5});
  map_->accessibilityIncrement();
  EXPECT_EQ(changes_, 0);
}

TEST_F(HRColorMapViewTest, HairlineOfOnePixelRunsAlongTheTop) {
  EXPECT_EQ(hairline().frame(), CGRectMake(0, 0, 125, 1 / 3.0));
  EXPECT_EQ(hairline().state().backgroundColor, UIColor::colorWithWhite(0.7, 1));
}

TEST_F(HRColorMapViewTest, BrightnessIsTheOpacityOfTheMapAtOnce) {
  animateWithDuration(1, [this] { map_->setBrightness(0.25); });
  EXPECT_EQ(image().presentation().opacity, 0.25);
  EXPECT_EQ(map_->brightness(), 0.25);
}

TEST_F(HRColorMapViewTest, TouchPicksTheColourOfItsTile) {
  map_->setBrightness(0.8);
  map_->update({65, 29});
  EXPECT_EQ(map_->color(), UIColor::colorWithHue(0.5, 0.5, 0.8, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{60, 20}));
  EXPECT_EQ(changes_, 1);
}

TEST_F(HRColorMapViewTest, BottomRowWithLimitOneIsWhite) {
  map_->setBrightness(1);
  map_->update({5, 49});
  EXPECT_EQ(map_->color(), UIColor::colorWithRed(1, 1, 1, 1));
}

TEST_F(HRColorMapViewTest, SaturationFallsToWhatTheLimitLeaves) {
  map_->setSaturationUpperLimit(0.5);
  map_->setBrightness(1);
  map_->update({5, 25});
  EXPECT_EQ(map_->color(), UIColor::colorWithHue(0, 0.75, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{0, 20}));
  map_->update({5, 45});
  EXPECT_EQ(map_->color(), UIColor::colorWithHue(0, 0.5, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{0, 40}));
}

// 12 columns of hue, 5 rows from saturation 1 to 0.5.
TEST_F(HRColorMapViewTest, CursorStandsInTheTileWhoseColourIsNearest) {
  map_->setSaturationUpperLimit(0.5);
  const auto place = [this](double hue, double saturation) {
    map_->setColor(UIColor::colorWithHue(hue, saturation, 1, 1));
    return cursorPlace();
  };
  EXPECT_EQ(place(3.49 / 12, 1), (CGPoint{30, 0}));
  EXPECT_EQ(place(3.51 / 12, 1), (CGPoint{40, 0}));
  EXPECT_EQ(place(0, 1 - 1.49 / 8), (CGPoint{0, 10}));
  EXPECT_EQ(place(0, 1 - 1.51 / 8), (CGPoint{0, 20}));
}

// Kept: the cursor goes where the colour is, and white and black have no hue.
TEST_F(HRColorMapViewTest, CursorLeavesTheFingerWhereWhiteOrBlackIsPicked) {
  map_->setBrightness(1);
  map_->update({65, 49});
  EXPECT_EQ(map_->color(), UIColor::colorWithRed(1, 1, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{0, 40}));
  map_->setBrightness(0);
  map_->update({65, 5});
  EXPECT_EQ(map_->color(), UIColor::colorWithRed(0, 0, 0, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{0, 40}));
  EXPECT_EQ(map_->accessibilityValue(), "0\u00b0, 0 %");
}

TEST_F(HRColorMapViewTest, TouchOutsideIsIgnored) {
  map_->update({-1, 5});
  map_->update({5, 58});
  map_->update({125, 5});
  EXPECT_EQ(changes_, 0);
  // Beside the last tile, and still in the view.
  map_->update({124, 5});
  EXPECT_EQ(map_->color(), UIColor::colorWithHue(1, 1, 0.5, 1));
  EXPECT_EQ(cursorPlace().x, 0);
}

TEST_F(HRColorMapViewTest, WholeTurnOfHueIsTheFirstColumn) {
  map_->setColor(UIColor::colorWithHue(0.25, 1, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{30, 0}));
  map_->setColor(UIColor::colorWithHue(1, 1, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{0, 0}));
}

TEST_F(HRColorMapViewTest, CursorBeginsHalfItsSizeAboveTheCorner) {
  EXPECT_EQ(cursor().bounds().size, HRColorCursor::cursorSize());
  EXPECT_EQ(cursor().center(), (CGPoint{0, 0}));
}

TEST_F(HRColorMapViewTest, LimitsOfOddKindsKeepTheCursorFinite) {
  map_->setSaturationUpperLimit(0);
  map_->setColor(UIColor::colorWithHue(0.25, 0.5, 1, 1));
  EXPECT_EQ(cursorPlace(), (CGPoint{30, 0}));
  map_->setFrame(CGRectMake(0, 0, 120, 10));
  map_->update({5, 5});
  EXPECT_EQ(map_->color(), UIColor::colorWithHue(0, 1, 0.5, 1));
}

TEST_F(HRColorMapViewTest, TapCountsWhenItEnds) {
  showMap();
  test::touch(*window_, UITouchPhase::kBegan, {85, 59});
  EXPECT_EQ(changes_, 0);
  test::touch(*window_, UITouchPhase::kEnded, {85, 59}, 0.1);
  EXPECT_EQ(changes_, 1);
  EXPECT_EQ(cursorPlace(), (CGPoint{60, 20}));
  EXPECT_FALSE(cursor().isEditing());
}

TEST_F(HRColorMapViewTest, PanCountsWhileItChangesAndEditsWhileAFingerIsDown) {
  showMap();
  test::touch(*window_, UITouchPhase::kBegan, {25, 35});
  test::touch(*window_, UITouchPhase::kMoved, {45, 35});
  EXPECT_EQ(changes_, 0);
  test::touch(*window_, UITouchPhase::kMoved, {85, 59});
  EXPECT_EQ(changes_, 1);
  EXPECT_TRUE(cursor().isEditing());
  test::touch(*window_, UITouchPhase::kEnded, {25, 35});
  EXPECT_EQ(changes_, 1);
  EXPECT_FALSE(cursor().isEditing());
  EXPECT_EQ(cursorPlace(), (CGPoint{60, 20}));
}

TEST_F(HRColorMapViewTest, LostPanEndsEditing) {
  showMap();
  test::touch(*window_, UITouchPhase::kBegan, {25, 35});
  test::touch(*window_, UITouchPhase::kMoved, {45, 35});
  test::touch(*window_, UITouchPhase::kMoved, {85, 59});
  test::touch(*window_, UITouchPhase::kCancelled, {85, 59});
  EXPECT_FALSE(cursor().isEditing());
}

TEST_F(HRColorMapViewTest, ArrowsPickTheNeighbourUntilTheEdge) {
  map_->setColor(UIColor::colorWithHue(0.25, 1, 1, 1));
  EXPECT_TRUE(map_->pressesBegan({UIKey::kRight, ""}));
  EXPECT_TRUE(map_->pressesBegan({UIKey::kDown, ""}));
  EXPECT_EQ(cursorPlace(), (CGPoint{40, 10}));
  EXPECT_TRUE(map_->pressesBegan({UIKey::kUp, ""}));
  EXPECT_TRUE(map_->pressesBegan({UIKey::kUp, ""}));
  EXPECT_TRUE(map_->pressesBegan({UIKey::kLeft, ""}));
  EXPECT_EQ(cursorPlace(), (CGPoint{30, 0}));
  EXPECT_EQ(changes_, 4);
}

TEST_F(HRColorMapViewTest, ScreenReaderReadsAndAdjustsIt) {
  map_->setBrightness(1);
  map_->setColor(UIColor::colorWithHue(0.25, 0.5, 1, 1));
  EXPECT_EQ(accessibilityDescription(*map_),
            "slider \"Hue and saturation\" value \"90\u00b0, 50 %\"\n");
  map_->accessibilityIncrement();
  EXPECT_EQ(map_->accessibilityValue(), "120\u00b0, 50 %");
  map_->setEnabled(false);
  map_->accessibilityDecrement();
  EXPECT_EQ(changes_, 1);
}

}  // namespace
}  // namespace zephyl
