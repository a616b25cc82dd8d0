#include "platform/foundation/StringTable.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

using std::string_literals::operator""s;

Dictionary tableOf(const std::string& bytes) {
  const StringTableResult result = readStringTable(bytes);
  EXPECT_TRUE(result.ok()) << bytes << ": " << result.error().message("file");
  return result.ok() ? result.table() : Dictionary();
}

std::string utf16(const std::u16string& text, bool bigEndian) {
  std::string bytes;
  for (const char16_t unit : u"\uFEFF" + text) {
    const char high = static_cast<char>(unit >> 8U);
    const char low = static_cast<char>(unit & 0xFFU);
    bytes += bigEndian ? std::string{high, low} : std::string{low, high};
  }
  return bytes;
}

TEST(StringTableTest, ReadsKeysAndTexts) {
  EXPECT_EQ(tableOf("/* Title */\n\"GROUPS\" = \"Groups\";\n\n"
                    "// of the button\n\"DONE\"=\"Done\"; BARE.KEY-1_$/x = word;\"same\";other;"),
            (Dictionary{{"GROUPS", "Groups"},
                        {"DONE", "Done"},
                        {"BARE.KEY-1_$/x", "word"},
                        {"same", "same"},
                        {"other", "other"}}));
}

TEST(StringTableTest, ReadsCommentsWhereverSpaceMayStand) {
  EXPECT_EQ(tableOf("/**/key/* = */=//\r\n\"//not one /* nor this */\"// ;\n;/* ; */ // end"),
            (Dictionary{{"key", "//not one /* nor this */"}}));
}

TEST(StringTableTest, ATableMayBeEmpty) {
  for (const std::string& bytes : {""s, " \n\t"s, "/* nothing */"s, "\xEF\xBB\xBF"s}) {
    EXPECT_TRUE(tableOf(bytes).empty());
  }
}

TEST(StringTableTest, ReadsEscapes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {R"(a\nb\t\r\f\v\a\b)", "a\nb\t\r\f\v\a\b"},
      {R"(\"\\\'\/\%)", "\"\\'/%"},
      {R"(\U00e4\u00E4\Ue4x)", "\u00E4\u00E4\u00E4x"},
      {R"(\UD83D\UDE00!)", "\U0001F600!"},
      {R"(\ud83d\uDE00)", "\U0001F600"},
      {R"(\101\12\0\3444)", "A\n\0\u00E4"s + "4"},
      {"\\\n", "\n"},
      {"\\\u00E4", "\u00E4"},
      {"%1$@ \u2019 \U0001F600\n", "%1$@ \u2019 \U0001F600\n"},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(tableOf("k = \"" + text + "\";"), (Dictionary{{"k", expected}})) << text;
  }
}

TEST(StringTableTest, TheLastTextOfAKeyGivenTwiceStays) {
  EXPECT_EQ(tableOf("a = 1; b = 2; a = 3;"), (Dictionary{{"a", "3"}, {"b", "2"}}));
}

TEST(StringTableTest, ReadsUtf16WithAByteOrderMark) {
  for (const bool bigEndian : {true, false}) {
    EXPECT_EQ(tableOf(utf16(u"\"k\" = \"\u00E4\U0001F600\";", bigEndian)),
              (Dictionary{{"k", "\u00E4\U0001F600"}}));
  }
}

TEST(StringTableTest, ReadsCompiledTables) {
  const Dictionary table{{"GROUPS", "Gruppen"}, {"\u00E4", "\u00F6"}};
  const Data binary = writeBinaryPropertyList(table);
  EXPECT_EQ(tableOf(writeXmlPropertyList(table)), table);
  EXPECT_EQ(tableOf(std::string(binary.begin(), binary.end())), table);
}

TEST(StringTableTest, NamesLineAndReasonOfAnError) {
  const Data array = writeBinaryPropertyList(Array{1});
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a = b;\n= c;", "line 2: a key is expected"},
      {"{ a = b; }", "line 1: a key is expected"},
      {"'a' = b;", "line 1: a key is expected"},
      {"a =\n;", "line 2: a text is expected behind \"=\""},
      {"a =", "line 1: a text is expected behind \"=\""},
      {"a = b", "line 1: \";\" is expected behind a text"},
      {"a = b\n\nc = d;", "line 3: \";\" is expected behind a text"},
      {"a b;", "line 1: \";\" is expected behind a text"},
      {"\n\"a", "line 2: the file ends inside a quoted text"},
      {"\n\"a\\", "line 2: the file ends inside a quoted text"},
      {"\n/* a", "line 2: the file ends inside a comment"},
      {"a /* = b;", "line 1: the file ends inside a comment"},
      {"a = \"\n\\q\";", "line 2: an escape that is not known"},
      {"a = \"\\9\";", "line 1: an escape that is not known"},
      {"a = \"\\U\";", "line 1: an escape without a hexadecimal number"},
      {"a = \"\\UD83D\\Ux\";", "line 1: an escape without a hexadecimal number"},
      {"a = \"\\UD83D\";", "line 1: an escape that is half a character"},
      {"a = \"\\UDE00\\UD83D\";", "line 1: an escape that is half a character"},
      {"a = \"\\UD83D\\U0041\";", "line 1: an escape that is half a character"},
      {"a = \"b\";\nc = \"\xFF\";", "line 2: text that is not UTF-8"},
      {utf16(u"a = b;\n", true) + "x", "line 2: text that is not UTF-16"},
      {"<plist>\n<array/></plist>", "byte 0: the root of the table is no dictionary"},
      {"<dict>\n<key>a</key></dict>", "line 2: a <key> without a value"},
      {std::string(array.begin(), array.end()), "byte 0: the root of the table is no dictionary"},
      {"bplist00", "byte 0: the file is too short for a binary property list"},
  };
  for (const auto& [bytes, error] : cases) {
    const StringTableResult result = readStringTable(bytes);
    ASSERT_FALSE(result.ok()) << bytes;
    EXPECT_EQ(result.error().message("f"), "f: " + error) << bytes;
  }
}

TEST(StringTableTest, RefusesATableThatIsCutOffInsideAnEntry) {
  const std::string whole = "\"key\" = \"text\\U00e4\";";
  for (std::size_t size = 1; size < whole.size(); ++size) {
    EXPECT_FALSE(readStringTable(whole.substr(0, size)).ok()) << size;
  }
}

}  // namespace
}  // namespace zephyl
