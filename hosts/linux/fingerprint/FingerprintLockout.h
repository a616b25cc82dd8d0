// How long no more fingers are tried after too many of a stranger's: from the fifth failed check in
// a row on, each one locks for twice as long as the one before, 30 seconds at first and 5 minutes
// at most. A success forgets them all. Kept in memory only: a new process begins anew. Not locked.

#pragma once

#include <chrono>

namespace zephyl::linux_host {

class FingerprintLockout {
 public:
  using Time = std::chrono::steady_clock::time_point;

  void failed(Time now);
  void succeeded();

  // Zero when a finger may be tried.
  [[nodiscard]] std::chrono::steady_clock::duration left(Time now) const;

 private:
  int failures_ = 0;  // in a row
  Time end_;
};

}  // namespace zephyl::linux_host
