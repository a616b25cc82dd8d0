#include "apps/springboard/ShellOptions.h"

#include <filesystem>
#include <iostream>
#include <string_view>
#include <system_error>

#include <CLI/CLI.hpp>

#include "apps/common/CommandError.h"
#include "apps/common/Places.h"
#include "apps/common/SharedOptions.h"
#include "apps/zephyls/Version.h"

namespace zephyl::app {

namespace {

constexpr int kMostSeconds = 1'000'000;

std::string configurationFile() {
  const std::filesystem::path folder = userFolder("XDG_CONFIG_HOME", ".config");
  return folder.empty() ? std::string() : (folder / "springboard.conf").string();
}

void addOptions(CLI::App& app, ShellOptions& options, int& idleExit) {
  addDeviceOption(app, options.sources);
  addMessagesOption(app, options.sources,
                    "Messages database whose new messages are announced: sms.db or chat.db "
                    "(default: that of the device, if it has one)");
  addContactsOption(app, options.sources);
  addReleaseOption(app, options.iosVersion);
  addLanguageOption(app, options.language);
  app.add_option("--idle-exit", idleExit,
                 "end when nobody has asked for this long, and announce nothing; 0: stay")
      ->type_name("SECONDS")
      ->capture_default_str()
      ->check(CLI::Range(0, kMostSeconds).description(""));
  app.add_flag("--verbose", options.verbose, "write the log to the standard error too");
}

// With the file that the words stand in, or may stand in.
std::string messageOf(const CLI::App& app, const CLI::ParseError& error) {
  const std::string file = app.get_config_ptr()->as<std::string>();
  std::error_code ignored;
  if (!std::filesystem::exists(file, ignored)) {
    return error.what();
  }
  if (dynamic_cast<const CLI::ConfigError*>(&error) == nullptr) {
    return error.what() + (" (on the command line or in " + file + ")");
  }
  const std::string text = error.what();
  constexpr std::string_view kUnknown = "INI was not able to parse ";
  return file + ": " +
         (text.starts_with(kUnknown) ? "there is no option " + text.substr(kUnknown.size()) : text);
}

}  // namespace

ParsedShellOptions parseShellOptions(int argc, char** argv) {
  ParsedShellOptions parsed;
  CLI::App app(
      "Owns the groups of one device: reads and writes their file for the programs of the user, on "
      "the message bus of the session. Programs start it when they need it.\n"
      "While it stays, new messages of the database are announced on the desktop, those of a group "
      "that masks them with the group's own text.",
      "zephyls-springboard");
  app.set_version_flag("--version", std::string("zephyls-springboard ") + kVersion);
  app.set_config("--config", configurationFile(),
                 "file of options, one `name = value` a line, without the dashes")
      ->type_name("FILE");
  app.allow_config_extras(CLI::config_extras_mode::error);
  int idleExit = 0;
  addOptions(app, parsed.options, idleExit);
  try {
    app.parse(argc, argv);
    parsed.options.idleExit = std::chrono::seconds(idleExit);
  } catch (const CLI::ParseError& error) {
    const bool isHelp = error.get_exit_code() == 0;
    if (isHelp) {
      app.exit(error, std::cout, std::cerr);
    } else {
      std::cerr << "zephyls-springboard: " << messageOf(app, error)
                << "\nRun `zephyls-springboard --help` for more.\n";
    }
    parsed.exitStatus = isHelp ? kSuccess : kWrongUsage;
  }
  return parsed;
}

}  // namespace zephyl::app
