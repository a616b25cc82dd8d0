#include "platform/foundation/PropertyListXmlReader.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyListLimits.h"
#include "platform/foundation/PropertyListUid.h"
#include "platform/foundation/PropertyListXmlCharacters.h"
#include "platform/foundation/PropertyListXmlScalars.h"
#include "platform/foundation/PropertyListXmlScanner.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

using Tag = XmlScanner::Tag;

enum class Element {
  kUnknown,
  kKey,
  kDictionary,
  kArray,
  kTrue,
  kFalse,
  kString,
  kInteger,
  kReal,
  kDate,
  kData
};

// By the length first: what is then compared is of a length known to the compiler.
Element elementNamed(std::string_view name) {
  switch (name.size()) {
    case 3:
      return name == "key" ? Element::kKey : Element::kUnknown;
    case 4:
      return name == "dict"   ? Element::kDictionary
             : name == "true" ? Element::kTrue
             : name == "real" ? Element::kReal
             : name == "date" ? Element::kDate
             : name == "data" ? Element::kData
                              : Element::kUnknown;
    case 5:
      return name == "array"   ? Element::kArray
             : name == "false" ? Element::kFalse
                               : Element::kUnknown;
    case 6:
      return name == "string" ? Element::kString : Element::kUnknown;
    case 7:
      return name == "integer" ? Element::kInteger : Element::kUnknown;
    default:
      return Element::kUnknown;
  }
}

std::string quoted(std::string_view name, const char* before = "<") {
  constexpr std::size_t kLongest = 40;
  return name.size() > kLongest ? "a tag" : std::string(before).append(name).append(">");
}

// The texts read last, so that one that comes again, as members do, is shared.
class RecentTexts {
 public:
  // A larger file gets more places.
  explicit RecentTexts(std::size_t fileSize)
      : recent_(std::bit_ceil(std::clamp(fileSize / 256, kFewest, kMost))) {}

  [[nodiscard]] Value share(std::string_view text) {
    if (text.size() > kLongest) {
      return Value(std::string(text));
    }
    Value& recent = recent_[slotOf(text)];
    if (const std::string* known = recent.ifString(); known == nullptr || *known != text) {
      recent = Value(std::string(text));
    }
    return recent;
  }

 private:
  static constexpr std::size_t kLongest = 64;
  static constexpr std::size_t kFewest = 64;
  static constexpr std::size_t kMost = 1024;

  [[nodiscard]] std::size_t slotOf(std::string_view text) const {
    std::uint64_t hash = text.size();
    for (; !text.empty(); text.remove_prefix(std::min(text.size(), sizeof hash))) {
      std::uint64_t block = 0;
      std::memcpy(&block, text.data(), std::min(text.size(), sizeof block));
      hash = (hash ^ block) * 0x9E3779B97F4A7C15U;
      hash ^= hash >> 32U;
    }
    return hash & (recent_.size() - 1);
  }

  std::vector<Value> recent_;
};

class XmlReader {
 public:
  explicit XmlReader(std::string_view text) : scanner_(text), texts_(text.size()) {}

  [[nodiscard]] PropertyListResult read();

 private:
  struct Container {
    bool isDictionary = false;
    std::size_t firstValue = 0;  // of its own, in `values_`
    std::size_t firstKey = 0;
    std::size_t offset = 0;
  };

  [[nodiscard]] bool readRoot();
  [[nodiscard]] bool readUntilClosed(const Tag& plist);
  [[nodiscard]] bool readElement(const Tag& tag);
  [[nodiscard]] bool readKey(const Tag& tag);
  [[nodiscard]] bool readBoolean(const Tag& tag, bool value);
  [[nodiscard]] bool readScalar(const Tag& tag, Element element);
  [[nodiscard]] std::optional<Value> convert(const Tag& tag, Element element,
                                             std::string_view text);
  [[nodiscard]] bool open(const Tag& tag, bool isDictionary);
  [[nodiscard]] bool close(const Tag& tag);
  [[nodiscard]] Value take(const Container& container);

  [[nodiscard]] bool isKeyExpected() const {
    return !open_.empty() && open_.back().isDictionary &&
           keys_.size() - open_.back().firstKey == values_.size() - open_.back().firstValue;
  }

  XmlScanner scanner_;
  RecentTexts texts_;
  std::vector<Container> open_;
  std::vector<Value> values_;  // of all open containers, innermost last
  std::vector<std::string> keys_;
};

PropertyListResult XmlReader::read() {
  if (!readRoot()) {
    return scanner_.failure();
  }
  return std::move(values_.front());
}

bool XmlReader::readRoot() {
  if (!scanner_.skipProlog()) {
    return false;
  }
  const std::optional<Tag> first = scanner_.nextTag();
  if (!first) {
    return false;
  }
  if (first->name == "plist" && first->kind != Tag::Kind::kClose) {
    return first->kind == Tag::Kind::kEmpty ? scanner_.fail("no value in <plist>", first->offset)
                                            : readUntilClosed(*first) && scanner_.atEnd();
  }
  if (!readElement(*first)) {
    return false;
  }
  while (!open_.empty()) {
    const std::optional<Tag> tag = scanner_.nextTag();
    if (!tag || !readElement(*tag)) {
      return false;
    }
  }
  return scanner_.atEnd();
}

