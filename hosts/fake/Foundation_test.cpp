// The parts of the foundation that read through a device: bundles, property-list files, and the
// text form of values beside them.

#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/foundation/Description.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/NSBundle.h"
#include "platform/foundation/PropertyListFile.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/fake/Device.h"

namespace zephyl::fake {
namespace {

class FoundationTest : public ::testing::Test {
 protected:
  // Whether exactly one error was logged, with that start of its message.
  bool logged(const std::string& start) {
    const auto lines = device_.systemLog().lines();
    return lines.size() == 1 && lines[0].starts_with(kErrorPrefix) &&
           lines[0].find(kErrorPlaceEnd + start) != std::string::npos;
  }

  Device device_;
};

class BundleTest : public FoundationTest {
 protected:
  void put(const std::string& language, const std::string& text,
           const std::string& table = "Localizable") {
    device_.files().put("/B.bundle/" + language + ".lproj/" + table + ".strings", text);
  }
  static std::string text(const std::string& key,
                          const std::optional<std::string>& value = std::nullopt,
                          const std::optional<std::string>& table = std::nullopt) {
    return NSBundle::bundleWithPath("/B.bundle")->localizedStringForKey(key, value, table);
  }
};

TEST_F(BundleTest, ABundleIsAFolderThatIsThere) {
  EXPECT_EQ(NSBundle::bundleWithPath("/B.bundle"), nullptr);
  put("en", "");
  const auto bundle = NSBundle::bundleWithPath("/B.bundle");
  ASSERT_NE(bundle, nullptr);
  EXPECT_EQ(bundle->bundlePath(), "/B.bundle");
  EXPECT_TRUE(bundle->load());
}

TEST_F(BundleTest, AFileIsNoBundle) {
  device_.files().put("/B.bundle", "file");
  EXPECT_EQ(NSBundle::bundleWithPath("/B.bundle"), nullptr);
}

TEST_F(BundleTest, TheBestLanguageThatHasTheKeyGivesTheText) {
  put("en", "\"a\" = \"English a\"; \"b\" = \"English b\"; \"c\" = \"English c\";");
  put("de", "\"a\" = \"Deutsch a\"; \"b\" = \"Deutsch b\";");
  put("de-AT", "\"a\" = \"Servus a\";");
  device_.processInfo().setPreferredLanguages({"de-AT", "fr"});
  EXPECT_EQ(text("a"), "Servus a");
  EXPECT_EQ(text("b"), "Deutsch b");
  EXPECT_EQ(text("c"), "English c");
}

TEST_F(BundleTest, AKeyWithoutATextGivesTheValueOrElseItself) {
  put("en", "\"a\" = \"x\";");
  EXPECT_EQ(text("none"), "none");
  EXPECT_EQ(text("none", ""), "none");
  EXPECT_EQ(text("none", "given"), "given");
  EXPECT_EQ(text("a", "given"), "x");
}

TEST_F(BundleTest, EachTableHasItsOwnTexts) {
  put("en", "\"a\" = \"default\";");
  put("en", "\"a\" = \"other\";", "Other");
  EXPECT_EQ(text("a"), "default");
  EXPECT_EQ(text("a", std::nullopt, "Other"), "other");
}

TEST_F(BundleTest, ADamagedTableIsNamedInTheLogAndSkipped) {
  put("en", "\"a\" = \"x\";");
  put("de", "\"a\" = ");
  device_.processInfo().setPreferredLanguages({"de"});
  EXPECT_EQ(text("a"), "x");
  EXPECT_TRUE(logged("/B.bundle/de.lproj/Localizable.strings: line 1"));
}

using PropertyListFileTest = FoundationTest;

TEST_F(PropertyListFileTest, WhatIsWrittenIsReadAgain) {
  EXPECT_TRUE(writeToFile(Array{1, "x"}, "/a.plist"));
  EXPECT_EQ(arrayWithContentsOfFile("/a.plist"), (Array{1, "x"}));
  EXPECT_EQ(dictionaryWithContentsOfFile("/a.plist"), std::nullopt);
  EXPECT_TRUE(writeToFile(Dictionary{{"k", true}}, "/d.plist"));
  EXPECT_EQ(dictionaryWithContentsOfFile("/d.plist"), (Dictionary{{"k", true}}));
  EXPECT_EQ(arrayWithContentsOfFile("/d.plist"), std::nullopt);
}

TEST_F(PropertyListFileTest, AMissingFileIsNoReasonToLog) {
  EXPECT_EQ(arrayWithContentsOfFile("/none.plist"), std::nullopt);
  EXPECT_TRUE(device_.systemLog().lines().empty());
}

TEST_F(PropertyListFileTest, ADamagedFileIsNamedInTheLogWithThePlace) {
  device_.files().put("/bad.plist", "<plist>\n<array>\n<what/>");
  EXPECT_EQ(arrayWithContentsOfFile("/bad.plist"), std::nullopt);
  EXPECT_TRUE(logged("/bad.plist: line 3"));
}

TEST_F(PropertyListFileTest, TextThatXmlForbidsIsWrittenInBinaryForm) {
  EXPECT_TRUE(writeToFile(Array{"a\x01z"}, "/a.plist"));
  EXPECT_TRUE(device_.files().contentsAtPath("/a.plist")->starts_with("bplist00"));
  EXPECT_EQ(arrayWithContentsOfFile("/a.plist"), Array{"a\x01z"});
}

TEST_F(PropertyListFileTest, AFailedWriteSaysNo) {
  device_.files().failWriting("/a.plist");
  EXPECT_FALSE(writeToFile(Array{}, "/a.plist"));
}

// A value that the form cannot hold leaves the file as it was.
TEST_F(PropertyListFileTest, WhatCannotBeWrittenLeavesTheFileAlone) {
  device_.files().put("/a.plist", "before");
  EXPECT_FALSE(writeToFile(Array{Value()}, "/a.plist"));
  EXPECT_EQ(device_.files().contentsAtPath("/a.plist"), "before");
  EXPECT_FALSE(device_.systemLog().lines().empty());
}

struct Described {
  Value value;
  const char* text;
};

TEST(DescriptionTest, EachTypeHasItsForm) {
  for (const Described& one : {Described{"word", "word"},
                               {"two words", "\"two words\""},
                               {"a\"b\\c\n", "\"a\\\"b\\\\c\\n\""},
                               {"", "\"\""},
                               {true, "1"},
                               {-7, "-7"},
                               {1.5, "\"1.5\""},
                               {Data{0, 255}, "<00ff>"},
                               {Date{0}, "\"2001-01-01 00:00:00 +0000\""},
                               {Date::since1970(-1), "\"1969-12-31 23:59:59 +0000\""},
                               {Date{1e15}, "1000000978307200"},
                               {Value(), "(null)"}}) {
    EXPECT_EQ(description(one.value), one.text);
  }
}

TEST(DescriptionTest, ContainersAreIndentedAndKeysSorted) {
  EXPECT_EQ(description(Dictionary{{"b", Array{1, Array{}}}, {"a", Dictionary{}}}),
            "{\n    a =     {\n    };\n    b =     (\n        1,\n        (\n        )\n    );\n}");
}

}  // namespace
}  // namespace zephyl::fake
