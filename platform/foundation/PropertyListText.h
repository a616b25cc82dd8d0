// The text of a file: UTF-8, with or without a byte-order mark, or UTF-16 with one.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/foundation/PropertyList.h"

namespace zephyl::detail {

class DecodedText {
 public:
  explicit DecodedText(std::string_view bytes);

  // Without a byte-order mark; whether it is UTF-8 is not checked. Lives as long as this and the
  // bytes do.
  [[nodiscard]] std::string_view text() const { return converted_ ? *converted_ : unchanged_; }

  // Why UTF-16 cannot be converted; null when all is well.
  [[nodiscard]] const std::optional<PropertyListError>& error() const { return error_; }

 private:
  std::string_view unchanged_;
  std::optional<std::string> converted_;
  std::optional<PropertyListError> error_;
};

// Counted from 1.
[[nodiscard]] std::size_t lineAt(std::string_view text, std::size_t offset);

}  // namespace zephyl::detail
