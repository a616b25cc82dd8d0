// What an import is going to do with the groups that are there; planning changes nothing.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/zephyls/GroupChange.h"
#include "apps/zephyls/GroupsDocument.h"
#include "apps/zephyls/MemberFinder.h"
#include "store/ZephylArray.h"

namespace zephyl::app {

// Whether groups of the file are united with their partners, or take the place of all groups of the
// user's.
enum class ImportMode { kMerge, kReplace };

struct PlannedGroup {
  ZephylRef existing;  // null: the group is new, and `after` has no identifier
  Dictionary after;
  std::string png;  // its picture; empty: the one that it has, or none

  [[nodiscard]] GroupChange change() const;
};

struct ImportPlan {
  std::vector<PlannedGroup> groups;  // in the order of the document
  ZephylVector deleted;
  std::vector<std::string> remarks;  // whom nobody was found for, and what cannot be as it was

  // The groups that are there and that the plan changes or deletes.
  [[nodiscard]] ZephylVector affected() const;
};

// `pngs` are the checked pictures of `document`, one a group, empty for none. A group is merged
// with the group of the user's that has its identifier, else with that of its title; each takes
// part once. Throws CommandError for a title that several groups have.
[[nodiscard]] ImportPlan planImport(const std::vector<TransferredGroup>& document,
                                    const std::vector<std::string>& pngs,
                                    const ZephylVector& stored, const MemberFinder& finder,
                                    ImportMode mode);

}  // namespace zephyl::app
