// The system log of the shell, which few users ever look at: what happens to the groups file is
// also shown to the user, each thing once. Any thread.

#pragma once

#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "model/ZephylKeys.h"

namespace zephyl::app {

class ShellLog : public SystemLog {
 public:
  using Tell = std::function<void(const std::string& message)>;

  // `deviceRoot` without a slash at its end. `log` must outlive this.
  ShellLog(SystemLog& log, std::string deviceRoot, Tell tell)
      : log_(log), deviceRoot_(std::move(deviceRoot)), tell_(std::move(tell)) {}

  void log(const std::string& line) override {
    log_.log(line);
    // A line about a file begins with its path on the phone.
    if (!line.starts_with(kGroupsFilePath)) {
      return;
    }
    const std::lock_guard lock(mutex_);
    if (told_.insert(line).second) {
      tell_(deviceRoot_ + line);
    }
  }

 private:
  SystemLog& log_;
  const std::string deviceRoot_;
  const Tell tell_;
  std::mutex mutex_;
  std::set<std::string> told_;
};

}  // namespace zephyl::app
