// The system log of a command: what goes wrong with the device's files is also told to the user,
// each thing once, under the name that the file has on this machine. Any thread.

#pragma once

#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "platform/foundation/SystemLog.h"

#include "hosts/linux/LinuxSystemLog.h"

namespace zephyl::app {

class SessionLog : public SystemLog {
 public:
  using Tell = std::function<void(const std::string& message)>;

  // `deviceRoot` without a slash at its end.
  SessionLog(std::string deviceRoot, Tell tell)
      : deviceRoot_(std::move(deviceRoot)), tell_(std::move(tell)) {}

  void log(const std::string& line) override;

 private:
  const std::string deviceRoot_;
  const Tell tell_;
  linux_host::LinuxSystemLog systemLog_{/*verbose=*/false};
  std::mutex mutex_;
  std::set<std::string> told_;
};

}  // namespace zephyl::app
