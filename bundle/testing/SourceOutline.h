// The functions and constants of one C++ source file, told by the shape of its tokens. Good enough
// for sources in this project's style; what it does not know as a function is none. Pure, any
// thread.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "bundle/testing/SourceTokens.h"

namespace zephyl::test {

// A function, or a lambda, that has a body. Places are indexes of tokens.
struct SourceFunction {
  std::string name;  // without class and namespace; of a lambda its variable, or empty
  std::vector<std::string> parameters;  // names; empty where there is none
  std::size_t nameAt = 0;
  std::size_t bodyBegin = 0;  // the brace that opens it
  std::size_t bodyEnd = 0;    // the brace that closes it
  bool isLocal = false;       // a lambda, or in a namespace without a name
};

class SourceOutline {
 public:
  SourceOutline(std::string file, std::string_view source);

  [[nodiscard]] const std::string& file() const { return file_; }
  [[nodiscard]] const std::vector<SourceToken>& tokens() const { return tokens_; }

  // In the order of their bodies, so that one within another comes later.
  [[nodiscard]] const std::vector<SourceFunction>& functions() const { return functions_; }

  // What a constant such as kTitle is made of: the texts in its initializer, in order.
  [[nodiscard]] const std::map<std::string, std::vector<std::string>>& constants() const {
    return constants_;
  }

  // The bracket that belongs to the one at that place; its own place when there is none.
  [[nodiscard]] std::size_t matchOf(std::size_t place) const { return matches_[place]; }

  // The tokens between the commas of the brackets that open at that place: [begin, end) each.
  struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  [[nodiscard]] std::vector<Range> partsOf(std::size_t bracket) const;

 private:
  void matchBrackets();
  void findFunctions();
  void findConstants();
  [[nodiscard]] std::optional<std::size_t> parametersBefore(std::size_t brace) const;
  [[nodiscard]] std::size_t beforeTrailingType(std::size_t place) const;
  [[nodiscard]] std::optional<std::size_t> beforeInitializers(std::size_t place) const;
  [[nodiscard]] std::optional<SourceFunction> functionAt(std::size_t brace) const;

  std::string file_;
  std::vector<SourceToken> tokens_;
  std::vector<std::size_t> matches_;
  std::vector<SourceFunction> functions_;
  std::map<std::string, std::vector<std::string>> constants_;
};

// "kTitle": the name of a constant.
[[nodiscard]] bool isConstantName(std::string_view word);

}  // namespace zephyl::test
