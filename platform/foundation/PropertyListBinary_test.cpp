#include <bit>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

using samples::BinaryFile;
using samples::number;
using std::string_literals::operator""s;

std::string realBytes(double value) {
  return number(std::bit_cast<std::uint64_t>(value), 8);
}

TEST(PropertyListBinaryTest, ReadsEveryTypeOfObject) {
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  const std::vector<std::pair<std::string, Value>> cases = {
      {"\x08"s, false},
      {"\x09"s, true},
      {"\x10\xFF"s, 255},
      {"\x11\x80\0"s, 0x8000},
      {"\x12\xFF\xFF\xFF\xFF"s, std::int64_t{0xFFFFFFFF}},
      {"\x13"s + number(~std::uint64_t{0}, 8), -1},
      {"\x13\x80"s + number(0, 7), kLeast},
      {"\x14"s + number(1, 16), 1},
      {"\x14"s + number(0, 8) + number(~std::uint64_t{0}, 8), Value::ofUnsigned(~std::uint64_t{0})},
      {"\x14"s + std::string(16, '\xFF'), -1},
      {"\x22"s + number(std::bit_cast<std::uint32_t>(0.5F), 4), 0.5},
      {"\x23"s + realBytes(-0.1), -0.1},
      {"\x33"s + realBytes(1.5), Date{1.5}},
      {"\x40"s, Data{}},
      {"\x43\x01\0\xFF"s, Data{1, 0, 255}},
      {"\x4F\x10\x0F"s + std::string(15, 'a'), Data(15, 'a')},
      {"\x52hi"s, "hi"},
      {"\x5F\x13"s + number(2, 8) + "hi", "hi"},
      {"\x63\0a\xD8\x3D\xDE\0"s, "a\U0001F600"},
      {"\x80\x07"s, Uid{7}},
      {"\x87"s + std::string(8, '\xFF'), Uid{~std::uint64_t{0}}},
      {"\xA0"s, Array{}},
      {"\xD0"s, Dictionary{}},
  };
  for (const auto& [object, value] : cases) {
    const PropertyListResult result = readPropertyList(BinaryFile{{object}}.bytes());
    ASSERT_TRUE(result.ok()) << result.error().reason << testing::PrintToString(object);
    EXPECT_EQ(result.value(), value) << testing::PrintToString(object);
  }
}

TEST(PropertyListBinaryTest, FollowsReferencesOfEverySize) {
  for (std::size_t size = 1; size <= 8; ++size) {
    BinaryFile file{{"\xD1"s + number(1, size) + number(2, size), "\x51k"s,
                     "\xA2"s + number(1, size) + number(1, size)}};
    file.referenceSize = size;
    file.offsetSize = size;
    const PropertyListResult result = readPropertyList(file.bytes());
    ASSERT_TRUE(result.ok()) << result.error().reason;
    EXPECT_EQ(result.value(), Value(Dictionary{{"k", Array{"k", "k"}}}));
  }
}

TEST(PropertyListBinaryTest, StartsAtTheRootThatTheTrailerNames) {
  BinaryFile file{{"\x51x"s, "\xA1\0"s}};
  file.root = 1;
  EXPECT_EQ(readPropertyList(file.bytes()).value(), Value(Array{"x"}));
}

TEST(PropertyListBinaryTest, TheLastValueOfAKeyGivenTwiceStaysAtThePlaceOfTheFirst) {
  const BinaryFile file{{"\xD3\x01\x02\x01\x03\x03\x04"s,
                         "\x51"s
                         "a",
                         "\x51"s
                         "b",
                         "\x10\x01"s, "\x10\x02"s}};
  EXPECT_EQ(readPropertyList(file.bytes()).value(), Value(Dictionary{{"a", 2}, {"b", 1}}));
}

TEST(PropertyListBinaryTest, ADictionaryWithNothingButAReferenceKeyIsAReference) {
  const BinaryFile file{{"\xD1\x01\x02"s,
                         "\x56"s
                         "CF$UID",
                         "\x10\x05"s}};
  EXPECT_EQ(readPropertyList(file.bytes()).value(), Value(Uid{5}));
}

