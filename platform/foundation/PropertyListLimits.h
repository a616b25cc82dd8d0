// What readers and writers of property lists agree on.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace zephyl::detail {

// Containers inside one another, the outermost included.
inline constexpr std::size_t kMaximumDepth = 512;

inline constexpr const char* kTooDeep = "more than 512 arrays and dictionaries inside one another";

// A file may name one object many times. Written out in full (a node counts 1, and each byte of
// its text or data 1) it may be this large.
inline constexpr std::uint64_t maximumWeight(std::size_t fileBytes) {
  return 64 * static_cast<std::uint64_t>(fileBytes) + (std::uint64_t{16} << 20U);
}

inline constexpr std::uint64_t saturatingSum(std::uint64_t left, std::uint64_t right) {
  constexpr std::uint64_t kMaximum = std::numeric_limits<std::uint64_t>::max();
  return left > kMaximum - right ? kMaximum : left + right;
}

// Midnights of 0000-01-01 and 10000-01-01, in seconds since 2001.
inline constexpr double kEarliestDate = -63145526400.0;
inline constexpr double kAfterLatestDate = 252423993600.0;

// False also for NaN.
inline constexpr bool isDateInRange(double secondsSinceReferenceDate) {
  return secondsSinceReferenceDate >= kEarliestDate && secondsSinceReferenceDate < kAfterLatestDate;
}

}  // namespace zephyl::detail
