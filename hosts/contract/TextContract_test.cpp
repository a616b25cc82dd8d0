// What every text system must do, however wide its characters are.

#include <cmath>
#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/TextLayout.h"

#include "hosts/contract/ScreenUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr CGFloat kUnlimited = 1e6;
constexpr const char* kEllipsis = "\xE2\x80\xA6";
constexpr const char* kWords = "one two three four five six seven eight nine ten";

class TextContractTest : public ScreenContractTest {
 protected:
  [[nodiscard]] TextLayoutRef set(const std::string& words, const TextStyle& style = {},
                                  CGFloat size = 17) {
    const NSAttributedString text(words, {UIFont::systemFontOfSize(size), UIColor::blackColor()});
    return kit().textSystem().layout(text, style);
  }
  [[nodiscard]] CGFloat width(const std::string& words) { return set(words)->size().width; }
  [[nodiscard]] CGFloat lineHeight() {
    return kit().textSystem().metrics(UIFont::systemFontOfSize(17)).lineHeight;
  }
};

ZEPHYLS_SCREEN_CONTRACT(TextContractTest);

TEST_P(TextContractTest, MetricsAddUpAndGrowWithTheSize) {
  const auto small = kit().textSystem().metrics(UIFont::systemFontOfSize(10));
  const auto large = kit().textSystem().metrics(UIFont::systemFontOfSize(20));
  EXPECT_GT(small.capHeight, 0);
  EXPECT_LT(small.capHeight, small.ascender);
  EXPECT_GE(small.lineHeight, small.ascender + small.descender - 1e-9);
  EXPECT_NEAR(large.lineHeight, 2 * small.lineHeight, 1e-6);
}

TEST_P(TextContractTest, MoreTextIsWider) {
  std::string words;
  CGFloat before = 0;
  for (const char letter : std::string("Groups of 12 friends")) {
    words += letter;
    if (letter != ' ') {
      EXPECT_GT(width(words), before) << words;
    }
    before = width(words);
  }
}

TEST_P(TextContractTest, ALargerFontIsWiderAndHigher) {
  EXPECT_GT(set("abc", {}, 20)->size().width, set("abc", {}, 10)->size().width);
  EXPECT_GT(set("abc", {}, 20)->size().height, set("abc", {}, 10)->size().height);
}

TEST_P(TextContractTest, AnEmptyTextHasNoLines) {
  const auto layout = set("");
  EXPECT_EQ(layout->lineCount(), 0);
  EXPECT_EQ(layout->size(), CGSize());
  EXPECT_FALSE(layout->isTruncated());
  EXPECT_TRUE(layout->text().empty());
}

TEST_P(TextContractTest, WhatWasMeasuredFits) {
  for (const NSLineBreakMode mode :
       {NSLineBreakMode::kWordWrapping, NSLineBreakMode::kCharWrapping, NSLineBreakMode::kClipping,
        NSLineBreakMode::kTruncatingHead, NSLineBreakMode::kTruncatingTail,
        NSLineBreakMode::kTruncatingMiddle}) {
    const CGSize size = set(kWords)->size();
    const auto again = set(kWords, {size, 0, mode});
    EXPECT_EQ(again->lineCount(), 1) << static_cast<int>(mode);
    EXPECT_FALSE(again->isTruncated());
    EXPECT_EQ(again->text().string(), kWords);
  }
}

TEST_P(TextContractTest, WrapsAtWordsWithinTheWidth) {
  const auto layout = set(kWords, {{120, kUnlimited}});
  EXPECT_GT(layout->lineCount(), 2);
  EXPECT_LE(layout->size().width, 120);
  EXPECT_NEAR(layout->size().height, layout->lineCount() * lineHeight(), 0.01);
  EXPECT_FALSE(layout->isTruncated());
  EXPECT_THAT(layout->text().string(), StartsWith("one two"));
  EXPECT_THAT(layout->text().string(), Not(HasSubstr(" \n")));
}

TEST_P(TextContractTest, AWordThatIsTooLongIsCut) {
  const auto layout = set(std::string(200, 'm'), {{100, kUnlimited}});
  EXPECT_GT(layout->lineCount(), 10);
  EXPECT_LE(layout->size().width, 100);
}

TEST_P(TextContractTest, LineEndsBeginLines) {
  EXPECT_EQ(set("a\nb\r\nc")->lineCount(), 3);
  EXPECT_EQ(set("a\nb\r\nc")->text().string(), "a\nb\nc");
  EXPECT_EQ(set("a\n\nb")->lineCount(), 3);
}

TEST_P(TextContractTest, NoMoreLinesThanAllowed) {
  const auto layout = set(kWords, {{80, kUnlimited}, 2, NSLineBreakMode::kWordWrapping});
  EXPECT_EQ(layout->lineCount(), 2);
  EXPECT_TRUE(layout->isTruncated());
  EXPECT_THAT(layout->text().string(), Not(HasSubstr(kEllipsis)));
}

