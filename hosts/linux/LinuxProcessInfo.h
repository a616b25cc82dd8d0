// Who the running program is on the phone. Any thread.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/ProcessInfo.h"

namespace zephyl::linux_host {

class LinuxProcessInfo : public ProcessInfo {
 public:
  // `languages` must not be empty.
  LinuxProcessInfo(std::string bundleIdentifier, std::vector<std::string> languages);

  std::string bundleIdentifier() override { return bundleIdentifier_; }

  // Where the phone keeps the system shell, or an app of that identifier.
  std::string bundlePath() override;

  std::vector<std::string> preferredLanguages() override { return languages_; }

 private:
  const std::string bundleIdentifier_;
  const std::vector<std::string> languages_;
};

}  // namespace zephyl::linux_host
