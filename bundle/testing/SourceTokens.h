// The words, texts and signs of C++ source, for tests that look into the sources. Comments and
// preprocessor lines are left out. Pure, any thread.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zephyl::test {

struct SourceToken {
  enum class Kind { kWord, kNumber, kText, kSign };

  Kind kind = Kind::kSign;
  // Of a text what the program gets: escapes decoded, neighbouring literals joined. Signs are
  // single characters, but for :: -> == != and &&; a character literal is the sign '.
  std::string text;
  int line = 0;

  [[nodiscard]] bool is(std::string_view sign) const { return kind == Kind::kSign && text == sign; }
  [[nodiscard]] bool isWord(std::string_view word) const {
    return kind == Kind::kWord && text == word;
  }
  [[nodiscard]] bool isWord() const { return kind == Kind::kWord; }
  [[nodiscard]] bool isText() const { return kind == Kind::kText; }
};

// Of source that ends in the middle of something, what is there.
[[nodiscard]] std::vector<SourceToken> tokensOf(std::string_view source);

}  // namespace zephyl::test
