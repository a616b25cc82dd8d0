// What the list of groups shows: the groups by section, in the order of their rows. Made whole on
// any thread, and never changed afterwards.

#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "platform/Export.h"
#include "platform/uikit/tables/NSIndexPath.h"

#include "store/ZephylArray.h"

namespace zephyl {

// The keys of the sections, which are also their headers. Kept: in every language.
inline constexpr char kDefaultSectionKey[] = "Default";
inline constexpr char kUserSectionKey[] = "User";

// The keys in use. The number of a section is where its key stands in the set's own order, and
// everything asks in that order: "Default" before "User".
using SectionKeys = std::set<std::string>;

// How user groups are sorted; system groups are always by title, ascending.
struct GroupOrder {
  bool byTitle = true;  // without regard to case; else by the date on which they were made
  bool ascending = true;
};

class ZP_EXPORT GroupSections {
 public:
  // Without a section.
  GroupSections() = default;
  // What is equal in the order stays as it was given; groups without a date are the oldest.
  GroupSections(const ZephylVector& groups, bool withSystemGroups, const GroupOrder& order);

  [[nodiscard]] const SectionKeys& titles() const { return titles_; }
  [[nodiscard]] const std::map<std::string, ZephylVector>& groups() const { return groups_; }

  // Empty for a section that there is not.
  [[nodiscard]] const std::string& keyOf(std::int64_t section) const;
  [[nodiscard]] const ZephylVector& groupsIn(std::int64_t section) const;
  // Null for a row that there is not.
  [[nodiscard]] ZephylRef groupAt(const NSIndexPath& indexPath) const;

 private:
  SectionKeys titles_;
  std::map<std::string, ZephylVector> groups_;
};

}  // namespace zephyl
