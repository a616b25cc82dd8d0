#include "hosts/linux/screen/HeifPictures.h"

#include <cstring>
#include <memory>

#include <gtest/gtest.h>
#include <libheif/heif.h>

#include "hosts/linux/screen/Pictures_testing.h"

namespace zephyl::linux_host {
namespace {

heif_error append(heif_context* /*context*/, const void* bytes, std::size_t count, void* target) {
  const auto* const first = static_cast<const std::uint8_t*>(bytes);
  auto& file = *static_cast<Data*>(target);
  file.insert(file.end(), first, first + count);
  return {heif_error_Ok, heif_suberror_Unspecified, "Success"};
}

// The picture as a phone would write it; empty when this machine has no encoder.
Data heicOf(const QImage& picture) {
  heif_context* const context = heif_context_alloc();
  heif_encoder* encoder = nullptr;
  heif_image* image = nullptr;
  Data file;
  if (heif_context_get_encoder_for_format(context, heif_compression_HEVC, &encoder).code ==
          heif_error_Ok &&
      heif_image_create(picture.width(), picture.height(), heif_colorspace_RGB,
                        heif_chroma_interleaved_RGB, &image)
              .code == heif_error_Ok) {
    heif_image_add_plane(image, heif_channel_interleaved, picture.width(), picture.height(), 8);
    const QImage rgb = picture.convertToFormat(QImage::Format_RGB888);
    int bytesARow = 0;
    std::uint8_t* const pixels = heif_image_get_plane(image, heif_channel_interleaved, &bytesARow);
    for (int y = 0; y < rgb.height(); ++y) {
      std::memcpy(pixels + static_cast<std::ptrdiff_t>(y) * bytesARow, rgb.constScanLine(y),
                  static_cast<std::size_t>(rgb.width()) * 3);
    }
    heif_context_encode_image(context, image, encoder, nullptr, nullptr);
    heif_writer writer{1, append};
    heif_context_write(context, &writer, &file);
  }
  heif_image_release(image);
  if (encoder != nullptr) {
    heif_encoder_release(encoder);
  }
  heif_context_free(context);
  return file;
}

class HeifPicturesTest : public ::testing::Test {
 protected:
  const Data file_ = heicOf(halves(64, 32));
};

TEST_F(HeifPicturesTest, IsReadLikeAnyOther) {
  ASSERT_FALSE(file_.empty());
  EXPECT_TRUE(isHeif(file_));
  EXPECT_EQ(pictureSize(file_), QSize(64, 32));
  const Picture picture = readPicture(file_, 4096);
  ASSERT_EQ(picture.image.size(), QSize(64, 32));
  EXPECT_GT(picture.image.pixelColor(10, 10).red(), 180);
  EXPECT_GT(picture.image.pixelColor(50, 10).blue(), 180);
}

TEST_F(HeifPicturesTest, IsScaledDown) {
  EXPECT_EQ(readPicture(file_, 16).image.size(), QSize(16, 8));
}

TEST_F(HeifPicturesTest, OneThatWasCutOffIsRefused) {
  for (const double part : {0.2, 0.5, 0.9, 0.99}) {
    const Picture picture = readPicture(cut(file_, part), 4096);
    EXPECT_TRUE(picture.image.isNull()) << part;
    EXPECT_FALSE(picture.problem.empty());
  }
}

TEST_F(HeifPicturesTest, MorePixelsThanAllowedAreNotRead) {
  EXPECT_TRUE(readHeif(file_, 4096, 100).image.isNull());
}

TEST(HeifKindTest, OtherFilesAreNotTakenForOne) {
  EXPECT_FALSE(isHeif({}));
  EXPECT_FALSE(isHeif(fileOf(halves(4, 4), "png")));
  EXPECT_FALSE(isHeif({0, 0, 0, 24, 'f', 't', 'y', 'p', 'm', 'p', '4', '2'}));
}

}  // namespace
}  // namespace zephyl::linux_host
