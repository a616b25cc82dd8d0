#include "hosts/fake/uikit/FakeTextSystem.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/uikit/FakeTextLayout.h"

namespace zephyl::fake {
namespace {

class FakeTextSystemTest : public ::testing::Test {
 protected:
  // In a 10-point font: 5 points a character, 12 a line.
  static NSAttributedString text(const std::string& string, CGFloat size = 10) {
    return {string, {UIFont::systemFontOfSize(size), UIColor::labelColor()}};
  }
  TextLayoutRef set(const std::string& string, CGFloat width, int lines = 0,
                    NSLineBreakMode mode = NSLineBreakMode::kWordWrapping) {
    return texts_.layout(text(string), {{width, 1e6}, lines, mode, NSTextAlignment::kLeft});
  }
  std::string lines(const std::string& string, CGFloat width, int count = 0,
                    NSLineBreakMode mode = NSLineBreakMode::kWordWrapping) {
    return set(string, width, count, mode)->text().string();
  }

  FakeScreen screen_;
  FakeTextSystem texts_{screen_};
};

TEST_F(FakeTextSystemTest, ALineIsAsWideAsItsCharactersAre) {
  const auto layout = set("Hello", 100);
  EXPECT_EQ(layout->size(), (CGSize{25, 12}));
  EXPECT_EQ(layout->lineCount(), 1);
  EXPECT_DOUBLE_EQ(layout->firstBaseline(), 9.5);
  EXPECT_FALSE(layout->isTruncated());
  EXPECT_EQ(set("\xE4\xBD\xA0\xF0\x9F\x99\x82", 100)->size().width, 20);
  EXPECT_EQ(set("e\xCC\x81", 100)->size().width, 5);
}

TEST_F(FakeTextSystemTest, AnEmptyTextHasNoLines) {
  EXPECT_EQ(set("", 100)->lineCount(), 0);
  EXPECT_EQ(set("", 100)->size(), CGSize());
}

TEST_F(FakeTextSystemTest, LinesEndAtSpacesWhichHang) {
  EXPECT_EQ(lines("one two three", 35), "one two\nthree");
  EXPECT_EQ(lines("one two three", 34), "one\ntwo\nthree");
  EXPECT_EQ(set("one two three", 34)->size(), (CGSize{25, 36}));
}

TEST_F(FakeTextSystemTest, AWordThatFitsInNoLineIsCut) {
  EXPECT_EQ(lines("abcdefgh", 15), "abc\ndef\ngh");
  EXPECT_EQ(lines("ab", 0), "a\nb");
}

TEST_F(FakeTextSystemTest, CharacterWrappingCutsWords) {
  EXPECT_EQ(lines("one two", 25, 0, NSLineBreakMode::kCharWrapping), "one t\nwo");
}

TEST_F(FakeTextSystemTest, ALineMayEndBetweenWideCharacters) {
  EXPECT_EQ(lines("ab\xE4\xBD\xA0\xE5\xA5\xBD", 25), "ab\xE4\xBD\xA0\n\xE5\xA5\xBD");
}

TEST_F(FakeTextSystemTest, NewlinesEndLinesAndAnEmptyOneFollowsTheLast) {
  EXPECT_EQ(lines("a\r\nb\n", 100), "a\nb\n");
  EXPECT_EQ(set("a\r\nb\n", 100)->lineCount(), 3);
}

TEST_F(FakeTextSystemTest, WhatIsBeyondTheLastLineIsLeftOut) {
  const auto layout = set("one two three", 20, 2);
  EXPECT_EQ(layout->text().string(), "one\ntwo");
  EXPECT_TRUE(layout->isTruncated());
  EXPECT_FALSE(set("one two", 20, 2)->isTruncated());
}

TEST_F(FakeTextSystemTest, LinesThatDoNotFitTheHeightAreLeftOut) {
  const auto in = [&](CGFloat height) {
    return texts_.layout(text("one two three"), {{20, height}})->lineCount();
  };
  EXPECT_EQ(in(0), 1);
  EXPECT_EQ(in(12), 1);
  EXPECT_EQ(in(23), 1);
  EXPECT_EQ(in(24), 2);
  EXPECT_EQ(in(std::numeric_limits<CGFloat>::infinity()), 4);
}

TEST_F(FakeTextSystemTest, TheLastLineIsShortenedWhereTheModeSays) {
  const auto one = [&](NSLineBreakMode mode) { return lines("abcdefghij", 30, 1, mode); };
  EXPECT_EQ(one(NSLineBreakMode::kTruncatingTail), "abcde\xE2\x80\xA6");
  EXPECT_EQ(one(NSLineBreakMode::kTruncatingHead),
            "\xE2\x80\xA6"
            "fghij");
  EXPECT_EQ(one(NSLineBreakMode::kTruncatingMiddle), "ab\xE2\x80\xA6hij");
  EXPECT_EQ(one(NSLineBreakMode::kClipping), "abcdef");
  EXPECT_EQ(lines("abcdefghij", 50, 1, NSLineBreakMode::kTruncatingTail), "abcdefghij");
  EXPECT_EQ(lines("one two three", 20, 2, NSLineBreakMode::kTruncatingTail),
            "one\ntwo\xE2\x80\xA6");
  EXPECT_TRUE(set("abcdefghij", 30, 1, NSLineBreakMode::kTruncatingTail)->isTruncated());
}

TEST_F(FakeTextSystemTest, ALineIsAsHighAsItsLargestFont) {
  NSAttributedString mixed = text("a");
  mixed.append(text("b", 20));
  const auto layout = texts_.layout(mixed, {});
  EXPECT_EQ(layout->size(), (CGSize{15, 24}));
  EXPECT_EQ(layout->firstBaseline(), 19);
}

TEST_F(FakeTextSystemTest, TextStandsWhereItsAlignmentSays) {
  const auto x = [&](NSTextAlignment alignment) {
    const auto layout =
        texts_.layout(text("ab"), {{30, 20}, 1, NSLineBreakMode::kWordWrapping, alignment});
    return std::static_pointer_cast<const FakeTextLayout>(layout)->extent().x();
  };
  EXPECT_EQ(x(NSTextAlignment::kLeft), 0);
  EXPECT_EQ(x(NSTextAlignment::kCenter), 10);
  EXPECT_EQ(x(NSTextAlignment::kRight), 20);
  EXPECT_EQ(x(NSTextAlignment::kNatural), 0);
  screen_.setUserInterfaceLayoutDirection(UIUserInterfaceLayoutDirection::kRightToLeft);
  EXPECT_EQ(x(NSTextAlignment::kNatural), 20);
}

TEST_F(FakeTextSystemTest, OneLineOfALongTextIsMadeOfItsBeginning) {
  const auto layout = set(std::string(100'000, 'x'), 50, 1, NSLineBreakMode::kTruncatingTail);
  EXPECT_EQ(layout->text().string(), "xxxxxxxxx\xE2\x80\xA6");
  EXPECT_EQ(layout->size(), (CGSize{50, 12}));
}

}  // namespace
}  // namespace zephyl::fake
