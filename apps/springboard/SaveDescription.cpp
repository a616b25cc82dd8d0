#include "apps/springboard/SaveDescription.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <vector>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "model/ZephylKeys.h"

namespace zephyl::app {

namespace {

// In file order; several groups may share an identifier.
using Groups = std::map<std::int64_t, std::vector<const Dictionary*>>;

Groups groupsOf(const PropertyListResult& file) {
  Groups groups;
  if (const Array* list = file.ok() ? file.value().ifArray() : nullptr) {
    for (const Value& element : *list) {
      if (const Dictionary* group = element.ifDictionary()) {
        groups[(*group)[keys::kIdentifier].integerValue()].push_back(group);
      }
    }
  }
  return groups;
}

using Titles = std::vector<std::string>;

std::string titleOf(const Dictionary& group) {
  const Value title = group[keys::kTitle];
  return title.ifString() == nullptr ? std::string() : *title.ifString();
}

// "Work" was deleted, 3 groups were deleted; nothing for none.
std::string told(const Titles& titles, const std::string& what) {
  if (titles.empty()) {
    return {};
  }
  if (titles.size() > 1) {
    return std::to_string(titles.size()) + " groups were " + what;
  }
  return (titles.front().empty() ? "a group" : "\"" + titles.front() + "\"") + " was " + what;
}

struct Changes {
  Titles deleted;
  Titles added;
  Titles changed;
  std::string newTitle;  // of the last that was changed, where it is another
};

void compare(const std::vector<const Dictionary*>& before,
             const std::vector<const Dictionary*>& after, Changes& changes) {
  const std::size_t both = std::min(before.size(), after.size());
  for (std::size_t index = 0; index < both; ++index) {
    const Dictionary& was = *before[index];
    const Dictionary& is = *after[index];
    if (!(was == is)) {
      changes.changed.push_back(titleOf(was));
      changes.newTitle = titleOf(was) == titleOf(is) ? "" : titleOf(is);
    }
  }
  for (std::size_t index = both; index < before.size(); ++index) {
    changes.deleted.push_back(titleOf(*before[index]));
  }
  for (std::size_t index = both; index < after.size(); ++index) {
    changes.added.push_back(titleOf(*after[index]));
  }
}

Changes changesBetween(const Groups& before, Groups after) {
  Changes changes;
  for (const auto& [identifier, groups] : before) {
    compare(groups, after[identifier], changes);
  }
  for (const auto& [identifier, groups] : after) {
    if (!before.contains(identifier)) {
      compare({}, groups, changes);
    }
  }
  return changes;
}

}  // namespace

std::string describeSave(const std::string& oldContents, const std::string& newContents) {
  // They own what the groups point to.
  const PropertyListResult before = readPropertyList(oldContents);
  const PropertyListResult after = readPropertyList(newContents);
  const Changes changes = changesBetween(groupsOf(before), groupsOf(after));
  const bool isRenamed = changes.changed.size() == 1 && !changes.newTitle.empty();
  std::string text;
  for (const std::string& part :
       {told(changes.deleted, "deleted"), told(changes.added, "added"),
        told(changes.changed, isRenamed ? "renamed \"" + changes.newTitle + "\"" : "changed")}) {
    text += part.empty() || text.empty() ? part : " and " + part;
  }
  return "before " + (text.empty() ? "the groups were written anew" : text);
}

}  // namespace zephyl::app
