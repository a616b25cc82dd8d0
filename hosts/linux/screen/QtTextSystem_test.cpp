#include <algorithm>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/screen/QtTextLayout.h"
#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

using ::testing::HasSubstr;

constexpr const char* kLong =
    "This one is a long title which cannot fit in a single line of a phone";
constexpr const char* kEllipsis = "\xE2\x80\xA6";

std::string repeated(const std::string& part, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    text += part;
  }
  return text;
}

class QtTextSystemTest : public ScreenTest {
 protected:
  using ScreenTest::ScreenTest;

  [[nodiscard]] static TextStyle oneLine(NSLineBreakMode mode, CGFloat width = 300) {
    return {{width, 1e6}, 1, mode, NSTextAlignment::kNatural};
  }
  [[nodiscard]] std::string shown(const std::string& words, const TextStyle& style) {
    return layout(words, style)->text().string();
  }
  // The left end of the only line.
  [[nodiscard]] CGFloat left(const TextLayoutRef& layout) {
    return dynamic_cast<const QtTextLayout&>(*layout).blocks().front().lines.front().origin.x;
  }
};

TEST_F(QtTextSystemTest, LinesAreAsHighAsThePhones) {
  EXPECT_NEAR(UIFont::systemFontOfSize(17).lineHeight(), 20.29, 0.01);
  EXPECT_NEAR(UIFont::systemFontOfSize(13).lineHeight(), 15.51, 0.01);
  const auto metrics = UIFont::systemFontOfSize(34).metrics();
  EXPECT_DOUBLE_EQ(metrics.ascender + metrics.descender, metrics.lineHeight);
  EXPECT_NEAR(metrics.capHeight, 24.7, 0.1);
}

TEST_F(QtTextSystemTest, FallbackFontsLeaveTheLineHeight) {
  for (const char* words : {"abc", "مرحبا", "שלום", "漢字", "😀 👍🏽", "e\xCC\x81\xCC\x81"}) {
    EXPECT_NEAR(layout(words, {})->size().height, 20.29, 0.01) << words;
  }
}

TEST_F(QtTextSystemTest, WidthsGrowWithTheSizeAndTheWeight) {
  const auto width = [this](CGFloat size, UIFont::Weight weight) {
    const NSAttributedString words("Groups", {UIFont::systemFontOfSize(size, weight), {}});
    return kit().textSystem().layout(words, {})->size().width;
  };
  EXPECT_NEAR(width(16, UIFont::Weight::kRegular), 2 * width(8, UIFont::Weight::kRegular), 0.2);
  EXPECT_GT(width(17, UIFont::Weight::kBold), width(17, UIFont::Weight::kSemibold));
  EXPECT_GT(width(17, UIFont::Weight::kSemibold), width(17, UIFont::Weight::kRegular));
  EXPECT_GT(width(17.5, UIFont::Weight::kRegular), width(17, UIFont::Weight::kRegular));
}

TEST_F(QtTextSystemTest, ATextIsShortenedWhereItIsAskedTo) {
  const std::string tail = shown(kLong, oneLine(NSLineBreakMode::kTruncatingTail));
  EXPECT_TRUE(tail.starts_with("This one is a long") && tail.ends_with(kEllipsis)) << tail;
  const std::string head = shown(kLong, oneLine(NSLineBreakMode::kTruncatingHead));
  EXPECT_TRUE(head.starts_with(kEllipsis) && head.ends_with("line of a phone")) << head;
  const std::string middle = shown(kLong, oneLine(NSLineBreakMode::kTruncatingMiddle));
  EXPECT_TRUE(middle.starts_with("This one") && middle.ends_with("a phone")) << middle;
  EXPECT_THAT(middle, HasSubstr(kEllipsis));
}

TEST_F(QtTextSystemTest, AsMuchIsShownAsFits) {
  for (const NSLineBreakMode mode :
       {NSLineBreakMode::kTruncatingHead, NSLineBreakMode::kTruncatingTail,
        NSLineBreakMode::kTruncatingMiddle}) {
    for (CGFloat width = 40; width < 500; width += 23) {
      const TextLayoutRef line = layout(kLong, oneLine(mode, width));
      EXPECT_LE(line->size().width, width);
      EXPECT_GT(line->size().width, width - 40) << static_cast<int>(mode) << " " << width;
    }
  }
}

