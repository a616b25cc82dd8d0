#include "model/GroupsFileCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>
#include <utility>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "model/MemberSet.h"
#include "model/ZephylKeys.h"

namespace zephyl {

namespace {

const char* nameOf(Value::Type type) {
  static constexpr std::array<const char*, 11> kNames = {
      "nothing", "a boolean", "an integer", "an integer", "a real",      "a date",
      "a uid",   "a text",    "data",       "an array",   "a dictionary"};
  return kNames.at(static_cast<std::size_t>(type));
}

// Collects the problems of one group after another.
class Inspection {
 public:
  void inspect(const Dictionary& group) {
    ++number_;
    const Value title = group[keys::kTitle];
    group_ = "group " + std::to_string(number_);
    if (title.ifString() != nullptr) {
      group_ += " (" + *title.ifString() + ")";
    }
    inspectTypes(group);
    inspectIdentifier(group);
    inspectMembers(group);
    inspectSystemMode(group);
  }

  void skip(const Value& element) {
    ++number_;
    group_ = "element " + std::to_string(number_);
    note("",
         std::string("is ") + nameOf(element.type()) +
             ", not a dictionary; it is no group and goes with the next save",
         /*isSerious=*/true);
  }

  [[nodiscard]] std::vector<GroupsFileProblem> take() { return std::move(problems_); }

 private:
  void note(const char* key, std::string reason, bool isSerious = false) {
    problems_.push_back(
        {*key == '\0' ? group_ : group_ + ", key " + key, std::move(reason), isSerious});
  }

  void inspectTypes(const Dictionary& group) {
    for (const auto& [key, value] : group) {
      const GroupKey* known = groupKeyNamed(key);
      if (known == nullptr) {
        note(key.c_str(), "is not known; it is kept");
      } else if (value.type() != known->type) {
        note(key.c_str(), std::string("is ") + nameOf(value.type()) + ", not " +
                              nameOf(known->type) + "; it is read as the nearest value and kept");
      }
    }
  }

  void inspectIdentifier(const Dictionary& group) {
    const std::int64_t identifier = group[keys::kIdentifier].integerValue();
    if (identifier < 1) {
      note(keys::kIdentifier, "is missing or below 1; the group gets a new one with the next save");
    } else if (!identifiers_.insert(identifier).second) {
      note(keys::kIdentifier,
           std::to_string(identifier) +
               " belongs to an earlier group too; the two count as one group",
           /*isSerious=*/true);
    }
  }

  void inspectMembers(const Dictionary& group) {
    const Array* members = group[keys::kContacts].ifArray();
    if (members == nullptr) {
      return;
    }
    const MemberSet set(*members);
    const std::size_t kept = set.array().size();
    if (kept > set.size()) {
      note(keys::kContacts, std::to_string(kept - set.size()) +
                                " elements are neither numbers nor texts; they are kept but are "
                                "no members");
    }
    if (kept < members->size()) {
      note(keys::kContacts,
           std::to_string(members->size() - kept) + " members stand there more than once");
    }
  }

  void inspectSystemMode(const Dictionary& group) {
    const std::int64_t mode = group[keys::kZephylSystemMode].integerValue();
    if (!group[keys::kSystem].boolValue() || mode == 0) {
      return;
    }
    if (mode < 0 || mode > 5) {
      note(keys::kZephylSystemMode, std::to_string(mode) + " is no system group; it shows nothing");
    } else if (!modes_.insert(mode).second) {
      note(keys::kZephylSystemMode, "the same system group stands there more than once");
    }
  }

  std::size_t number_ = 0;
  std::string group_;
  std::set<std::int64_t> identifiers_;
  std::set<std::int64_t> modes_;
  std::vector<GroupsFileProblem> problems_;
};

}  // namespace

std::optional<std::string> whyNoGroupsFile(std::string_view bytes) {
  const PropertyListResult list = readPropertyList(bytes);
  if (!list.ok()) {
    return list.error().message("groups file");
  }
  const Array* groups = list.value().ifArray();
  if (groups == nullptr) {
    return std::string("the root is ") + nameOf(list.value().type()) + ", not an array";
  }
  const auto odd = std::find_if(groups->begin(), groups->end(), [](const Value& element) {
    return element.ifDictionary() == nullptr;
  });
  if (odd == groups->end()) {
    return std::nullopt;
  }
  return "element " + std::to_string(odd - groups->begin() + 1) + " is " + nameOf(odd->type()) +
         ", not a dictionary";
}

std::vector<GroupsFileProblem> problemsOfGroups(const Array& groups) {
  Inspection inspection;
  for (const Value& element : groups) {
    if (element.ifDictionary() == nullptr) {
      inspection.skip(element);
    } else {
      inspection.inspect(*element.ifDictionary());
    }
  }
  return inspection.take();
}

}  // namespace zephyl
