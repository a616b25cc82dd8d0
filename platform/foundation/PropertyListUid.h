// The reference of a keyed archive as a dictionary: {"CF$UID": index}, its only form in XML.

#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Value.h"

namespace zephyl::detail {

inline constexpr const char* kUidKey = "CF$UID";

// What a reader makes of a dictionary.
[[nodiscard]] inline Value uidOrDictionary(Dictionary entries) {
  if (entries.size() == 1) {
    if (const Value* index = entries.find(kUidKey)) {
      if (const std::int64_t* integer = index->ifInteger(); integer != nullptr && *integer >= 0) {
        return Uid{static_cast<std::uint64_t>(*integer)};
      }
      if (const std::uint64_t* large = index->ifUnsigned()) {
        return Uid{*large};
      }
    }
  }
  return Value(std::move(entries));
}

}  // namespace zephyl::detail
