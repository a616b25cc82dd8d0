#include "platform/uikit/UIImage.h"

#include <limits>
#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/NSBundle.h"
#include "platform/uikit/CGContext.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::Each;

class UIImageTest : public ::testing::Test {
 protected:
  void put(const std::string& file, int side) {
    const Data bytes = fake::fakePicture(side, side);
    device_.files().put("/Pictures.bundle/" + file, std::string(bytes.begin(), bytes.end()));
  }
  // The side, in pixels, of the picture that is found; 0 for none.
  CGFloat sideFound(const std::string& name, CGFloat screenScale) {
    device_.uikit()->screen().setScale(screenScale);
    const auto bundle = NSBundle::bundleWithPath("/Pictures.bundle");
    const auto image = UIImage::imageNamed(name, *bundle);
    return image == nullptr ? 0 : image->size().width * image->scale();
  }

  fake::Device device_;
};

TEST_F(UIImageTest, ANamedImageIsTheOneForTheScreen) {
  put("check.png", 10);
  put("check@2x.png", 20);
  put("check@3x.png", 30);
  EXPECT_EQ(sideFound("check", 1), 10);
  EXPECT_EQ(sideFound("check", 1.5), 20);
  EXPECT_EQ(sideFound("check", 2), 20);
  EXPECT_EQ(sideFound("check", 3), 30);
  EXPECT_EQ(sideFound("check", 4), 30);
}

TEST_F(UIImageTest, TheNextLargerImageIsBetterThanASmallerOne) {
  put("one.png", 10);
  put("two@2x.png", 20);
  put("ends.png", 10);
  put("ends@3x.png", 30);
  EXPECT_EQ(sideFound("one", 3), 10);
  EXPECT_EQ(sideFound("two", 1), 20);
  EXPECT_EQ(sideFound("ends", 2), 30);
  EXPECT_EQ(sideFound("none", 2), 0);
}

TEST_F(UIImageTest, SizesAreInPoints) {
  const UIImage image(fake::fakePicture(30, 60), 3);
  EXPECT_EQ(image.size(), (CGSize{10, 20}));
  EXPECT_EQ(UIImage(Data{1, 2, 3}).size(), CGSize());
}

TEST_F(UIImageTest, AnEmptyFileIsNoImage) {
  EXPECT_EQ(UIImage::imageWithData({}), nullptr);
}

TEST_F(UIImageTest, AFileIsDecodedAndMeasuredOnceWithItsCopies) {
  const auto image = UIImage::imageWithData(fake::fakePicture(4, 4));
  const auto copy = image->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate);
  EXPECT_EQ(copy->renderingMode(), UIImageRenderingMode::kAlwaysTemplate);
  EXPECT_NE(image->bitmap(), nullptr);
  EXPECT_EQ(copy->bitmap(), image->bitmap());
  EXPECT_EQ(copy->size(), image->size());
  EXPECT_EQ(device_.uikit()->graphics().decoded(), 1);
  EXPECT_EQ(device_.uikit()->graphics().measured(), 1);
}

TEST_F(UIImageTest, ADamagedFileIsTriedOnce) {
  const UIImage image(Data{1, 2, 3});
  EXPECT_EQ(image.bitmap(), nullptr);
  EXPECT_EQ(image.bitmap(), nullptr);
  EXPECT_EQ(device_.uikit()->graphics().decoded(), 1);
}

TEST_F(UIImageTest, AnImageOfPixelsIsNeverDecoded) {
  auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 1, {1, 2}});
  const UIImage image(bitmap, 2);
  EXPECT_EQ(image.bitmap(), bitmap);
  EXPECT_EQ(image.size(), (CGSize{1, 0.5}));
  EXPECT_TRUE(image.file().empty());
  EXPECT_EQ(UIImage(nullptr, 2).size(), CGSize());
  EXPECT_EQ(device_.uikit()->graphics().decoded(), 0);
}

TEST_F(UIImageTest, AsPngAPngStaysAsItIs) {
  auto bitmap = std::make_shared<CGBitmap>(CGBitmap{2, 1, {0xFF000001, 0xFF000002}});
  const Data file = fake::encodePng(*bitmap);
  EXPECT_EQ(UIImagePNGRepresentation(UIImage(file)), file);
  EXPECT_EQ(UIImagePNGRepresentation(UIImage(bitmap, 2)), file);
}

TEST_F(UIImageTest, AsPngAnotherPictureIsWrittenAnewAtItsOwnSize) {
  const Data png = UIImagePNGRepresentation(UIImage(fake::fakePicture(5000, 2)));
  const auto bitmap = fake::decodePicture(png);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->width, 5000U);
  EXPECT_EQ(bitmap->height, 2U);
}

TEST_F(UIImageTest, WhatIsNoPictureIsNoPng) {
  EXPECT_TRUE(UIImagePNGRepresentation(UIImage(Data{1, 2, 3})).empty());
  EXPECT_TRUE(UIImagePNGRepresentation(UIImage(nullptr, 1)).empty());
  Data cut = fake::encodePng({2, 1, {1, 2}});
  cut.resize(cut.size() / 2);
  EXPECT_TRUE(UIImagePNGRepresentation(UIImage(cut)).empty());
}

TEST_F(UIImageTest, ADrawnImageHasTheScreensScale) {
  device_.uikit()->screen().setScale(2);
  CGRect given;
  const auto image = UIImage::hr_imageWithSize({3, 2}, [&](CGContext& context, const CGRect& rect) {
    given = rect;
    context.fill({rect}, UIColor::redColor());
  });
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(given, CGRectMake(0, 0, 3, 2));
  EXPECT_EQ(image->scale(), 2);
  EXPECT_EQ(image->size(), (CGSize{3, 2}));
  EXPECT_EQ(image->bitmap()->pixels.size(), 24U);
  EXPECT_THAT(image->bitmap()->pixels, Each(0xFFFF0000));
}

TEST_F(UIImageTest, ADrawnImageIsClearAtFirstUnlessOpaque) {
  const auto nothing = [](CGContext&, const CGRect&) {};
  EXPECT_THAT(UIImage::hr_imageWithSize({1, 1}, nothing)->bitmap()->pixels, Each(0U));
  EXPECT_THAT(UIImage::hr_imageWithSize({1, 1}, /*opaque=*/true, nothing)->bitmap()->pixels,
              Each(0xFF000000));
}

TEST_F(UIImageTest, ADrawnImageWithoutAPixelIsNone) {
  bool drawn = false;
  const auto draw = [&](CGContext&, const CGRect&) { drawn = true; };
  EXPECT_EQ(UIImage::hr_imageWithSize({0, 10}, draw), nullptr);
  EXPECT_EQ(UIImage::hr_imageWithSize({std::numeric_limits<CGFloat>::quiet_NaN(), 1}, draw),
            nullptr);
  EXPECT_FALSE(drawn);
}

}  // namespace
}  // namespace zephyl
