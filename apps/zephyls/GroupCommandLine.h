// The words of `zephyls groups`.

#pragma once

namespace CLI {
class App;
}

namespace zephyl::app {

class CommandTable;
struct Options;

void addGroupCommands(CLI::App& program, CommandTable& table, Options& options);

}  // namespace zephyl::app
