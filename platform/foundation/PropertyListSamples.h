// For tests: property lists in bytes, built by hand, and generated values.

#pragma once

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <rapidcheck.h>

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/Value.h"

namespace zephyl::samples {

// A whole XML file around the text of a value, which begins in line 4.
[[nodiscard]] std::string xmlFile(std::string_view value);

// A whole binary file. What the trailer says can be made to lie.
struct BinaryFile {
  std::vector<std::string> objects;
  std::size_t offsetSize = 1;
  std::size_t referenceSize = 1;
  std::uint64_t root = 0;

  [[nodiscard]] std::string bytes() const;
};

// `width` bytes, big endian.
[[nodiscard]] std::string number(std::uint64_t value, std::size_t width);

// `depth` arrays inside one another, the innermost empty.
[[nodiscard]] Value nestedArrays(std::size_t depth);

// What generated values may hold. The defaults are what both forms carry.
struct Mix {
  bool uids = true;
  std::uint64_t largestUid = ~std::uint64_t{0};
  bool carriageReturns = true;
  bool nanAndInfinity = true;
  bool negativeZero = true;
  double dateUnit = 0.25;                // of which dates are multiples
  std::int64_t earliest = -63082281600;  // 0002-01-01
  std::int64_t latest = 252392457600;    // 9999-01-01
};

[[nodiscard]] rc::Gen<Value> values(const Mix& mix = {});

// As `==`, but NaN is the same as NaN.
[[nodiscard]] bool same(const Value& left, const Value& right);

[[nodiscard]] std::string_view view(const Data& bytes);

}  // namespace zephyl::samples

namespace zephyl {

// So that a failed property shows its value.
void showValue(const Value& value, std::ostream& out);

}  // namespace zephyl
