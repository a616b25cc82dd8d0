// A moment as Messages writes it: seconds or nanoseconds since the beginning of 2001 in UTC. Both
// units occur in one file, so each value tells its own by its size. Pure functions, any thread.

#pragma once

#include <compare>
#include <cstdint>
#include <optional>

namespace zephyl::linux_host {

struct MessageTime {
  std::int64_t seconds = 0;      // since 2001; rounded down
  std::int32_t nanoseconds = 0;  // 0 to 999,999,999

  auto operator<=>(const MessageTime&) const = default;

  // Null for 0, which stands for "never". Whole numbers throughout: nanoseconds have more digits
  // than a double.
  [[nodiscard]] static std::optional<MessageTime> fromDatabase(std::int64_t value);

  [[nodiscard]] double secondsSince1970() const;
};

}  // namespace zephyl::linux_host
