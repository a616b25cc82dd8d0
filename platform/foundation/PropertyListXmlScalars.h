// The scalars of XML property lists: their text to values and back.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/Value.h"

namespace zephyl::detail {

// White space around is skipped; null when anything else is wrong. Decimal or, after 0x,
// hexadecimal, from -2^63 to 2^64-1.
[[nodiscard]] std::optional<Value> parseXmlInteger(std::string_view text);

// Also "nan", "inf" and "infinity" in any case. Null when the number is too large or small to be a
// double.
[[nodiscard]] std::optional<double> parseXmlReal(std::string_view text);

// YYYY-MM-DDThh:mm:ssZ, with a fraction behind the seconds or in `fraction` (see PropertyList.h),
// not in both.
[[nodiscard]] std::optional<Date> parseXmlDate(std::string_view text,
                                               std::optional<std::string_view> fraction);

// White space anywhere is skipped.
[[nodiscard]] std::optional<Data> parseBase64(std::string_view text);

void appendXmlReal(std::string& out, double value);

// The whole element. Precondition: `isDateInRange`.
void appendXmlDate(std::string& out, Date date);

// Lines of at most `width` characters, each after `indentation` and ended by a line feed.
void appendBase64(std::string& out, const Data& bytes, std::string_view indentation,
                  std::size_t width);

}  // namespace zephyl::detail
