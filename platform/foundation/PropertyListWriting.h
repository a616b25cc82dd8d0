// The way through a value without recursion, which the check before writing and both writers take.

#pragma once

#include <cstddef>
#include <optional>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/Value.h"

namespace zephyl::detail {

// An open container and how many of its elements have been begun.
struct WritingStep {
  const Array* array = nullptr;
  const Dictionary* dictionary = nullptr;
  std::size_t begun = 0;

  [[nodiscard]] std::size_t size() const {
    return array != nullptr ? array->size() : dictionary->size();
  }
  // Only of a dictionary.
  [[nodiscard]] const Dictionary::Entry& entryAt(std::size_t i) const {
    return dictionary->begin()[static_cast<std::ptrdiff_t>(i)];
  }
  [[nodiscard]] const Value& valueAt(std::size_t i) const {
    return array != nullptr ? (*array)[i] : entryAt(i).second;
  }
};

// Null for anything but an array or a dictionary.
[[nodiscard]] inline std::optional<WritingStep> stepInto(const Value& value) {
  if (value.ifArray() == nullptr && value.ifDictionary() == nullptr) {
    return std::nullopt;
  }
  return WritingStep{value.ifArray(), value.ifDictionary(), 0};
}

}  // namespace zephyl::detail
