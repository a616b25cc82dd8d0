#include "platform/foundation/Utf8.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

TEST(Utf8Test, AcceptsEveryLengthAtItsEdges) {
  for (const std::string& text :
       {""s, "plain text that is longer than a block"s, "\x7F"s, "\xC2\x80"s, "\xDF\xBF"s,
        "\xE0\xA0\x80"s, "\xED\x9F\xBF"s, "\xEE\x80\x80"s, "\xEF\xBF\xBF"s, "\xF0\x90\x80\x80"s,
        "\xF4\x8F\xBF\xBF"s, "a\0b"s}) {
    EXPECT_EQ(findInvalidUtf8(text), std::string_view::npos) << testing::PrintToString(text);
  }
}

TEST(Utf8Test, FindsTheFirstByteThatBeginsNoCharacter) {
  for (const std::string& bad :
       {"\x80"s, "\xBF"s, "\xC0\x80"s, "\xC1\xBF"s, "\xC3"s, "\xC3("s, "\xE0\x9F\xBF"s, "\xE2\x82"s,
        "\xED\xA0\x80"s, "\xED\xBF\xBF"s, "\xF0\x8F\xBF\xBF"s, "\xF4\x90\x80\x80"s, "\xF0\x9F\x98"s,
        "\xF8\x88\x80\x80\x80"s, "\xFE"s, "\xFF"s}) {
    for (const std::size_t before : {0U, 3U, 8U, 13U}) {
      const std::string text = std::string(before, 'a') + bad + "and more behind it";
      EXPECT_EQ(findInvalidUtf8(text), before) << testing::PrintToString(bad);
    }
    EXPECT_EQ(findInvalidUtf8(bad), 0u) << testing::PrintToString(bad);
  }
}

TEST(Utf8Test, AppendsWhatItReadsBack) {
  for (const char32_t codePoint : {U'a', U'\u00E4', U'\u20AC', U'\uFFFF', U'\U0001F600',
                                   static_cast<char32_t>(0x10FFFF), U'\0'}) {
    std::string text;
    appendUtf8(text, codePoint);
    const Utf8Character character = utf8CharacterAt(text, 0);
    EXPECT_EQ(character.codePoint, codePoint);
    EXPECT_EQ(character.length, text.size());
  }
}

TEST(Utf8Test, ConvertsUtf16OfBothOrders) {
  EXPECT_EQ(utf8FromUtf16("\0a\0\xE4\xD8\x3D\xDE\x00"sv, ByteOrder::kBigEndian).text,
            "a\u00E4\U0001F600");
  EXPECT_EQ(utf8FromUtf16("a\0\xE4\0\x3D\xD8\x00\xDE"sv, ByteOrder::kLittleEndian).text,
            "a\u00E4\U0001F600");
}

TEST(Utf8Test, RefusesLoneSurrogatesAndHalfUnits) {
  for (const std::string_view bad :
       {"\0a\xDE\x00"sv, "\0a\xD8\x3D"sv, "\0a\xD8\x3D\0b"sv, "\0a\xD8\x3D\xD8\x3D"sv, "\0ab"sv}) {
    const Utf16Conversion conversion = utf8FromUtf16(bad, ByteOrder::kBigEndian);
    EXPECT_EQ(conversion.invalidAt, 2u);
    EXPECT_EQ(conversion.text, "a");
  }
  EXPECT_EQ(utf8FromUtf16("\0a"sv, ByteOrder::kBigEndian).invalidAt, std::string_view::npos);
}

}  // namespace
}  // namespace zephyl
