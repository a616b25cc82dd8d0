// Where characters end as a reader sees them.

#include "platform/foundation/Utf8Cluster.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

std::string firstOf(std::string_view text) {
  return std::string(text.substr(0, utf8ClusterLength(text, 0)));
}

TEST(Utf8Cluster, WhatJoinsASignBelongsToIt) {
  for (const char* whole :
       {"a", "\u00e4", "e\u0301", "\u1100\u1161\u11a8", "\u0915\u093f", "\u304b\u3099",
        "\u05e9\u05c1",
        // A thumb with a skin tone, a family, a heart as a picture, flags of a
        // country and of a region, a keycap.
        "\U0001F44D\U0001F3FD", "\U0001F468\u200d\U0001F469\u200d\U0001F467", "\u2764\ufe0f",
        "\U0001F1E9\U0001F1EA", "\U0001F3F4\U000E0067\U000E0062\U000E0073\U000E007F",
        "1\ufe0f\u20e3"}) {
    EXPECT_EQ(firstOf(whole), whole);
    EXPECT_EQ(firstOf(std::string(whole) + "x"), whole);
    EXPECT_EQ(firstOf(std::string(whole) + "\U0001F468"), whole);
  }
}

TEST(Utf8Cluster, TwoFlagsAreTwoCharacters) {
  EXPECT_EQ(firstOf("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"), "\U0001F1E9\U0001F1EA");
}

TEST(Utf8Cluster, LettersAreNotJoinedByAJoiner) {
  EXPECT_EQ(firstOf("a\u200d"
                    "b"),
            "a\u200d");
}

TEST(Utf8Cluster, BrokenTextEndsACharacterAndBeginsNone) {
  EXPECT_EQ(utf8ClusterLength("\xff", 0), 0U);
  EXPECT_EQ(utf8ClusterLength("e\xcc", 0), 1U);
  EXPECT_EQ(utf8ClusterLength("ab", 1), 1U);
}

}  // namespace
}  // namespace zephyl
