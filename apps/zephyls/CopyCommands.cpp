#include "apps/zephyls/CopyCommands.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <ctime>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "platform/Host.h"
#include "platform/foundation/DarwinNotificationCenter.h"
#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/PropertyList.h"

#include "apps/common/CommandError.h"
#include "apps/common/DeviceLock.h"
#include "apps/springboard/GroupsSafety.h"
#include "apps/zephyls/Consent.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "hosts/linux/safety/CopyFolder.h"
#include "hosts/linux/safety/SaveNotes.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {

namespace {

using linux_host::CopyFolder;
using linux_host::SafetyCopy;

CopyFolder copiesOf(const Session& session) {
  const Places& places = session.places();
  return CopyFolder(groupCopiesFolder(places.state.string(), places.device.string()));
}

// The groups in a content; nothing when nobody can read them.
std::optional<Array> groupsIn(const std::optional<std::string>& contents) {
  if (!contents || whyNoGroupsAtAll(*contents)) {
    return std::nullopt;
  }
  return *readPropertyList(*contents).value().ifArray();
}

std::string timeText(double time, const char* form, bool isLocal) {
  const auto seconds = static_cast<std::time_t>(std::floor(time));
  std::tm parts{};
  std::array<char, 32> text{};
  if ((isLocal ? ::localtime_r(&seconds, &parts) : ::gmtime_r(&seconds, &parts)) == nullptr) {
    return {};
  }
  return {text.data(), std::strftime(text.data(), text.size(), form, &parts)};
}

// As listed, or "last" for the newest.
std::string nameOfCopy(const CopyFolder& folder, const std::string& name) {
  const std::vector<SafetyCopy> copies = folder.copies();
  const auto found = name == "last"
                         ? copies.begin()
                         : std::find_if(copies.begin(), copies.end(),
                                        [&](const SafetyCopy& copy) { return copy.name == name; });
  if (found == copies.end()) {
    throw CommandError(copies.empty() ? "there are no safety copies yet; one is made with the next "
                                        "change of the groups"
                                      : "no safety copy is named \"" + name +
                                            "\"; `zephyls groups copies` lists them");
  }
  return found->name;
}

// A content of the groups file with the groups in it.
struct Copy {
  std::string name;
  std::string contents;
  Array groups;
};

Copy copyNamed(const CopyFolder& folder, const std::string& named) {
  Copy copy;
  copy.name = nameOfCopy(folder, named);
  linux_host::FileReading reading = folder.contentsOf(copy.name);
  auto groups = groupsIn(reading.contents);
  if (!groups) {
    throw CommandError("the safety copy " + copy.name + " is damaged: " +
                       (reading.contents ? *whyNoGroupsAtAll(*reading.contents) : reading.reason));
  }
  copy.contents = std::move(*reading.contents);
  copy.groups = std::move(*groups);
  return copy;
}

// Restoring may change or delete any group, and take protection away.
void askForProtected(Session& session, Output& output, const Array& groups) {
  ZephylVector asked;
  for (const Value& element : groups) {
    const Dictionary* group = element.ifDictionary();
    if (group != nullptr && (*group)[keys::kPasswordProtected].boolValue()) {
      asked.push_back(std::make_shared<Zephyl>(*group));
    }
  }
  askForFingerprint(session, output, asked);
}

// Makes the groups those of the copy, as whoever owns the file does it.
bool save(const Session& session, const Copy& copy) {
  const bool isOwner = !ZPUtils::isIOS12();
  // Another owner writes the groups in its own form.
  const std::string written = isOwner ? copy.contents : writeXmlPropertyList(Value(copy.groups));
  const linux_host::SaveNotes notes(groupNotesFolder(session.places().device.string()));
  if (const auto failed = notes.announce(written, "before restoring " + copy.name)) {
    throw CommandError("the restoring cannot be noted: " + *failed);
  }
  return isOwner ? host().files().writeToFile(kGroupsFilePath, copy.contents)
                 : ZephylsDataController().saveGroupsDataToDisk(copy.groups);
}

}  // namespace

int listCopies(Session& session, Output& output) {
  const CopyFolder folder = copiesOf(session);
  std::vector<Row> rows;
  for (const SafetyCopy& copy : folder.copies()) {
    const auto groups = groupsIn(folder.contentsOf(copy.name).contents);
    if (output.isJson()) {
      output.object({{"name", copy.name},
                     {"time", timeText(copy.time, "%Y-%m-%dT%H:%M:%SZ", /*isLocal=*/false)},
                     {"groups", groups ? Json(groups->size()) : Json(nullptr)},
                     {"reason", copy.reason}});
    } else {
      rows.push_back({{copy.name, Style::kBold},
                      {timeText(copy.time, "%Y-%m-%d %H:%M:%S", /*isLocal=*/true), Style::kDim},
                      {groups ? counted(groups->size(), "group") : "damaged",
                       groups ? Style::kPlain : Style::kBad},
                      {copy.reason}});
    }
  }
  output.table(rows);
  return session.exitStatus();
}

int restoreCopy(Session& session, Output& output) {
  session.startDevice();
  // Not the shared store: neither its groups nor their conversations are needed. This also brings
  // the file in order, if a save of it was interrupted.
  ZephylsDataController store;
  const Array before = store.getAllGroups().value_or(Array());
  const CopyFolder folder = copiesOf(session);
  const Copy copy = copyNamed(folder, session.options().copy);
  askForProtected(session, output, before);
  {
    const DeviceLock lock(session.places().device);
    if (!(store.getAllGroups().value_or(Array()) == before)) {
      throw CommandError("another program has changed the groups meanwhile; try again");
    }
    if (!save(session, copy)) {
      throw CommandError("the groups could not be saved; they are as they were");
    }
  }
  host().darwinNotifications().post(kZephylChangedNotification);
  session.settle();
  if (output.isJson()) {
    output.object({{"name", copy.name}, {"groups", copy.groups.size()}});
  } else {
    output.line("restored " + copy.name + ": " + counted(copy.groups.size(), "group"));
  }
  return session.exitStatus();
}

}  // namespace zephyl::app
