#include "hosts/linux/contacts/ContactNotes.h"

#include <utility>

#include "hosts/linux/contacts/VCardEncoding.h"

namespace zephyl::linux_host {

namespace {

constexpr std::size_t kMostBytes = 300;

// Reasons quote the source: one line of valid text, whatever it held.
std::string printable(std::string_view text) {
  std::string result(text.substr(0, kMostBytes));
  const bool isText = vcard::isUtf8(result);
  for (char& c : result) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7F || (byte >= 0x80 && !isText)) {
      c = '?';
    }
  }
  return result;
}

std::string noteAt(std::string_view file, std::size_t line, std::string_view reason) {
  std::string text(file);
  if (line != 0) {
    text += ':' + std::to_string(line);
  }
  return text + ": " + printable(reason);
}

}  // namespace

void ContactNotes::error(std::string_view file, std::size_t line, std::string_view reason) {
  errors_.add(noteAt(file, line, reason));
}

void ContactNotes::warning(std::string_view file, std::size_t line, std::string_view reason) {
  warnings_.add(noteAt(file, line, reason));
}

void ContactNotes::append(const ContactNotes& other) {
  errors_.append(other.errors_);
  warnings_.append(other.warnings_);
}

void ContactNotes::Lines::add(std::string line) {
  if (lines.size() < kMost) {
    lines.push_back(std::move(line));
  } else {
    ++further;
  }
}

void ContactNotes::Lines::append(const Lines& other) {
  for (const std::string& line : other.lines) {
    add(line);
  }
  further += other.further;
}

std::vector<std::string> ContactNotes::Lines::listed() const {
  std::vector<std::string> all = lines;
  if (further != 0) {
    all.push_back("and " + std::to_string(further) + " more");
  }
  return all;
}

}  // namespace zephyl::linux_host