TEST_P(TextContractTest, NoMoreLinesThanFitButTheFirst) {
  EXPECT_EQ(set(kWords, {{80, 2.5 * lineHeight()}})->lineCount(), 2);
  EXPECT_EQ(set(kWords, {{80, 1}})->lineCount(), 1);
}

TEST_P(TextContractTest, TheEndIsLeftOut) {
  const auto layout = set(kWords, {{150, kUnlimited}, 1, NSLineBreakMode::kTruncatingTail});
  EXPECT_TRUE(layout->isTruncated());
  EXPECT_LE(layout->size().width, 150);
  EXPECT_THAT(layout->text().string(), StartsWith("one two"));
  EXPECT_THAT(layout->text().string(), EndsWith(kEllipsis));
}

TEST_P(TextContractTest, TheBeginningIsLeftOut) {
  const auto layout = set(kWords, {{150, kUnlimited}, 1, NSLineBreakMode::kTruncatingHead});
  EXPECT_LE(layout->size().width, 150);
  EXPECT_THAT(layout->text().string(), StartsWith(kEllipsis));
  EXPECT_THAT(layout->text().string(), EndsWith("nine ten"));
}

TEST_P(TextContractTest, TheMiddleIsLeftOut) {
  const auto layout = set(kWords, {{150, kUnlimited}, 1, NSLineBreakMode::kTruncatingMiddle});
  EXPECT_LE(layout->size().width, 150);
  EXPECT_THAT(layout->text().string(), StartsWith("one"));
  EXPECT_THAT(layout->text().string(), EndsWith("ten"));
  EXPECT_THAT(layout->text().string(), HasSubstr(kEllipsis));
}

TEST_P(TextContractTest, TheLastLineOfManyIsShortened) {
  const auto layout = set(kWords, {{100, kUnlimited}, 3, NSLineBreakMode::kTruncatingTail});
  EXPECT_EQ(layout->lineCount(), 3);
  EXPECT_THAT(layout->text().string(), EndsWith(kEllipsis));
}

TEST_P(TextContractTest, WhatIsClippedHasNoSign) {
  const auto layout = set(kWords, {{100, kUnlimited}, 1, NSLineBreakMode::kClipping});
  EXPECT_TRUE(layout->isTruncated());
  EXPECT_LE(layout->size().width, 100);
  EXPECT_THAT(layout->text().string(), Not(HasSubstr(kEllipsis)));
}

TEST_P(TextContractTest, TheBaselineIsInTheFirstLine) {
  const auto layout = set(kWords);
  EXPECT_GT(layout->firstBaseline(), lineHeight() / 2);
  EXPECT_LT(layout->firstBaseline(), lineHeight());
}

TEST_P(TextContractTest, RunsKeepTheirLooks) {
  NSAttributedString text("small", {UIFont::systemFontOfSize(10), UIColor::redColor()});
  text.append({" large", {UIFont::systemFontOfSize(30), UIColor::blueColor()}});
  const auto layout = kit().textSystem().layout(text, {});
  EXPECT_EQ(layout->text(), text);
  EXPECT_NEAR(layout->size().height,
              kit().textSystem().metrics(UIFont::systemFontOfSize(30)).lineHeight, 0.01);
}

TEST_P(TextContractTest, AreasThatAreNoneHarmNothing) {
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  for (const CGFloat side : {nan, std::numeric_limits<CGFloat>::infinity(), -5.0, 0.0}) {
    for (const NSLineBreakMode mode :
         {NSLineBreakMode::kWordWrapping, NSLineBreakMode::kTruncatingMiddle}) {
      const auto layout = set(kWords, {{side, side}, 0, mode});
      EXPECT_TRUE(std::isfinite(layout->size().width));
      EXPECT_TRUE(std::isfinite(layout->size().height));
    }
  }
}

TEST_P(TextContractTest, TextsOfAllKindsHaveASize) {
  for (const char* words : {"مرحبا بالعالم", "שלום", "漢字 かな", "👍🏽 ❤️ 🇩🇪",
                            "\u202Eabc", "\t\x01\x1B", "e\xCC\x81"}) {
    EXPECT_EQ(set(words)->lineCount(), 1) << words;
    EXPECT_GE(width(words), 0) << words;
  }
}

TEST_P(TextContractTest, LongTextsAreSetAsFarAsTheyShow) {
  std::string words;
  while (words.size() < 100'000) {
    words += kWords;
  }
  const auto layout = set(words, {{300, 10.2 * lineHeight()}, 0, NSLineBreakMode::kTruncatingTail});
  EXPECT_EQ(layout->lineCount(), 10);
  EXPECT_LT(layout->text().string().size(), 2000U);
}

}  // namespace
}  // namespace zephyl::contract
