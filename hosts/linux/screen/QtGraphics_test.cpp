#include "hosts/linux/screen/QtGraphics.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/screen/Pictures_testing.h"
#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

using ::testing::Each;

constexpr int kSide = 4096;

// One red pixel and one blue one.
const Data kGif = {'G',  'I', 'F', '8', '9', 'a', 2, 0, 1, 0, 0x80, 0, 0, 0xFF, 0,    0, 0,  0,
                   0xFF, ',', 0,   0,   0,   0,   2, 0, 1, 0, 0,    2, 2, 0x44, 0x0A, 0, ';'};

class QtGraphicsTest : public ScreenTest {
 protected:
  [[nodiscard]] UIGraphics& graphics() { return kit().graphics(); }
  [[nodiscard]] CGBitmapRef decode(const Data& file, int side = kSide) {
    return graphics().decode(file, side, nullptr);
  }
  [[nodiscard]] std::string problem(const Data& file) {
    NSError error;
    EXPECT_EQ(graphics().decode(file, kSide, &error), nullptr);
    return error.localizedDescription();
  }
};

bool isRed(std::uint32_t pixel) {
  return (pixel & 0xFF0000U) > 0xA00000U && (pixel & 0xFFU) < 0x50U;
}

TEST_F(QtGraphicsTest, ReadsTheKindsThatPeopleHave) {
  for (const char* format : {"png", "jpeg", "bmp"}) {
    const Data file = fileOf(halves(40, 20), format);
    EXPECT_EQ(graphics().pixelSize(file), (CGSize{40, 20})) << format;
    const CGBitmapRef bitmap = decode(file);
    ASSERT_NE(bitmap, nullptr) << format;
    EXPECT_EQ(bitmap->width, 40U);
    EXPECT_EQ(bitmap->height, 20U);
    EXPECT_TRUE(isRed(bitmap->pixels[5]));
    EXPECT_FALSE(isRed(bitmap->pixels[35]));
  }
  const CGBitmapRef gif = decode(kGif);
  ASSERT_NE(gif, nullptr);
  EXPECT_EQ(gif->pixels, (std::vector<std::uint32_t>{0xFFFF0000, 0xFF0000FF}));
}

TEST_F(QtGraphicsTest, PicturesAreUpright) {
  const Data file = fileOf(halves(40, 20), "jpeg", QImageIOHandler::TransformationRotate90);
  EXPECT_EQ(graphics().pixelSize(file), (CGSize{20, 40}));
  const CGBitmapRef bitmap = decode(file);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->width, 20U);
  EXPECT_TRUE(isRed(bitmap->pixels[10]));
  EXPECT_FALSE(isRed(bitmap->pixels[20 * 39 + 10]));
}

TEST_F(QtGraphicsTest, LargePicturesAreScaledDown) {
  for (const char* format : {"png", "jpeg", "bmp"}) {
    const CGBitmapRef bitmap = decode(fileOf(halves(400, 100), format), 50);
    ASSERT_NE(bitmap, nullptr) << format;
    EXPECT_EQ(bitmap->width, 50U) << format;
    EXPECT_NEAR(static_cast<double>(bitmap->height), 12.5, 0.5) << format;
    EXPECT_TRUE(isRed(bitmap->pixels[2]));
  }
  const CGBitmapRef thread = decode(fileOf(halves(4000, 1), "png"), 10);
  ASSERT_NE(thread, nullptr);
  EXPECT_EQ(thread->height, 1U);
}

TEST_F(QtGraphicsTest, WhatIsNoPictureGivesAnError) {
  EXPECT_EQ(problem({}), "This is no picture that can be read.");
  EXPECT_EQ(problem({1, 2, 3}), "This is no picture that can be read.");
  const std::string svg = "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'/>";
  EXPECT_EQ(problem(Data(svg.begin(), svg.end())), "This is no picture that can be read.");
  const std::string ppm = "P3 1 1 255 1 2 3\n";
  EXPECT_EQ(problem(Data(ppm.begin(), ppm.end())), "This is no picture that can be read.");
  EXPECT_EQ(graphics().pixelSize({}), CGSize());
  EXPECT_EQ(graphics().pixelSize(Data(ppm.begin(), ppm.end())), CGSize());
}

TEST_F(QtGraphicsTest, APictureThatWasCutOffIsRefused) {
  for (const char* format : {"png", "jpeg", "bmp"}) {
    const Data file = fileOf(halves(200, 200), format);
    ASSERT_NE(decode(file), nullptr);
    for (const double part : {0.02, 0.1, 0.5, 0.9, 0.99}) {
      EXPECT_EQ(decode(cut(file, part)), nullptr) << format << " " << part;
    }
    Data almost = file;
    almost.pop_back();
    EXPECT_EQ(decode(almost), nullptr) << format;
  }
  for (std::size_t size = 0; size + 1 < kGif.size(); ++size) {
    EXPECT_EQ(decode(Data(kGif.begin(), kGif.begin() + static_cast<std::ptrdiff_t>(size))), nullptr)
        << size;
  }
}

TEST_F(QtGraphicsTest, WhatFollowsThePictureDoesNotMatter) {
  for (const char* format : {"png", "jpeg", "bmp"}) {
    Data file = fileOf(halves(20, 20), format);
    file.insert(file.end(), {0, 1, 2, 3, 0xFF});
    EXPECT_NE(decode(file), nullptr) << format;
  }
}

TEST_F(QtGraphicsTest, ByteChangesHarmNothing) {
  for (const char* format : {"png", "jpeg", "bmp"}) {
    const Data file = fileOf(halves(30, 30), format);
    for (std::size_t at = 0; at < file.size(); at += 1 + file.size() / 150) {
      Data changed = file;
      changed[at] ^= 0x55U;
      const CGBitmapRef bitmap = decode(changed, 64);
      EXPECT_TRUE(bitmap == nullptr || bitmap->pixels.size() == bitmap->width * bitmap->height);
    }
  }
}

TEST_F(QtGraphicsTest, ClaimsOfGiantSizesAreRefused) {
  Data file = fileOf(halves(30, 30), "jpeg");
  std::size_t at = 0;
  while (file[at] != 0xFF || file[at + 1] != 0xC0) {
    ++at;
  }
  for (std::size_t i = 5; i < 9; ++i) {
    file[at + i] = 0xFA;
  }
  EXPECT_EQ(problem(file), "The picture is too large.");
}

TEST_F(QtGraphicsTest, APngComesBackAsItWas) {
  const CGBitmap bitmap{2, 2, {0xFF0000FF, 0x80800000, 0, 0xFFFFFFFF}};
  const CGBitmapRef read = decode(graphics().encodePNG(bitmap));
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->pixels, bitmap.pixels);
  EXPECT_TRUE(graphics().encodePNG({}).empty());
  EXPECT_TRUE(graphics().encodePNG({5, 5, {1, 2}}).empty());
}

TEST_F(QtGraphicsTest, AnImageContextHasTheAppearanceOfTheScreen) {
  kit().screen().setStyle(UIUserInterfaceStyle::kDark);
  const auto drawing = graphics().makeImageContext({2, 2}, 1.5, /*opaque=*/false);
  EXPECT_EQ(drawing->context().userInterfaceStyle(), UIUserInterfaceStyle::kDark);
  drawing->context().fill({CGRectMake(0, 0, 2, 2)}, UIColor::labelColor());
  EXPECT_THAT(drawing->bitmap()->pixels, Each(0xFFFFFFFF));
}

}  // namespace
}  // namespace zephyl::linux_host
