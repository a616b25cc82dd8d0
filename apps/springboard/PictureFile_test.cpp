#include "apps/springboard/PictureFile.h"

#include <QImage>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/springboard/TestPictures.h"

namespace zephyl::app {
namespace {

using test::fileOf;
using test::noise;
using test::sideways;
using test::textOf;
using ::testing::HasSubstr;

QImage decoded(const StoredPicture& picture) {
  EXPECT_EQ(picture.refusal, "");
  return QImage::fromData(QByteArray::fromStdString(picture.png), "PNG");
}

std::string refusalOf(const Data& file) {
  const StoredPicture picture = storedPicture(file);
  EXPECT_EQ(picture.png, "");
  return picture.refusal;
}

Data cut(Data file, std::size_t size) {
  file.resize(size);
  return file;
}

TEST(PictureFile, APngStaysByteForByte) {
  for (const QImage& image : {noise(7, 5), noise(7, 5).convertToFormat(QImage::Format_Mono),
                              noise(7, 5).convertToFormat(QImage::Format_RGBA64)}) {
    const Data file = fileOf(image, "PNG");
    EXPECT_EQ(storedPicture(file).png, textOf(file));
  }
}

TEST(PictureFile, AnotherKindIsWrittenAnewAtItsSize) {
  for (const char* format : {"JPEG", "BMP"}) {
    const Data file = fileOf(noise(70, 50), format);
    const QImage image = decoded(storedPicture(file));
    EXPECT_EQ(image.size(), QSize(70, 50)) << format;
    EXPECT_EQ(image.convertToFormat(QImage::Format_RGB32),
              QImage::fromData(file.data(), static_cast<int>(file.size()))
                  .convertToFormat(QImage::Format_RGB32))
        << format;
  }
}

TEST(PictureFile, APictureTakenSidewaysStandsUpright) {
  const Data file = sideways(fileOf(noise(70, 50), "JPEG"));
  EXPECT_EQ(decoded(storedPicture(file)).size(), QSize(50, 70));
}

TEST(PictureFile, WhatIsNoPictureIsRefused) {
  for (const char* text :
       {"", "rubbish", "\x89PNG\r\n\x1a\n", "<svg xmlns='http://www.w3.org/2000/svg'/>",
        "/* XPM */ static char* x[] = {\"1 1 1 1\", \"a c #000\", \"a\"};", "P1 1 1 0"}) {
    const std::string file = text;
    EXPECT_NE(refusalOf(Data(file.begin(), file.end())), "") << text;
  }
}

TEST(PictureFile, APngCutShortIsRefused) {
  const Data file = fileOf(noise(9, 9), "PNG");
  for (const std::size_t missing : {5U, 8U, 13U, 100U}) {
    EXPECT_NE(refusalOf(cut(file, file.size() - missing)), "") << missing;
  }
  for (const std::size_t size : {1U, 8U, 24U, 33U, 60U}) {
    EXPECT_NE(refusalOf(cut(file, size)), "") << size;
  }
}

TEST(PictureFile, APngThatOnlyLacksItsLastBytesIsWrittenAnew) {
  const Data file = fileOf(noise(9, 9), "PNG");
  for (const std::size_t missing : {1U, 4U}) {
    const StoredPicture picture = storedPicture(cut(file, file.size() - missing));
    EXPECT_EQ(decoded(picture).convertToFormat(QImage::Format_RGB32), noise(9, 9));
    EXPECT_TRUE(picture.png.ends_with("IEND\xae\x42\x60\x82")) << missing;
  }
}

TEST(PictureFile, APngWithADamagedByteIsRefused) {
  Data file = fileOf(noise(40, 40), "PNG");
  file[file.size() / 2] ^= 0xFFU;
  EXPECT_THAT(refusalOf(file), HasSubstr("does not decode"));
}

TEST(PictureFile, AFileOfTheGreatestSizeIsLookedAtAndALargerOneIsNot) {
  EXPECT_THAT(refusalOf(Data(50'000'000, 'x')), HasSubstr("known kind"));
  EXPECT_THAT(refusalOf(Data(50'000'001, 'x')), HasSubstr("50000001 bytes"));
}

TEST(PictureFile, PixelsAreCountedBeforeAnythingIsDecoded) {
  QImage large(10'000, 5'000, QImage::Format_Mono);
  large.fill(0);
  const Data whole = fileOf(large, "PNG");
  EXPECT_EQ(storedPicture(whole).png, textOf(whole));

  QImage tooLarge(10'000, 5'001, QImage::Format_Mono);
  tooLarge.fill(0);
  const Data header = cut(fileOf(tooLarge, "PNG"), 200);
  EXPECT_THAT(refusalOf(header), HasSubstr("50010000 pixels"));
}

TEST(PictureFile, WhatIsTooLargeOnceItIsWrittenIsRefused) {
  const Data file = fileOf(noise(100, 100), "JPEG");
  const StoredPicture picture = storedPicture(file, {.bytes = 25'000});
  ASSERT_LE(file.size(), 25'000U);
  EXPECT_EQ(picture.png, "");
  EXPECT_THAT(picture.refusal, HasSubstr("as PNG it has"));
}

}  // namespace
}  // namespace zephyl::app
