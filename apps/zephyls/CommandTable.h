// How commands are put on the command line.

#pragma once

#include <string>
#include <utility>

#include <CLI/CLI.hpp>

#include "apps/zephyls/CommandLine.h"

namespace zephyl::app {

// Adds commands to the program, one call a command.
class CommandTable {
 public:
  // Both must outlive the parsing.
  CommandTable(CLI::App& program, Command& chosen) : program_(program), chosen_(chosen) {}

  // The words are those after the ones of `parent`.
  CLI::App& add(CLI::App& parent, const char* word, const char* help, Command command) {
    CLI::App& added = *parent.add_subcommand(word, help);
    added.fallthrough();
    // A command that was followed by one of its own has nothing to say.
    added.parse_complete_callback([this, &added, command = std::move(command)] {
      if (added.get_subcommands().empty()) {
        chosen_ = command;
      }
    });
    return added;
  }
  CLI::App& add(const char* word, const char* help, Command command) {
    return add(program_, word, help, std::move(command));
  }

 private:
  CLI::App& program_;
  Command& chosen_;
};

// In the help of commands that open or change a group.
inline constexpr char kAsksForFingerprint[] =
    "A protected group asks for the fingerprint, on a device that has a reader.";

}  // namespace zephyl::app
