// Why a database file cannot be read, for people: the file as it was named by the caller, and a
// reason that says what is wrong and what to do about it.

#pragma once

#include <string>

namespace zephyl::linux_host {

struct DatabaseError {
  std::string file;
  std::string reason;

  bool operator==(const DatabaseError&) const = default;
};

}  // namespace zephyl::linux_host
