// What ends a command: thrown inside the program and shown once, by `main`.

#pragma once

#include <stdexcept>
#include <string>

namespace zephyl::app {

// Exit statuses of the program.
inline constexpr int kSuccess = 0;
inline constexpr int kBadData = 1;
inline constexpr int kWrongUsage = 2;

class CommandError : public std::runtime_error {
 public:
  // `message` names what is wrong, where, and what to do.
  explicit CommandError(const std::string& message, int status = kBadData)
      : std::runtime_error(message), status_(status) {}

  [[nodiscard]] int status() const { return status_; }

 private:
  int status_;
};

}  // namespace zephyl::app
