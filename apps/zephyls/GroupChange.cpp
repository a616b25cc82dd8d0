#include "apps/zephyls/GroupChange.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "apps/zephyls/Describe.h"
#include "apps/zephyls/Json.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "apps/zephyls/UnresolvedMembers.h"
#include "model/MemberSet.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

struct Property {
  const char* key;
  const char* name;
};

// What the user is told of, in this order; members come after them.
constexpr Property kProperties[] = {
    {keys::kTitle, "title"},
    {keys::kSubTitle, "subtitle"},
    {keys::kMarkerCode, "colour"},
    {keys::kHeaderImagePath, "picture"},
    {keys::kBackGroundImagePath, "background"},
    {keys::kEnabled, "enabled"},
    {keys::kActive, "active"},
    {keys::kPasswordProtected, "protected"},
    {keys::kHidesInDefaultGroups, "hides its conversations"},
    {keys::kHidesOnLockScreen, "masked on the lock screen"},
    {keys::kMaskedMessage, "masked text"},
};

// The times of making and changing go without saying.
bool isTold(std::string_view key) {
  return key != keys::kCreatedDate && key != keys::kUpdatedDate && key != keys::kIdentifier;
}

std::string textOf(const Value& value) {
  if (const bool* flag = value.ifBoolean()) {
    return *flag ? "on" : "off";
  }
  if (const std::string* text = value.ifString()) {
    return text->empty() ? "none" : *text;
  }
  return value.isNull() ? "none" : jsonOf(value).dump();
}

MemberSet membersOf(const std::optional<Dictionary>& group) {
  const Value members = group ? (*group)[keys::kContacts] : Value();
  return members.ifArray() == nullptr ? MemberSet() : MemberSet(*members.ifArray());
}

const char* nameOf(const GroupChange& change) {
  if (!change.before) {
    return "created";
  }
  if (!change.after) {
    return "deleted";
  }
  return change.isAny() ? "changed" : "unchanged";
}

// The keys whose values differ, those of new groups and of deleted ones not at all.
std::vector<std::string> changedKeys(const GroupChange& change) {
  std::vector<std::string> changed;
  if (!change.before || !change.after) {
    return changed;
  }
  for (const Dictionary* one : {&*change.before, &*change.after}) {
    for (const auto& [key, value] : *one) {
      const bool differs = !((*change.before)[key] == (*change.after)[key]);
      const bool isNewPicture = change.hasNewPicture && key == keys::kHeaderImagePath;
      if (isTold(key) && (differs || isNewPicture) &&
          std::find(changed.begin(), changed.end(), key) == changed.end()) {
        changed.push_back(key);
      }
    }
  }
  return changed;
}

void addMembers(std::vector<Row>& rows, const MemberSet& members, const MemberSet& others,
                const char* what) {
  for (const Member& member : members) {
    if (!others.contains(member)) {
      rows.push_back({{std::string("  ") + what, Style::kDim}, {textOf(describe(member))}});
    }
  }
}

void addUnresolved(std::vector<Row>& rows, const GroupChange& change) {
  const auto before = unresolvedMembers(change.before.value_or(Dictionary()));
  for (const TransferredMember& person : unresolvedMembers(*change.after)) {
    if (std::find(before.begin(), before.end(), person) == before.end()) {
      rows.push_back({{"  not found", Style::kDim}, {textOf(person)}});
    }
  }
}

std::string valueRowText(const GroupChange& change, const char* key) {
  const Value after = (*change.after)[key];
  if (change.hasNewPicture && std::string_view(key) == keys::kHeaderImagePath) {
    return "new";
  }
  return change.before ? textOf((*change.before)[key]) + " → " + textOf(after) : textOf(after);
}

// Of a new group only what is not as nothing had been said.
bool isShown(const GroupChange& change, const char* key) {
  if (change.before) {
    const auto changed = changedKeys(change);
    return std::find(changed.begin(), changed.end(), key) != changed.end();
  }
  const std::string_view name = key;
  const Value value = (*change.after)[key];
  if (name == keys::kEnabled) {
    return !value.boolValue();
  }
  if (name == keys::kTitle || name == keys::kMaskedMessage) {
    return false;
  }
  return textOf(value) != "none" && textOf(value) != "off";
}

void printText(Output& output, const GroupChange& change) {
  const Dictionary& shown = change.after ? *change.after : *change.before;
  const std::int64_t identifier = shown[keys::kIdentifier].integerValue();
  output.line({{textOf(shown[keys::kTitle]), Style::kBold},
               {identifier < 1 ? "" : "  " + std::to_string(identifier), Style::kDim},
               {std::string("  ") + nameOf(change)}});
  if (!change.after) {
    return;
  }
  std::vector<Row> rows;
  for (const Property& property : kProperties) {
    if (isShown(change, property.key)) {
      rows.push_back(
          {{std::string("  ") + property.name, Style::kDim}, {valueRowText(change, property.key)}});
    }
  }
  const MemberSet before = membersOf(change.before);
  const MemberSet after = membersOf(change.after);
  addMembers(rows, after, before, change.before ? "member added" : "member");
  addMembers(rows, before, after, "member removed");
  addUnresolved(rows, change);
  output.wholeTable(rows);
}

}  // namespace

bool GroupChange::isAny() const {
  return !before || !after || hasNewPicture || !changedKeys(*this).empty();
}

void printChange(Session& session, Output& output, const GroupChange& change) {
  if (!output.isJson()) {
    printText(output, change);
    return;
  }
  Json object = change.group != nullptr
                    ? groupObject(change.group, session.conversationsOf(change.group).size())
                    : jsonOf(Value(change.after ? *change.after : *change.before));
  object["change"] = nameOf(change);
  const std::vector<std::string> changed = changedKeys(change);
  if (!changed.empty()) {
    Json before = Json::object();
    for (const std::string& key : changed) {
      before[key] = jsonOf((*change.before)[key]);
    }
    object["before"] = std::move(before);
  }
  output.object(object);
}

}  // namespace zephyl::app
