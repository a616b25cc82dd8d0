#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

using samples::nestedArrays;
using samples::number;
using samples::xmlFile;
using std::string_literals::operator""s;

TEST(PropertyListWritingTest, WritesXmlAsThePhoneDoes) {
  const Value value = Array{Dictionary{{"title", "A & B <c> \r"}, {"contacts", Array{}}},
                            Value::ofUnsigned(~std::uint64_t{0}),
                            -1,
                            1.5,
                            true,
                            Date{-0.5},
                            Date{86400},
                            Data{1, 2},
                            Uid{3}};
  EXPECT_EQ(writeXmlPropertyList(value),
            xmlFile("<array>\n"
                    "\t<dict>\n"
                    "\t\t<key>title</key>\n"
                    "\t\t<string>A &amp; B &lt;c&gt; &#13;</string>\n"
                    "\t\t<key>contacts</key>\n"
                    "\t\t<array/>\n"
                    "\t</dict>\n"
                    "\t<integer>18446744073709551615</integer>\n"
                    "\t<integer>-1</integer>\n"
                    "\t<real>1.5</real>\n"
                    "\t<true/>\n"
                    "\t<date fraction=\"-0.5\">2001-01-01T00:00:00Z</date>\n"
                    "\t<date>2001-01-02T00:00:00Z</date>\n"
                    "\t<data>\n"
                    "\tAQI=\n"
                    "\t</data>\n"
                    "\t<dict>\n"
                    "\t\t<key>CF$UID</key>\n"
                    "\t\t<integer>3</integer>\n"
                    "\t</dict>\n"
                    "</array>"));
}

TEST(PropertyListWritingTest, BreaksDataIntoLines) {
  const std::string xml = writeXmlPropertyList(Array{Data(60, 0)});
  EXPECT_NE(xml.find("\n\t" + std::string(68, 'A') + "\n\t" + std::string(12, 'A') + "\n\t</data>"),
            std::string::npos)
      << xml;
}

TEST(PropertyListWritingTest, StopsIndentingSoThatDepthDoesNotMultiplySize) {
  EXPECT_LT(writeXmlPropertyList(nestedArrays(512)).size(), 512 * (2 * 16 + 20));
}

TEST(PropertyListWritingTest, WritesEqualScalarsAndSharedContainersOnce) {
  const Value shared = Array{"text", 1};
  EXPECT_EQ(samples::view(writeBinaryPropertyList(Array{shared, shared, "text", 1, 1.0, true})),
            "bplist00\xA6\x01\x01\x02\x03\x04\x05\xA2\x02\x03\x54text\x10\x01\x23"s +
                number(0x3FF0000000000000, 8) + "\x09\x08\x0F\x12\x17\x19\x22" + number(0, 6) +
                "\x01\x01" + number(6, 8) + number(0, 8) + number(0x23, 8));
}

TEST(PropertyListWritingTest, WritesWhatIsSharedManyTimesInLittleSpace) {
  Value value = "leaf";
  for (int i = 0; i < 16; ++i) {
    value = Array{value, value};
  }
  const Data bytes = writeBinaryPropertyList(value);
  EXPECT_LT(bytes.size(), 200u);
  const Data again = writeBinaryPropertyList(readPropertyList(bytes).value());
  EXPECT_EQ(again, bytes);
}

TEST(PropertyListWritingTest, CountsReferencesAndOffsetsInAsManyBytesAsTheyNeed) {
  for (const int count : {255, 256, 257, 65535, 65536, 70000}) {
    Array elements;
    for (int i = 0; i < count; ++i) {
      elements.emplace_back(i);
    }
    const Value value = elements;
    const Data bytes = writeBinaryPropertyList(value);
    EXPECT_EQ(readPropertyList(bytes).value(), value) << count;
  }
}

TEST(PropertyListWritingTest, SaysWhyAFormCannotHoldAValueAndWhere) {
  struct Case {
    Value value;
    std::string xml;  // empty when the form can
    std::string binary;
  };
  const std::string null = "a property list holds no null";
  const std::string notUtf8 = "text that is not UTF-8";
  const std::string forbidden = "text with a character that XML forbids";
  const std::string date = "a date outside the years 0 to 9999";
  Value deepUid = Uid{1};
  for (int i = 0; i < 512; ++i) {
    deepUid = Array{deepUid};
  }
  const std::string nullAtOne = null + ", at [1]";
  const std::string way = "[0][0][0][0][0][0][0][0][0][0][0][0][0][0][0][0]...";
  const std::string tooDeepThere =
      "more than 512 arrays and dictionaries inside one another, at " + way;
  for (const auto& [value, xml, binary] : std::vector<Case>{
           {Value(), null, null},
           {Array{1, Value()}, nullAtOne, nullAtOne},
           {Array{1, Dictionary{{"a", 1}, {"b", Dictionary{{"c", Array{Value()}}}}}},
            null + ", at [1].b.c[0]", null + ", at [1].b.c[0]"},
           {"\xFF", notUtf8, notUtf8},
           {Dictionary{{"\xED\xA0\x80", 1}}, notUtf8 + ", at ?", notUtf8 + ", at ?"},
           {Dictionary{{"a", "\x01"}}, forbidden + ", at a", ""},
           {"\0"s, forbidden, ""},
           {"\xEF\xBF\xBE", forbidden, ""},
           {"\t\n\r", "", ""},
           {Date{252423993600.0}, date, date},
           {Date{-63145526400.5}, date, date},
           {Date{std::numeric_limits<double>::quiet_NaN()}, date, date},
           {Date{252423993599.5}, "", ""},
           {nestedArrays(512), "", ""},
           {nestedArrays(513), tooDeepThere, tooDeepThere},
           {deepUid, tooDeepThere, ""},
       }) {
    EXPECT_EQ(whyNotXmlPropertyList(value).value_or(""), xml);
    EXPECT_EQ(whyNotBinaryPropertyList(value).value_or(""), binary);
    EXPECT_EQ(writeXmlPropertyList(value).empty(), !xml.empty());
    EXPECT_EQ(writeBinaryPropertyList(value).empty(), !binary.empty());
  }
}

TEST(PropertyListWritingTest, BinaryHoldsTheCharactersThatXmlForbids) {
  const Value value = Array{"\0\x01\x1F"s, "\xEF\xBF\xBF"};
  EXPECT_EQ(readPropertyList(writeBinaryPropertyList(value)).value(), value);
}

TEST(PropertyListWritingTest, WhatIsReadAndWrittenAgainIsTheSameInBothForms) {
  const bool holds = rc::check([] {
    const Value value = *samples::values();
    const std::string xml = writeXmlPropertyList(value);
    const Data binary = writeBinaryPropertyList(value);
    const PropertyListResult fromXml = readPropertyList(xml);
    const PropertyListResult fromBinary = readPropertyList(binary);
    RC_ASSERT(fromXml.ok());
    RC_ASSERT(fromBinary.ok());
    RC_ASSERT(samples::same(fromXml.value(), value));
    RC_ASSERT(samples::same(fromBinary.value(), value));
    RC_ASSERT(writeXmlPropertyList(fromXml.value()) == xml);
    RC_ASSERT(writeXmlPropertyList(fromBinary.value()) == xml);
    RC_ASSERT(writeBinaryPropertyList(fromBinary.value()) == binary);
    RC_ASSERT(writeBinaryPropertyList(fromXml.value()) == binary);
  });
  EXPECT_TRUE(holds);
}

}  // namespace
}  // namespace zephyl
