#include "platform/foundation/CaseFolding.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TEST(CaseFoldingTest, LettersOfEveryAlphabetLoseTheirCase) {
  for (const auto& [upper, lower] : {std::pair{"ZEPHYL 12", "zephyl 12"},
                                     {"ÄÖÜ ÉÑ Þ", "äöü éñ þ"},
                                     {"ĀĂĄ ŁŐŽ", "āăą łőž"},
                                     {"ΑΣΩ", "ασω"},
                                     {"ЖЁЯ", "жёя"},
                                     {"ԱՖ", "աֆ"},
                                     {"Ａ", "ａ"},
                                     {"𐐀", "𐐨"},
                                     {"ẞ", "ß"}}) {
    EXPECT_EQ(caseFolded(upper), lower);
    EXPECT_EQ(caseFolded(lower), lower);
  }
}

TEST(CaseFoldingTest, FormsOfALetterAtTheEndOfAWordAreTheSame) {
  EXPECT_EQ(caseFolded("ΟΔΟΣ"), caseFolded("οδος"));
}

TEST(CaseFoldingTest, AccentsAndWhatHasNoCaseStay) {
  for (const char* text : {"", "é", "ss ß", "12-34 _[]", "日本語", "שלום", "🎈"}) {
    EXPECT_EQ(caseFolded(text), text);
  }
  EXPECT_NE(caseFolded("É"), caseFolded("E"));
}

// U+0100 and U+0101 are a pair of which only the first is folded, as are the next.
TEST(CaseFoldingTest, EverySecondCharacterOfAlternatingOnesIsFolded) {
  EXPECT_EQ(caseFolded("ĀāĂă"), "āāăă");
}

TEST(CaseFoldingTest, InvalidBytesStayAsTheyAre) {
  EXPECT_EQ(caseFolded("A\xFFZ\xC3"), "a\xFFz\xC3");
}

}  // namespace
}  // namespace zephyl
