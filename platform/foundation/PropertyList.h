// Property lists in their two forms: XML text, and the compact binary form of preference files and
// messages. Pure functions, any thread.
//
// Reading is strict and bounded whatever the bytes are: no recursion, at most 512 containers inside
// one another, memory that follows the bytes present, no text that is not UTF-8. What is read and
// written again is the same, in either form and from one to the other:
//  * the order of keys stays; of a key given twice the last value stays, at the place of the first;
//  * a dictionary whose only key is "CF$UID", with an integer of 0 or more, is a `Uid` in both
//  forms;
//  * dates keep their fraction of a second: in XML as an attribute beside the usual text,
//    <date fraction="0.25">2001-01-01T00:00:00Z</date>, which other readers skip.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "platform/Export.h"
#include "platform/foundation/Value.h"

namespace zephyl {

struct ZP_EXPORT PropertyListError {
  std::string reason;
  std::size_t offset = 0;  // in bytes, of an XML file after its conversion to UTF-8
  std::size_t line = 0;    // counted from 1; 0 where there are no lines

  // "FILE: line 3: REASON" or "FILE: byte 80: REASON".
  [[nodiscard]] std::string message(std::string_view fileName) const;
};

// What was read, or why nothing was.
class PropertyListResult {
 public:
  PropertyListResult(Value value) : outcome_(std::move(value)) {}
  PropertyListResult(PropertyListError error) : outcome_(std::move(error)) {}

  [[nodiscard]] bool ok() const { return std::holds_alternative<Value>(outcome_); }

  // Only when `ok()`; the reference lives as long as the result.
  [[nodiscard]] const Value& value() const { return std::get<Value>(outcome_); }

  // Only when not `ok()`.
  [[nodiscard]] const PropertyListError& error() const {
    return std::get<PropertyListError>(outcome_);
  }

 private:
  std::variant<Value, PropertyListError> outcome_;
};

// Tells the form by the first bytes. XML may be UTF-8, with or without a byte-order mark, or UTF-16
// with one.
[[nodiscard]] ZP_EXPORT PropertyListResult readPropertyList(std::string_view bytes);
[[nodiscard]] ZP_EXPORT PropertyListResult readPropertyList(const Data& bytes);

// Empty, and never part of a file, when the form cannot hold the value.
[[nodiscard]] ZP_EXPORT std::string writeXmlPropertyList(const Value& value);
[[nodiscard]] ZP_EXPORT Data writeBinaryPropertyList(const Value& value);

// Why a form cannot hold the value, with the way to the part at fault; null when it can. Neither
// holds a null, text that is not UTF-8, a date outside the years 0 to 9999 or more than 512
// containers inside one another. XML holds no control characters but tab, line feed and carriage
// return, and neither U+FFFE nor U+FFFF.
[[nodiscard]] ZP_EXPORT std::optional<std::string> whyNotXmlPropertyList(const Value& value);
[[nodiscard]] ZP_EXPORT std::optional<std::string> whyNotBinaryPropertyList(const Value& value);

}  // namespace zephyl
