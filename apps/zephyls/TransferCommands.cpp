// The commands that write groups to a file and take them from one.

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Host.h"
#include "platform/foundation/Clock.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/GroupPicture.h"
#include "apps/zephyls/GroupsDocument.h"
#include "apps/zephyls/GroupsExport.h"
#include "apps/zephyls/ImportPlan.h"
#include "apps/zephyls/LockedGroups.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "hosts/linux/FileContents.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

constexpr char kStandardStream[] = "-";

ZephylVector storedGroups() {
  return *ZephylsDataController::sharedInstance()->allZephyls()->snapshot();
}

// Those named, else every group of the user's.
ZephylVector groupsToExport(Session& session) {
  ZephylVector groups;
  for (const std::string& name : session.options().groups) {
    const ZephylRef group = session.groupNamed(name);
    if (group->isSystem()) {
      throw CommandError("\"" + group->title() +
                         "\" is a system group, which every device has of its own");
    }
    if (std::find(groups.begin(), groups.end(), group) == groups.end()) {
      groups.push_back(group);
    }
  }
  if (session.options().groups.empty()) {
    for (const ZephylRef& group : storedGroups()) {
      if (!group->isSystem()) {
        groups.push_back(group);
      }
    }
  }
  return groups;
}

void checkMayWrite(const std::string& file, bool force) {
  std::error_code error;
  const auto status = std::filesystem::symlink_status(file, error);
  if (std::filesystem::exists(status) && !force) {
    throw CommandError(file + ": there is such a file already; write over it with --force");
  }
  if (std::filesystem::is_directory(status)) {
    throw CommandError(file + ": is a folder");
  }
}

void printExported(const Session& session, Output& output,
                   const std::vector<TransferredGroup>& groups) {
  const std::string& file = session.options().file;
  std::vector<Row> rows;
  for (const TransferredGroup& group : groups) {
    const std::string title = group.properties["title"].ifString() == nullptr
                                  ? std::string()
                                  : *group.properties["title"].ifString();
    if (output.isJson()) {
      output.object({{"identifier", group.identifier},
                     {"title", title},
                     {"members", group.members.size()},
                     {"picture", group.picture.has_value()},
                     {"file", file}});
    } else {
      rows.push_back({{title, Style::kBold},
                      {counted(group.members.size(), "member")},
                      {group.picture ? "with its picture" : "", Style::kDim}});
    }
  }
  output.table(rows);
  if (!output.isJson()) {
    output.line(counted(groups.size(), "group") + " in " + file);
  }
}

std::string readInput(const std::string& file) {
  if (file == kStandardStream) {
    std::string contents;
    constexpr std::size_t kPart = 1U << 16U;
    std::string part(kPart, '\0');
    while (std::cin.read(part.data(), kPart) || std::cin.gcount() > 0) {
      contents.append(part, 0, static_cast<std::size_t>(std::cin.gcount()));
      if (contents.size() > linux_host::kMaximumFileBytes) {
        throw CommandError("the standard input has more than " +
                           std::to_string(linux_host::kMaximumFileBytes) + " bytes");
      }
    }
    return contents;
  }
  const linux_host::FileReading reading = linux_host::readWholeFile(file);
  if (!reading.contents) {
    throw CommandError(file + ": " +
                       (reading.isMissing() ? "there is no such file" : reading.reason));
  }
  return *reading.contents;
}

std::vector<std::string> checkedPictures(const std::vector<TransferredGroup>& document,
                                         const std::string& file) {
  std::vector<std::string> pngs;
  pngs.reserve(document.size());
  for (std::size_t index = 0; index < document.size(); ++index) {
    const auto& picture = document[index].picture;
    const std::string place = file + ": groups[" + std::to_string(index) + "].picture";
    pngs.push_back(picture ? checkedPicture(*picture, place) : std::string());
  }
  return pngs;
}

// Carries a plan out: what is changed one group after the other, what is new at once, and last of
// all what goes, so that whatever fails nothing is lost.
class Import {
 public:
  // All must outlive this.
  Import(LockedGroups& locked, const ImportPlan& plan, const Places& places)
      : locked_(locked), plan_(plan), places_(places) {}

  void run() {
    ZephylVector added;
    std::vector<GroupChange> creations;
    NewPictures addedPictures(places_);
    for (const PlannedGroup& planned : plan_.groups) {
      if (planned.existing != nullptr) {
        update(planned);
        continue;
      }
      GroupChange change = planned.change();
      change.group = madeFrom(planned, addedPictures);
      change.after = change.group->dictionaryRepresentation();
      added.push_back(change.group);
      creations.push_back(std::move(change));
    }
    locked_.add(added);
    addedPictures.keep();
    append(creations);
    remove();
  }

  [[nodiscard]] const std::vector<GroupChange>& changes() const { return changes_; }

 private:
  void update(const PlannedGroup& planned) {
    GroupChange change = planned.change();
    NewPictures pictures(places_);
    change.group = change.isAny() ? madeFrom(planned, pictures) : planned.existing;
    change.after = change.group->dictionaryRepresentation();
    if (change.isAny()) {
      locked_.update({change.group});
    }
    pictures.keep();
    changes_.push_back(std::move(change));
  }

