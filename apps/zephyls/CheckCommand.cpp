// The command that looks through all files of the user: what is wrong, where, what to do. Reads
// only, and reads what it can of everything even when the first file is no good.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Commands.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/GroupPicture.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "apps/zephyls/Settings.h"
#include "hosts/linux/FileContents.h"
#include "hosts/linux/contacts/ContactSources.h"
#include "hosts/linux/contacts/FavoritesFile.h"
#include "hosts/linux/messages/MessagesDatabase.h"
#include "model/GroupsFileCheck.h"
#include "model/MemberSet.h"
#include "model/ZPSettings.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

enum class Severity { kGood, kWarning, kBad };

struct Finding {
  const char* subject;
  Severity severity;
  std::string message;
  std::string advice;
};

const char* nameOf(Severity severity) {
  switch (severity) {
    case Severity::kGood:
      return "ok";
    case Severity::kWarning:
      return "warning";
    case Severity::kBad:
      return "error";
  }
  return "";
}

Style styleOf(Severity severity) {
  switch (severity) {
    case Severity::kGood:
      return Style::kGood;
    case Severity::kWarning:
      return Style::kWarning;
    case Severity::kBad:
      return Style::kBad;
  }
  return Style::kPlain;
}

std::string placeOf(const std::string& file, const Dictionary& group) {
  const Value title = group[keys::kTitle];
  return file + ": group " + (title.ifString() == nullptr ? std::string() : *title.ifString());
}

class Check {
 public:
  Check(const Places& places, Output& output) : places_(places), output_(output) {}

  void messages();
  void contacts();
  void groups();
  void favorites();
  void keptCopies(const std::string& file);
  void settings();

  [[nodiscard]] int exitStatus() const { return bad_ ? kBadData : kSuccess; }

 private:
  void report(const Finding& finding);
  void good(const char* subject, const std::string& message) {
    report({subject, Severity::kGood, message, ""});
  }
  void members(const std::string& file, const Array& groups);
  void pictures(const std::string& file, const Array& groups);
  // Empty when the member stands for somebody or something that was read.
  [[nodiscard]] std::string whyUnresolved(const Member& member) const;
  // Null when the file is missing or unreadable; the latter is reported.
  std::optional<Value> listAt(const char* subject, const std::string& phonePath,
                              const std::string& whenMissing, const std::string& advice);

  const Places& places_;
  Output& output_;
  bool bad_ = false;
  // Whom and what members can stand for; nothing when it could not be read.
  std::optional<std::set<std::int64_t>> recordIDs_;
  std::optional<std::set<std::string>> guids_;
};

void Check::report(const Finding& finding) {
  bad_ = bad_ || finding.severity == Severity::kBad;
  if (output_.isJson()) {
    output_.object({{"subject", finding.subject},
                    {"severity", nameOf(finding.severity)},
                    {"message", finding.message},
                    {"advice", finding.advice}});
    return;
  }
  output_.wholeTable({{{nameOf(finding.severity), styleOf(finding.severity)},
                       {finding.subject, Style::kBold},
                       {finding.message}}});
  if (!finding.advice.empty()) {
    output_.line({{"    " + finding.advice, Style::kDim}});
  }
}

void Check::messages() {
  const auto reading = linux_host::MessagesDatabase::read(places_.messages.string());
  if (!reading.ok()) {
    report({"messages", Severity::kBad, reading.error().file + ": " + reading.error().reason, ""});
    return;
  }
  const linux_host::MessagesReading& read = reading.value();
  good("messages", places_.messages.string() + ": " +
                       counted(read.conversations.size(), "conversation") + ", " +
                       counted(read.messageCount, "message"));
  guids_.emplace();
  for (const linux_host::ConversationRecord& conversation : read.conversations) {
    guids_->insert(conversation.guid);
  }
  for (const std::string& warning : read.warnings) {
    report({"messages", Severity::kWarning, warning,
            "the rest is shown; the database itself is never changed"});
  }
}

void Check::contacts() {
  if (places_.contacts.empty()) {
    report({"contacts", Severity::kWarning, "no address book is given",
            "name one with --contacts; without it everybody is unknown"});
    return;
  }
  linux_host::RecordIDs ids(places_.recordIDs(), linux_host::RecordIDs::Access::kReadOnly);
  const linux_host::ContactsReading reading = linux_host::readContacts(places_.contacts, ids);
  good("contacts", counted(reading.people.size(), "contact"));
  recordIDs_.emplace();
  for (const ABPersonRef& person : reading.people) {
    recordIDs_->insert(person->recordID);
  }
  for (const std::string& warning : reading.warnings) {
    report({"contacts", Severity::kWarning, warning,
            "the rest is shown; the file itself is never changed"});
  }
  for (const std::string& error : reading.errors) {
    report({"contacts", Severity::kBad, error, "see that the file is whole, or leave it out"});
  }
}

std::string Check::whyUnresolved(const Member& member) const {
  if (const auto* recordID = std::get_if<std::int64_t>(&member)) {
    return recordIDs_ && !recordIDs_->contains(*recordID)
               ? "member " + std::to_string(*recordID) + " is nobody's record id"
               : std::string();
  }
  const std::string& text = std::get<std::string>(member);
  return guids_ && isChatGuid(text) && !guids_->contains(text)
             ? "member " + text + " is no conversation of the database"
             : std::string();
}

