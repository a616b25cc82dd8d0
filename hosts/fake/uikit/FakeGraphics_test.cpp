#include "hosts/fake/uikit/FakeGraphics.h"

#include <limits>
#include <memory>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zephyl::fake {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

class FakeGraphicsTest : public ::testing::Test {
 protected:
  FakeScreen screen_;
  FakeGraphics graphics_{screen_};
};

TEST_F(FakeGraphicsTest, ReadsItsOwnPictures) {
  const Data file = fakePicture(3, 2, 0xFF102030);
  EXPECT_EQ(graphics_.pixelSize(file), (CGSize{3, 2}));
  const auto bitmap = graphics_.decode(file, 4096, nullptr);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->pixels.size(), 6U);
  EXPECT_THAT(bitmap->pixels, Each(0xFF102030));
}

TEST_F(FakeGraphicsTest, APictureThatIsTooLargeIsScaledDown) {
  const auto bitmap = graphics_.decode(fakePicture(100, 50), 10, nullptr);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->width, 10U);
  EXPECT_EQ(bitmap->height, 5U);
}

TEST_F(FakeGraphicsTest, WhatIsNoPictureGivesAnError) {
  NSError error;
  EXPECT_EQ(graphics_.decode(Data{1, 2, 3}, 4096, &error), nullptr);
  EXPECT_EQ(error.localizedDescription(), "The picture cannot be read.");
  EXPECT_EQ(graphics_.pixelSize(Data{1, 2, 3}), CGSize());
  EXPECT_EQ(graphics_.pixelSize({}), CGSize());
  EXPECT_EQ(graphics_.decode(fakePicture(100'000, 100'000), 4096, nullptr), nullptr);
}

TEST_F(FakeGraphicsTest, APngComesBackAsItWas) {
  CGBitmap bitmap{2, 2, {0xFF0000FF, 0x80800000, 0, 0xFFFFFFFF}};
  const Data png = graphics_.encodePNG(bitmap);
  EXPECT_EQ(graphics_.pixelSize(png), (CGSize{2, 2}));
  const auto read = graphics_.decode(png, 4096, nullptr);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->pixels, bitmap.pixels);
}

TEST_F(FakeGraphicsTest, ACutPngIsMeasuredButNotDecoded) {
  Data png = graphics_.encodePNG({300, 300, std::vector<std::uint32_t>(90'000, 0xFF123456)});
  EXPECT_NE(graphics_.decode(png, 4096, nullptr), nullptr);
  png.resize(png.size() - 20);
  EXPECT_EQ(graphics_.pixelSize(png), (CGSize{300, 300}));
  EXPECT_EQ(graphics_.decode(png, 4096, nullptr), nullptr);
}

TEST_F(FakeGraphicsTest, AnEmptyBitmapGivesAnEmptyFile) {
  EXPECT_TRUE(graphics_.encodePNG({}).empty());
}

TEST_F(FakeGraphicsTest, AnImageContextHasTheSizeInPixelsRoundedUp) {
  const auto drawing = graphics_.makeImageContext({1.5, 2}, 1.5, /*opaque=*/true);
  ASSERT_NE(drawing, nullptr);
  const auto bitmap = drawing->bitmap();
  EXPECT_EQ(bitmap->width, 3U);
  EXPECT_EQ(bitmap->height, 3U);
  EXPECT_THAT(bitmap->pixels, Each(0xFF000000));
}

TEST_F(FakeGraphicsTest, NoPixelAndTooManyGiveNoContext) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  EXPECT_EQ(graphics_.makeImageContext({0, 5}, 2, false), nullptr);
  EXPECT_EQ(graphics_.makeImageContext({kNaN, 5}, 2, false), nullptr);
  EXPECT_EQ(graphics_.makeImageContext({-3, -5}, 2, false), nullptr);
  EXPECT_EQ(graphics_.makeImageContext({1e6, 1e6}, 2, false), nullptr);
}

TEST_F(FakeGraphicsTest, PlainRectanglesAreReallyFilled) {
  const auto drawing = graphics_.makeImageContext({2, 1}, 2, /*opaque=*/false);
  CGContext& context = drawing->context();
  context.fill({CGRectMake(0, 0, 1.25, 0.5)}, UIColor::redColor());
  context.concat(CGAffineTransformMakeTranslation(0, 0.5));
  context.fill({CGRectMake(0, 0, 2, 9)}, UIColor::whiteColor());
  context.fill({CGRectMake(0, 0, 1, 9)}, UIColor::colorWithWhite(0, 0.5));
  EXPECT_THAT(drawing->bitmap()->pixels,
              ElementsAre(0xFFFF0000, 0xFFFF0000, 0x80800000, 0, 0xFF808080, 0xFF808080, 0xFFFFFFFF,
                          0xFFFFFFFF));
}

TEST_F(FakeGraphicsTest, EdgesCoverTheirPartOfAPixelBothWays) {
  const auto drawing = graphics_.makeImageContext({1, 1}, 2, /*opaque=*/false);
  drawing->context().fill({CGRectMake(0, 0, 0.75, 0.75)}, UIColor::whiteColor());
  EXPECT_THAT(drawing->bitmap()->pixels,
              ElementsAre(0xFFFFFFFF, 0x80808080, 0x80808080, 0x40404040));
}

}  // namespace
}  // namespace zephyl::fake
