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

std::string reasonFor(const std::string& file) {
  const PropertyListResult result = readPropertyList(file);
  return result.ok() ? "no error" : result.error().reason;
}

// Trailer fields, counted from the end of the file.
std::string withTrailer(std::size_t fromEnd, std::uint64_t value, std::size_t width) {
  std::string file = BinaryFile{{"\xA1\x01"s, "\x51x"s}}.bytes();
  return file.replace(file.size() - fromEnd, width, number(value, width));
}

TEST(PropertyListHostileTest, RefusesTrailersThatLie) {
  const std::string sizes = "the trailer gives no possible size of offsets and references";
  const std::string place = "the trailer gives no possible place of the offsets";
  const std::string count = "the trailer gives no possible number of objects";
  struct Case {
    std::size_t fromEnd;
    std::size_t width;
    std::uint64_t value;
    std::string reason;
  };
  for (const auto& [fromEnd, width, value, reason] : std::vector<Case>{
           {26, 1, 0, sizes},
           {26, 1, 9, sizes},
           {26, 1, 255, sizes},
           {26, 1, 2, count},
           {25, 1, 0, sizes},
           {25, 1, 9, sizes},
           {25, 1, 8, "an object reaches past the last one's end"},
           {24, 8, 0, count},
           {24, 8, 1, count},
           {24, 8, 3, count},
           {24, 8, 100'000'000, count},
           {24, 8, ~std::uint64_t{0}, count},
           {16, 8, 2, "the trailer names no root object"},
           {16, 8, ~std::uint64_t{0}, "the trailer names no root object"},
           {8, 8, 0, place},
           {8, 8, 8, place},
           {8, 8, 11, count},
           {8, 8, 14, place},
           {8, 8, 46, place},
           {8, 8, ~std::uint64_t{0} - 7, place},
       }) {
    EXPECT_EQ(reasonFor(withTrailer(fromEnd, value, width)), reason)
        << fromEnd << " from the end: " << value;
  }
}

TEST(PropertyListHostileTest, RefusesMoreObjectsThanOffsetsCanTellApart) {
  for (const std::size_t count : {200U, 257U}) {
    BinaryFile file{std::vector<std::string>(count, "\x09")};
    file.offsetSize = 2;
    EXPECT_EQ(reasonFor(file.bytes()), "no error");
    file.offsetSize = 1;
    EXPECT_EQ(reasonFor(file.bytes()),
              count == 200 ? "no error" : "the trailer gives no possible number of objects");
  }
}

TEST(PropertyListHostileTest, RefusesOffsetsOutsideTheObjects) {
  const std::string file = BinaryFile{{"\xA1\x01"s, "\x51x"s}}.bytes();
  for (const char offset : {'\0', '\x07', '\x0C', '\x0E', '\xFF'}) {
    std::string changed = file;
    changed[12] = offset;
    EXPECT_EQ(reasonFor(changed), "an object that stands outside the objects") << int{offset};
  }
}

TEST(PropertyListHostileTest, RefusesOtherVersionsAndFilesThatAreTooShort) {
  const std::string file = BinaryFile{{"\x09"s}}.bytes();
  ASSERT_TRUE(readPropertyList(file).ok());
  for (const char* magic : {"bplist01", "bplist15", "bplist\0\0", "bplistxx"}) {
    EXPECT_EQ(reasonFor(std::string(magic, 8) + file.substr(8)),
              "a binary property list of a version that is not known");
  }
  EXPECT_EQ(reasonFor("bplist00"), "the file is too short for a binary property list");
  EXPECT_EQ(reasonFor("bplist00" + std::string(32, '\0')),
            "the file is too short for a binary property list");
}

TEST(PropertyListHostileTest, RefusesABinaryFileThatIsCutOffAnywhere) {
  const Value value =
      Dictionary{{"key", Array{1, 2.5, "text \u00E4", true, Date{1}, Data{1, 2}, Uid{3}}},
                 {"other", Dictionary{{"a", "b"}}}};
  const Data whole = writeBinaryPropertyList(value);
  ASSERT_EQ(readPropertyList(whole).value(), value);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(readPropertyList(samples::view(whole).substr(0, size)).ok()) << size;
  }
}

TEST(PropertyListHostileTest, RefusesCircles) {
  const std::string circle = "an array or dictionary that contains itself";
  EXPECT_EQ(reasonFor(BinaryFile{{"\xA1\0"s}}.bytes()), circle);
  EXPECT_EQ(reasonFor(BinaryFile{{"\xA2\x01\0"s, "\x09"s}}.bytes()), circle);
  EXPECT_EQ(reasonFor(BinaryFile{{"\xA1\x01"s, "\xA1\x02"s, "\xA1\x01"s}}.bytes()), circle);
  EXPECT_EQ(reasonFor(BinaryFile{{"\xD1\0\x01"s, "\x09"s}}.bytes()), circle);
  EXPECT_EQ(reasonFor(BinaryFile{{"\xD1\x01\0"s, "\x51k"s}}.bytes()), circle);
  EXPECT_EQ(reasonFor(BinaryFile{{"\xAF\x10\xFF"s + std::string(255, '\0')}}.bytes()), circle);
}

