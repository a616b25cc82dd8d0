// Who the running process is: its main bundle and the languages its user reads.

#pragma once

#include <string>
#include <vector>

namespace zephyl {

class ProcessInfo {
 public:
  virtual ~ProcessInfo() = default;

  // The main bundle's identifier, "com.apple.springboard" in the system shell.
  [[nodiscard]] virtual std::string bundleIdentifier() = 0;

  // The main bundle's path on the phone.
  [[nodiscard]] virtual std::string bundlePath() = 0;

  // Language tags, the best first; never empty.
  [[nodiscard]] virtual std::vector<std::string> preferredLanguages() = 0;
};

}  // namespace zephyl
