// Reads numbers out of a text, from left to right. A value; any thread.
//
// The text must outlive the scanner.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/Export.h"

namespace zephyl {

class ZP_EXPORT NSScanner {
 public:
  explicit NSScanner(std::string_view text) : text_(text) {}

  // White space and newlines, then "0x" or "0X" where a digit follows, then hexadecimal digits of
  // either case up to the first other character. 0xFFFFFFFF for what is larger. Nothing, and the
  // scanner stays where it was, when there is no digit.
  std::optional<std::uint32_t> scanHexInt();

  // Bytes into the text.
  [[nodiscard]] std::size_t scanLocation() const { return at_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace zephyl