// A family, a flag, a region's flag, a thumb with a skin tone, a rainbow flag.
TEST_F(QtTextSystemTest, EmojiOfSeveralSignsAreShownWholeOrNotAtAll) {
  const std::vector<std::string> emoji = {
      "\U0001F468\u200d\U0001F469\u200d\U0001F467\u200d\U0001F466", "\U0001F1E9\U0001F1EA",
      "\U0001F3F4\U000E0067\U000E0062\U000E0073\U000E0063\U000E0074\U000E007F",
      "\U0001F44D\U0001F3FD", "\U0001F3F3\ufe0f\u200d\U0001F308"};
  std::string text;
  std::set<std::string> whole = {kEllipsis};
  for (int round = 0; round < 4; ++round) {
    for (const std::string& each : emoji) {
      text += each;
      whole.insert(text + kEllipsis);
    }
  }
  std::set<std::string> seen;
  for (CGFloat width = 20; width < 300; width += 7) {
    seen.insert(shown(text, oneLine(NSLineBreakMode::kTruncatingTail, width)));
  }
  EXPECT_GT(seen.size(), 5U);
  for (const std::string& each : seen) {
    EXPECT_TRUE(whole.contains(each)) << each;
  }
}

TEST_F(QtTextSystemTest, ATextThatFitsIsNotShortened) {
  for (const NSLineBreakMode mode :
       {NSLineBreakMode::kTruncatingHead, NSLineBreakMode::kTruncatingTail,
        NSLineBreakMode::kTruncatingMiddle, NSLineBreakMode::kClipping,
        NSLineBreakMode::kWordWrapping, NSLineBreakMode::kCharWrapping}) {
    const CGFloat width = layout("Family", {})->size().width;
    const TextLayoutRef line = layout("Family", oneLine(mode, width));
    EXPECT_FALSE(line->isTruncated());
    EXPECT_EQ(line->text().string(), "Family");
  }
}

TEST_F(QtTextSystemTest, WrapsAtWordsOrAnywhere) {
  EXPECT_EQ(shown("one two three", {{70, 1e6}}), "one two\nthree");
  EXPECT_EQ(shown("one twelvemonths", {{122, 1e6}}), "one\ntwelvemonths");
  EXPECT_TRUE(shown("one twelvemonths", {{122, 1e6}, 0, NSLineBreakMode::kCharWrapping})
                  .starts_with("one tw"));
  const std::string longWord = shown("Supercalifragilistic", {{70, 1e6}});
  EXPECT_THAT(longWord, HasSubstr("\n"));
}

TEST_F(QtTextSystemTest, LinesThatDoNotFitTheHeightAreLeftOut) {
  TextStyle style{{150, 45}, 0, NSLineBreakMode::kTruncatingTail};
  const TextLayoutRef two = layout(kLong, style);
  EXPECT_EQ(two->lineCount(), 2);
  EXPECT_TRUE(two->text().string().ends_with(kEllipsis));
  style.area.height = 1;
  EXPECT_EQ(layout(kLong, style)->lineCount(), 1);
}

TEST_F(QtTextSystemTest, AParagraphThatIsLeftOutShowsAsShortened) {
  EXPECT_EQ(shown("first\nsecond", oneLine(NSLineBreakMode::kTruncatingTail)),
            std::string("first") + kEllipsis);
  EXPECT_EQ(shown("first\r\nsecond\n", {}), "first\nsecond\n");
  EXPECT_EQ(layout("first\r\nsecond\n", {})->lineCount(), 3);
}

TEST_F(QtTextSystemTest, WhatIsClippedDoesNotLeaveTheArea) {
  const TextLayoutRef line = layout(kLong, oneLine(NSLineBreakMode::kClipping, 15));
  EXPECT_TRUE(line->isTruncated());
  EXPECT_DOUBLE_EQ(line->size().width, 15);
  Canvas paper(20, 20, 1, kit().paintCaches());
  paper->draw(*line, {0, 0});
  for (int y = 0; y < 20; ++y) {
    EXPECT_EQ(paper.at(16, y), QColor(Qt::white));
  }
  EXPECT_GT(paper.inked(), 0);
}

TEST_F(QtTextSystemTest, ShortensAtWholeCharactersOnly) {
  const std::string family =
      "\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7";
  for (CGFloat width = 20; width < 200; width += 7) {
    const std::string line =
        shown(repeated(family, 20), oneLine(NSLineBreakMode::kTruncatingTail, width));
    EXPECT_EQ((line.size() - 3) % family.size(), 0U) << line;
  }
}

TEST_F(QtTextSystemTest, TheNaturalSideIsThatOfTheScreenAndNotOfTheText) {
  const TextStyle style = oneLine(NSLineBreakMode::kTruncatingTail);
  EXPECT_DOUBLE_EQ(left(layout("Family", style)), 0);
  EXPECT_DOUBLE_EQ(left(layout("שלום", style)), 0);
}

