// Names a row of a table: the section, and the row in it. A value.

#pragma once

#include <compare>
#include <cstdint>

namespace zephyl {

struct NSIndexPath {
  std::int64_t section = 0;
  std::int64_t row = 0;

  // The platform's order of naming.
  [[nodiscard]] static constexpr NSIndexPath indexPathForRow(std::int64_t row,
                                                             std::int64_t section) {
    return {section, row};
  }

  friend auto operator<=>(const NSIndexPath&, const NSIndexPath&) = default;
};

}  // namespace zephyl
