// `zephyls render`: pictures, or view trees as text, of the library's components.

#pragma once

#include <functional>
#include <string>

#include "apps/zephyls/Options.h"

namespace CLI {
class App;
}

namespace zephyl::app {

class Output;

// Runs without the user's data, with a QApplication; gives the exit status. Throws CommandError.
using ScreenCommand = std::function<int(const Options& options, Output& output)>;

// What is given must outlive the parsing.
void addRenderCommand(CLI::App& program, RenderWishes& wishes, ScreenCommand& chosen);

}  // namespace zephyl::app
