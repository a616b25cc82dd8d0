// The process-wide store of groups: loads and saves them, answers which groups there are, which
// conversations they show, and how much is unread.
//
// Not locked. Every call runs on the caller's thread; a request to the message center blocks it.
// Edits are for one thread at a time; queries may come from any.

#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/Published.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/chatkit/CKConversation.h"
#include "platform/foundation/NSBundle.h"

#include "model/Zephyl.h"
#include "store/Membership.h"
#include "store/ZephylArray.h"

namespace zephyl {

// The change notifications. The first three are posted in this process and system-wide, the last in
// this process only. In-process user info, where there is any, has the group under kZephylsKey.
inline constexpr char kZephylAddedNotification[] = "com.vantor.ZephylAddedNotification";
inline constexpr char kZephylChangedNotification[] = "com.vantor.ZephylChangedNotification";
inline constexpr char kZephylDeletedNotification[] = "com.vantor.ZephylDeletedNotification";
inline constexpr char kZephylDataUpdateNotification[] = "com.vantor.ZephylDataUpdateNotification";

// Kept: holds one ZephylRef in spite of its plural.
inline constexpr char kZephylsKey[] = "zephyls";

class ZP_EXPORT ZephylsDataController {
 public:
  // Made once per process and loaded before any caller gets it, but for those whom the loading
  // itself asks.
  [[nodiscard]] static std::shared_ptr<ZephylsDataController> sharedInstance();

  ZephylsDataController() = default;
  ~ZephylsDataController();
  ZephylsDataController(const ZephylsDataController&) = delete;
  ZephylsDataController& operator=(const ZephylsDataController&) = delete;

  // Loading and saving (ZephylsDataController.cpp)

  void initialize();

  // The dictionaries of the groups file, from the file itself or through the message center;
  // nothing when there is none or it cannot be read. Elements of other types are left in.
  [[nodiscard]] std::optional<Array> getAllGroups();

  // Replaces the list by what is stored. Starts the conversation load of each enabled user group:
  // here when it is the active one, else in the background.
  void loadZephyls();
  void reloadAllZephyls();

  // Makes the system groups that are missing. Kept: when nothing is stored at all, they go straight
  // to the file and the list stays as it is; the host reloads.
  void createDefaultGroups();

  // `groups` becomes the whole file. Kept: written in place, not atomically.
  bool saveGroupsDataToDisk(const Array& groups);

  // Saves every group; posts only when that succeeded and `postNotification` says so. `payload` may
  // be null.
  bool saveAllGroupsToDisk(const ZephylRef& payload, bool postNotification,
                           const std::string& notificationName);

  // Appends and saves. Kept: posts, without user info, whether or not the save succeeded and
  // whatever `postNotification` says; an empty list does nothing and gives false.
  bool saveAllNewGroupsToDisk(const ZephylVector& groups, bool postNotification,
                              const std::string& notificationName);

  // Kept: does nothing.
  void fixContactsInZephyls() {}

  // Null while there is no such bundle; asked again on the next call.
  [[nodiscard]] std::shared_ptr<NSBundle> zephylsBundle();

  // Queries, in store order (ZephylsDataControllerQueries.cpp). All but the first load the list
  // when it is empty.

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

  // Membership (ZephylsDataControllerMembership.cpp)

  // The one rule of which group shows which conversation, and by what.
  [[nodiscard]] Membership membershipOf(const ZephylRef& zephyl,
                                        const CKConversationRef& conversation,
                                        const ABAddressBookRef& addressBook);

  // Whether that rule says yes.
  [[nodiscard]] bool isConversationMemberOfGroup(const ZephylRef& zephyl,
                                                 const CKConversationRef& conversation,
                                                 const ABAddressBookRef& addressBook);

  // False when an enabled group that hides its conversations holds this one. May load
  // conversations through the host.
  [[nodiscard]] bool shouldShowConversationForDefaultGroups(const CKConversationRef& conversation,
                                                            const ABAddressBookRef& addressBook);

  // Looks only at the members, not at the flags. A contact id below 1 is nobody's.
  [[nodiscard]] bool isMemberOfAnyHiddenGroup(const ZephylRef& zephyl, std::int64_t contactId,
                                              const std::vector<std::string>& chatGUIDS);

  // Kept: gives the group in spite of its name; null when no hiding group holds any of these.
  [[nodiscard]] ZephylRef isPartOfAnyZephyl(std::int64_t contactId,
                                            const std::vector<std::string>& chatGUIDS);

  // The enabled user groups that hide this conversation; others are never listed.
  [[nodiscard]] ZephylVector zephylsAssociatedWithConversation(
      const CKConversationRef& conversation, const ABAddressBookRef& addressBook);

  // Rebuilds the conversations of every enabled user group before it returns.
  void forceReloadConversationsForUserGroups();

  // Unread counts (ZephylsDataControllerUnread.cpp)

  // Marks every group stale and posts kZephylDataUpdateNotification.
  void updateUnreadMessageCountForZephyls();

  // Unread conversations of the other enabled groups that are not unread in this one. Another
  // record with the same identifier counts as other. Recounts nothing.
  [[nodiscard]] std::int64_t unreadConversationsCountForOtherGroups(const ZephylRef& zephyl);

 private:
  void initializeOnce();
  bool saveEveryGroup();
  [[nodiscard]] ZephylVector loadedGroups();
  [[nodiscard]] Membership matchSystemGroup(std::int64_t mode, const CKConversation& conversation,
                                            const ABAddressBookRef& addressBook);
  // Null when the default groups may show the conversation.
  [[nodiscard]] ZephylRef firstGroupHiding(const CKConversationRef& conversation);

  std::recursive_mutex initialization_;
  bool initializing_ = false;
  std::atomic<bool> initialized_ = false;
  // Never null.
  Published<ZephylArray> zephyls_{std::make_shared<ZephylArray>()};
  Published<const MemberSet> favoritesContacts_;
  Published<NSBundle> zephylsBundle_;
  std::atomic<bool> anyGroupHides_ = false;
};

}  // namespace zephyl