TEST(PropertyListHostileTest, RefusesDictionaryKeysThatAreNoText) {
  for (const std::string& key : {"\x10\x01"s, "\x09"s, "\xA0"s, "\xD0"s, "\x41k"s}) {
    const std::string file = BinaryFile{{"\xD1\x01\x02"s, key, "\x09"s}}.bytes();
    EXPECT_EQ(reasonFor(file), "a dictionary key that is no string");
  }
}

// `depth` arrays, the outermost first, each holding the next `times`, the last one empty.
BinaryFile chain(std::size_t depth, std::size_t times) {
  BinaryFile file;
  file.referenceSize = 4;
  file.offsetSize = 4;
  for (std::size_t i = 1; i < depth; ++i) {
    std::string object = number(0xA0 + times, 1);
    for (std::size_t j = 0; j < times; ++j) {
      object += number(i, 4);
    }
    file.objects.push_back(object);
  }
  file.objects.push_back("\xA0");
  return file;
}

TEST(PropertyListHostileTest, RefusesObjectsThatGrowByNamingOneAnother) {
  EXPECT_EQ(reasonFor(chain(20, 2).bytes()), "no error");
  EXPECT_EQ(reasonFor(chain(65, 2).bytes()),
            "objects that name one another so often that they would fill the memory");
  EXPECT_EQ(reasonFor(chain(500, 14).bytes()),
            "objects that name one another so often that they would fill the memory");
}

TEST(PropertyListHostileTest, RefusesKeysThatGrowByBeingNamedOften) {
  BinaryFile file;
  file.referenceSize = 2;
  file.offsetSize = 4;
  constexpr std::size_t kDictionaries = 1000;
  file.objects.push_back("\xAF\x11"s + number(kDictionaries, 2));
  for (std::size_t i = 0; i < kDictionaries; ++i) {
    file.objects[0] += number(i + 1, 2);
  }
  for (std::size_t i = 0; i < kDictionaries; ++i) {
    file.objects.push_back("\xD1"s + number(kDictionaries + 1, 2) + number(kDictionaries + 2, 2));
  }
  file.objects.push_back("\x5F\x12"s + number(200'000, 4) + std::string(200'000, 'k'));
  file.objects.push_back("\x09");
  EXPECT_EQ(reasonFor(file.bytes()),
            "keys that are named so often that they would fill the memory");
}

TEST(PropertyListHostileTest, RefusesObjectsThatOverlap) {
  std::string file =
      BinaryFile{{"\xA3\x01\x02\x02"s, "\xA3\x03\x03\x03"s, "\x09"s, "\x08"s}}.bytes();
  ASSERT_TRUE(readPropertyList(file).ok());
  // Objects 2 and 3 are laid over object 1 and the root.
  file[file.size() - 32 - 2] = '\x0C';
  file[file.size() - 32 - 1] = '\x08';
  EXPECT_EQ(reasonFor(file), "objects that overlap");
}

TEST(PropertyListHostileTest, CountsContainersInsideOneAnotherOnEveryWay) {
  const std::string tooDeep = "more than 512 arrays and dictionaries inside one another";
  EXPECT_EQ(reasonFor(chain(512, 1).bytes()), "no error");
  EXPECT_EQ(reasonFor(chain(513, 1).bytes()), tooDeep);
  EXPECT_EQ(reasonFor(chain(100'000, 1).bytes()), tooDeep);
}

TEST(PropertyListHostileTest, CountsContainersOfASharedObjectWhereverItIsNamed) {
  // The root names the object 300 of the chain, and then the chain's first.
  for (const std::size_t depth : {511U, 512U}) {
    BinaryFile file = chain(depth, 1);
    file.objects.push_back("\xA2"s + number(300, 4) + number(0, 4));
    file.root = depth;
    EXPECT_EQ(readPropertyList(file.bytes()).ok(), depth == 511) << depth;
  }
}

TEST(PropertyListHostileTest, SurvivesBytesChangedAtRandom) {
  const bool holds = rc::check([] {
    const Value value = *samples::values();
    const bool isBinary = *rc::gen::arbitrary<bool>();
    std::string file = writeXmlPropertyList(value);
    if (isBinary) {
      const Data bytes = writeBinaryPropertyList(value);
      file = samples::view(bytes);
    }
    for (int changes = *rc::gen::inRange(1, 4); changes > 0; --changes) {
      file[*rc::gen::inRange<std::size_t>(0, file.size())] =
          static_cast<char>(*rc::gen::inRange(0, 256));
    }
    const PropertyListResult result = readPropertyList(file);
    if (result.ok()) {
      const Data again = writeBinaryPropertyList(result.value());
      RC_ASSERT(samples::same(readPropertyList(again).value(), result.value()));
    } else {
      RC_ASSERT(!result.error().reason.empty());
    }
  });
  EXPECT_TRUE(holds);
}

}  // namespace
}  // namespace zephyl
