#include "ui/components/UIColorRingfold.h"

#include <limits>
#include <stdexcept>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

constexpr CGFloat kInfinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();

UIColor color(CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  return UIColor::colorWithRed(red, green, blue, alpha);
}

// A byte as the reader of markers makes it.
CGFloat single(int byte) {
  return static_cast<float>(byte) / 255.0F;
}

TEST(UIColorRingfoldTest, APackedIntegerIsThreeBytes) {
  EXPECT_EQ(UIColor::__zpColorWithHex(0xFF8000), color(1, 128 / 255.0, 0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex(0x12345678),
            color(0x34 / 255.0, 0x56 / 255.0, 0x78 / 255.0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex(-1), color(1, 1, 1, 1));
}

// Kept: alpha is not divided.
TEST(UIColorRingfoldTest, EightBitChannelsAreDividedAndAlphaIsNot) {
  EXPECT_EQ(UIColor::__zpColorWith8BitRed(255, 0, 51, 0.5), color(1, 0, 0.2, 0.5));
  EXPECT_EQ(UIColor::__zpColorWith8BitRed(0, 0, 0, 255), color(0, 0, 0, 255));
  EXPECT_EQ(UIColor::__zpColorWith8BitRed(510, -255, 0, 1), color(2, -1, 0, 1));
}

TEST(UIColorRingfoldTest, ATextWithANumberSignIsThreePairs) {
  EXPECT_EQ(UIColor::__zpColorWithHex("#ff8000", 0.25), color(1, 128 / 255.0, 0, 0.25));
  EXPECT_EQ(UIColor::__zpColorWithHex("#FFAB10 and more", 1), color(1, 171 / 255.0, 16 / 255.0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex("xff0000", 1), color(1, 0, 0, 1));
}

TEST(UIColorRingfoldTest, APairIsReadUpToItsFirstOtherCharacter) {
  EXPECT_EQ(UIColor::__zpColorWithHex("#zz0000", 1), color(0, 0, 0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex("#7gff 1", 1), color(7 / 255.0, 1, 0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex("#0xffff", 1), color(0, 1, 1, 1));
}

// "é" is one character, an emoji two.
TEST(UIColorRingfoldTest, PairsAreFoundByCharactersAndNotByBytes) {
  EXPECT_EQ(UIColor::__zpColorWithHex("\xC3\xA9"
                                      "ff00ff",
                                      1),
            color(1, 0, 1, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex("#\xF0\x9F\x99\x82"
                                      "00ff",
                                      1),
            color(0, 0, 1, 1));
  EXPECT_EQ(UIColor::__zpColorWithHex("\xF0\x9F\x99\x82"
                                      "f00ff",
                                      1),
            color(0, 0, 1, 1));
}

TEST(UIColorRingfoldTest, ATextThatIsTooShortThrows) {
  EXPECT_THROW((void)UIColor::__zpColorWithHex("#ff000", 1), std::out_of_range);
  EXPECT_THROW((void)UIColor::__zpColorWithHex("", 1), std::out_of_range);
  EXPECT_THROW((void)UIColor::__zpColorWithHex("\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", 1),
               std::out_of_range);
}

TEST(UIColorRingfoldTest, AMarkerHasSixOrEightDigits) {
  EXPECT_EQ(UIColor::__zpColorWithHexString("00ff00"), color(0, 1, 0, 1));
  EXPECT_EQ(UIColor::__zpColorWithHexString("00ff0080"), color(0, 1, 0, single(128)));
  EXPECT_EQ(UIColor::__zpColorWithHexString("FF7F00Ff"), color(1, single(127), 0, 1));
}

TEST(UIColorRingfoldTest, AMarkerOfAnotherLengthIsOpaqueBlack) {
  for (const char* text : {"", "#00ff00", "fff", "00ff0080f", "  00ff0080",
                           "\xF0\x9F\x99\x82\xF0\x9F\x99\x82\xF0\x9F\x99\x82\xF0\x9F\x99\x82x"}) {
    EXPECT_EQ(UIColor::__zpColorWithHexString(text), UIColor::blackColor()) << text;
  }
}

TEST(UIColorRingfoldTest, TheRulesOfTheScannerHoldInsideAMarker) {
  EXPECT_EQ(UIColor::__zpColorWithHexString("0x123456"),
            color(0, single(0x12), single(0x34), single(0x56)));
  EXPECT_EQ(UIColor::__zpColorWithHexString("  123456"),
            color(0, single(0x12), single(0x34), single(0x56)));
  EXPECT_EQ(UIColor::__zpColorWithHexString("12g45678"), color(0, 0, 0, single(0x12)));
  // Four digits of a six-character text, then the two that are appended.
  EXPECT_EQ(UIColor::__zpColorWithHexString("0x1234"), color(0, single(0x12), single(0x34), 1));
}

TEST(UIColorRingfoldTest, AMarkerWithoutADigitIsClear) {
  EXPECT_EQ(UIColor::__zpColorWithHexString("zzzzzzzz"), UIColor::clearColor());
  // Eight characters of the platform.
  EXPECT_EQ(UIColor::__zpColorWithHexString(
                "\xF0\x9F\x99\x82\xF0\x9F\x99\x82\xF0\x9F\x99\x82\xF0\x9F\x99\x82"),
            UIColor::clearColor());
}

TEST(UIColorRingfoldTest, AMarkerIsWrittenTruncated) {
  EXPECT_EQ(UIColor::whiteColor().__zpHexString(), "ffffffff");
  EXPECT_EQ(color(0.5, 0.25, 1, 1).__zpHexString(), "7f3fffff");
  EXPECT_EQ(UIColor::clearColor().__zpHexString(), "00000000");
  EXPECT_EQ(UIColor::__zpColorWithHexString("7fffffff").__zpHexString(), "7fffffff");
}

// Kept: channels are not clamped at the upper end.
TEST(UIColorRingfoldTest, ChannelsBeyondTheirRangeAreWrittenAsTheyCome) {
  EXPECT_EQ(color(2, -3, 0, 1).__zpHexString(), "1fe0000ff");
  EXPECT_EQ(color(kNaN, -kInfinity, 0, 1).__zpHexString(), "000000ff");
  EXPECT_EQ(color(kInfinity, 0, 0, 1e300).__zpHexString(), "ffffffff0000ffffffff");
}

TEST(UIColorRingfoldTest, TheLabelTextHasNoAlpha) {
  EXPECT_EQ(hexadecimalLabelText(color(1, 0.5, 0, 1)), "#ff7f00");
  EXPECT_EQ(hexadecimalLabelText(color(0, 0, 1, 0.2)), "#0000ff");
}

TEST(UIColorRingfoldTest, TheLabelTextDoesNotMaskChannels) {
  EXPECT_EQ(hexadecimalLabelText(color(0, 0, 2, 1)), "#0001fe");
  EXPECT_EQ(hexadecimalLabelText(color(0, 0, -1, 1)), "#ffffff01");
  EXPECT_EQ(hexadecimalLabelText(color(kNaN, kNaN, kNaN, 1)), "#000000");
  EXPECT_EQ(hexadecimalLabelText(color(kInfinity, 0, 0, 1)), "#ffff0000");
}

}  // namespace
}  // namespace zephyl
