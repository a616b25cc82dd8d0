#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListSamples.h"

namespace zephyl {
namespace {

using samples::xmlFile;
using std::string_literals::operator""s;

// Null when it cannot be read, which no property list holds.
Value readValue(const std::string& xml) {
  const PropertyListResult result = readPropertyList(xmlFile(xml));
  EXPECT_TRUE(result.ok()) << xml << ": " << result.error().message("file");
  return result.ok() ? result.value() : Value();
}

std::string errorOf(const std::string& file) {
  const PropertyListResult result = readPropertyList(file);
  return result.ok() ? "no error" : result.error().message("f");
}

TEST(PropertyListXmlTest, KeepsTheTypesApart) {
  const std::vector<std::pair<std::string, Value>> cases = {
      {"<true/>", true},
      {"<false></false>", false},
      {"<integer>1</integer>", 1},
      {"<real>1</real>", 1.0},
      {"<string>1</string>", "1"},
      {"<string/>", ""},
      {"<date>2001-01-01T00:00:01Z</date>", Date{1}},
      {"<data>\n\tAQ ID\n\t</data>", Data{1, 2, 3}},
      {"<data>AQ==</data>", Data{1}},
      {"<data/>", Data{}},
      {"<array/>", Array{}},
      {"<dict></dict>", Dictionary{}},
      {"<array><true/><!-- no value --><integer>2</integer></array>", Array{true, 2}},
      {"<dict><key>b</key><true/><key>a</key><dict/></dict>",
       Dictionary{{"b", true}, {"a", Dictionary{}}}},
      {"<dict><key/><integer>1</integer></dict>", Dictionary{{"", 1}}},
      {"<dict><key>CF$UID</key><integer>7</integer></dict>", Uid{7}},
      {"<dict><key>CF$UID</key><integer>-7</integer></dict>", Dictionary{{"CF$UID", -7}}},
      {"<dict><key>CF$UID</key><string>7</string></dict>", Dictionary{{"CF$UID", "7"}}},
  };
  for (const auto& [xml, value] : cases) {
    EXPECT_EQ(readValue(xml), value) << xml;
  }
}

TEST(PropertyListXmlTest, ReadsEveryIntegerOf64Bits) {
  constexpr auto kLeast = std::numeric_limits<std::int64_t>::min();
  const std::vector<std::pair<std::string, Value>> cases = {
      {"-9223372036854775808", kLeast},
      {"9223372036854775808", Value::ofUnsigned(std::uint64_t{1} << 63U)},
      {"18446744073709551615", Value::ofUnsigned(~std::uint64_t{0})},
      {"0xFFffFFffFFffFFff", Value::ofUnsigned(~std::uint64_t{0})},
      {" -0x10\n", -16},
      {"+5", 5},
      {"-0", 0},
      {"007", 7},
  };
  for (const auto& [text, value] : cases) {
    EXPECT_EQ(readValue("<integer>" + text + "</integer>"), value) << text;
  }
}

TEST(PropertyListXmlTest, ReadsRealsWithNanAndInfinity) {
  const double infinity = std::numeric_limits<double>::infinity();
  const std::vector<std::pair<std::string, double>> cases = {
      {"1.5", 1.5}, {"-1e-3", -0.001}, {" +.5 ", 0.5},           {"inf", infinity},
      {"5.", 5.0},  {"-0", -0.0},      {"-Infinity", -infinity}, {"1e22", 1e22}};
  for (const auto& [text, real] : cases) {
    const Value value = readValue("<real>" + text + "</real>");
    ASSERT_NE(value.ifReal(), nullptr) << text;
    EXPECT_EQ(*value.ifReal(), real) << text;
    EXPECT_EQ(std::signbit(*value.ifReal()), std::signbit(real)) << text;
  }
  EXPECT_TRUE(std::isnan(readValue("<real>NaN</real>").doubleValue()));
}

TEST(PropertyListXmlTest, ReadsDatesWithTheirFraction) {
  const std::vector<std::pair<std::string, double>> cases = {
      {"<date>1970-01-01T00:00:00Z</date>", -978307200},
      {"<date> 2020-02-29T23:59:59Z </date>", 604713599},
      {"<date>0000-01-01T00:00:00Z</date>", -63145526400},
      {"<date>9999-12-31T23:59:59Z</date>", 252423993599},
      {"<date>2001-01-01T00:00:01.5Z</date>", 1.5},
      {"<date fraction=\"0.25\">2001-01-01T00:00:00Z</date>", 0.25},
      {"<date fraction = '-0.25'>2000-12-31T23:59:59Z</date>", -1.25},
  };
  for (const auto& [xml, seconds] : cases) {
    EXPECT_EQ(readValue(xml), Value(Date{seconds})) << xml;
  }
}

TEST(PropertyListXmlTest, ReadsTextWithReferencesSectionsAndComments) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a &lt;b&gt; &amp; &quot;c&quot; &apos;", "a <b> & \"c\" '"},
      {"&#65;&#x1F600;&#xe4;&#13;", "A\U0001F600\u00E4\r"},
      {"<![CDATA[<&amp;>]]>!", "<&amp;>!"},
      {"a<!-- not this -->b<?nor this?>c", "abc"},
      {"one\r\ntwo\rthree<![CDATA[\r\n\r]]>", "one\ntwo\nthree\n\n"},
      {"  kept \t\n ", "  kept \t\n "},
      {"\xC3\xA4\xF0\x9F\x98\x80", "\u00E4\U0001F600"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(readValue("<string>" + text + "</string>"), Value(expected)) << text;
    EXPECT_EQ(readValue("<dict><key>" + text + "</key><true/></dict>"),
              Value(Dictionary{{expected, true}}))
        << text;
  }
}

