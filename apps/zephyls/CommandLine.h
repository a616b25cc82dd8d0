// The command line: its words, their help, and which command they choose.

#pragma once

#include <functional>
#include <optional>

#include "apps/zephyls/Options.h"
#include "apps/zephyls/render/RenderCommand.h"

namespace zephyl::app {

class Session;
class Output;

// Runs with the session not yet started; gives the exit status.
using Command = std::function<int(Session&, Output&)>;

struct ParsedCommandLine {
  Options options;
  Command command;
  // In the place of the command, when it is set.
  ScreenCommand screenCommand;
  // Set when there is nothing to run: help was shown, or the words were wrong.
  std::optional<int> exitStatus;
};

[[nodiscard]] ParsedCommandLine parseCommandLine(int argc, char** argv);

}  // namespace zephyl::app
