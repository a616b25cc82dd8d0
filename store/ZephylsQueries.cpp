#include "store/ZephylsQueries.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/Host.h"
#include "platform/addressbook/ABFavorites.h"

#include "services/ZPUtils.h"

namespace zephyl {

namespace {

template <class Predicate>
ZephylVector groupsWhere(const ZephylVector& groups, const Predicate& matches) {
  ZephylVector found;
  std::copy_if(groups.begin(), groups.end(), std::back_inserter(found), matches);
  return found;
}

template <class Predicate>
ZephylRef firstWhere(const ZephylVector& groups, const Predicate& matches) {
  const auto found = std::find_if(groups.begin(), groups.end(), matches);
  return found == groups.end() ? nullptr : *found;
}

}  // namespace

ZephylVector ZephylsQueries::loadedGroups() {
  if (zephyls_.load()->empty()) {
    loadZephyls();
  }
  return *zephyls_.load()->snapshot();
}

ZephylVector ZephylsQueries::activeZephyls() {
  return groupsWhere(loadedGroups(), [](const ZephylRef& group) { return group->isEnabled(); });
}

ZephylVector ZephylsQueries::enabledZephyls() {
  return activeZephyls();
}

ZephylVector ZephylsQueries::enabledUserCreatedZephyls() {
  return groupsWhere(activeZephyls(), [](const ZephylRef& group) { return !group->isSystem(); });
}

ZephylVector ZephylsQueries::disabledZephyls() {
  return groupsWhere(loadedGroups(), [](const ZephylRef& group) { return !group->isEnabled(); });
}

ZephylRef ZephylsQueries::activeZephylByName(const std::string& name) {
  return firstWhere(loadedGroups(), [&](const ZephylRef& group) {
    return group->isEnabled() && group->title() == name;
  });
}

ZephylRef ZephylsQueries::currentActiveZephyl() {
  return firstWhere(loadedGroups(),
                    [](const ZephylRef& group) { return group->isEnabled() && group->isActive(); });
}

ZephylRef ZephylsQueries::systemZephyl(std::int64_t mode) {
  return firstWhere(loadedGroups(),
                    [&](const ZephylRef& group) { return group->zephylSystemMode() == mode; });
}

std::shared_ptr<const MemberSet> ZephylsQueries::favoritesContactsABUIDs() {
  if (auto favorites = favoritesContacts_.load()) {
    return favorites;
  }
  MemberSet members;
  const char* className = ZPUtils::isIOS9() ? "CNFavorites" : "ABFavoritesListManager";
  for (const ABFavoritesEntry& entry :
       host().favorites().entries(className).value_or(std::vector<ABFavoritesEntry>())) {
    if (entry.abUid) {
      members.add(*entry.abUid);
    } else if (entry.privateAbUid) {
      members.add(*entry.privateAbUid);
    }
    if (entry.abDatabaseUUID) {
      members.add(*entry.abDatabaseUUID);
    } else if (entry.contactIdentifier) {
      members.add(*entry.contactIdentifier);
    }
  }
  auto favorites = std::make_shared<const MemberSet>(std::move(members));
  favoritesContacts_.store(favorites);
  return favorites;
}

void ZephylsQueries::reloadFavoritesContactsABUIDs() {
  favoritesContacts_.store(nullptr);
}

void ZephylsQueries::updateGroupsHasHideConvosStatus() {
  const auto groups = zephyls_.load()->snapshot();
  const bool hides = std::any_of(groups->begin(), groups->end(), [](const ZephylRef& group) {
    return group->isEnabled() && group->shouldHideConversationsInDefaultGroups();
  });
  // Kept: never lowered again in this process, not even when the list is reloaded.
  if (hides) {
    anyGroupHides_ = true;
  }
}

void ZephylsQueries::updateGroupsForUnreadCountStatus() {
  const auto groups = zephyls_.load()->snapshot();
  for (const ZephylRef& group : *groups) {
    if (group->isEnabled()) {
      group->setRequiresUpdateForUnReadCount(true);
    }
  }
}

}  // namespace zephyl
