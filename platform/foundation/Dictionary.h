// A property-list dictionary: text keys, each once, in the order in which they were first set.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Export.h"
#include "platform/foundation/Value.h"

namespace zephyl {

class ZP_EXPORT Dictionary {
 public:
  using Entry = std::pair<std::string, Value>;

  Dictionary() = default;
  Dictionary(std::initializer_list<Entry> entries);

  // A key that is there already keeps its place and takes the new value.
  void set(std::string key, Value value);
  void remove(std::string_view key);

  // Null when the key is missing. The pointer lives until the dictionary changes.
  [[nodiscard]] const Value* find(std::string_view key) const;

  // A null value when the key is missing.
  [[nodiscard]] Value operator[](std::string_view key) const;

  [[nodiscard]] std::size_t size() const { return entries_.size(); }
  [[nodiscard]] bool empty() const { return entries_.empty(); }
  [[nodiscard]] auto begin() const { return entries_.begin(); }
  [[nodiscard]] auto end() const { return entries_.end(); }

  friend bool operator==(const Dictionary& left, const Dictionary& right) {
    return left.entries_ == right.entries_;
  }

 private:
  // Few keys are found by walking; above this many an index is kept beside the entries.
  static constexpr std::size_t kIndexedFrom = 32;

  [[nodiscard]] std::size_t indexOf(std::string_view key) const;

  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace zephyl
