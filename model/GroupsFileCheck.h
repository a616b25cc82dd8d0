// What is wrong with a groups file: whether it is one at all, and what in its groups has another
// form than the library writes. Pure functions, any thread; nothing is changed.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"
#include "platform/foundation/Value.h"

namespace zephyl {

struct GroupsFileProblem {
  std::string place;   // "group 3 (Work), key enabled"
  std::string reason;  // what is wrong and how it is read nevertheless
  // Whether the next save changes what stands there, or groups are mistaken for one another.
  bool isSerious = false;
};

// Why reading these bytes would lose something: they are no property list, the root is no array, or
// an element is no dictionary. With the place; nothing when the file holds groups.
[[nodiscard]] ZP_EXPORT std::optional<std::string> whyNoGroupsFile(std::string_view bytes);

// In file order: values of wrong types, members of wrong types, identifiers that are missing or
// taken, keys that are not known, system groups that are there twice.
[[nodiscard]] ZP_EXPORT std::vector<GroupsFileProblem> problemsOfGroups(const Array& groups);

}  // namespace zephyl
