// One line of a vCard taken apart: "item1.TEL;TYPE=CELL:+1 555 0100".
//
// The value is still as written; unescaped() and split() decode it by the rules of the card's
// version.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "hosts/linux/contacts/VCardLines.h"

namespace zephyl::linux_host::vcard {

enum class Version { k21, k30, k40 };

// What is known of base64 data whose text was looked at and not kept.
enum class Binary { kNone, kPadded, kUnpadded, kBroken };

struct Property {
  std::size_t line = 0;
  std::uint64_t place = 0;  // in the file's text
  std::string group;        // lower case; empty for none
  std::string name;         // upper case
  // Upper-case names with their values without quotation marks, in order. What old cards write
  // without a name is a "TYPE".
  std::vector<std::pair<std::string, std::string>> parameters;
  std::string value;
  Transfer transfer = Transfer::kPlain;
  bool softBreakLeft = false;
  bool emptyLineAfter = false;
  bool isCut = false;
  Binary binary = Binary::kNone;

  // nullopt for a line without a colon or without a name.
  [[nodiscard]] static std::optional<Property> parse(Line line);

  // The first one of that upper-case name; empty when it is missing.
  [[nodiscard]] std::string_view parameter(std::string_view upperCaseName) const;

  // All types, those in "TYPE=a,b" one by one, as they are spelt.
  [[nodiscard]] std::vector<std::string_view> types() const;
  [[nodiscard]] bool hasType(std::string_view type) const;

  // 1 (most) to 100; 101 without a preference.
  [[nodiscard]] int preference() const;
};

// "^n", "^'" and "^^" of version 4 parameters become a line break, a quotation mark and a "^".
[[nodiscard]] std::string parameterText(std::string_view value, Version version);

// Escapes undone. Version 2.1 knows none but those of its separators.
[[nodiscard]] std::string unescaped(std::string_view value, Version version);

// Split at each `separator` that is not escaped; the escapes stay. At least one part.
[[nodiscard]] std::vector<std::string_view> split(std::string_view value, char separator);

}  // namespace zephyl::linux_host::vcard