bool XmlReader::readUntilClosed(const Tag& plist) {
  while (const std::optional<Tag> tag = scanner_.nextTag()) {
    if (open_.empty() && tag->kind == Tag::Kind::kClose && tag->name == "plist") {
      return !values_.empty() || scanner_.fail("no value in <plist>", plist.offset);
    }
    if (open_.empty() && !values_.empty()) {
      return scanner_.fail("a second value in <plist>", tag->offset);
    }
    if (!readElement(*tag)) {
      return false;
    }
  }
  return false;
}

bool XmlReader::readElement(const Tag& tag) {
  if (tag.kind == Tag::Kind::kClose) {
    return close(tag);
  }
  const Element element = elementNamed(tag.name);
  if (element == Element::kKey) {
    return readKey(tag);
  }
  if (isKeyExpected()) {
    return scanner_.fail(quoted(tag.name) + " where a <key> is expected", tag.offset);
  }
  switch (element) {
    case Element::kArray:
    case Element::kDictionary:
      return open(tag, element == Element::kDictionary);
    case Element::kTrue:
    case Element::kFalse:
      return readBoolean(tag, element == Element::kTrue);
    case Element::kUnknown:
      return scanner_.fail("unknown element " + quoted(tag.name), tag.offset);
    default:
      return readScalar(tag, element);
  }
}

bool XmlReader::readKey(const Tag& tag) {
  if (!isKeyExpected()) {
    const bool valueIsMissing = !open_.empty() && open_.back().isDictionary;
    return scanner_.fail(valueIsMissing ? "a <key> where the value of the key before is expected"
                                        : "a <key> outside a dictionary",
                         tag.offset);
  }
  std::optional<std::string_view> text = std::string_view();
  if (tag.kind == Tag::Kind::kOpen) {
    text = scanner_.textOf("key");
  }
  if (!text) {
    return false;
  }
  keys_.emplace_back(*text);
  return true;
}

bool XmlReader::readBoolean(const Tag& tag, bool value) {
  if (tag.kind == Tag::Kind::kOpen) {
    const std::optional<std::string_view> text = scanner_.textOf(tag.name);
    if (!text) {
      return false;
    }
    if (text->find_first_not_of(" \t\r\n") != std::string_view::npos) {
      return scanner_.fail("text inside " + quoted(tag.name), tag.offset);
    }
  }
  values_.emplace_back(value);
  return true;
}

bool XmlReader::readScalar(const Tag& tag, Element element) {
  std::optional<std::string_view> text = std::string_view();
  if (tag.kind == Tag::Kind::kOpen) {
    text = scanner_.textOf(tag.name);
  }
  if (!text) {
    return false;
  }
  std::optional<Value> value = convert(tag, element, *text);
  if (!value) {
    return scanner_.fail("not a valid " + quoted(tag.name), tag.offset);
  }
  values_.push_back(std::move(*value));
  return true;
}

std::optional<Value> XmlReader::convert(const Tag& tag, Element element, std::string_view text) {
  switch (element) {
    case Element::kString:
      return texts_.share(text);
    case Element::kInteger:
      return parseXmlInteger(text);
    case Element::kReal:
      return parseXmlReal(text);
    case Element::kDate:
      return parseXmlDate(text, XmlScanner::attribute(tag.attributes, "fraction"));
    default:
      return parseBase64(text);
  }
}

bool XmlReader::open(const Tag& tag, bool isDictionary) {
  if (open_.size() == kMaximumDepth) {
    return scanner_.fail(kTooDeep, tag.offset);
  }
  open_.push_back({isDictionary, values_.size(), keys_.size(), tag.offset});
  return tag.kind == Tag::Kind::kOpen || close(tag);
}

bool XmlReader::close(const Tag& tag) {
  if (open_.empty() || tag.name != (open_.back().isDictionary ? "dict" : "array")) {
    return scanner_.fail(quoted(tag.name, "</") + " closes nothing", tag.offset);
  }
  const Container container = open_.back();
  if (container.isDictionary && !isKeyExpected()) {
    return scanner_.fail("a <key> without a value", tag.offset);
  }
  Value value = take(container);
  open_.pop_back();
  values_.resize(container.firstValue);
  keys_.resize(container.firstKey);
  values_.push_back(std::move(value));
  return true;
}

Value XmlReader::take(const Container& container) {
  const auto first = values_.begin() + static_cast<std::ptrdiff_t>(container.firstValue);
  if (!container.isDictionary) {
    return Array(std::make_move_iterator(first), std::make_move_iterator(values_.end()));
  }
  Dictionary entries;
  for (std::size_t i = container.firstValue; i < values_.size(); ++i) {
    entries.set(std::move(keys_[container.firstKey + i - container.firstValue]),
                std::move(values_[i]));
  }
  return uidOrDictionary(std::move(entries));
}

}  // namespace

PropertyListResult readXmlPropertyList(std::string_view text) {
  const std::size_t forbidden = findForbiddenXml(text);
  if (forbidden != std::string_view::npos) {
    XmlScanner scanner(text);
    scanner.fail(utf8CharacterAt(text, forbidden).length > 0 ? "a character that XML forbids"
                                                             : "text that is not UTF-8",
                 forbidden);
    return scanner.failure();
  }
  return XmlReader(text).read();
}

}  // namespace zephyl::detail
