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
constexpr char kAsksForFingerprint[] =
    "\nA protected group asks for the fingerprint, on a device that has a reader.";

std::string withFingerprint(const char* help) {
  return std::string(help) + kAsksForFingerprint;
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

// "--NAME" and "--no-NAME".
void addSwitch(CLI::App& command, const std::string& name, std::optional<bool>& to,
               const char* help, const char* noHelp) {
  CLI::Option* on = command.add_flag_callback(
      "--" + name, [&to] { to = true; }, help);
  command
      .add_flag_callback(
          "--no-" + name, [&to] { to = false; }, noHelp)
      ->excludes(on);
}

void addWishes(CLI::App& command, GroupWishes& wishes) {
  addText(command, "--subtitle", "TEXT", wishes.subTitle, "the second line");
  addText(command, "--colour,--color", "COLOUR", wishes.colour,
          "RRGGBB or RRGGBBAA in hexadecimal digits, or none");
  addText(command, "--picture", "FILE", wishes.picture,
          "a PNG, JPEG or other picture, which is stored as PNG, or none");
  addText(command, "--masked-text", "TEXT", wishes.maskedText,
          "what the lock screen shows in place of a message");
  addSwitch(command, "protect", wishes.isProtected, "ask for the fingerprint before it is opened",
            "open it without the fingerprint");
  addSwitch(command, "hide", wishes.hides, "hide its conversations from the system groups",
            "show its conversations in the system groups");
  addSwitch(command, "mask", wishes.masks, "show the masked text on the lock screen",
            "show its messages on the lock screen");
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

  CLI::App& edit =
      table.add(groups, "edit", withFingerprint("change a group of the user's").c_str(), editGroup);
  addGroupOption(edit, options);
  addText(edit, "--title", "TEXT", options.wishes.title, "the title");
  addWishes(edit, options.wishes);

  CLI::App& remove = table.add(
      groups, "delete",
      withFingerprint("delete groups of the user's; asks first, and needs --yes in a script")
          .c_str(),
      deleteGroups);
  addGroupsOption(remove, options);
  addYes(remove, options);

  addGroupsOption(
      table.add(groups, "enable",
                withFingerprint("show and count groups, system groups too").c_str(), enableGroups),
      options);
  addGroupsOption(
      table.add(groups, "disable",
                withFingerprint("keep groups, system groups too, but neither show nor count them")
                    .c_str(),
                disableGroups),
      options);
  addGroupOption(
      table.add(groups, "activate",
                withFingerprint("make a group the one that is selected").c_str(), activateGroup),
      options);
}

void addMemberCommands(CLI::App& groups, CommandTable& table, Options& options) {
  CLI::App& add =
      table.add(groups, "add-member",
                withFingerprint(
                    "add people, addresses and conversations to a group\n"
                    "The number or address of somebody in the address book adds that person, since "
                    "the conversations of people who are known are found by person only.")
                    .c_str(),
                addMembers);
  addGroupOption(add, options);
  add.add_option("WHO", options.people, kWho)->required();
  CLI::App& remove =
      table.add(groups, "remove-member",
                withFingerprint("take people, addresses and conversations out of a group").c_str(),
                removeMembers);
  addGroupOption(remove, options);
  remove
      .add_option("WHO", options.people,
                  std::string(kWho).append(", or a member as `groups show` lists it"))
      ->required();
}

void addTransferCommands(CLI::App& groups, CommandTable& table, Options& options) {
  CLI::App& save = table.add(
      groups, "export",
      withFingerprint(
          "write groups of the user's, with pictures, to a file for another device\n"
          "Each person is written with name, numbers and addresses, so that `groups import` finds "
          "the person in another address book. System groups are not written.")
          .c_str(),
      exportGroups);
  save.add_option("FILE", options.file, "a new file, or - for the standard output")->required();
  save.add_option("GROUP", options.groups,
                  "only these, by title or identifier; all groups of the user's when none is "
                  "named");
  save.add_flag("--force", options.force, "write over a file that is there");

  CLI::App& load = table.add(
      groups, "import",
      withFingerprint(
          "add the groups of an exported file\n"
          "People are found by number or address, then by full name. Of those who are not found, "
          "the numbers and addresses become members; somebody without any is kept in the group, "
          "exported again with it, and found by a later import when the address book has grown.")
          .c_str(),
      importGroups);
  load.add_option("FILE", options.file, "what `groups export` wrote, or - for the standard input")
      ->required();
  CLI::Option* merge = load.add_flag_callback(
      "--merge", [&options] { options.importMode = ImportMode::kMerge; },
      "a group of the same identifier or, failing that, title gets the members too and stays as it "
      "is otherwise; other groups are added (default)");
  load.add_flag_callback(
          "--replace", [&options] { options.importMode = ImportMode::kReplace; },
          "the groups of the file take the place of all groups of the user's")
      ->excludes(merge);
  load.add_flag("--dry-run,-n", options.dryRun, "show what would change, and change nothing");
  addYes(load, options);
}

void addCopyCommands(CLI::App& groups, CommandTable& table, Options& options) {
  table.add(groups, "copies",
            "the safety copies: what the groups were before each of the last changes", listCopies);
  table
      .add(groups, "restore",
           withFingerprint("go back to a safety copy; the groups of now are copied first").c_str(),
           restoreCopy)
      .add_option("COPY", options.copy, "a name that `groups copies` lists, or last")
      ->required();
}

}  // namespace

void addGroupCommands(CLI::App& program, CommandTable& table, Options& options) {
  CLI::App& groups = *program.add_subcommand("groups", "the groups");
  groups.fallthrough();
  groups.require_subcommand(1);
  table.add(groups, "list", "every group, with its settings and counts", listGroups);
  addGroupOption(
      table.add(groups, "show", "one group with its members and conversations", showGroup),
      options);
  addEditingCommands(groups, table, options);
  addMemberCommands(groups, table, options);
  addTransferCommands(groups, table, options);
  addCopyCommands(groups, table, options);
}

}  // namespace zephyl::app
