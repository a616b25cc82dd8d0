#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIImage.h"

#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

class QtContextImagesTest : public ScreenTest {
 protected:
  [[nodiscard]] static UIImageRef image(std::size_t width, std::size_t height,
                                        std::uint32_t pixel) {
    auto bitmap = std::make_shared<CGBitmap>();
    *bitmap = {width, height, std::vector<std::uint32_t>(width * height, pixel)};
    return std::make_shared<const UIImage>(std::move(bitmap), 1);
  }
  [[nodiscard]] Canvas canvas(CGFloat scale = 1) { return {20, 20, scale, kit().paintCaches()}; }
  [[nodiscard]] std::size_t scalings() { return kit().paintCaches().pictures.misses(); }
};

TEST_F(QtContextImagesTest, AnImageFillsItsRectangle) {
  Canvas paper = canvas(1.5);
  paper->draw(*image(300, 300, 0xFF0000FF), CGRectMake(4, 4, 10, 10), UIColor());
  EXPECT_EQ(paper.inked(), 15 * 15);
  EXPECT_EQ(paper.at(6, 6), QColor(Qt::blue));
}

TEST_F(QtContextImagesTest, ATemplateTakesTheTintThroughItsAlpha) {
  const UIImage mask(*image(4, 4, 0x80800000), UIImageRenderingMode::kAlwaysTemplate);
  Canvas paper = canvas();
  paper->draw(mask, CGRectMake(0, 0, 20, 20), UIColor::blueColor());
  EXPECT_NEAR(paper.at(9, 9).red(), 127, 1);
  EXPECT_EQ(paper.at(9, 9).blue(), 255);
}

TEST_F(QtContextImagesTest, ScalesOnceForASize) {
  const UIImageRef picture = image(64, 64, 0xFF123456);
  Canvas paper = canvas();
  const std::size_t before = scalings();
  for (int y = 0; y < 10; ++y) {
    paper->draw(*picture, CGRectMake(0, y, 8, 8), UIColor());
  }
  EXPECT_EQ(scalings(), before + 1);
  paper->draw(*picture, CGRectMake(0, 0, 9, 9), UIColor());
  EXPECT_EQ(scalings(), before + 2);
}

TEST_F(QtContextImagesTest, AnotherImageAtTheSameAddressIsNotTakenForTheOld) {
  auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 2, {1, 1, 1, 1}});
  ScaledPictures pictures;
  CGBitmapRef first(bitmap.get(), [](const CGBitmap*) {});
  EXPECT_EQ(pictures.scaled(first, {1, 1}, std::nullopt).width(), 1);
  first.reset();
  const CGBitmapRef second(bitmap.get(), [](const CGBitmap*) {});
  EXPECT_EQ(pictures.scaled(second, {1, 1}, std::nullopt).width(), 1);
  EXPECT_EQ(pictures.misses(), 2U);
}

TEST_F(QtContextImagesTest, KeepsNoMoreThanItsBound) {
  ScaledPictures pictures(10'000);
  const CGBitmapRef bitmap = image(100, 100, 0xFFFFFFFF)->bitmap();
  for (int side = 1; side < 90; ++side) {
    EXPECT_EQ(pictures.scaled(bitmap, {side, side}, std::nullopt).width(), side);
    EXPECT_LE(pictures.bytes(), 10'000U);
  }
}

TEST_F(QtContextImagesTest, WhatHasNoPixelsDrawsNothing) {
  Canvas paper = canvas();
  paper->draw(UIImage(Data{1, 2, 3}), CGRectMake(0, 0, 20, 20), UIColor());
  paper->draw(*image(0, 0, 0), CGRectMake(0, 0, 20, 20), UIColor());
  const auto lying = std::make_shared<const CGBitmap>(CGBitmap{100, 100, {1, 2, 3}});
  paper->draw(UIImage(lying, 1), CGRectMake(0, 0, 20, 20), UIColor());
  paper->draw(*image(4, 4, 0xFF000000), CGRectMake(0, 0, 0, 20), UIColor());
  EXPECT_EQ(paper.inked(), 0);
}

TEST_F(QtContextImagesTest, AMirroredImageIsDrawnMirrored) {
  auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 1, {0xFF000000, 0xFFFF0000}});
  const UIImage halves(bitmap, 1);
  Canvas paper = canvas();
  paper->concat({-1, 0, 0, 1, 20, 0});
  paper->draw(halves, CGRectMake(0, 0, 20, 20), UIColor());
  EXPECT_GT(paper.at(2, 10).red(), 200);
  EXPECT_LT(paper.at(17, 10).red(), 50);
}

TEST_F(QtContextImagesTest, ATurnedImageIsClippedByItsOwnEdges) {
  Canvas paper = canvas();
  paper->concat(CGAffineTransformMakeTranslation(10, 10));
  paper->concat(CGAffineTransformMakeRotation(0.785398));
  paper->draw(*image(50, 50, 0xFF000000), CGRectMake(-7, -7, 14, 14), UIColor());
  EXPECT_EQ(paper.at(10, 10), QColor(Qt::black));
  EXPECT_EQ(paper.at(1, 1), QColor(Qt::white));
  EXPECT_LT(paper.at(10, 2).red(), 128);
}

}  // namespace
}  // namespace zephyl::linux_host
