// Sorts numbers of things by small numbers that belong to them, in time that grows with their count
// alone. Those with equal ones keep their order.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zephyl {

// `keyOf` gives a number below `bound` for each item. `spare` is room to work in, of any size.
template <class KeyOf>
void sortByCounting(std::vector<std::uint32_t>& items, std::vector<std::uint32_t>& spare,
                    std::uint32_t bound, KeyOf keyOf) {
  constexpr unsigned kBits = 11;
  constexpr std::uint32_t kDigit = (1U << kBits) - 1;
  spare.resize(items.size());
  for (unsigned shift = 0; shift < 32 && (bound >> shift) > 0; shift += kBits) {
    std::array<std::uint32_t, kDigit + 2> starts{};
    for (const std::uint32_t item : items) {
      ++starts[((keyOf(item) >> shift) & kDigit) + 1];
    }
    for (std::size_t digit = 1; digit < starts.size(); ++digit) {
      starts[digit] += starts[digit - 1];
    }
    for (const std::uint32_t item : items) {
      spare[starts[(keyOf(item) >> shift) & kDigit]++] = item;
    }
    items.swap(spare);
  }
}

}  // namespace zephyl
