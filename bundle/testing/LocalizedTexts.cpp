#include "bundle/testing/LocalizedTexts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

namespace zephyl::test {

namespace {

using Range = SourceOutline::Range;

constexpr char kRoot[] = "localizedStringForKey";
constexpr std::size_t kTableParameter = 2;

// A parameter of a function that is looked up. `file` is empty when the function is known to all.
struct Lookup {
  std::string function;
  std::string file;
  std::size_t parameter = 0;
  std::string table;  // empty for the root, whose calls name it

  friend bool operator<(const Lookup& left, const Lookup& right) {
    return std::tie(left.function, left.file, left.parameter, left.table) <
           std::tie(right.function, right.file, right.parameter, right.table);
  }
};

// What an argument was found to be.
struct Origin {
  std::vector<std::string> texts;
  std::vector<Lookup> handedOn;
  bool isUnclear = false;
};

bool isValueWord(const SourceToken& token) {
  constexpr std::array<std::string_view, 9> kOthers = {
      "std", "const", "auto", "nullptr", "nullopt", "this", "string", "string_view", "return"};
  return token.isWord() && std::find(kOthers.begin(), kOthers.end(), token.text) == kOthers.end();
}

class Search {
 public:
  explicit Search(const std::vector<SourceOutline>& sources) : sources_(sources) {
    lookups_.insert({kRoot, "", 0, ""});
  }

  LocalizedTexts run();

 private:
  bool lookAtAll();
  void lookAt(const SourceOutline& source, std::size_t at);
  void lookAtCall(const SourceOutline& source, std::size_t at, const Lookup& lookup);
  [[nodiscard]] bool isCall(const SourceOutline& source, std::size_t at) const;
  [[nodiscard]] std::optional<std::string> tableOf(const SourceOutline& source,
                                                   const std::vector<Range>& arguments) const;
  void addTexts(const SourceOutline& source, Range range, Origin& origin) const;
  [[nodiscard]] const std::vector<std::string>* constant(const SourceOutline& source,
                                                         const std::string& name) const;
  [[nodiscard]] Origin originOf(const SourceOutline& source, Range range) const;
  bool addVariable(const SourceOutline& source, std::size_t at, Origin& origin) const;
  static bool addParameter(const SourceOutline& source, const SourceFunction& function,
                           const std::string& name, Origin& origin);
  bool addSettings(const SourceOutline& source, const SourceFunction& function, std::size_t at,
                   Origin& origin) const;
  void addUnclear(const SourceOutline& source, std::size_t at, Range range);

