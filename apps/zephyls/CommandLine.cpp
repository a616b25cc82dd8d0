#include "apps/zephyls/CommandLine.h"

#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "apps/common/CommandError.h"
#include "apps/common/SharedOptions.h"
#include "apps/zephyls/CommandTable.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/GroupCommandLine.h"
#include "apps/zephyls/Version.h"

namespace zephyl::app {

namespace {

void addSourceOptions(CLI::App& app, Options& options) {
  addMessagesOption(app, options.sources, "Messages database: sms.db or chat.db");
  addContactsOption(app, options.sources);
  app.add_option("--favorite", options.sources.favorites,
                 "a favourite, in place of the phone's own: a record id, full name, number or "
                 "e-mail address; may be given several times")
      ->type_name("WHO")
      ->allow_extra_args(false)
      ->check(CLI::Validator(whyEmpty, ""));
  addSortNamesOption(app, options.sources);
  addDeviceOption(app, options.sources);
}

void addDeviceOptions(CLI::App& app, Options& options) {
  addReleaseOption(app, options.iosVersion);
  app.add_option_function<std::string>(
         "--idiom",
         [&options](const std::string& value) {
           options.idiom =
               value == "pad" ? UIUserInterfaceIdiom::kPad : UIUserInterfaceIdiom::kPhone;
         },
         "kind of device to behave as (default: phone)")
      ->type_name("phone|pad")
      ->check(CLI::IsMember({"phone", "pad"}).description(""));
  app.add_option_function<std::string>(
         "--biometrics",
         [&options](const std::string& value) {
           options.namesMachinesReader = value == "auto";
           options.biometrics =
               options.namesMachinesReader ? std::nullopt : std::optional(value == "on");
         },
         "whether the device has a fingerprint reader: the one of this machine (auto), one that "
         "knows nobody (on) or none (off) (default: auto, and on for pictures)")
      ->type_name("auto|on|off")
      ->check(CLI::IsMember({"auto", "on", "off"}).description(""));
  addLanguageOption(app, options.language);
  app.add_flag("--json", options.json, "one JSON object a line, for programs");
}

void addSettingCommands(CommandTable& table, Options& options) {
  CLI::App& settings = table.add("settings", "the extension's settings", listSettings);
  settings.require_subcommand(0, 1);
  CLI::App& get = table.add(settings, "get", "one setting", getSetting);
  get.add_option("KEY", options.key, "as `zephyls settings` lists it")->required();
  CLI::App& set = table.add(settings, "set", "change one setting", setSetting);
  set.add_option("KEY", options.key, "as `zephyls settings` lists it")->required();
  set.add_option("VALUE", options.value, "on or off, or a number")->required();
}

void addCommands(CLI::App& program, CommandTable& table, Options& options) {
  CLI::App& conversations =
      table.add("conversations", "the conversations, the most recent first", listConversations);
  conversations.add_option("--group", options.group, "only what this group shows")
      ->type_name("TITLE|ID");
  conversations.footer(kAsksForFingerprint);
  addGroupCommands(program, table, options);
  table.add("unread", "unread conversations by group", showUnread);
  table.add("contacts", "the people of the address book", listContacts)
      .add_option("WORDS", options.words, "only people in whose entry each word occurs");
  addSettingCommands(table, options);
  table
      .add("explain", "why a conversation is in its groups, and which groups hide it",
           explainConversation)
      .add_option("GUID", options.guid,
                  "the conversation's GUID, as `conversations --json` lists it; a name or address "
                  "that fits only one conversation will do")
      ->required();
  table.add("check", "look through all files for what is wrong and say what to do",
            checkEverything);
}

}  // namespace

ParsedCommandLine parseCommandLine(int argc, char** argv) {
  ParsedCommandLine parsed;
  parsed.command = showOverview;
  CLI::App program(
      "Shows the conversations of a Messages database by group.\n"
      "Nothing is ever written to the database or the address book, and nothing is sent.\n"
      "Without --messages a sample is shown; without a command, an overview by group.",
      "zephyls");
  program.set_version_flag("--version", std::string("zephyls ") + kVersion);
  program.require_subcommand(0, 1);
  addSourceOptions(program, parsed.options);
  addDeviceOptions(program, parsed.options);
  CommandTable table(program, parsed.command);
  addCommands(program, table, parsed.options);
  addRenderCommand(program, parsed.options.render, parsed.screenCommand);
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool isHelp = error.get_exit_code() == 0;
    if (isHelp) {
      program.exit(error, std::cout, std::cerr);
    } else {
      std::cerr << "zephyls: " << error.what() << "\nRun `zephyls --help` for more.\n";
    }
    parsed.exitStatus = isHelp ? kSuccess : kWrongUsage;
  }
  return parsed;
}

}  // namespace zephyl::app
