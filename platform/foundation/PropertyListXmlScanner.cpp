#include "platform/foundation/PropertyListXmlScanner.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <utility>

#include "platform/foundation/PropertyListXmlCharacters.h"
#include "platform/foundation/Utf8.h"

namespace zephyl::detail {

namespace {

constexpr std::uint64_t kOnes = 0x0101010101010101U;
constexpr std::uint64_t kHighBits = 0x8080808080808080U;
constexpr std::size_t kBlock = sizeof(std::uint64_t);

bool isWhiteSpace(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

std::uint64_t blockAt(std::string_view text, std::size_t at) {
  std::uint64_t block = 0;
  std::memcpy(&block, text.data() + at, kBlock);
  return block;
}

// Not 0 when one of the eight bytes is 0. A byte of 0x80 and more never counts as 0.
constexpr std::uint64_t zeroBytes(std::uint64_t block) {
  return (block - kOnes) & ~block & kHighBits;
}

constexpr std::uint64_t bytesEqual(std::uint64_t block, char c) {
  return zeroBytes(block ^ (kOnes * static_cast<unsigned char>(c)));
}

bool isPlain(char c) {
  return c != '<' && c != '&' && c != '\r';
}

}  // namespace

bool XmlScanner::fail(std::string reason, std::size_t offset) {
  if (!failure_) {
    failure_ = PropertyListError{std::move(reason), offset, 0};
  }
  return false;
}

PropertyListError XmlScanner::failure() const {
  PropertyListError error = failure_.value_or(PropertyListError{});
  const std::string_view before = text_.substr(0, error.offset);
  error.line = 1 + static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  return error;
}

void XmlScanner::skipWhiteSpace() {
  while (at_ < text_.size() && isWhiteSpace(text_[at_])) {
    ++at_;
  }
}

bool XmlScanner::skipPast(std::string_view start, std::string_view end, const char* what) {
  const std::size_t found = text_.find(end, at_ + start.size());
  if (found == std::string_view::npos) {
    return fail(std::string("the file ends inside ") + what, at_);
  }
  at_ = found + end.size();
  return true;
}

bool XmlScanner::skipWhiteSpaceAndComments() {
  while (true) {
    skipWhiteSpace();
    if (startsHere("<!--")) {
      if (!skipPast("<!--", "-->", "a comment")) {
        return false;
      }
    } else if (startsHere("<?")) {
      if (!skipPast("<?", "?>", "a processing instruction")) {
        return false;
      }
    } else {
      return true;
    }
  }
}

bool XmlScanner::skipDeclaration() {
  const std::size_t start = at_;
  if (!skipPast("<?xml", "?>", "the XML declaration")) {
    return false;
  }
  const auto encoding = attribute(text_.substr(start + 5, at_ - start - 7), "encoding");
  if (!encoding) {
    return true;
  }
  std::string upper(*encoding);
  std::transform(upper.begin(), upper.end(), upper.begin(), [](char c) {
    return static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  });
  constexpr std::array<std::string_view, 7> kKnown = {"UTF-8",  "UTF8",     "US-ASCII", "ASCII",
                                                      "UTF-16", "UTF-16LE", "UTF-16BE"};
  if (std::find(kKnown.begin(), kKnown.end(), upper) != kKnown.end()) {
    return true;
  }
  return fail("the encoding \"" + std::string(*encoding) + "\" is not known; save as UTF-8", start);
}

bool XmlScanner::skipDocumentType() {
  const std::size_t start = at_;
  at_ += std::string_view("<!DOCTYPE").size();
  while (at_ < text_.size()) {
    const char c = text_[at_++];
    if (c == '>') {
      return true;
    }
    if (c == '[') {
      return fail("declarations inside the document type are not allowed", at_ - 1);
    }
    if (c == '"' || c == '\'') {
      const std::size_t quote = text_.find(c, at_);
      at_ = quote == std::string_view::npos ? text_.size() : quote + 1;
    }
  }
  return fail("the file ends inside the document type", start);
}

bool XmlScanner::skipProlog() {
  if (startsHere("<?xml") && at_ + 5 < text_.size() && isWhiteSpace(text_[at_ + 5]) &&
      !skipDeclaration()) {
    return false;
  }
  if (!skipWhiteSpaceAndComments()) {
    return false;
  }
  if (startsHere("<!DOCTYPE") && !skipDocumentType()) {
    return false;
  }
  return skipWhiteSpaceAndComments();
}

std::optional<XmlScanner::Tag> XmlScanner::nextTag() {
  skipWhiteSpace();
  if (startsHere("<!") || startsHere("<?")) {
    if (!skipWhiteSpaceAndComments()) {
      return std::nullopt;
    }
  }
  Tag tag;
  tag.offset = at_;
  if (at_ == text_.size()) {
    fail("the file ends before the property list does", at_);
    return std::nullopt;
  }
  if (text_[at_] != '<') {
    fail("text where a tag is expected", at_);
    return std::nullopt;
  }
  ++at_;
  if (startsHere("/")) {
    tag.kind = Tag::Kind::kClose;
    ++at_;
  }
  tag.name = nameHere();
  const std::size_t attributes = at_;
  if ((at_ == text_.size() || text_[at_] != '>') && !skipAttributes(tag.offset)) {
    return std::nullopt;
  }
  tag.attributes = text_.substr(attributes, at_ - attributes);
  if (text_[at_] == '/') {
    tag.kind = Tag::Kind::kEmpty;
    ++at_;
  }
  ++at_;
  return tag;
}

std::string_view XmlScanner::nameHere() {
  const std::size_t name = at_;
  while (at_ < text_.size() && text_[at_] != '>' && text_[at_] != '/' && text_[at_] != '<' &&
         !isWhiteSpace(text_[at_])) {
    ++at_;
  }
  return text_.substr(name, at_ - name);
}

// Leaves the place at the end of the tag, ">" or "/>".
bool XmlScanner::skipAttributes(std::size_t tagOffset) {
  const bool closing = text_.substr(tagOffset, 2) == "</";
  while (at_ < text_.size() && text_[at_] != '<') {
    const char c = text_[at_];
    if (c == '>' || (!closing && startsHere("/>"))) {
      return true;
    }
    if (c == '/' || (closing && !isWhiteSpace(c))) {
      return fail("a tag is malformed", tagOffset);
    }
    if (c == '"' || c == '\'') {
      const std::size_t quote = text_.find(c, at_ + 1);
      if (quote == std::string_view::npos) {
        break;
      }
      at_ = quote;
    }
    ++at_;
  }
  return fail("a tag has no end", tagOffset);
}

std::optional<std::string_view> XmlScanner::attribute(std::string_view attributes,
                                                      std::string_view name) {
  std::size_t at = 0;
  while (at < attributes.size()) {
    const std::size_t equals = attributes.find('=', at);
    const std::size_t quote = attributes.find_first_of("\"'", at);
    if (equals == std::string_view::npos || quote == std::string_view::npos || quote < equals) {
      return std::nullopt;
    }
    const std::size_t end = attributes.find(attributes[quote], quote + 1);
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
    std::string_view found = attributes.substr(at, equals - at);
    while (!found.empty() && isWhiteSpace(found.front())) {
      found.remove_prefix(1);
    }
    while (!found.empty() && isWhiteSpace(found.back())) {
      found.remove_suffix(1);
    }
    if (found == name) {
      return attributes.substr(quote + 1, end - quote - 1);
    }
    at = end + 1;
  }
  return std::nullopt;
}

// The first byte from there on that is not plain text, or the end.
std::size_t XmlScanner::textEnd(std::size_t from) const {
  while (text_.size() - from >= kBlock) {
    const std::uint64_t block = blockAt(text_, from);
    if ((bytesEqual(block, '<') | bytesEqual(block, '&') | bytesEqual(block, '\r')) != 0) {
      break;
    }
    from += kBlock;
  }
  while (from < text_.size() && isPlain(text_[from])) {
    ++from;
  }
  return from;
}

std::optional<std::string_view> XmlScanner::textOf(std::string_view name) {
  const std::size_t start = at_;
  const std::size_t end = textEnd(start);
  const std::size_t closed = end + name.size() + 3;
  if (closed <= text_.size() && text_[end] == '<' && text_[end + 1] == '/' &&
      text_.substr(end + 2, name.size()) == name && text_[closed - 1] == '>') {
    at_ = closed;
    return text_.substr(start, end - start);
  }
  return composedTextOf(name);
}

std::optional<std::string_view> XmlScanner::composedTextOf(std::string_view name) {
  const std::size_t start = at_;
  composed_.clear();
  while (true) {
    const std::size_t end = textEnd(at_);
    composed_ += text_.substr(at_, end - at_);
    at_ = end;
    if (at_ == text_.size()) {
      fail("the file ends inside <" + std::string(name) + ">", start);
      return std::nullopt;
    }
    if (text_[at_] == '\r') {
      composed_ += '\n';
      at_ += startsHere("\r\n") ? 2 : 1;
    } else if (text_[at_] == '&') {
      if (!appendReference()) {
        return std::nullopt;
      }
    } else if (startsHere("<!") || startsHere("<?")) {
      if (!appendSection()) {
        return std::nullopt;
      }
    } else {
      const std::optional<Tag> tag = nextTag();
      if (!tag) {
        return std::nullopt;
      }
      if (tag->kind != Tag::Kind::kClose || tag->name != name) {
        fail("a tag inside the text of <" + std::string(name) + ">", tag->offset);
        return std::nullopt;
      }
      return composed_;
    }
  }
}

// A comment or processing instruction, left out, or a CDATA section.
bool XmlScanner::appendSection() {
  constexpr std::string_view kStart = "<![CDATA[";
  if (startsHere("<!--")) {
    return skipPast("<!--", "-->", "a comment");
  }
  if (startsHere("<?")) {
    return skipPast("<?", "?>", "a processing instruction");
  }
  if (!startsHere(kStart)) {
    return fail("a tag is malformed", at_);
  }
  std::size_t from = at_ + kStart.size();
  if (!skipPast(kStart, "]]>", "a CDATA section")) {
    return false;
  }
  const std::size_t end = at_ - 3;
  while (from < end) {
    const std::size_t piece = std::min(text_.substr(0, end).find('\r', from), end);
    composed_ += text_.substr(from, piece - from);
    from = piece;
    if (from < end) {
      composed_ += '\n';
      from += text_.substr(from, 2) == "\r\n" ? 2 : 1;
    }
  }
  return true;
}

bool XmlScanner::appendReference() {
  constexpr std::array<std::pair<std::string_view, char>, 5> kNamed = {
      {{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}}};
  for (const auto& [reference, character] : kNamed) {
    if (startsHere(reference)) {
      composed_ += character;
      at_ += reference.size();
      return true;
    }
  }
  if (!startsHere("&#")) {
    return fail("a reference that is not known, or a bare \"&\"", at_);
  }
  const bool hexadecimal = startsHere("&#x");
  const char* from = text_.data() + at_ + (hexadecimal ? 3 : 2);
  const char* end = text_.data() + text_.size();
  std::uint32_t codePoint = 0;
  const auto [stop, error] = std::from_chars(from, end, codePoint, hexadecimal ? 16 : 10);
  if (error != std::errc() || stop == end || *stop != ';' || !isXmlCharacter(codePoint)) {
    return fail("a reference to no character", at_);
  }
  appendUtf8(composed_, codePoint);
  at_ = static_cast<std::size_t>(stop - text_.data()) + 1;
  return true;
}

bool XmlScanner::atEnd() {
  return skipWhiteSpaceAndComments() &&
         (at_ == text_.size() || fail("something follows the end of the property list", at_));
}

}  // namespace zephyl::detail
