#include "apps/zephyls/GroupCommandLine.h"

#include <string>

#include <CLI/CLI.hpp>

#include "apps/zephyls/CommandTable.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/CopyCommands.h"
#include "apps/zephyls/Options.h"

namespace zephyl::app {

namespace {

constexpr char kTitleOrIdentifier[] = "title, exactly, or identifier";
constexpr char kWho[] =
    "a record id, full name, phone number or e-mail address, or the GUID of a conversation";

// Below the options in the command's help.
void explain(CLI::App& command, const std::string& text = {}) {
  command.footer(text + (text.empty() ? "" : "\n") + kAsksForFingerprint);
}

void addGroupOption(CLI::App& command, Options& options) {
  command.add_option("GROUP", options.group, kTitleOrIdentifier)->required();
}

void addGroupsOption(CLI::App& command, Options& options) {
  command.add_option("GROUP", options.groups, kTitleOrIdentifier)->required();
}

void addText(CLI::App& command, const char* name, const char* type, std::optional<std::string>& to,
             const char* help) {
  command.add_option(name, to, help)->type_name(type);
}

struct Flag {
  std::string name;
  const char* help;
};

// Two flags of which only one may be given: the first sets, the second clears.
void addFlags(CLI::App& command, std::optional<bool>& to, const Flag& on, const Flag& off) {
  const auto set = [&to, both = on.name + " and " + off.name](bool value) {
    if (to) {
      throw CLI::ValidationError(both, "exclude each other");
    }
    to = value;
  };
  command.add_flag_callback(
      on.name, [set] { set(true); }, on.help);
  command.add_flag_callback(
      off.name, [set] { set(false); }, off.help);
}

void addWishes(CLI::App& command, GroupWishes& wishes) {
  addText(command, "--subtitle", "TEXT", wishes.subTitle, "the second line");
  addText(command, "--colour,--color", "COLOUR", wishes.colour,
          "RRGGBB or RRGGBBAA in hexadecimal digits, or none");
  addText(command, "--picture", "FILE", wishes.picture,
          "a PNG, JPEG or other picture, which is stored as PNG, or none");
  addText(command, "--masked-text", "TEXT", wishes.maskedText,
          "what the lock screen shows in place of a message");
  addFlags(command, wishes.isProtected,
           {"--protect", "ask for the fingerprint before it is opened"},
           {"--no-protect", "open it without the fingerprint"});
  addFlags(command, wishes.hides, {"--hide", "hide its conversations from the system groups"},
           {"--no-hide", "show its conversations in the system groups"});
  addFlags(command, wishes.masks, {"--mask", "show the masked text on the lock screen"},
           {"--no-mask", "show its messages on the lock screen"});
}

void addYes(CLI::App& command, Options& options) {
  command.add_flag("--yes,-y", options.yes, "do not ask; for scripts");
}

void addEditingCommands(CLI::App& groups, CommandTable& table, Options& options) {
  CLI::App& create = table.add(groups, "create", "a new group", createGroup);
  create.add_option("TITLE", options.wishes.title, "the title; titles need not differ")->required();
  addWishes(create, options.wishes);
  create.add_flag_callback(
      "--disabled", [&options] { options.wishes.enabled = false; },
      "keep it, but neither show nor count it");
  create.add_option("--member", options.people, kWho)->type_name("WHO")->allow_extra_args(false);

  CLI::App& edit = table.add(groups, "edit", "change one of your groups", editGroup);
  explain(edit);
  addGroupOption(edit, options);
  addText(edit, "--title", "TEXT", options.wishes.title, "the title");
  addWishes(edit, options.wishes);

  CLI::App& remove = table.add(groups, "delete", "delete groups of yours", deleteGroups);
  explain(remove, "Asks before it deletes, and needs --yes where there is no terminal to ask on.");
  addGroupsOption(remove, options);
  addYes(remove, options);

  CLI::App& enable = table.add(groups, "enable", "show and count groups again", enableGroups);
  explain(enable, "System groups can be enabled too.");
  addGroupsOption(enable, options);
  CLI::App& disable =
      table.add(groups, "disable", "keep groups, but neither show nor count them", disableGroups);
  explain(disable, "System groups can be disabled too.");
  addGroupsOption(disable, options);
  CLI::App& activate =
      table.add(groups, "activate", "make a group the one that is selected", activateGroup);
  explain(activate);
  addGroupOption(activate, options);
}

void addMemberCommands(CLI::App& groups, CommandTable& table, Options& options) {
  CLI::App& add = table.add(groups, "add-member",
                            "add people, addresses and conversations to a group", addMembers);
  explain(add,
          "The number or address of somebody in the address book adds that person, since the\n"
          "conversations of people who are known are found by person only.");
  addGroupOption(add, options);
  add.add_option("WHO", options.people, kWho)->required();
  CLI::App& remove =
      table.add(groups, "remove-member", "take people, addresses and conversations out of a group",
                removeMembers);
  explain(remove);
  addGroupOption(remove, options);
  remove
      .add_option("WHO", options.people,
                  std::string(kWho).append(", or a member as `groups show` lists it"))
      ->required();
}

void addTransferCommands(CLI::App& groups, CommandTable& table, Options& options) {
  CLI::App& save =
      table.add(groups, "export", "write your groups, with pictures, to a file for another device",
                exportGroups);
  explain(save,
          "Each person is written with name, numbers and addresses, so that `groups import` finds\n"
          "the person in another address book. System groups are not written.");
  save.add_option("FILE", options.file, "a new file, or - for the standard output")->required();
  save.add_option("GROUP", options.groups,
                  "only these, by title or identifier; all when none is named");
  save.add_flag("--force", options.force, "write over a file that is there");

  CLI::App& load = table.add(groups, "import", "add the groups of an exported file", importGroups);
  explain(load,
          "People are found by number or address, then by full name. Of those who are not found,\n"
          "the numbers and addresses become members. They are listed, kept with the group and\n"
          "exported with it, and found by a later import when the address book has grown.\n"
          "--merge: a group of the same identifier or, failing that, the same title gets the\n"
          "members too and stays as it is otherwise; the other groups of the file are added.\n"
          "--replace: afterwards your groups are those of the file and no others. Asks before it\n"
          "does so, and needs --yes where there is no terminal to ask on.");
  load.add_option("FILE", options.file, "what `groups export` wrote, or - for the standard input")
      ->required();
  addFlags(load, options.replaces,
           {"--replace", "put the groups of the file in the place of yours"},
           {"--merge", "unite the groups of the file with yours (default)"});
  load.add_flag("--dry-run,-n", options.dryRun, "show what would change, and change nothing");
  addYes(load, options);
}

void addCopyCommands(CLI::App& groups, CommandTable& table, Options& options) {
  table.add(groups, "copies",
            "the safety copies: what the groups were before each of the last changes", listCopies);
  CLI::App& restore =
      table.add(groups, "restore", "go back to a safety copy; the groups of now are copied first",
                restoreCopy);
  explain(restore);
  restore.add_option("COPY", options.copy, "a name that `groups copies` lists, or last")
      ->required();
}

}  // namespace

void addGroupCommands(CLI::App& program, CommandTable& table, Options& options) {
  CLI::App& groups = *program.add_subcommand("groups", "the groups");
  groups.fallthrough();
  groups.require_subcommand(1);
  table.add(groups, "list", "every group, with its settings and counts", listGroups);
  CLI::App& show =
      table.add(groups, "show", "one group with its members and conversations", showGroup);
  explain(show);
  addGroupOption(show, options);
  addEditingCommands(groups, table, options);
  addMemberCommands(groups, table, options);
  addTransferCommands(groups, table, options);
  addCopyCommands(groups, table, options);
}

}  // namespace zephyl::app
