// The wall clock.

#pragma once

namespace zephyl {

class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds since 1970-01-01 00:00 UTC, with fractions. Any thread.
  [[nodiscard]] virtual double now() = 0;
};

}  // namespace zephyl