TEST_F(QtTextSystemTest, AlignsInTheArea) {
  TextStyle style = oneLine(NSLineBreakMode::kTruncatingTail);
  const CGFloat width = layout("Family", style)->size().width;
  style.alignment = NSTextAlignment::kRight;
  EXPECT_NEAR(left(layout("Family", style)), 300 - width, 0.1);
  style.alignment = NSTextAlignment::kCenter;
  EXPECT_NEAR(left(layout("Family", style)), (300 - width) / 2, 0.1);
  style.area.width = 1e6;
  EXPECT_DOUBLE_EQ(left(layout("Family", style)), 0);
}

class MirroredTextTest : public QtTextSystemTest {
 protected:
  MirroredTextTest() : QtTextSystemTest(mirrored()) {}
  static UIKitOptions mirrored() {
    UIKitOptions options;
    options.screen.rightToLeft = true;
    return options;
  }
};

TEST_F(MirroredTextTest, TheNaturalSideIsTheRight) {
  const TextStyle style = oneLine(NSLineBreakMode::kTruncatingTail);
  const TextLayoutRef line = layout("Family", style);
  EXPECT_NEAR(left(line), 300 - line->size().width, 0.1);
}

TEST_F(MirroredTextTest, ANumberStillReadsFromTheLeft) {
  const TextLayoutRef line = layout("+1 (555) 555-0100", oneLine(NSLineBreakMode::kWordWrapping));
  EXPECT_FALSE(dynamic_cast<const QtTextLayout&>(*line).blocks().front().rightToLeft);
  EXPECT_NEAR(left(line), 300 - line->size().width, 0.1);
}

TEST_F(QtTextSystemTest, EndsOfRightToLeftTextsAreShortenedOnTheLeft) {
  const std::string words = repeated("שלום ", 30);
  const TextLayoutRef line = layout(words, oneLine(NSLineBreakMode::kTruncatingTail, 100));
  EXPECT_TRUE(line->text().string().ends_with(kEllipsis));
  Canvas paper(100, 21, 1, kit().paintCaches());
  paper->draw(*line, {0, 0});
  const auto inkIn = [&paper](int from, int to, int row) {
    int count = 0;
    for (int x = from; x < to; ++x) {
      count += static_cast<int>(paper.at(x, row).red() < 200);
    }
    return count;
  };
  // Three dots above the baseline, and nothing over them.
  EXPECT_GT(inkIn(0, 18, 15), 2);
  EXPECT_EQ(inkIn(0, 8, 10), 0);
}

TEST_F(QtTextSystemTest, ControlsAreHarmless) {
  const CGFloat plain = layout("ab", {})->size().width;
  EXPECT_NEAR(layout(std::string("a\x01\x1B\x7F\xC2\x9F") + "b", {})->size().width, plain, 0.1);
  EXPECT_EQ(layout("\xE2\x80\xAE"
                   "abc",
                   {})
                ->lineCount(),
            1);
  EXPECT_EQ(layout(std::string("a\0b", 3), {})->lineCount(), 1);
  EXPECT_EQ(layout("\xEF\xBF\xBC\xEF\xB7\x90", {})->lineCount(), 1);
}

TEST_F(QtTextSystemTest, TextsWithoutTextOrRoomHaveNoLines) {
  EXPECT_EQ(layout("", {})->lineCount(), 0);
  EXPECT_EQ(layout("", {})->size(), CGSize());
  EXPECT_EQ(layout("abc", {{0, 100}})->lineCount(), 0);
  EXPECT_EQ(layout("abc", {{-5, 100}})->lineCount(), 0);
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  EXPECT_EQ(layout("abc", {{nan, nan}})->lineCount(), 1);
}

TEST_F(QtTextSystemTest, LongTextsAreSetAsFarAsTheyShow) {
  const std::string words = repeated("lorem ipsum ", 9000);
  const TextLayoutRef screen = layout(words, {{358, 844}, 0, NSLineBreakMode::kTruncatingTail});
  EXPECT_EQ(screen->lineCount(), 41);
  EXPECT_TRUE(screen->text().string().ends_with(kEllipsis));
  EXPECT_EQ(shown(words, oneLine(NSLineBreakMode::kTruncatingTail)).substr(0, 11), "lorem ipsum");
  const TextLayoutRef all = layout(words, {{358, 1e6}});
  EXPECT_FALSE(all->isTruncated());
  std::string lines = all->text().string();
  EXPECT_EQ(std::count(lines.begin(), lines.end(), 'l'), 9000);
  const TextLayoutRef one = layout(words, {{1e6, 1e6}, 1});
  EXPECT_EQ(one->lineCount(), 1);
  EXPECT_GT(one->size().width, 300'000);
}

TEST_F(QtTextSystemTest, SignsWithoutWidthHaveAnEnd) {
  const TextLayoutRef marks = layout("a" + repeated("\xCC\x81", 50'000), {{300, 844}});
  EXPECT_LE(marks->lineCount(), 41);
}

}  // namespace
}  // namespace zephyl::linux_host