struct BadObject {
  std::string object;
  std::string reason;
};

TEST(PropertyListBinaryTest, NamesObjectsThatAreNone) {
  const std::string runsOut = "an object reaches past the last one's end";
  const std::string noSize = "a size that is no integer";
  const std::string unknown = "an object of a type that is not known";
  const std::vector<BadObject> cases = {
      {"\x00"s, "a null, which no property list holds"},
      {"\x01"s, unknown},
      {"\x0F"s, unknown},
      {"\x70"s, unknown},
      {"\x90"s, unknown},
      {"\xB0"s, unknown},
      {"\xE0"s, unknown},
      {"\xF0"s, unknown},
      {"\xC0"s, "a set, which no property list holds"},
      {"\x10"s, runsOut},
      {"\x13\x01"s, runsOut},
      {"\x14"s + number(1, 15), runsOut},
      {"\x14"s + number(1, 8) + number(0, 8), "an integer that is too large"},
      {"\x14"s + std::string(8, '\xFF') + number(0, 8), "an integer that is too large"},
      {"\x15"s + number(0, 32), "an integer of more than 16 bytes"},
      {"\x1F"s, "an integer of more than 16 bytes"},
      {"\x21\0\0"s, "a real of neither 4 nor 8 bytes"},
      {"\x23\0"s, runsOut},
      {"\x32\0\0\0\0"s, "a date of other than 8 bytes"},
      {"\x33\0"s, runsOut},
      {"\x33"s + realBytes(std::numeric_limits<double>::quiet_NaN()),
       "a date outside the years 0 to 9999"},
      {"\x33"s + realBytes(std::numeric_limits<double>::infinity()),
       "a date outside the years 0 to 9999"},
      {"\x33"s + realBytes(252423993600.0), "a date outside the years 0 to 9999"},
      {"\x33"s + realBytes(-63145526401.0), "a date outside the years 0 to 9999"},
      {"\x42x"s, runsOut},
      {"\x52x"s, runsOut},
      {"\x51\x80"s, "text that is not ASCII though it says so"},
      {"\x61x"s, runsOut},
      {"\x61\xD8\x3D"s, "text that is not UTF-16"},
      {"\x62\xD8\x3D\0a"s, "text that is not UTF-16"},
      {"\x61\xDE\0"s, "text that is not UTF-16"},
      {"\x88"s + number(1, 9), "a reference of more than 8 bytes"},
      {"\x81\x01"s, runsOut},
      {"\xA1"s, runsOut},
      {"\xA1\x01"s, "a reference to no object"},
      {"\xD1\x01"s, runsOut},
      {"\x4F"s, noSize},
      {"\x4F\x08"s, noSize},
      {"\x4F\x14"s + number(0, 16), noSize},
      {"\x4F\x13\0"s, noSize},
  };
  for (const auto& [object, reason] : cases) {
    const PropertyListResult result = readPropertyList(BinaryFile{{object}}.bytes());
    ASSERT_FALSE(result.ok()) << testing::PrintToString(object);
    EXPECT_EQ(result.error().reason, reason) << testing::PrintToString(object);
    EXPECT_EQ(result.error().offset, 8u) << testing::PrintToString(object);
    EXPECT_EQ(result.error().line, 0u);
  }
}

TEST(PropertyListBinaryTest, TakesNoMemoryForSizesThatAreOnlyClaimed) {
  for (const unsigned kind : {0x4U, 0x5U, 0x6U, 0xAU, 0xDU}) {
    for (const std::uint64_t size :
         {std::uint64_t{1} << 32U, std::uint64_t{1} << 61U, std::uint64_t{1} << 63U,
          (std::uint64_t{1} << 63U) - 1, ~std::uint64_t{0}}) {
      const std::string object = number((kind << 4U) | 0xFU, 1) + "\x13" + number(size, 8);
      const PropertyListResult result = readPropertyList(BinaryFile{{object}}.bytes());
      ASSERT_FALSE(result.ok()) << kind << " " << size;
      EXPECT_EQ(result.error().message("f"),
                "f: byte 8: an object reaches past the last one's end");
    }
  }
}

}  // namespace
}  // namespace zephyl