  // The group with its picture, not saved yet.
  [[nodiscard]] ZephylRef madeFrom(const PlannedGroup& planned, NewPictures& pictures) const {
    // Takes a fresh identifier when the dictionary has none.
    auto group = std::make_shared<Zephyl>(planned.after);
    if (planned.existing == nullptr) {
      locked_.giveFreeIdentifier(group);
    }
    if (!planned.png.empty()) {
      pictures.store(group, planned.png);
    }
    return group;
  }

  void remove() {
    if (plan_.deleted.empty()) {
      return;
    }
    std::vector<GroupChange> gone;
    gone.reserve(plan_.deleted.size());
    for (const ZephylRef& group : plan_.deleted) {
      gone.push_back({group->dictionaryRepresentation(), {}, nullptr});
    }
    locked_.remove(plan_.deleted);
    append(gone);
  }

  void append(const std::vector<GroupChange>& changes) {
    changes_.insert(changes_.end(), changes.begin(), changes.end());
  }

  LockedGroups& locked_;
  const ImportPlan& plan_;
  const Places& places_;
  std::vector<GroupChange> changes_;
};

void printPlan(Session& session, Output& output, const ImportPlan& plan) {
  for (const PlannedGroup& group : plan.groups) {
    printChange(session, output, group.change());
  }
  for (const ZephylRef& group : plan.deleted) {
    printChange(session, output, {group->dictionaryRepresentation(), {}, nullptr});
  }
}

void tellRemarks(Output& output, const ImportPlan& plan) {
  for (const std::string& remark : plan.remarks) {
    output.complain(remark);
  }
}

void askForImport(Session& session, Output& output, const ImportPlan& plan) {
  const ZephylVector affected = plan.affected();
  if (session.options().replaces.value_or(false) && !affected.empty()) {
    askWhetherToGoOn(session, output,
                     "Replace " + counted(affected.size(), "group") + " of yours by " +
                         counted(plan.groups.size(), "group") + " of the file?");
  }
  askForFingerprint(session, output, affected);
}

// What other programs did since the user was asked may need asking again.
void checkAsked(const ImportPlan& plan, const ZephylVector& asked) {
  for (const ZephylRef& group : plan.affected()) {
    const bool isAsked = std::any_of(asked.begin(), asked.end(), [&](const ZephylRef& one) {
      return one->isEqual(*group) && isLocked(one) == isLocked(group);
    });
    if (!isAsked) {
      throw CommandError("another program has changed the group \"" + group->title() +
                         "\"; nothing was changed; try again");
    }
  }
}

}  // namespace

int exportGroups(Session& session, Output& output) {
  const std::string& file = session.options().file;
  const bool isStream = file == kStandardStream;
  if (!isStream) {
    checkMayWrite(file, session.options().force);
  }
  session.startDevice();
  const std::set<std::int64_t> protectedGroups = protectedInFile();
  session.startGroups();
  const ZephylVector groups = groupsToExport(session);
  askForFingerprint(session, output, groups);
  std::vector<TransferredGroup> exported;
  exported.reserve(groups.size());
  for (const ZephylRef& group : groups) {
    exported.push_back(transferredGroup(
        group, protectedGroups, [&](const std::string& message) { session.complain(message); }));
  }
  const Json document = documentOf(exported, host().clock().now());
  if (isStream) {
    output.document(document);
    return session.exitStatus();
  }
  const auto failure = linux_host::replaceFile(
      file, document.dump(1, ' ', false, Json::error_handler_t::replace) + "\n");
  if (failure) {
    throw CommandError(file + ": " + *failure);
  }
  printExported(session, output, exported);
  return session.exitStatus();
}

int importGroups(Session& session, Output& output) {
  const Options& options = session.options();
  const std::string name = options.file == kStandardStream ? "standard input" : options.file;
  const std::vector<TransferredGroup> document = groupsOfDocument(readInput(options.file), name);
  const std::vector<std::string> pngs = checkedPictures(document, name);
  session.startGroups();
  const MemberFinder finder(session);
  const auto makePlan = [&] {
    return planImport(document, pngs, storedGroups(), finder,
                      options.replaces.value_or(false) ? ImportMode::kReplace : ImportMode::kMerge);
  };
  const ImportPlan expected = makePlan();
  if (options.dryRun) {
    printPlan(session, output, expected);
    tellRemarks(output, expected);
    return session.exitStatus();
  }
  askForImport(session, output, expected);
  std::vector<GroupChange> changes;
  std::string failure;
  {
    LockedGroups locked(session, output);
    const ImportPlan plan = makePlan();
    checkAsked(plan, expected.affected());
    Import import(locked, plan, session.places());
    try {
      import.run();
    } catch (const CommandError& error) {
      failure = error.what();
    }
    changes = import.changes();
  }
  session.settle();
  for (const GroupChange& change : changes) {
    printChange(session, output, change);
  }
  tellRemarks(output, expected);
  if (!failure.empty()) {
    throw CommandError(failure + (changes.empty() ? " Nothing was imported."
                                                  : " Only what is listed was imported."));
  }
  return session.exitStatus();
}

}  // namespace zephyl::app
