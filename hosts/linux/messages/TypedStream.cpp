#include "hosts/linux/messages/TypedStream.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace zephyl::linux_host {
namespace {

constexpr std::uint8_t kInt16 = 0x81;
constexpr std::uint8_t kInt32 = 0x82;
constexpr std::uint8_t kNew = 0x84;
constexpr std::uint8_t kNil = 0x85;
constexpr std::int64_t kFirstReference = -110;
constexpr std::size_t kLongestClassChain = 32;

// Both kinds of reference count from zero: one table of texts (type codes and class names), one
// of objects and classes. A class is its index in the second table.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : bytes_(bytes) {}

  std::optional<std::string_view> text();

 private:
  struct Entry {
    bool isClass = false;
    std::string_view name;
    // Of a class: its superclass, if it has one. Hostile archives may close a circle.
    std::optional<std::size_t> parent;
  };

  std::optional<std::uint8_t> byte();
  std::optional<std::string_view> take(std::size_t length);
  std::optional<std::uint64_t> unsignedInteger(std::size_t width);
  std::optional<std::uint64_t> length();
  std::optional<std::size_t> reference(std::uint8_t label);
  std::optional<std::string_view> sharedText();
  std::optional<std::size_t> newObjectClass();
  std::optional<std::size_t> classEntry();
  [[nodiscard]] bool inherits(std::size_t classIndex, std::string_view ancestor) const;
  bool header();

  std::string_view bytes_;
  std::size_t at_ = 0;
  std::vector<std::string_view> texts_;
  std::vector<Entry> entries_;
};

std::optional<std::uint8_t> Reader::byte() {
  if (at_ >= bytes_.size()) {
    return std::nullopt;
  }
  return static_cast<std::uint8_t>(bytes_[at_++]);
}

std::optional<std::string_view> Reader::take(std::size_t length) {
  if (length > bytes_.size() - at_) {
    return std::nullopt;
  }
  const std::string_view part = bytes_.substr(at_, length);
  at_ += length;
  return part;
}

std::optional<std::uint64_t> Reader::unsignedInteger(std::size_t width) {
  const auto part = take(width);
  if (!part) {
    return std::nullopt;
  }
  std::uint64_t value = 0;
  for (std::size_t index = width; index-- > 0;) {
    value = value << 8 | static_cast<std::uint8_t>((*part)[index]);
  }
  return value;
}

std::optional<std::uint64_t> Reader::length() {
  const auto first = byte();
  if (!first) {
    return std::nullopt;
  }
  if (*first == kInt16) {
    return unsignedInteger(2);
  }
  if (*first == kInt32) {
    return unsignedInteger(4);
  }
  return *first < 0x80 ? std::optional<std::uint64_t>(*first) : std::nullopt;
}

// The index that a label stands for; null when the label is no reference.
std::optional<std::size_t> Reader::reference(std::uint8_t label) {
  std::int64_t value = label < 0x80 ? label : label - 0x100;
  if (label == kInt16 || label == kInt32) {
    const auto wide = unsignedInteger(label == kInt16 ? 2 : 4);
    if (!wide) {
      return std::nullopt;
    }
    value = label == kInt16 ? static_cast<std::int64_t>(static_cast<std::int16_t>(*wide))
                            : static_cast<std::int64_t>(static_cast<std::int32_t>(*wide));
  }
  if (value < kFirstReference) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(value - kFirstReference);
}

std::optional<std::string_view> Reader::sharedText() {
  const auto label = byte();
  if (!label) {
    return std::nullopt;
  }
  if (*label == kNew) {
    const auto size = length();
    const auto part = size ? take(*size) : std::nullopt;
    if (part) {
      texts_.push_back(*part);
    }
    return part;
  }
  const auto index = reference(*label);
  return index && *index < texts_.size() ? std::optional(texts_[*index]) : std::nullopt;
}

// An object that begins here; null when a reference or nil stands in its place.
std::optional<std::size_t> Reader::newObjectClass() {
  if (byte() != kNew) {
    return std::nullopt;
  }
  entries_.emplace_back();  // the object takes its number before its class
  return classEntry();
}

// A class with its superclasses, up to the root or to one that was written before.
std::optional<std::size_t> Reader::classEntry() {
  std::optional<std::size_t> first;
  std::optional<std::size_t> child;
  for (std::size_t depth = 0; depth < kLongestClassChain; ++depth) {
    const auto label = byte();
    if (!label) {
      return std::nullopt;
    }
    if (*label == kNil) {
      return first;
    }
    if (*label != kNew) {
      const auto index = reference(*label);
      if (!index || *index >= entries_.size() || !entries_[*index].isClass || index == child) {
        return std::nullopt;
      }
      if (child) {
        entries_[*child].parent = index;
      }
      return child ? first : index;
    }
    const auto name = sharedText();
    if (!name || !length()) {  // the version of the class follows its name
      return std::nullopt;
    }
    entries_.push_back({.isClass = true, .name = *name, .parent = std::nullopt});
    const std::size_t index = entries_.size() - 1;
    if (child) {
      entries_[*child].parent = index;
    }
    first = first ? first : index;
    child = index;
  }
  return std::nullopt;
}

bool Reader::inherits(std::size_t classIndex, std::string_view ancestor) const {
  std::optional<std::size_t> index = classIndex;
  for (std::size_t depth = 0; index && depth < 2 * kLongestClassChain; ++depth) {
    if (entries_[*index].name == ancestor) {
      return true;
    }
    index = entries_[*index].parent;
  }
  return false;
}

bool Reader::header() {
  constexpr std::uint8_t kStreamVersion = 4;
  if (byte() != kStreamVersion) {
    return false;
  }
  const auto size = length();
  return size && take(*size) == "streamtyped" && length().has_value();
}

std::optional<std::string_view> Reader::text() {
  if (!header() || sharedText() != "@") {
    return std::nullopt;
  }
  auto kind = newObjectClass();
  if (kind && inherits(*kind, "NSAttributedString")) {
    // Its string comes first.
    kind = sharedText() == "@" ? newObjectClass() : std::nullopt;
  }
  if (!kind || !inherits(*kind, "NSString") || sharedText() != "+") {
    return std::nullopt;
  }
  const auto size = length();
  return size ? take(*size) : std::nullopt;
}

}  // namespace

std::optional<std::string_view> TypedStream::text(std::span<const std::byte> archive) {
  return Reader({reinterpret_cast<const char*>(archive.data()), archive.size()}).text();
}

}  // namespace zephyl::linux_host
