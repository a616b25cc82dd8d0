// Which groups there are, in store order, the favourites, and the flags over all groups.
//
// Not locked; any thread. All that give groups but the first load the list when it is empty.

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/Export.h"
#include "platform/Published.h"

#include "model/MemberSet.h"
#include "model/Zephyl.h"
#include "store/ZephylArray.h"

namespace zephyl {

class ZP_EXPORT ZephylsQueries {
 public:
  ZephylsQueries(const ZephylsQueries&) = delete;
  ZephylsQueries& operator=(const ZephylsQueries&) = delete;

  // The store's own array, not a copy.
  [[nodiscard]] std::shared_ptr<ZephylArray> allZephyls() const { return zephyls_.load(); }
  [[nodiscard]] ZephylVector activeZephyls();
  [[nodiscard]] ZephylVector enabledZephyls();
  [[nodiscard]] ZephylVector enabledUserCreatedZephyls();
  [[nodiscard]] ZephylVector disabledZephyls();
  // The first enabled group of exactly that title; null if none.
  [[nodiscard]] ZephylRef activeZephylByName(const std::string& name);
  [[nodiscard]] ZephylRef currentActiveZephyl();
  // Enabled or not.
  [[nodiscard]] ZephylRef systemZephyl(std::int64_t mode);

  // Record ids and database UUIDs of the address book's favourites, loaded on first use and kept
  // until the reload, which only forgets them.
  [[nodiscard]] std::shared_ptr<const MemberSet> favoritesContactsABUIDs();
  void reloadFavoritesContactsABUIDs();

  // Kept: raised when some enabled group hides its conversations, and never lowered again.
  [[nodiscard]] bool isAnyOfGroupHasHideConversationsEnabled() const { return anyGroupHides_; }
  void setAnyOfGroupHasHideConversationsEnabled(bool value) { anyGroupHides_ = value; }
  void updateGroupsHasHideConvosStatus();
  void updateGroupsForUnreadCountStatus();

  // Replaces the list by what is stored. Starts the conversation load of each enabled user group:
  // here when it is the active one, else in the background.
  virtual void loadZephyls() = 0;

 protected:
  ZephylsQueries() = default;
  virtual ~ZephylsQueries() = default;

  [[nodiscard]] ZephylVector loadedGroups();

  // Never null.
  Published<ZephylArray> zephyls_{std::make_shared<ZephylArray>()};

 private:
  Published<const MemberSet> favoritesContacts_;
  std::atomic<bool> anyGroupHides_ = false;
};

}  // namespace zephyl
