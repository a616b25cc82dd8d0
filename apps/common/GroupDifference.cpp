#include "apps/common/GroupDifference.h"

#include <set>
#include <string_view>
#include <unordered_map>

#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

// A group that was never written bears the time of the moment as that of its making.
bool counts(std::string_view key) {
  return key != keys::kActive && key != keys::kUpdatedDate && key != keys::kCreatedDate;
}

std::int64_t identifierOf(const Dictionary& group) {
  return group[keys::kIdentifier].integerValue();
}

MemberSet membersOf(const Dictionary& group) {
  const Value contacts = group[keys::kContacts];
  return contacts.ifArray() == nullptr ? MemberSet() : MemberSet(*contacts.ifArray());
}

std::vector<Member> onlyInFirst(const MemberSet& first, const MemberSet& second) {
  std::vector<Member> only;
  for (const Member& member : first) {
    if (!second.contains(member)) {
      only.push_back(member);
    }
  }
  return only;
}

// The keys whose values differ, in the order of the dictionaries.
std::vector<std::string> changedKeys(const Dictionary& before, const Dictionary& after) {
  std::vector<std::string> changed;
  for (const auto& [key, value] : before) {
    const Value* const now = after.find(key);
    if (counts(key) && (now == nullptr || !(*now == value))) {
      changed.push_back(key);
    }
  }
  for (const auto& [key, value] : after) {
    if (counts(key) && before.find(key) == nullptr) {
      changed.push_back(key);
    }
  }
  return changed;
}

using GroupsByIdentifier = std::unordered_map<std::int64_t, const Dictionary*>;

GroupsByIdentifier byIdentifier(const std::vector<Dictionary>& groups) {
  GroupsByIdentifier known;
  known.reserve(groups.size());
  for (const Dictionary& group : groups) {
    known.emplace(identifierOf(group), &group);
  }
  return known;
}

// Those of the first whose identifier the second does not have.
std::vector<const Dictionary*> missing(const std::vector<Dictionary>& groups,
                                       const GroupsByIdentifier& others) {
  std::vector<const Dictionary*> found;
  std::set<std::int64_t> seen;
  for (const Dictionary& group : groups) {
    const std::int64_t identifier = identifierOf(group);
    if (!others.contains(identifier) && !group[keys::kSystem].boolValue() &&
        seen.insert(identifier).second) {
      found.push_back(&group);
    }
  }
  return found;
}

}  // namespace

std::string GroupDifference::title() const {
  const Value title = (after ? *after : *before)[keys::kTitle];
  return title.ifString() == nullptr ? std::string() : *title.ifString();
}

std::int64_t GroupDifference::identifier() const {
  return identifierOf(after ? *after : *before);
}

std::vector<Member> GroupDifference::left() const {
  return before && after ? onlyInFirst(membersOf(*before), membersOf(*after))
                         : std::vector<Member>();
}

std::vector<Member> GroupDifference::joined() const {
  return before && after ? onlyInFirst(membersOf(*after), membersOf(*before))
                         : std::vector<Member>();
}

Dictionary GroupDifference::takenBackFrom(const Dictionary& now) const {
  Dictionary result = now;
  for (const std::string& key : changedKeys(*before, *after)) {
    const Value* const old = before->find(key);
    if (key == keys::kContacts && !(now[key] == (*after)[key])) {
      MemberSet members = membersOf(now);
      for (const Member& member : joined()) {
        members.remove(member);
      }
      for (const Member& member : left()) {
        members.add(member);
      }
      result.set(key, members.array());
    } else if (old == nullptr) {
      result.remove(key);
    } else {
      result.set(key, *old);
    }
  }
  return result;
}

GroupStep differencesBetween(const std::vector<Dictionary>& before,
                             const std::vector<Dictionary>& after) {
  const GroupsByIdentifier old = byIdentifier(before);
  const GroupsByIdentifier now = byIdentifier(after);
  GroupStep step;
  for (const Dictionary& group : before) {
    const auto found = now.find(identifierOf(group));
    if (found != now.end() && old.at(found->first) == &group &&
        !changedKeys(group, *found->second).empty()) {
      step.push_back({group, *found->second});
    }
  }
  for (const Dictionary* const group : missing(after, old)) {
    step.push_back({std::nullopt, *group});
  }
  for (const Dictionary* const group : missing(before, now)) {
    step.push_back({*group, std::nullopt});
  }
  return step;
}

}  // namespace zephyl::app
