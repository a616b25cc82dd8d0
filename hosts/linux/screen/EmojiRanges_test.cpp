#include "hosts/linux/screen/EmojiRanges.h"

#include <QString>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zephyl::linux_host {

// For messages of failed tests.
static void PrintTo(const TextRange& range, std::ostream* out) {
  *out << range.start << "+" << range.length;
}

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<TextRange> ranges(const std::string& text) {
  return emojiRanges(QString::fromStdString(text));
}

TEST(EmojiRangesTest, PlainTextHasNone) {
  EXPECT_THAT(ranges(""), IsEmpty());
  EXPECT_THAT(ranges("Call 1-800, #5 * (c)"), IsEmpty());
  EXPECT_THAT(ranges("漢字 مرحبا ✓"), IsEmpty());
}

TEST(EmojiRangesTest, PicturesAreFoundAmongWords) {
  EXPECT_THAT(ranges("a😀b🎉"), ElementsAre(TextRange{1, 2}, TextRange{4, 2}));
  EXPECT_THAT(ranges("😀🎉"), ElementsAre(TextRange{0, 4}));
}

TEST(EmojiRangesTest, ASelectorDecides) {
  EXPECT_THAT(ranges("\xE2\x9D\xA4"), IsEmpty());
  EXPECT_THAT(ranges("\xE2\x9D\xA4\xEF\xB8\x8F"), ElementsAre(TextRange{0, 2}));
  EXPECT_THAT(ranges("\xE2\x98\x94\xEF\xB8\x8E"), IsEmpty());
  EXPECT_THAT(ranges("1\xEF\xB8\x8F\xE2\x83\xA3"), ElementsAre(TextRange{0, 3}));
}

TEST(EmojiRangesTest, SequencesAreWhole) {
  EXPECT_THAT(ranges("👍🏽!"), ElementsAre(TextRange{0, 4}));
  EXPECT_THAT(ranges("👩\xE2\x80\x8D👩\xE2\x80\x8D👧"), ElementsAre(TextRange{0, 8}));
  EXPECT_THAT(ranges("🇩🇪"), ElementsAre(TextRange{0, 4}));
}

TEST(EmojiRangesTest, AJoinerWithoutPictureJoinsNothing) {
  EXPECT_THAT(ranges("😀\xE2\x80\x8D"
                     "a"),
              ElementsAre(TextRange{0, 2}));
  EXPECT_THAT(ranges("😀\xE2\x80\x8D"), ElementsAre(TextRange{0, 2}));
}

}  // namespace
}  // namespace zephyl::linux_host