  const std::vector<SourceOutline>& sources_;
  std::set<Lookup> lookups_;
  LocalizedTexts found_;
};

// Whether the name at that place is called there, and neither declared nor defined.
bool Search::isCall(const SourceOutline& source, std::size_t at) const {
  const auto& tokens = source.tokens();
  for (const SourceFunction& function : source.functions()) {
    if (function.nameAt == at) {
      return false;
    }
  }
  constexpr std::array<std::string_view, 6> kBeforeCalls = {"return", "throw",     "else",
                                                            "case",   "co_return", "do"};
  const SourceToken& before = tokens[at == 0 ? 0 : at - 1];
  if (before.isWord()) {
    return std::find(kBeforeCalls.begin(), kBeforeCalls.end(), before.text) != kBeforeCalls.end();
  }
  return !before.is(">") && !before.is("&") && !before.is("*");
}

const std::vector<std::string>* Search::constant(const SourceOutline& source,
                                                 const std::string& name) const {
  if (const auto own = source.constants().find(name); own != source.constants().end()) {
    return &own->second;
  }
  for (const SourceOutline& other : sources_) {
    const auto theirs = other.constants().find(name);
    if (other.file().ends_with(".h") && theirs != other.constants().end()) {
      return &theirs->second;
    }
  }
  return nullptr;
}

// The texts that stand in the range, themselves or by the names of constants. What is only compared
// with something is no text of it.
void Search::addTexts(const SourceOutline& source, Range range, Origin& origin) const {
  const auto& tokens = source.tokens();
  for (std::size_t at = range.begin; at < range.end; ++at) {
    const auto isComparison = [&](std::size_t place) {
      return place < tokens.size() && (tokens[place].is("==") || tokens[place].is("!="));
    };
    if (isComparison(at - 1) || isComparison(at + 1)) {
      continue;
    }
    if (tokens[at].isText()) {
      origin.texts.push_back(tokens[at].text);
    } else if (tokens[at].isWord() && isConstantName(tokens[at].text)) {
      if (const auto* texts = constant(source, tokens[at].text)) {
        origin.texts.insert(origin.texts.end(), texts->begin(), texts->end());
      }
    }
  }
}

bool Search::addParameter(const SourceOutline& source, const SourceFunction& function,
                          const std::string& name, Origin& origin) {
  const auto& names = function.parameters;
  const auto found = std::find(names.begin(), names.end(), name);
  if (found == names.end() || function.name.empty()) {
    return false;
  }
  const auto index = static_cast<std::size_t>(found - names.begin());
  origin.handedOn.push_back({function.name, function.isLocal ? source.file() : "", index, ""});
  return true;
}

// What the variable at that place is set to earlier in the function: "name = ...;", "name{...}",
// "name(...)" or "for (... name : ...)".
bool Search::addSettings(const SourceOutline& source, const SourceFunction& function,
                         std::size_t at, Origin& origin) const {
  const auto& tokens = source.tokens();
  bool isSet = false;
  for (std::size_t place = function.bodyBegin + 1; place < at; ++place) {
    if (!tokens[place].isWord(tokens[at].text)) {
      continue;
    }
    std::size_t begin = place + 1;
    while (begin < at && tokens[begin].is("[")) {
      begin = source.matchOf(begin) + 1;
    }
    const SourceToken& next = tokens[begin];
    Range range{begin + 1, begin + 1};
    if (next.is("=") || next.is(":")) {
      while (range.end < at && !tokens[range.end].is(";") && !tokens[range.end].is(")")) {
        range.end = std::max(range.end, source.matchOf(range.end)) + 1;
      }
    } else if (next.is("{") || (next.is("(") && tokens[place - 1].isWord())) {
      range.end = source.matchOf(begin);
    }
    const std::size_t before = origin.texts.size();
    addTexts(source, range, origin);
    isSet = isSet || origin.texts.size() > before;
    for (std::size_t word = range.begin; word < range.end; ++word) {
      if (tokens[word].isWord()) {
        isSet = addParameter(source, function, tokens[word].text, origin) || isSet;
      }
    }
  }
  return isSet;
}

bool Search::addVariable(const SourceOutline& source, std::size_t at, Origin& origin) const {
  const auto& functions = source.functions();
  for (auto function = functions.rbegin(); function != functions.rend(); ++function) {
    if (function->bodyBegin > at || function->bodyEnd < at) {
      continue;
    }
    if (addParameter(source, *function, source.tokens()[at].text, origin) ||
        addSettings(source, *function, at, origin)) {
      return true;
    }
  }
  return false;
}

Origin Search::originOf(const SourceOutline& source, Range range) const {
  const auto& tokens = source.tokens();
  Origin origin;
  addTexts(source, range, origin);
  if (!origin.texts.empty()) {
    return origin;
  }
  bool hasVariable = false;
  bool isKnown = false;
  for (std::size_t at = range.begin; at < range.end; ++at) {
    const bool isMember = at > range.begin && (tokens[at - 1].is(".") || tokens[at - 1].is("->"));
    const bool isName = tokens[at + 1].is("::") || tokens[at + 1].is("(");
    if (isValueWord(tokens[at]) && !isMember) {
      hasVariable = true;
      isKnown = (!isName && addVariable(source, at, origin)) || isKnown;
    }
  }
  origin.isUnclear = hasVariable && !isKnown;
  return origin;
}

std::optional<std::string> Search::tableOf(const SourceOutline& source,
                                           const std::vector<Range>& arguments) const {
  if (arguments.size() <= kTableParameter) {
    return "Localizable";
  }
  Origin table;
  addTexts(source, arguments[kTableParameter], table);
  return table.texts.size() == 1 ? std::optional(table.texts.front()) : std::nullopt;
}

void Search::addUnclear(const SourceOutline& source, std::size_t at, Range range) {
  std::string place = source.file();
  place.append(":").append(std::to_string(source.tokens()[at].line)).append(":");
  for (std::size_t word = range.begin; word < range.end; ++word) {
    place.append(" ").append(source.tokens()[word].text);
  }
  found_.unclear.push_back(std::move(place));
}

void Search::lookAtCall(const SourceOutline& source, std::size_t at, const Lookup& lookup) {
  const auto arguments = source.partsOf(at + 1);
  if (arguments.size() <= lookup.parameter) {
    return;  // the default value
  }
  const Range argument = arguments[lookup.parameter];
  const auto table = lookup.table.empty() ? tableOf(source, arguments) : lookup.table;
  Origin origin = originOf(source, argument);
  if (!table || origin.isUnclear) {
    addUnclear(source, at, {at, source.matchOf(at + 1) + 1});
    return;
  }
  for (std::string& text : origin.texts) {
    if (!text.empty()) {
      found_.texts.push_back({source.file(), source.tokens()[at].line, std::move(text), *table});
    }
  }
  for (Lookup& next : origin.handedOn) {
    next.table = *table;
    lookups_.insert(std::move(next));
  }
}

void Search::lookAt(const SourceOutline& source, std::size_t at) {
  const auto& tokens = source.tokens();
  if (!tokens[at].isWord() || !tokens[at + 1].is("(")) {
    return;
  }
  // A copy: what is found here joins the set.
  std::vector<Lookup> lookups;
  const auto first = lookups_.lower_bound({tokens[at].text, "", 0, ""});
  for (auto lookup = first; lookup != lookups_.end() && lookup->function == tokens[at].text;
       ++lookup) {
    if (lookup->file.empty() || lookup->file == source.file()) {
      lookups.push_back(*lookup);
    }
  }
  if (lookups.empty() || !isCall(source, at)) {
    return;
  }
  for (const Lookup& lookup : lookups) {
    lookAtCall(source, at, lookup);
  }
}

// Whether nothing new that looks texts up was found on the way.
bool Search::lookAtAll() {
  const std::size_t known = lookups_.size();
  found_ = {};
  for (const SourceOutline& source : sources_) {
    for (std::size_t at = 0; at + 1 < source.tokens().size(); ++at) {
      lookAt(source, at);
    }
  }
  return lookups_.size() == known;
}

// Each round finds one more function at least, so there are no more rounds than functions.
LocalizedTexts Search::run() {
  while (!lookAtAll()) {
  }
  return std::move(found_);
}

}  // namespace

LocalizedTexts localizedTextsOf(const std::vector<SourceOutline>& sources) {
  return Search(sources).run();
}

}  // namespace zephyl::test
