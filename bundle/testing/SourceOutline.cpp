#include "bundle/testing/SourceOutline.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace zephyl::test {

namespace {

template <std::size_t Size>
bool isOneOf(const SourceToken& token, const std::array<std::string_view, Size>& words) {
  return token.isWord() && std::find(words.begin(), words.end(), token.text) != words.end();
}

constexpr std::array<std::string_view, 5> kControls = {"if", "for", "while", "switch", "catch"};
constexpr std::array<std::string_view, 5> kQualifiers = {"const", "noexcept", "override", "final",
                                                         "mutable"};

// The name of a parameter: its last word before a default value.
std::string parameterName(const std::vector<SourceToken>& tokens, SourceOutline::Range range) {
  std::string name;
  for (std::size_t at = range.begin; at < range.end && !tokens[at].is("="); ++at) {
    if (tokens[at].isWord()) {
      name = tokens[at].text;
    }
  }
  return name;
}

}  // namespace

bool isConstantName(std::string_view word) {
  return word.size() > 1 && word[0] == 'k' &&
         std::isupper(static_cast<unsigned char>(word[1])) != 0;
}

SourceOutline::SourceOutline(std::string file, std::string_view source)
    : file_(std::move(file)), tokens_(tokensOf(source)) {
  matchBrackets();
  findFunctions();
  findConstants();
}

void SourceOutline::matchBrackets() {
  constexpr std::string_view kOpen = "([{";
  constexpr std::string_view kClose = ")]}";
  matches_.resize(tokens_.size());
  std::vector<std::size_t> open;
  for (std::size_t at = 0; at < tokens_.size(); ++at) {
    matches_[at] = at;
    if (tokens_[at].kind != SourceToken::Kind::kSign || tokens_[at].text.size() != 1) {
      continue;
    }
    const char sign = tokens_[at].text[0];
    if (kOpen.find(sign) != std::string_view::npos) {
      open.push_back(at);
    } else if (kClose.find(sign) != std::string_view::npos && !open.empty()) {
      matches_[at] = open.back();
      matches_[open.back()] = at;
      open.pop_back();
    }
  }
}

std::vector<SourceOutline::Range> SourceOutline::partsOf(std::size_t bracket) const {
  std::vector<Range> parts;
  const std::size_t end = matches_[bracket];
  std::size_t begin = bracket + 1;
  for (std::size_t at = begin; at < end; at = std::max(at, matches_[at]) + 1) {
    if (tokens_[at].is(",")) {
      parts.push_back({begin, at});
      begin = at + 1;
    }
  }
  if (begin < end) {
    parts.push_back({begin, end});
  }
  return parts;
}

// Where "-> type" begins, when the place is the end of one.
std::size_t SourceOutline::beforeTrailingType(std::size_t place) const {
  for (std::size_t at = place; at > 0; --at) {
    if (tokens_[at].is("->")) {
      return at - 1;
    }
    if (!tokens_[at].isWord() && !tokens_[at].is("::") && !tokens_[at].is("<") &&
        !tokens_[at].is(">") && !tokens_[at].is("*") && !tokens_[at].is("&") &&
        !tokens_[at].is(",")) {
      break;
    }
  }
  return place;
}

// From the last of "(...) : a(...), b{...}" back to the first bracket; nothing when it is no such
// list.
std::optional<std::size_t> SourceOutline::beforeInitializers(std::size_t place) const {
  while (place > 0 && (tokens_[place].is(")") || tokens_[place].is("}"))) {
    const std::size_t open = matches_[place];
    if (open < 2 || !tokens_[open - 1].isWord()) {
      return std::nullopt;
    }
    if (tokens_[open - 2].is(":") && open > 2 && tokens_[open - 3].is(")")) {
      return open - 3;
    }
    if (!tokens_[open - 2].is(",")) {
      return std::nullopt;
    }
    place = open - 3;
  }
  return std::nullopt;
}

// The bracket that closes the parameters of the function whose body opens at the brace.
std::optional<std::size_t> SourceOutline::parametersBefore(std::size_t brace) const {
  if (brace == 0) {
    return std::nullopt;
  }
  std::size_t at = beforeTrailingType(brace - 1);
  while (at > 0 && isOneOf(tokens_[at], kQualifiers)) {
    --at;
  }
  if (const auto parameters = beforeInitializers(at)) {
    return parameters;
  }
  return tokens_[at].is(")") && matches_[at] > 0 ? std::optional(at) : std::nullopt;
}

std::optional<SourceFunction> SourceOutline::functionAt(std::size_t brace) const {
  const auto parameters = parametersBefore(brace);
  if (!parameters) {
    return std::nullopt;
  }
  const std::size_t open = matches_[*parameters];
  if (open == 0) {
    return std::nullopt;
  }
  SourceFunction function;
  function.bodyBegin = brace;
  function.bodyEnd = matches_[brace];
  function.nameAt = open - 1;
  if (tokens_[open - 1].is("]")) {
    function.isLocal = true;
    const std::size_t capture = matches_[open - 1];
    if (capture > 1 && tokens_[capture - 1].is("=") && tokens_[capture - 2].isWord()) {
      function.nameAt = capture - 2;
      function.name = tokens_[capture - 2].text;
    }
  } else if (tokens_[open - 1].isWord() && !isOneOf(tokens_[open - 1], kControls)) {
    function.name = tokens_[open - 1].text;
  } else {
    return std::nullopt;
  }
  for (const Range part : partsOf(open)) {
    function.parameters.push_back(parameterName(tokens_, part));
  }
  return function;
}

void SourceOutline::findFunctions() {
  std::size_t namelessEnd = 0;
  for (std::size_t at = 0; at < tokens_.size(); ++at) {
    if (!tokens_[at].is("{")) {
      continue;
    }
    if (at > 0 && tokens_[at - 1].isWord("namespace")) {
      namelessEnd = matches_[at];
    }
    if (auto function = functionAt(at)) {
      function->isLocal = function->isLocal || at < namelessEnd;
      functions_.push_back(std::move(*function));
    }
  }
}

void SourceOutline::findConstants() {
  for (std::size_t at = 0; at + 1 < tokens_.size(); ++at) {
    if (!tokens_[at].isWord() || !isConstantName(tokens_[at].text)) {
      continue;
    }
    std::size_t begin = at + 1;
    while (tokens_[begin].is("[")) {
      begin = matches_[begin] + 1;
      if (begin >= tokens_.size()) {
        return;
      }
    }
    if (!tokens_[begin].is("=") && !tokens_[begin].is("{")) {
      continue;
    }
    std::vector<std::string> texts;
    for (std::size_t next = begin; next < tokens_.size() && !tokens_[next].is(";"); ++next) {
      if (tokens_[next].isText()) {
        texts.push_back(tokens_[next].text);
      }
    }
    if (!texts.empty()) {
      constants_[tokens_[at].text] = std::move(texts);
    }
  }
}

}  // namespace zephyl::test
