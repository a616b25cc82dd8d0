// A lock on a file, against other processes and other threads alike. It goes with the process,
// however that ends.

#pragma once

#include <chrono>
#include <string>

namespace zephyl::linux_host {

class FileLock {
 public:
  enum class Kind {
    kShared,     // beside other shared ones
    kExclusive,  // alone
  };

  // Makes the file in a folder that is there, and waits for its turn, `longest` at most. On a file
  // system without locks nobody is kept out and nothing fails.
  FileLock(const std::string& file, Kind kind, std::chrono::milliseconds longest);
  ~FileLock();
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;

  // Somebody else has held it for all that time.
  [[nodiscard]] bool timedOut() const { return timedOut_; }

  // Why the file could not be opened; empty when it could.
  [[nodiscard]] const std::string& failure() const { return failure_; }

 private:
  int file_ = -1;
  bool timedOut_ = false;
  std::string failure_;
};

}  // namespace zephyl::linux_host
