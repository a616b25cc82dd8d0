#include "platform/foundation/WhiteSpace.h"

#include <string>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TEST(WhiteSpaceTest, SpacesOfAnyWidthAreTrimmedFromBothEnds) {
  EXPECT_EQ(trimmedOfWhiteSpace(" \t a  b\t "), "a  b");
  EXPECT_EQ(trimmedOfWhiteSpace("\u00A0\u3000\u200Bé\u2009\u202F"), "é");
  EXPECT_EQ(trimmedOfWhiteSpace("a"), "a");
  EXPECT_EQ(trimmedOfWhiteSpace(" \u2003 "), "");
  EXPECT_EQ(trimmedOfWhiteSpace(""), "");
}

TEST(WhiteSpaceTest, LineBreaksAreTrimmedOnlyWhereThatIsAsked) {
  const std::string text = "\r\n a\nb \u2028";
  EXPECT_EQ(trimmedOfWhiteSpace(text), text);
  EXPECT_EQ(trimmedOfWhiteSpaceAndNewlines(text), "a\nb");
}

TEST(WhiteSpaceTest, WhatIsNoValidTextIsKept) {
  EXPECT_EQ(trimmedOfWhiteSpace("\xff a \xff"), "\xff a \xff");
  // The rest of a character behind a space belongs to none.
  EXPECT_EQ(trimmedOfWhiteSpace("a \xa0"), "a \xa0");
}

}  // namespace
}  // namespace zephyl
