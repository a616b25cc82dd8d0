// The pictures of the settings bundle: each at one, two and three pixels a point, clear where
// nothing is drawn.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "bundle/testing/TextTable.h"

namespace zephyl {
namespace {

struct Header {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool hasAlpha = false;
};

std::uint32_t numberAt(std::string_view bytes, std::size_t at) {
  std::uint32_t number = 0;
  for (const char byte : bytes.substr(at, 4)) {
    number = number << 8 | static_cast<unsigned char>(byte);
  }
  return number;
}

// Of a PNG file; nothing when the bytes are no such file.
std::optional<Header> headerOf(std::string_view bytes) {
  constexpr std::string_view kSignature = "\x89PNG\r\n\x1a\n";
  constexpr std::size_t kSize = 33;  // with the header's length, kind and checksum
  if (bytes.size() < kSize || !bytes.starts_with(kSignature) || bytes.substr(12, 4) != "IHDR") {
    return std::nullopt;
  }
  const unsigned colorType = static_cast<unsigned char>(bytes[25]);
  return Header{numberAt(bytes, 16), numberAt(bytes, 20), (colorType & 4U) != 0};
}

struct Picture {
  std::string_view name;
  std::uint32_t points;  // wide and high

  friend void PrintTo(const Picture& picture, std::ostream* stream) { *stream << picture.name; }
};

class Pictures : public ::testing::TestWithParam<Picture> {};

std::filesystem::path bundle() {
  return std::filesystem::path(ZEPHYLS_BUNDLES) / test::kSettingsTexts.folder;
}

TEST_P(Pictures, StandAtOneTwoAndThreePixelsAPoint) {
  for (std::uint32_t scale = 1; scale <= 3; ++scale) {
    std::string name(GetParam().name);
    if (scale > 1) {
      name.append("@").append(std::to_string(scale)).append("x");
    }
    const auto header = headerOf(test::contentOf(bundle() / name.append(".png")));
    ASSERT_TRUE(header) << name;
    EXPECT_EQ(header->width, GetParam().points * scale) << name;
    EXPECT_EQ(header->height, GetParam().points * scale) << name;
    EXPECT_TRUE(header->hasAlpha) << name;
  }
}

TEST_P(Pictures, HaveASource) {
  const auto source = std::filesystem::path(ZEPHYLS_BUNDLES) / "pictures" /
                      std::string(GetParam().name).append(".svg");
  const std::string size = std::to_string(GetParam().points);
  EXPECT_NE(
      test::contentOf(source).find(
          std::string("width=\"").append(size).append("\" height=\"").append(size).append("\"")),
      std::string::npos)
      << source;
}

std::string nameOf(const ::testing::TestParamInfo<Picture>& info) {
  return std::string(info.param.name);
}

// The check covers a tile of 45 points, the lock stands in a row, the group in a bar.
INSTANTIATE_TEST_SUITE_P(Bundle, Pictures,
                         ::testing::Values(Picture{"check", 45}, Picture{"locked", 24},
                                           Picture{"users_group", 28}),
                         nameOf);

TEST(PictureHeader, IsNotReadFromOtherFiles) {
  EXPECT_FALSE(headerOf(""));
  EXPECT_FALSE(headerOf(std::string(40, 'x')));
}

}  // namespace
}  // namespace zephyl
