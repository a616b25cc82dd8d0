// Localized texts of one table, in their text form
//   /* what it says */ "key" = "text";
// or compiled: a property list, in either form, whose root is a dictionary. Pure, any thread.
//
// The text form is UTF-8, with or without a byte-order mark, or UTF-16 with one. Words of letters,
// digits and _ - . : $ / need no quotes; `"key";` says that the text is the key. Escapes are
// \a \b \f \n \r \t \v, \U or \u with up to 4 hexadecimal digits (a pair of surrogates makes one
// character) and up to 3 octal digits, the number being that of a character in both; any other
// character that is no letter or digit stands for itself. Of a key given twice the last text stays.

#pragma once

#include <string_view>
#include <utility>
#include <variant>

#include "platform/Export.h"
#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

namespace zephyl {

// What was read, or why nothing was.
class StringTableResult {
 public:
  StringTableResult(Dictionary table) : outcome_(std::move(table)) {}
  StringTableResult(PropertyListError error) : outcome_(std::move(error)) {}

  [[nodiscard]] bool ok() const { return std::holds_alternative<Dictionary>(outcome_); }

  // Only when `ok()`. In a compiled table values need not be texts.
  [[nodiscard]] const Dictionary& table() const { return std::get<Dictionary>(outcome_); }

  // Only when not `ok()`.
  [[nodiscard]] const PropertyListError& error() const {
    return std::get<PropertyListError>(outcome_);
  }

 private:
  std::variant<Dictionary, PropertyListError> outcome_;
};

// An empty file, or one with nothing but comments, is an empty table.
[[nodiscard]] ZP_EXPORT StringTableResult readStringTable(std::string_view bytes);

}  // namespace zephyl
