// The system log of this machine, and standard error for those who want to watch. Any thread.

#pragma once

#include <string>

#include "platform/foundation/SystemLog.h"

namespace zephyl::linux_host {

class LinuxSystemLog : public SystemLog {
 public:
  // `verbose` writes every line to standard error as well.
  explicit LinuxSystemLog(bool verbose) : verbose_(verbose) {}

  // Control characters become spaces, so that no text can pass for a second line.
  void log(const std::string& line) override;

 private:
  const bool verbose_;
};

}  // namespace zephyl::linux_host
