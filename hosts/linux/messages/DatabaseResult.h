// What was read from a database, or why nothing was.

#pragma once

#include <utility>
#include <variant>

#include "hosts/linux/messages/DatabaseError.h"

namespace zephyl::linux_host {

template <typename T>
class DatabaseResult {
 public:
  DatabaseResult(T value) : outcome_(std::move(value)) {}
  DatabaseResult(DatabaseError error) : outcome_(std::move(error)) {}

  [[nodiscard]] bool ok() const { return std::holds_alternative<T>(outcome_); }

  // Only when `ok()`; the reference lives as long as the result. Of a result that is about to go
  // (`std::move(result).value()`) the value may be moved out.
  [[nodiscard]] const T& value() const& { return std::get<T>(outcome_); }
  [[nodiscard]] T& value() & { return std::get<T>(outcome_); }
  [[nodiscard]] T&& value() && { return std::get<T>(std::move(outcome_)); }

  // Only when not `ok()`.
  [[nodiscard]] const DatabaseError& error() const { return std::get<DatabaseError>(outcome_); }

 private:
  std::variant<T, DatabaseError> outcome_;
};

}  // namespace zephyl::linux_host
