// Makes a value of stored objects that name one another by number, as those of binary property
// lists and keyed archives do. Never recurses. Refuses circles, more than 512 containers inside one
// another, and objects that name each other so often that the value written out in full would
// outgrow its file. An object is read once, and its value shared wherever it is named.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/Value.h"

namespace zephyl::detail {

struct StoredObject {
  enum class Kind { kScalar, kArray, kDictionary };
  Kind kind = Kind::kScalar;
  Value scalar;
  std::uint64_t extraWeight = 0;        // of what is inside the scalar
  std::vector<std::size_t> references;  // of a dictionary all keys, then all values
};

class ObjectSource {
 public:
  virtual ~ObjectSource() = default;

  [[nodiscard]] virtual std::size_t count() const = 0;

  // The object, or why there is none; asked at most once for each number below `count()`.
  [[nodiscard]] virtual std::variant<StoredObject, std::string> objectAt(std::size_t number) = 0;

  // Where the object stands in its file, for errors.
  [[nodiscard]] virtual std::size_t offsetOf(std::size_t number) const = 0;

  // What is made of a dictionary's entries.
  [[nodiscard]] virtual Value dictionary(Dictionary entries) const = 0;
};

// The value of the object `root`, a number below `source.count()`, and all it names.
// `maximumWeight` is as in PropertyListLimits.h.
[[nodiscard]] PropertyListResult buildValue(ObjectSource& source, std::size_t root,
                                            std::uint64_t maximumWeight);

}  // namespace zephyl::detail
