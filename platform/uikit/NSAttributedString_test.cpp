#include "platform/uikit/NSAttributedString.h"

#include <limits>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Attributes = NSAttributedString::Attributes;
using Piece = NSAttributedString::Run;

const Attributes kPlain{UIFont::systemFontOfSize(17), UIColor::blackColor()};
const Attributes kBold{UIFont::boldSystemFontOfSize(17), UIColor::blackColor()};

TEST(NSAttributedStringTest, ATextIsOneRun) {
  EXPECT_THAT(NSAttributedString("abc", kPlain).runs(), ElementsAre(Piece{0, 3, kPlain}));
  EXPECT_THAT(NSAttributedString("", kPlain).runs(), IsEmpty());
  EXPECT_TRUE(NSAttributedString("", kPlain).empty());
}

TEST(NSAttributedStringTest, BytesThatAreNoTextAreReplaced) {
  const NSAttributedString text("a\xFF\xC3\xA9\xC3", kPlain);
  EXPECT_EQ(text.string(), "a\xEF\xBF\xBD\xC3\xA9\xEF\xBF\xBD");
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, text.string().size(), kPlain}));
}

TEST(NSAttributedStringTest, AnAppendedTextKeepsItsRuns) {
  NSAttributedString text("ab", kPlain);
  text.append(NSAttributedString("cd", kBold));
  text.append(NSAttributedString("ef", kBold));
  EXPECT_EQ(text.string(), "abcdef");
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 2, kPlain}, Piece{2, 4, kBold}));
}

TEST(NSAttributedStringTest, ATextMayBeAppendedToItself) {
  NSAttributedString text("a", kPlain);
  text.append(NSAttributedString("b", kBold));
  text.append(NSAttributedString("c", kPlain));
  text.append(text);
  EXPECT_EQ(text.string(), "abcabc");
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 1, kPlain}, Piece{1, 1, kBold}, Piece{2, 2, kPlain},
                                       Piece{4, 1, kBold}, Piece{5, 1, kPlain}));
}

TEST(NSAttributedStringTest, AttributesOfARangeSplitRuns) {
  NSAttributedString text("abcdef", kPlain);
  text.setAttributes(2, 2, kBold);
  EXPECT_THAT(text.runs(),
              ElementsAre(Piece{0, 2, kPlain}, Piece{2, 2, kBold}, Piece{4, 2, kPlain}));
  text.setAttributes(0, 3, kBold);
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 4, kBold}, Piece{4, 2, kPlain}));
  text.setAttributes(0, 6, kPlain);
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 6, kPlain}));
}

TEST(NSAttributedStringTest, WhatOfARangeLiesOutsideTheTextIsLeftAlone) {
  NSAttributedString text("abc", kPlain);
  text.setAttributes(2, static_cast<std::size_t>(-1), kBold);
  text.setAttributes(3, 5, kPlain);
  text.setAttributes(99, 1, kPlain);
  text.setAttributes(1, 0, kBold);
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 2, kPlain}, Piece{2, 1, kBold}));
}

TEST(NSAttributedStringTest, NoCharacterIsSplit) {
  NSAttributedString text("\xC3\xA9\xC3\xA9", kPlain);
  text.setAttributes(1, 2, kBold);
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 4, kPlain}));
  text.setAttributes(1, 3, kBold);
  EXPECT_THAT(text.runs(), ElementsAre(Piece{0, 2, kPlain}, Piece{2, 2, kBold}));
}

TEST(UIFontTest, AnUnusableSizeIsMended) {
  EXPECT_EQ(UIFont::systemFontOfSize(-3).pointSize(), 1);
  EXPECT_EQ(UIFont::systemFontOfSize(std::numeric_limits<CGFloat>::quiet_NaN()).pointSize(), 1);
  EXPECT_EQ(UIFont::systemFontOfSize(1e9).pointSize(), 1000);
  EXPECT_EQ(UIFont::boldSystemFontOfSize(12).fontWithSize(14), UIFont::boldSystemFontOfSize(14));
}

TEST(UIFontTest, IsMeasuredByTheHost) {
  const fake::Device device;
  EXPECT_EQ(UIFont::systemFontOfSize(10).lineHeight(), 12);
  EXPECT_EQ(UIFont::systemFontOfSize(10).metrics().ascender, 9.5);
}

}  // namespace
}  // namespace zephyl
