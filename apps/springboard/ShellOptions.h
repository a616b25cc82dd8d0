// What the system shell is told on its command line and in its configuration file.

#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "apps/common/SourceOptions.h"

namespace zephyl::app {

struct ShellOptions {
  SourceOptions sources;
  std::string iosVersion = "14.0";
  std::optional<std::string> language;
  std::chrono::seconds idleExit{0};  // 0: never
  bool verbose = false;
};

struct ParsedShellOptions {
  ShellOptions options;
  // Set when there is nothing to run: help was shown, or the words were wrong.
  std::optional<int> exitStatus;
};

[[nodiscard]] ParsedShellOptions parseShellOptions(int argc, char** argv);

}  // namespace zephyl::app
