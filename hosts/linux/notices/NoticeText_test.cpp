// What becomes of text that somebody else has written.

#include "hosts/linux/notices/NoticeText.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl::linux_host {
namespace {

std::string title(const std::string& text) {
  return noticeTitle(text).toStdString();
}

std::string plain(const std::string& text) {
  return noticeBody(text, /*isMarkup=*/false).toStdString();
}

std::string markup(const std::string& text) {
  return noticeBody(text, /*isMarkup=*/true).toStdString();
}

TEST(NoticeTextTest, OrdinaryTextStaysAsItIs) {
  for (const std::string text :
       {"hello", "Grüße, 日本", "👨‍👩‍👧 🏴󠁧󠁢󠁥󠁮󠁧󠁿", "שלום\u200F!",
        ""}) {
    EXPECT_EQ(plain(text), text);
    EXPECT_EQ(title(text), text);
  }
}

TEST(NoticeTextTest, ATitleIsOneLineAndABodyKeepsItsLines) {
  for (const std::string lineBreak : {"\n", "\r", "\r\n", "\u2028", "\u2029", "\u0085"}) {
    EXPECT_EQ(title("a" + lineBreak + "b"), "a b");
    EXPECT_EQ(plain("a" + lineBreak + "b"), "a\nb");
  }
  EXPECT_EQ(plain("\n\n a\tb \n"), "a b");
}

TEST(NoticeTextTest, ControlCharactersAreLeftOut) {
  EXPECT_EQ(plain(std::string("a\0b", 3)), "ab");
  EXPECT_EQ(plain("\x1B[31mred\x07\x7F"), "[31mred");
  EXPECT_EQ(title("a\u009Bb"), "ab");
}

TEST(NoticeTextTest, NothingTurnsTheOrderOfOtherText) {
  EXPECT_EQ(title("a\u202Egnp.exe"), "agnp.exe");
  EXPECT_EQ(plain("\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069x"), "x");
}

TEST(NoticeTextTest, WhatIsNoUtf8IsReplaced) {
  EXPECT_EQ(plain("a\xFF"), "a\uFFFD");
  EXPECT_EQ(plain("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
}

TEST(NoticeTextTest, MarkupIsShownAndNotObeyed) {
  EXPECT_EQ(markup("<b>\"1 & 2\"</b>"), "&lt;b&gt;&quot;1 &amp; 2&quot;&lt;/b&gt;");
  EXPECT_EQ(plain("<b>1 & 2</b>"), "<b>1 & 2</b>");
}

TEST(NoticeTextTest, LongTextIsCutBetweenCharacters) {
  std::string text;
  for (std::size_t i = 0; i < kMostCharactersOfBody; ++i) {
    text += "😀";
  }
  EXPECT_EQ(plain(text), text);
  EXPECT_EQ(plain(text + "x"), text + "…");
  EXPECT_EQ(title(std::string(kMostCharactersOfTitle + 1, 'x')),
            std::string(kMostCharactersOfTitle, 'x') + "…");
  EXPECT_EQ(markup(std::string(kMostCharactersOfBody, '<')).size(), 4 * kMostCharactersOfBody);
}

}  // namespace
}  // namespace zephyl::linux_host
