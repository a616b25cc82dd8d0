#include "bundle/testing/SourceTokens.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace zephyl::test {

namespace {

using Kind = SourceToken::Kind;

bool isWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

void appendUtf8(std::string& text, std::uint32_t code) {
  const auto tail = [&](unsigned shift) {
    text += static_cast<char>(0x80U | (code >> shift & 0x3FU));
  };
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | code >> 6U);
    tail(0);
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0U | code >> 12U);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0U | code >> 18U);
    tail(12);
    tail(6);
    tail(0);
  }
}

class Reader {
 public:
  explicit Reader(std::string_view source) : source_(source) {}

  std::vector<SourceToken> tokens();

 private:
  [[nodiscard]] bool isAt(std::string_view text) const {
    return source_.substr(std::min(at_, source_.size())).starts_with(text);
  }
  [[nodiscard]] char here() const { return at_ < source_.size() ? source_[at_] : '\0'; }
  void skip(std::size_t count);
  void skipThrough(std::string_view end);
  void skipLine();
  bool skipOther();
  void readWordOrText();
  void readNumber();
  void readText();
  void readRawText();
  void readEscape(std::string& text);
  std::uint32_t readDigits(unsigned base, std::size_t most);
  void readCharacter();
  void readSign();
  void addText(std::string text, int line);

  std::string_view source_;
  std::size_t at_ = 0;
  int line_ = 1;
  bool atLineStart_ = true;
  std::vector<SourceToken> tokens_;
};

void Reader::skip(std::size_t count) {
  for (; count > 0 && at_ < source_.size(); --count, ++at_) {
    line_ += source_[at_] == '\n' ? 1 : 0;
  }
}

void Reader::skipThrough(std::string_view end) {
  const std::size_t found = source_.find(end, at_);
  skip(found == std::string_view::npos ? source_.size() - at_ : found + end.size() - at_);
}

// With the lines that a backslash joins to it.
void Reader::skipLine() {
  while (at_ < source_.size() && here() != '\n') {
    skip(isAt("\\\n") ? 2 : 1);
  }
}

// White space, comments and directives.
bool Reader::skipOther() {
  if (std::isspace(static_cast<unsigned char>(here())) != 0) {
    atLineStart_ = atLineStart_ || here() == '\n';
    skip(1);
  } else if (isAt("/*")) {
    skip(2);
    skipThrough("*/");
  } else if (isAt("//") || (atLineStart_ && here() == '#')) {
    skipLine();
  } else {
    return false;
  }
  return true;
}

void Reader::addText(std::string text, int line) {
  if (!tokens_.empty() && tokens_.back().isText()) {
    tokens_.back().text += text;
  } else {
    tokens_.push_back({Kind::kText, std::move(text), line});
  }
}

// A word before a quote is the literal's encoding; one that ends in R makes it raw.
void Reader::readWordOrText() {
  const std::size_t begin = at_;
  while (isWordCharacter(here())) {
    skip(1);
  }
  const std::string_view word = source_.substr(begin, at_ - begin);
  constexpr std::array<std::string_view, 9> kEncodings = {"u8",  "u",  "U",  "L", "R",
                                                          "u8R", "uR", "UR", "LR"};
  if (std::find(kEncodings.begin(), kEncodings.end(), word) == kEncodings.end() ||
      (here() != '"' && here() != '\'')) {
    tokens_.push_back({Kind::kWord, std::string(word), line_});
  } else if (here() == '"' && word.ends_with('R')) {
    readRawText();
  }
}

void Reader::readNumber() {
  const std::size_t begin = at_;
  while (isWordCharacter(here()) || here() == '.' || here() == '\'') {
    skip(1);
  }
  tokens_.push_back({Kind::kNumber, std::string(source_.substr(begin, at_ - begin)), line_});
}

void Reader::readRawText() {
  const int line = line_;
  skip(1);
  const std::size_t open = source_.find('(', at_);
  if (open == std::string_view::npos) {
    skip(source_.size());
    return;
  }
  const std::string end = std::string(")").append(source_.substr(at_, open - at_)).append("\"");
  skip(open + 1 - at_);
  const std::size_t found = source_.find(end, at_);
  addText(std::string(source_.substr(at_, found - at_)), line);
  skipThrough(end);
}

void Reader::readText() {
  const int line = line_;
  std::string text;
  skip(1);
  while (at_ < source_.size() && here() != '"') {
    if (here() == '\\') {
      skip(1);
      readEscape(text);
    } else {
      text += here();
      skip(1);
    }
  }
  skip(1);
  addText(std::move(text), line);
}

std::uint32_t Reader::readDigits(unsigned base, std::size_t most) {
  std::uint32_t number = 0;
  for (; most > 0; --most) {
    const std::size_t digit =
        std::string_view("0123456789abcdef")
            .find(static_cast<char>(std::tolower(static_cast<unsigned char>(here()))));
    if (digit >= base) {
      break;
    }
    number = number * base + static_cast<std::uint32_t>(digit);
    skip(1);
  }
  return number;
}

void Reader::readEscape(std::string& text) {
  constexpr std::string_view kNames = "abfnrtv";
  constexpr std::string_view kMeanings = "\a\b\f\n\r\t\v";
  if (at_ >= source_.size()) {
    return;
  }
  const char name = here();
  if (name >= '0' && name <= '7') {
    text += static_cast<char>(readDigits(8, 3));
    return;
  }
  skip(1);
  if (name == 'x') {
    text += static_cast<char>(readDigits(16, source_.size()));
  } else if (name == 'u' || name == 'U') {
    appendUtf8(text, readDigits(16, name == 'u' ? 4 : 8));
  } else if (const std::size_t found = kNames.find(name); found != std::string_view::npos) {
    text += kMeanings[found];
  } else if (name != '\n') {
    text += name;
  }
}

void Reader::readCharacter() {
  tokens_.push_back({Kind::kSign, "'", line_});
  skip(1);
  while (at_ < source_.size() && here() != '\'') {
    skip(here() == '\\' ? 2 : 1);
  }
  skip(1);
}

void Reader::readSign() {
  constexpr std::array<std::string_view, 5> kLong = {"::", "->", "==", "!=", "&&"};
  std::size_t length = 1;
  for (const std::string_view sign : kLong) {
    length = isAt(sign) ? sign.size() : length;
  }
  tokens_.push_back({Kind::kSign, std::string(source_.substr(at_, length)), line_});
  skip(length);
}

std::vector<SourceToken> Reader::tokens() {
  while (at_ < source_.size()) {
    if (skipOther()) {
      continue;
    }
    atLineStart_ = false;
    if (std::isdigit(static_cast<unsigned char>(here())) != 0) {
      readNumber();
    } else if (isWordCharacter(here())) {
      readWordOrText();
    } else if (here() == '"') {
      readText();
    } else if (here() == '\'') {
      readCharacter();
    } else {
      readSign();
    }
  }
  return std::move(tokens_);
}

}  // namespace

std::vector<SourceToken> tokensOf(std::string_view source) {
  return Reader(source).tokens();
}

}  // namespace zephyl::test
