// The words, texts and signs of C++ source.

#include "bundle/testing/SourceTokens.h"

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::test {
namespace {

std::vector<std::string> all(std::string_view source) {
  std::vector<std::string> found;
  for (const SourceToken& token : tokensOf(source)) {
    found.push_back(token.isText() ? "text:" + token.text : token.text);
  }
  return found;
}

using Tokens = std::vector<std::string>;

TEST(SourceTokens, AreWordsNumbersAndSigns) {
  EXPECT_EQ(all("a::b->c(1'000, 2.5) != d"),
            (Tokens{"a", "::", "b", "->", "c", "(", "1'000", ",", "2.5", ")", "!=", "d"}));
}

TEST(SourceTokens, NeighbouringTextsAreJoinedOverLinesAndComments) {
  EXPECT_EQ(all("f(\"one \"\n  // why\n  \"two\")"), (Tokens{"f", "(", "text:one two", ")"}));
}

TEST(SourceTokens, EscapesAreDecoded) {
  EXPECT_EQ(all(R"("a\n\t\"\\\'b")"), Tokens{"text:a\n\t\"\\'b"});
  EXPECT_EQ(all(R"("\x41\102\u2713\U0001F600")"), Tokens{"text:AB\u2713\U0001F600"});
}

TEST(SourceTokens, RawTextsStayAsTheyAre) {
  EXPECT_EQ(all("R\"x(a\\n\")\" b)x\" c"), (Tokens{"text:a\\n\")\" b", "c"}));
  EXPECT_EQ(all("u8\"a\" R\"(b)\""), Tokens{"text:ab"});
}

TEST(SourceTokens, CommentsDirectivesAndCharactersHoldNoTexts) {
  EXPECT_EQ(all("#include \"a.h\"\n#define X \\\n  \"b\"\n/* \"c\" */ x = '\"'; // \"d\"\ny"),
            (Tokens{"x", "=", "'", ";", "y"}));
}

TEST(SourceTokens, TellTheLineTheyBeginOn) {
  const auto tokens = tokensOf("a\n/*\n*/ \"b\"\n\"c\" d");
  ASSERT_EQ(tokens.size(), 3U);
  EXPECT_EQ(tokens[0].line, 1);
  EXPECT_EQ(tokens[1].line, 3);
  EXPECT_EQ(tokens[2].line, 4);
}

TEST(SourceTokens, SourceMayEndInTheMiddle) {
  EXPECT_EQ(all("\"open\\"), Tokens{"text:open"});
  EXPECT_EQ(all("/* open"), Tokens());
  EXPECT_EQ(all("R\"(op"), Tokens{"text:op"});
  EXPECT_EQ(all("R\"op"), Tokens());
  EXPECT_EQ(all("'"), Tokens{"'"});
}

}  // namespace
}  // namespace zephyl::test