// The limits are those within which a picture is set.
void Check::pictures(const std::string& file, const Array& groups) {
  for (const Value& group : groups) {
    const Dictionary* dictionary = group.ifDictionary();
    const Value name = dictionary == nullptr ? Value() : (*dictionary)[keys::kHeaderImagePath];
    if (name.ifString() == nullptr || name.ifString()->empty()) {
      continue;
    }
    const std::string path = std::string(kGroupPicturesDirectory) + "/" + *name.ifString();
    try {
      static_cast<void>(checkedPictureFile(places_.onDevice(path).string()));
    } catch (const CommandError& error) {
      report({"groups", Severity::kWarning,
              placeOf(file, *dictionary).append(": its picture ").append(error.what()),
              "the group stays without it; give it another with `zephyls groups edit --picture`"});
    }
  }
}

void Check::members(const std::string& file, const Array& groups) {
  for (const Value& group : groups) {
    const Dictionary* dictionary = group.ifDictionary();
    const Value contacts = dictionary == nullptr ? Value() : (*dictionary)[keys::kContacts];
    if (contacts.ifArray() == nullptr) {
      continue;
    }
    const std::string place = placeOf(file, *dictionary);
    for (const Member& member : MemberSet(*contacts.ifArray())) {
      const std::string reason = whyUnresolved(member);
      if (!reason.empty()) {
        report({"groups", Severity::kWarning, std::string(place).append(": ").append(reason),
                "it is kept; it counts again once that address book or database is given"});
      }
    }
  }
}

std::optional<Value> Check::listAt(const char* subject, const std::string& phonePath,
                                   const std::string& whenMissing, const std::string& advice) {
  const std::string file = places_.onDevice(phonePath).string();
  const linux_host::FileReading reading = linux_host::readWholeFile(file);
  if (reading.isMissing()) {
    good(subject, file + ": " + whenMissing);
    return std::nullopt;
  }
  if (!reading.contents) {
    report({subject, Severity::kBad, file + ": " + reading.reason, advice});
    return std::nullopt;
  }
  const PropertyListResult list = readPropertyList(*reading.contents);
  if (!list.ok()) {
    report({subject, Severity::kBad, list.error().message(file), advice});
    return std::nullopt;
  }
  return list.value();
}

void Check::groups() {
  const std::string advice =
      "mend the file or put a copy back; before groups are saved in its place it is put aside "
      "beside itself";
  const auto list =
      listAt("groups", kGroupsFilePath, "not there yet; made at the first start", advice);
  if (!list) {
    return;
  }
  const std::string file = places_.onDevice(kGroupsFilePath).string();
  if (list->ifArray() == nullptr) {
    report({"groups", Severity::kBad, file + ": the root is no array", advice});
    return;
  }
  good("groups", file + ": " + counted(list->ifArray()->size(), "group"));
  for (const GroupsFileProblem& problem : problemsOfGroups(*list->ifArray())) {
    report({"groups", problem.isSerious ? Severity::kBad : Severity::kWarning,
            file + ": " + problem.place + ": " + problem.reason,
            problem.isSerious ? "mend the file before groups are changed"
                              : "nothing is lost by it; edit the file if it was not meant"});
  }
  members(file, *list->ifArray());
  pictures(file, *list->ifArray());
  keptCopies(file);
}

// Files that could not be read were put aside beside the groups file.
void Check::keptCopies(const std::string& file) {
  std::error_code error;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(file).parent_path(), error)) {
    if (entry.path().string().starts_with(file + ".unreadable-")) {
      report({"groups", Severity::kWarning,
              entry.path().string() + ": an earlier groups file that could not be read",
              "mend it and put it back as " + file + ", or delete it"});
    }
  }
}

void Check::favorites() {
  const auto list = listAt("favourites", kFavoritesFilePath, "not there; nobody is a favourite",
                           "until it is mended the group Favorites is empty");
  if (!list) {
    return;
  }
  const std::string file = places_.onDevice(kFavoritesFilePath).string();
  const linux_host::FavoritesReading reading = linux_host::readFavorites(*list, file);
  if (reading.errors.empty()) {
    good("favourites", file + ": " + counted(reading.entries.size(), "favourite"));
  }
  for (const std::string& warning : reading.warnings) {
    report({"favourites", Severity::kWarning, warning, "the other favourites count"});
  }
  for (const std::string& error : reading.errors) {
    report(
        {"favourites", Severity::kBad, error, "until it is mended the group Favorites is empty"});
  }
}

void Check::settings() {
  const std::string advice = "until it is mended the extension counts as switched off";
  const auto list = listAt("settings", ZPUtils::settingsFilePath(),
                           "not there yet; made at the first start", advice);
  if (!list) {
    return;
  }
  const std::string file = places_.onDevice(ZPUtils::settingsFilePath()).string();
  if (list->ifDictionary() == nullptr) {
    report({"settings", Severity::kBad, file + ": the root is no dictionary", advice});
    return;
  }
  for (const auto& [key, value] : *list->ifDictionary()) {
    if (const std::string reason = whyOddSetting(key, value); !reason.empty()) {
      report({"settings", Severity::kWarning,
              std::string(file).append(": key ").append(key).append(": ").append(reason),
              "set it anew with `zephyls settings set`, or leave it"});
    }
  }
  const bool enabled = (*list->ifDictionary())[settings_keys::kEnabled].boolValue();
  good("settings", file + ": the extension is " + (enabled ? "on" : "off"));
}

}  // namespace

int checkEverything(Session& session, Output& output) {
  Check check(session.places(), output);
  check.messages();
  check.contacts();
  check.groups();
  check.favorites();
  check.settings();
  return check.exitStatus();
}

}  // namespace zephyl::app
