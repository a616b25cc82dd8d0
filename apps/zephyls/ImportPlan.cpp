#include "apps/zephyls/ImportPlan.h"

#include <algorithm>
#include <set>
#include <utility>

#include "apps/common/CommandError.h"
#include "apps/zephyls/ImportedMembers.h"
#include "apps/zephyls/UnresolvedMembers.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

std::string titleOf(const TransferredGroup& group) {
  return *group.properties[keys::kTitle].ifString();
}

ZephylVector userGroupsAmong(const ZephylVector& stored) {
  ZephylVector groups;
  std::copy_if(stored.begin(), stored.end(), std::back_inserter(groups),
               [](const ZephylRef& group) { return !group->isSystem(); });
  return groups;
}

// Which group of the user's takes each group of the document; null for none.
class Partners {
 public:
  Partners(ZephylVector free, std::size_t count) : free_(std::move(free)), found_(count) {}

  void findByIdentifier(const std::vector<TransferredGroup>& document) {
    find(document, [](const ZephylRef& group, const TransferredGroup& transferred) {
      return group->identifier() == transferred.identifier;
    });
  }

  void findByIdentifierAndTitle(const std::vector<TransferredGroup>& document) {
    find(document, [](const ZephylRef& group, const TransferredGroup& transferred) {
      return group->identifier() == transferred.identifier &&
             group->title() == titleOf(transferred);
    });
  }

  // Nobody is the partner where several might be, unless that is an error.
  void findByTitle(const std::vector<TransferredGroup>& document, bool severalAreAnError) {
    for (std::size_t index = 0; index < document.size(); ++index) {
      if (found_[index] != nullptr) {
        continue;
      }
      const auto hasTitle = [&, title = titleOf(document[index])](const ZephylRef& group) {
        return group->title() == title;
      };
      const bool several = std::count_if(free_.begin(), free_.end(), hasTitle) > 1;
      if (several && severalAreAnError) {
        throw CommandError("several groups are titled \"" + titleOf(document[index]) +
                           "\", so the one of the file has no partner; give them other titles");
      }
      take(index, several ? free_.end() : std::find_if(free_.begin(), free_.end(), hasTitle));
    }
  }

  [[nodiscard]] const ZephylRef& of(std::size_t index) const { return found_[index]; }
  [[nodiscard]] const ZephylVector& withoutAny() const { return free_; }

 private:
  template <class Matches>
  void find(const std::vector<TransferredGroup>& document, const Matches& matches) {
    for (std::size_t index = 0; index < document.size(); ++index) {
      if (found_[index] == nullptr) {
        take(index, std::find_if(free_.begin(), free_.end(), [&](const ZephylRef& group) {
               return matches(group, document[index]);
             }));
      }
    }
  }

  void take(std::size_t index, ZephylVector::iterator group) {
    if (group != free_.end()) {
      found_[index] = *group;
      free_.erase(group);
    }
  }

  ZephylVector free_;
  ZephylVector found_;
};

// Whether the group's own picture is that file.
bool hasPicture(const ZephylRef& group, const std::string& png) {
  const UIImageRef image = group->headerImagePath().empty() ? nullptr : group->headerImage();
  return image != nullptr && image->file() == Data(png.begin(), png.end());
}

Array membersArray(const MemberSet& members, const Array& others) {
  Array array = members.array();
  for (const Value& element : others) {
    if (std::find(array.begin(), array.end(), element) == array.end()) {
      array.push_back(element);
    }
  }
  return array;
}

class Planner {
 public:
  Planner(const MemberFinder& finder, std::vector<std::string>& remarks)
      : finder_(finder), remarks_(remarks) {}

  // The group of the file, whole; what is the device's own comes from `existing`.
  PlannedGroup taken(const TransferredGroup& group, const ZephylRef& existing, std::string png) {
    PlannedGroup planned{existing, {}, std::move(png)};
    ImportedMembers members = importedMembers(group.members, finder_);
    if (existing != nullptr) {
      planned.after.set(keys::kIdentifier, existing->identifier());
      planned.after.set(keys::kActive, existing->isActive());
    }
    for (const auto& [key, value] : group.properties) {
      planned.after.set(key, value);
    }
    planned.after.set(keys::kContacts, membersArray(members.members, group.otherElements));
    finish(planned.after, titleOf(group), members);
    if (group.properties[keys::kPasswordProtected].boolValue() && !ZPUtils::supportsTouchID()) {
      remarks_.push_back("\"" + titleOf(group) +
                         "\" is not protected here: this device has no fingerprint reader");
    }
    if (existing != nullptr) {
      if (!planned.png.empty() && hasPicture(existing, planned.png)) {
        planned.png.clear();
        planned.after.set(keys::kHeaderImagePath, existing->headerImagePath());
      }
      // As it is going to be stored, to be compared with what is.
      planned.after = Zephyl(planned.after).dictionaryRepresentation();
    }
    return planned;
  }

  // The group that is there, with the members of the file too.
  PlannedGroup merged(const TransferredGroup& group, const ZephylRef& existing) {
    PlannedGroup planned{existing, existing->dictionaryRepresentation(), {}};
    std::vector<TransferredMember> all = unresolvedMembers(planned.after);
    for (const TransferredMember& member : group.members) {
      if (std::find(all.begin(), all.end(), member) == all.end()) {
        all.push_back(member);
      }
    }
    const ImportedMembers added = importedMembers(all, finder_);
    MemberSet members = membersOrNone(existing->contacts().get());
    for (const Member& member : added.members) {
      members.add(member);
    }
    planned.after.set(keys::kContacts, membersArray(members, group.otherElements));
    finish(planned.after, existing->title(), added);
    return planned;
  }

 private:
  void finish(Dictionary& after, const std::string& title, const ImportedMembers& members) {
    setUnresolvedMembers(after, members.unresolved);
    for (const std::string& remark : members.remarks) {
      remarks_.push_back(std::string("\"").append(title).append("\": ").append(remark));
    }
  }

  const MemberFinder& finder_;
  std::vector<std::string>& remarks_;
};

}  // namespace

GroupChange PlannedGroup::change() const {
  GroupChange change;
  if (existing != nullptr) {
    change.before = existing->dictionaryRepresentation();
    change.after = after;
  } else {
    change.after = after;
  }
  change.hasNewPicture = !png.empty();
  return change;
}

ZephylVector ImportPlan::affected() const {
  ZephylVector all = deleted;
  for (const PlannedGroup& group : groups) {
    if (group.existing != nullptr && group.change().isAny()) {
      all.push_back(group.existing);
    }
  }
  return all;
}

ImportPlan planImport(const std::vector<TransferredGroup>& document,
                      const std::vector<std::string>& pngs, const ZephylVector& stored,
                      const MemberFinder& finder, ImportMode mode) {
  ImportPlan plan;
  Planner planner(finder, plan.remarks);
  Partners partners(userGroupsAmong(stored), document.size());
  // The identifiers of two devices count the same seconds, so a title tells more than one of them.
  partners.findByIdentifierAndTitle(document);
  partners.findByTitle(document, /*severalAreAnError=*/mode == ImportMode::kMerge);
  partners.findByIdentifier(document);
  if (mode == ImportMode::kReplace) {
    plan.deleted = partners.withoutAny();
  }
  for (std::size_t index = 0; index < document.size(); ++index) {
    const ZephylRef& partner = partners.of(index);
    const bool merges = mode == ImportMode::kMerge && partner != nullptr;
    plan.groups.push_back(merges ? planner.merged(document[index], partner)
                                 : planner.taken(document[index], partner, pngs[index]));
  }
  return plan;
}

}  // namespace zephyl::app
