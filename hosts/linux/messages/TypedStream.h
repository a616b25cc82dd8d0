// The archive in which Messages keeps a message's attributed text ("streamtyped", little endian).
// Only the text is taken out; attributes are not looked at.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace zephyl::linux_host {

class TypedStream {
 public:
  // The text of the archived string or attributed string: the bytes that stand in the archive,
  // meant to be UTF-8 but not checked. Null when the bytes are no such archive, hold another class,
  // or end early: an unknown text is never an empty one. Any bytes may be given; work and memory
  // are bounded by their number.
  [[nodiscard]] static std::optional<std::string_view> text(std::span<const std::byte> archive);
};

}  // namespace zephyl::linux_host
