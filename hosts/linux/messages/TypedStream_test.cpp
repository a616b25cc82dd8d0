#include "hosts/linux/messages/TypedStream.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using std::string_literals::operator""s;

std::optional<std::string> textOf(const std::string& archive) {
  const auto text = TypedStream::text(std::as_bytes(std::span(archive)));
  return text ? std::optional(std::string(*text)) : std::nullopt;
}

const std::string kHeader = "\x04\x0bstreamtyped\x81\xe8\x03\x84\x01@"s;
const std::string kString = "\x84\x84\x84\x08NSString\x01\x84\x84\x08NSObject\x00\x85\x84\x01+"s;

TEST(TypedStreamTest, ReadsTextsOfAnyLength) {
  for (const std::size_t length : {0U, 1U, 127U, 128U, 255U, 256U, 65535U}) {
    const std::string text(length, 'x');
    EXPECT_EQ(textOf(archivedText(text)), text) << length;
  }
  EXPECT_EQ(textOf(kHeader + kString + "\x82\x01\x00\x01\x00"s + std::string(65537, 'y')),
            std::string(65537, 'y'));
}

TEST(TypedStreamTest, ReadsAPlainStringAndClassesDerivedFromIt) {
  EXPECT_EQ(textOf(kHeader + kString + "\x02Hi"), "Hi");
  EXPECT_EQ(textOf(kHeader + "\x84\x84\x84\x0fNSMutableString\x01\x84\x84\x08NSString\x01"s +
                   "\x84\x84\x08NSObject\x00\x85\x84\x01+\x02Hi"s),
            "Hi");
}

TEST(TypedStreamTest, ReadsAMutableAttributedString) {
  EXPECT_EQ(
      textOf(
          kHeader + "\x84\x84\x84\x19NSMutableAttributedString\x00"s +
          "\x84\x84\x12NSAttributedString\x00\x84\x84\x08NSObject\x00\x85\x92"s +
          "\x84\x84\x84\x0fNSMutableString\x01\x84\x84\x08NSString\x01\x95\x84\x01+\x05Hello\x86"s),
      "Hello");
}

TEST(TypedStreamTest, KnowsNoTextInAnythingElse) {
  const std::string cases[] = {
      "",
      "streamtyped",
      "bplist00\xd4"s,
      "bplist..NSString+"s,
      kHeader,
      kHeader + "\x85",
      kHeader + "\x92",
      // Another class, another type of body, another version, another signature.
      kHeader + "\x84\x84\x84\x08NSNumber\x00\x84\x84\x08NSObject\x00\x85\x84\x01+\x02Hi"s,
      kHeader + "\x84\x84\x84\x08NSString\x01\x85\x84\x01i\x02Hi"s,
      "\x03"s + archivedText("Hi").substr(1),
      "\x04\x0bstreamtypee"s + archivedText("Hi").substr(13),
      // More text promised than there is; a negative length.
      kHeader + kString + "\x03Hi",
      kHeader + kString + "\x82\xff\xff\xff\xffHi",
      kHeader + kString + "\xf0Hi",
      // References to nothing, to an object in a class's place, to the class itself.
      kHeader + "\x84\x84\x84\x08NSString\x01\xa0\x84\x01+\x02Hi"s,
      kHeader + "\x84\x84\x84\x08NSString\x01\x92\x84\x01+\x02Hi"s,
      kHeader + "\x84\x84\x84\x08NSString\x01\x93\x84\x01+\x02Hi"s,
      kHeader + "\x84\x84\x84\x08NSString\x01\x85\x9f\x02Hi"s,
  };
  for (const std::string& archive : cases) {
    EXPECT_EQ(textOf(archive), std::nullopt) << ::testing::PrintToString(archive);
  }
}

TEST(TypedStreamTest, GivesUpOnEndlessClasses) {
  std::string archive = kHeader + "\x84";
  for (int depth = 0; depth < 100'000; ++depth) {
    archive +=
        "\x84\x84\x01"
        "A"
        "\x00"s;
  }
  EXPECT_EQ(textOf(archive), std::nullopt);
}

// The text must be whole or unknown, never a part of it.
TEST(TypedStreamTest, KnowsNoTextInAnArchiveThatWasCutBeforeItsEnd) {
  const std::string archive = archivedText("The text itself");
  const std::size_t end = archive.find("itself") + 6;
  for (std::size_t size = 0; size < archive.size(); ++size) {
    const auto expected = size < end ? std::nullopt : std::optional("The text itself"s);
    EXPECT_EQ(textOf(archive.substr(0, size)), expected) << size;
  }
}

TEST(TypedStreamTest, SurvivesEveryByteInEveryPlace) {
  const std::string archive = archivedText("Hello");
  std::size_t known = 0;
  for (std::size_t at = 0; at < archive.size(); ++at) {
    for (int value = 0; value < 256; ++value) {
      std::string changed = archive;
      changed[at] = static_cast<char>(value);
      const auto text = textOf(changed);
      known += text ? 1 : 0;
      EXPECT_LE(text ? text->size() : 0, archive.size());
    }
  }
  EXPECT_GT(known, 0U);
}

}  // namespace
}  // namespace zephyl::linux_host
