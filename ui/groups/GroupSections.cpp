#include "ui/groups/GroupSections.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

#include "platform/foundation/CaseFolding.h"

namespace zephyl {

namespace {

// By what `keyOf` gives of each group, asked once a group.
template <class KeyOf>
void sortBy(ZephylVector& groups, bool ascending, const KeyOf& keyOf) {
  using Keyed = std::pair<decltype(keyOf(*groups.front())), ZephylRef>;
  std::vector<Keyed> keyed;
  keyed.reserve(groups.size());
  for (ZephylRef& group : groups) {
    auto key = keyOf(*group);
    keyed.emplace_back(std::move(key), std::move(group));
  }
  std::stable_sort(keyed.begin(), keyed.end(), [ascending](const Keyed& left, const Keyed& right) {
    return ascending ? left.first < right.first : right.first < left.first;
  });
  std::transform(keyed.begin(), keyed.end(), groups.begin(),
                 [](Keyed& one) { return std::move(one.second); });
}

void sortByTitle(ZephylVector& groups, bool ascending) {
  sortBy(groups, ascending, [](const Zephyl& group) { return caseFolded(group.title()); });
}

void sortByDate(ZephylVector& groups, bool ascending) {
  sortBy(groups, ascending, [](const Zephyl& group) {
    const std::optional<Date>& date = group.createdDate();
    return date && !std::isnan(date->secondsSinceReferenceDate)
               ? std::optional(date->secondsSinceReferenceDate)
               : std::nullopt;
  });
}

}  // namespace

GroupSections::GroupSections(const ZephylVector& groups, bool withSystemGroups,
                             const GroupOrder& order) {
  for (const ZephylRef& group : groups) {
    const bool isSystem = group->isSystem();
    if (!isSystem || withSystemGroups) {
      groups_[isSystem ? kDefaultSectionKey : kUserSectionKey].push_back(group);
    }
  }
  for (auto& [key, members] : groups_) {
    titles_.insert(key);
    if (key == kDefaultSectionKey) {
      sortByTitle(members, /*ascending=*/true);
    } else if (order.byTitle) {
      sortByTitle(members, order.ascending);
    } else {
      sortByDate(members, order.ascending);
    }
  }
}

const std::string& GroupSections::keyOf(std::int64_t section) const {
  static const std::string kNone;
  return section < 0 || section >= std::ssize(titles_) ? kNone
                                                       : *std::next(titles_.begin(), section);
}

const ZephylVector& GroupSections::groupsIn(std::int64_t section) const {
  static const ZephylVector kNone;
  const auto found = groups_.find(keyOf(section));
  return found == groups_.end() ? kNone : found->second;
}

ZephylRef GroupSections::groupAt(const NSIndexPath& indexPath) const {
  const ZephylVector& groups = groupsIn(indexPath.section);
  return indexPath.row < 0 || indexPath.row >= std::ssize(groups)
             ? nullptr
             : groups[static_cast<std::size_t>(indexPath.row)];
}

}  // namespace zephyl
