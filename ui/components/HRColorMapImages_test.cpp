#include "ui/components/HRColorMapImages.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "platform/uikit/CGBitmap.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRColorMapView.h"

namespace zephyl {
namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();

// The channel by which two pixels differ most.
int difference(std::uint32_t a, std::uint32_t b) {
  int most = 0;
  for (unsigned shift = 0; shift < 32; shift += 8) {
    const int one = static_cast<int>((a >> shift) & 0xFFU);
    const int other = static_cast<int>((b >> shift) & 0xFFU);
    most = std::max(most, std::abs(one - other));
  }
  return most;
}

// Whether a pixel lies whole within one tile.
bool isOffEdges(std::size_t pixel, CGFloat tile) {
  const CGFloat first = std::floor(static_cast<CGFloat>(pixel) / tile + 1e-9);
  const CGFloat last = std::ceil(static_cast<CGFloat>(pixel + 1) / tile - 1e-9);
  return last - first <= 1;
}

// Pixels of tile edges apart: a drawn picture blends them.
int differenceOffEdges(const UIImage& direct, const UIImage& drawn, CGFloat tile) {
  const CGBitmapRef one = direct.bitmap();
  const CGBitmapRef other = drawn.bitmap();
  if (one->width != other->width || one->height != other->height) {
    return 256;
  }
  int most = 0;
  for (std::size_t y = 0; y < one->height; ++y) {
    for (std::size_t x = 0; x < one->width; ++x) {
      if (isOffEdges(x, tile) && isOffEdges(y, tile)) {
        const std::size_t at = y * one->width + x;
        most = std::max(most, difference(one->pixels[at], other->pixels[at]));
      }
    }
  }
  return most;
}

class HRColorMapImagesTest : public ::testing::Test {
 protected:
  std::uint32_t pixel(const UIImage& image, std::size_t x, std::size_t y) {
    return image.bitmap()->pixels.at(y * image.bitmap()->width + x);
  }

  fake::Device device_;
};

TEST_F(HRColorMapImagesTest, HueGrowsToTheRightAndSaturationFallsDownwards) {
  device_.uikit()->screen().setScale(1);
  const UIImageRef image = HRColorMapView::colorMapImageWithSize({35, 47}, 10, 1);
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->size(), (CGSize{30, 40}));
  EXPECT_EQ(pixel(*image, 0, 0), 0xFFFF0000);
  EXPECT_EQ(pixel(*image, 10, 9), 0xFF00FF00);
  EXPECT_EQ(pixel(*image, 29, 0), 0xFF0000FF);
  EXPECT_EQ(pixel(*image, 0, 10), 0xFFFF5555);
  EXPECT_EQ(pixel(*image, 0, 39), 0xFFFFFFFF);
}

TEST_F(HRColorMapImagesTest, BottomRowKeepsWhatTheLimitLeaves) {
  device_.uikit()->screen().setScale(1);
  const UIImageRef image = HRColorMapView::colorMapImageWithSize({10, 20}, 10, 0.6);
  EXPECT_EQ(pixel(*image, 0, 19), 0xFFFF9999);
}

TEST_F(HRColorMapImagesTest, SingleRowHasTheWholeSaturation) {
  device_.uikit()->screen().setScale(1);
  const UIImageRef image = HRColorMapView::colorMapImageWithSize({20, 10}, 10, 1);
  EXPECT_EQ(pixel(*image, 0, 5), 0xFFFF0000);
  EXPECT_EQ(pixel(*image, 19, 5), 0xFF00FFFF);
}

TEST_F(HRColorMapImagesTest, BackgroundIsBlackAllOver) {
  const UIImageRef image = HRColorMapView::backgroundImageWithSize({35, 47}, 10);
  EXPECT_EQ(image->size(), (CGSize{30, 40}));
  for (const std::uint32_t word : image->bitmap()->pixels) {
    ASSERT_EQ(word, 0xFF000000);
  }
}

TEST_F(HRColorMapImagesTest, SizesWithoutAWholeTileGiveNoImage) {
  const CGSize sizes[] = {{0, 0},       {15, 300},         {300, 15},        {-300, 300},
                          {kNaN, 300},  {300, kNaN},       {kInfinity, 300}, {300, kInfinity},
                          {1e300, 300}, {1000000, 1000000}};
  for (const CGSize& size : sizes) {
    EXPECT_EQ(HRColorMapView::colorMapImageWithSize(size, 16, 1), nullptr);
    EXPECT_EQ(HRColorMapView::backgroundImageWithSize(size, 16), nullptr);
  }
  for (const CGFloat tile : {0.0, -16.0, kNaN, kInfinity, 1e-300, 1e300}) {
    EXPECT_EQ(HRColorMapView::colorMapImageWithSize({320, 320}, tile, 1), nullptr) << tile;
    EXPECT_EQ(HRColorMapView::backgroundImageWithSize({320, 320}, tile), nullptr) << tile;
  }
}

TEST_F(HRColorMapImagesTest, LimitThatIsNoFractionIsMadeOne) {
  for (const CGFloat limit : {kNaN, -3.0, 7.0, kInfinity}) {
    const HRColorGrid grid = HRColorGrid::fitting({32, 48}, 16);
    const UIImageRef direct = detail::colorMapImage(grid, limit);
    const UIImageRef drawn = detail::drawnColorMapImage(grid, limit);
    ASSERT_NE(direct, nullptr);
    EXPECT_LE(differenceOffEdges(*direct, *drawn, 48), 1) << limit;
  }
}

// The drawn picture is the definition.
RC_GTEST_FIXTURE_PROP(HRColorMapImagesTest, LooksAsDrawn, ()) {
  const int quarters = *rc::gen::inRange(2, 15);
  device_.uikit()->screen().setScale(quarters / 4.0);
  const CGFloat tile = *rc::gen::inRange(1, 60) / 2.0;
  const CGSize size{*rc::gen::inRange(1, 400) / 4.0, *rc::gen::inRange(1, 400) / 4.0};
  const CGFloat limit = *rc::gen::inRange(0, 101) / 100.0;

  const HRColorGrid grid = HRColorGrid::fitting(size, tile);
  const UIImageRef direct = detail::colorMapImage(grid, limit);
  const UIImageRef drawn = detail::drawnColorMapImage(grid, limit);
  RC_ASSERT((direct == nullptr) == (drawn == nullptr));
  if (direct == nullptr) {
    return;
  }
  const CGFloat pixels = tile * quarters / 4.0;
  RC_ASSERT(differenceOffEdges(*direct, *drawn, pixels) <= 1);
  RC_ASSERT(differenceOffEdges(*detail::colorMapBackgroundImage(grid),
                               *detail::drawnColorMapBackgroundImage(grid), pixels) <= 1);
}

}  // namespace
}  // namespace zephyl
