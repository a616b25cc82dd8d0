#include "apps/zephyls/render/PictureComparison.h"

#include <gtest/gtest.h>

namespace zephyl::app::render {
namespace {

CGBitmap filled(std::size_t width, std::size_t height, std::uint32_t pixel) {
  return {width, height, std::vector<std::uint32_t>(width * height, pixel)};
}

TEST(PictureComparison, PicturesOfOtherSizesDiffer) {
  EXPECT_EQ(whyDifferent(filled(4, 2, 0), filled(2, 4, 0)), "4 x 2 pixels, not 2 x 4");
}

TEST(PictureComparison, ASmallDifferenceOfEveryPixelDoesNotCount) {
  EXPECT_EQ(whyDifferent(filled(10, 10, 0xFF000000), filled(10, 10, 0xFF181818)), "");
  EXPECT_EQ(whyDifferent(filled(10, 10, 0xFF000000), filled(10, 10, 0xFF001900)),
            "100 of 100 pixels differ");
  EXPECT_EQ(whyDifferent(filled(10, 10, 0xFF000000), filled(10, 10, 0xE6000000)),
            "100 of 100 pixels differ");
}

TEST(PictureComparison, OnePixelOfAHundredMayBeAnything) {
  const CGBitmap black = filled(10, 10, 0xFF000000);
  CGBitmap spotted = black;
  spotted.pixels[5] = 0xFFFFFFFF;
  EXPECT_EQ(whyDifferent(black, spotted), "");
  spotted.pixels[6] = 0xFFFFFFFF;
  EXPECT_EQ(whyDifferent(black, spotted), "2 of 100 pixels differ");
}

}  // namespace
}  // namespace zephyl::app::render
