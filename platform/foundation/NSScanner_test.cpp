#include "platform/foundation/NSScanner.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

std::optional<std::uint32_t> scan(std::string_view text) {
  return NSScanner(text).scanHexInt();
}

TEST(NSScannerTest, ReadsTheLongestRunOfHexadecimalDigits) {
  EXPECT_EQ(scan("7g"), 7U);
  EXPECT_EQ(scan("00fFaB10zz"), 0xFFAB10U);
  EXPECT_EQ(scan("-1"), std::nullopt);
}

TEST(NSScannerTest, SkipsLeadingWhiteSpaceAndAPrefix) {
  EXPECT_EQ(scan(" \t\n\xC2\xA0\xE3\x80\x80"
                 "1f"),
            0x1FU);
  EXPECT_EQ(scan("0x123456"), 0x123456U);
  EXPECT_EQ(scan("0XfF"), 0xFFU);
  EXPECT_EQ(scan("0x 1"), 0U);
  EXPECT_EQ(scan("x1"), std::nullopt);
}

TEST(NSScannerTest, ANumberThatIsTooLargeIsTheLargest) {
  EXPECT_EQ(scan("ffffffff"), 0xFFFFFFFFU);
  EXPECT_EQ(scan("100000000"), 0xFFFFFFFFU);
  EXPECT_EQ(scan(std::string(10'000, '1')), 0xFFFFFFFFU);
}

TEST(NSScannerTest, StaysWhereItWasWithoutADigit) {
  NSScanner scanner("1 zz");
  EXPECT_EQ(scanner.scanHexInt(), 1U);
  EXPECT_EQ(scanner.scanLocation(), 1U);
  EXPECT_EQ(scanner.scanHexInt(), std::nullopt);
  EXPECT_EQ(scanner.scanLocation(), 1U);
  EXPECT_EQ(scan(""), std::nullopt);
  EXPECT_EQ(scan("\xFF\x80"), std::nullopt);
}

}  // namespace
}  // namespace zephyl