TEST(PropertyListXmlTest, TheLastValueOfAKeyGivenTwiceStaysAtThePlaceOfTheFirst) {
  EXPECT_EQ(readValue("<dict><key>a</key><integer>1</integer><key>b</key><true/>"
                      "<key>a</key><integer>2</integer></dict>"),
            Value(Dictionary{{"a", 2}, {"b", true}}));
}

TEST(PropertyListXmlTest, NeedsNeitherPrologNorPlistElement) {
  for (const std::string& file :
       {"<string>x</string>"s, " \n<plist><string>x</string></plist><!-- end -->\n"s,
        "\xEF\xBB\xBF<?xml version='1.0' encoding='utf-8'?><plist><string>x</string></plist>"s,
        "<?xml version='1.0' encoding = 'US-ASCII' ?><!-- c --><string >x</string\n>"s,
        "<!DOCTYPE plist SYSTEM \"a>b\"><plist version='1>0'><string>x</string></plist>"s}) {
    const PropertyListResult result = readPropertyList(file);
    ASSERT_TRUE(result.ok()) << file << result.error().reason;
    EXPECT_EQ(result.value(), Value("x")) << file;
  }
}

TEST(PropertyListXmlTest, ReadsUtf16WithAByteOrderMark) {
  const std::u16string text =
      u"\uFEFF<?xml version='1.0' encoding='UTF-16'?><string>\u00E4\U0001F600</string>";
  for (const bool bigEndian : {true, false}) {
    std::string file;
    for (const char16_t unit : text) {
      const char high = static_cast<char>(unit >> 8U);
      const char low = static_cast<char>(unit & 0xFFU);
      file += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    const PropertyListResult result = readPropertyList(file);
    ASSERT_TRUE(result.ok()) << result.error().reason;
    EXPECT_EQ(result.value(), Value("\u00E4\U0001F600"));
    EXPECT_EQ(errorOf(file + "x"), "f: line 1: text that is not UTF-16");
  }
}

TEST(PropertyListXmlTest, ReadsUpTo512ContainersAndRefusesMore) {
  const auto nested = [](std::size_t depth) {
    std::string xml;
    for (std::size_t i = 0; i < depth; ++i) {
      xml += i % 2 == 0 ? "<array>" : "<dict><key>k</key>";
    }
    for (std::size_t i = depth; i > 0; --i) {
      xml += i % 2 == 1 ? "</array>" : "</dict>";
    }
    return xmlFile(xml);
  };
  EXPECT_TRUE(readPropertyList(nested(511)).ok());
  EXPECT_EQ(errorOf(xmlFile("<array>" + std::string(200, ' ') + "<array/></array>")), "no error");
  for (const std::size_t depth : {513U, 100'000U}) {
    EXPECT_EQ(errorOf(nested(depth)),
              "f: line 4: more than 512 arrays and dictionaries inside one another");
  }
}

}  // namespace
}  // namespace zephyl
