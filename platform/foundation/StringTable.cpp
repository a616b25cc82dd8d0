#include "platform/foundation/StringTable.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/foundation/PropertyListText.h"
#include "platform/foundation/Utf8.h"

namespace zephyl {

namespace {

bool isWhiteSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         std::string_view("_-.:$/").find(c) != std::string_view::npos;
}

// -1 when it is none.
int digitOf(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  if (c >= 'a' && c <= 'f') {
    return c - 'a' + 10;
  }
  return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

class TableReader {
 public:
  explicit TableReader(std::string_view text) : text_(text) {}

  [[nodiscard]] StringTableResult read();

 private:
  [[nodiscard]] bool readEntry();
  [[nodiscard]] bool skipSpace();
  [[nodiscard]] bool skipComment();
  [[nodiscard]] std::optional<std::string> readText(const char* what);
  [[nodiscard]] std::optional<std::string> readQuoted();
  [[nodiscard]] std::string readWord();
  [[nodiscard]] bool appendEscape(std::string& out);
  [[nodiscard]] bool appendUtf16(std::string& out, std::size_t start);
  [[nodiscard]] std::optional<char32_t> number(unsigned base, std::size_t longest);
  bool fail(const char* reason, std::size_t offset);

  [[nodiscard]] bool startsHere(std::string_view literal) const {
    return text_.substr(at_, literal.size()) == literal;
  }
  // Whether it stood here, and has been stepped over.
  [[nodiscard]] bool accept(char c) {
    const bool here = at_ < text_.size() && text_[at_] == c;
    at_ += here ? 1 : 0;
    return here;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  Dictionary table_;
  std::optional<PropertyListError> error_;
};

bool TableReader::fail(const char* reason, std::size_t offset) {
  error_ = PropertyListError{reason, offset, detail::lineAt(text_, offset)};
  return false;
}

StringTableResult TableReader::read() {
  const std::size_t invalid = findInvalidUtf8(text_);
  if (invalid != std::string_view::npos) {
    fail("text that is not UTF-8", invalid);
    return *error_;
  }
  while (skipSpace() && at_ < text_.size()) {
    if (!readEntry()) {
      break;
    }
  }
  if (error_) {
    return *error_;
  }
  return std::move(table_);
}

bool TableReader::readEntry() {
  std::optional<std::string> key = readText("a key is expected");
  if (!key || !skipSpace()) {
    return false;
  }
  std::optional<std::string> value = key;
  if (accept('=')) {
    if (!skipSpace()) {
      return false;
    }
    value = readText("a text is expected behind \"=\"");
    if (!value || !skipSpace()) {
      return false;
    }
  }
  if (!accept(';')) {
    return fail("\";\" is expected behind a text", at_);
  }
  table_.set(std::move(*key), std::move(*value));
  return true;
}

// White space and comments; false on a failure.
bool TableReader::skipSpace() {
  while (at_ < text_.size()) {
    if (isWhiteSpace(text_[at_])) {
      ++at_;
    } else if (startsHere("//") || startsHere("/*")) {
      if (!skipComment()) {
        return false;
      }
    } else {
      break;
    }
  }
  return true;
}

bool TableReader::skipComment() {
  if (startsHere("//")) {
    at_ = std::min(text_.find_first_of("\r\n", at_), text_.size());
    return true;
  }
  const std::size_t end = text_.find("*/", at_ + 2);
  if (end == std::string_view::npos) {
    return fail("the file ends inside a comment", at_);
  }
  at_ = end + 2;
  return true;
}

std::optional<std::string> TableReader::readText(const char* what) {
  if (at_ < text_.size() && text_[at_] == '"') {
    return readQuoted();
  }
  if (at_ == text_.size() || !isWordCharacter(text_[at_])) {
    fail(what, at_);
    return std::nullopt;
  }
  return readWord();
}

std::string TableReader::readWord() {
  const std::size_t start = at_;
  while (at_ < text_.size() && isWordCharacter(text_[at_]) && !startsHere("//") &&
         !startsHere("/*")) {
    ++at_;
  }
  return std::string(text_.substr(start, at_ - start));
}

std::optional<std::string> TableReader::readQuoted() {
  const std::size_t start = at_++;
  std::string result;
  while (true) {
    const std::size_t end = text_.find_first_of("\"\\", at_);
    if (end == std::string_view::npos) {
      fail("the file ends inside a quoted text", start);
      return std::nullopt;
    }
    result += text_.substr(at_, end - at_);
    at_ = end + 1;
    if (text_[end] == '"') {
      return result;
    }
    if (!appendEscape(result)) {
      return std::nullopt;
    }
  }
}

// Behind the backslash.
bool TableReader::appendEscape(std::string& out) {
  constexpr std::string_view kLetters = "abfnrtv";
  constexpr std::string_view kControls = "\a\b\f\n\r\t\v";
  const std::size_t start = at_ - 1;
  if (at_ == text_.size()) {
    return fail("the file ends inside a quoted text", start);
  }
  const char c = text_[at_];
  if (c >= '0' && c <= '7') {
    appendUtf8(out, *number(8, 3));
    return true;
  }
  if (c == 'U' || c == 'u') {
    return appendUtf16(out, start);
  }
  if (const std::size_t at = kLetters.find(c); at != std::string_view::npos) {
    out += kControls[at];
  } else if (digitOf(c) >= 0 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
    return fail("an escape that is not known", start);
  } else {
    out += c;
  }
  ++at_;
  return true;
}

bool TableReader::appendUtf16(std::string& out, std::size_t start) {
  ++at_;
  std::string units;
  for (int i = 0; i < 2; ++i) {
    const auto unit = number(16, 4);
    if (!unit) {
      return fail("an escape without a hexadecimal number", start);
    }
    units += {static_cast<char>(*unit >> 8U), static_cast<char>(*unit & 0xFFU)};
    const bool isHighSurrogate = *unit >= 0xD800 && *unit < 0xDC00;
    if (!isHighSurrogate || (!startsHere("\\U") && !startsHere("\\u"))) {
      break;
    }
    at_ += 2;
  }
  const Utf16Conversion conversion = utf8FromUtf16(units, ByteOrder::kBigEndian);
  if (conversion.invalidAt != std::string_view::npos) {
    return fail("an escape that is half a character", start);
  }
  out += conversion.text;
  return true;
}

std::optional<char32_t> TableReader::number(unsigned base, std::size_t longest) {
  const std::size_t start = at_;
  char32_t value = 0;
  while (at_ < text_.size() && at_ - start < longest) {
    const int digit = digitOf(text_[at_]);
    if (digit < 0 || static_cast<unsigned>(digit) >= base) {
      break;
    }
    value = value * base + static_cast<char32_t>(digit);
    ++at_;
  }
  return at_ > start ? std::optional(value) : std::nullopt;
}

}  // namespace

StringTableResult readStringTable(std::string_view bytes) {
  const detail::DecodedText decoded(bytes);
  if (decoded.error()) {
    return *decoded.error();
  }
  const std::size_t start = decoded.text().find_first_not_of(" \t\r\n");
  const bool isXml = start != std::string_view::npos && decoded.text()[start] == '<';
  if (!isXml && !bytes.starts_with("bplist")) {
    return TableReader(decoded.text()).read();
  }
  const PropertyListResult result = readPropertyList(bytes);
  if (!result.ok()) {
    return result.error();
  }
  if (const Dictionary* table = result.value().ifDictionary()) {
    return *table;
  }
  return PropertyListError{"the root of the table is no dictionary", 0, 0};
}

}  // namespace zephyl
