// The process-wide store of groups: loads and saves them (ZephylsStorage.h), answers which groups
// there are (ZephylsQueries.h), which conversations they show, and how much is unread.
//
// Not locked. Every call runs on the caller's thread; a request to the message center blocks it.
// Edits are for one thread at a time; queries may come from any.

#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/Export.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/chatkit/CKConversation.h"
#include "platform/foundation/NSError.h"

#include "store/Membership.h"
#include "store/ZephylNotifications.h"
#include "store/ZephylsQueries.h"
#include "store/ZephylsStorage.h"

namespace zephyl {

class ZP_EXPORT ZephylsDataController : public ZephylsStorage, public ZephylsQueries {
 public:
  // Made once per process and loaded before any caller gets it, but for those whom the loading
  // itself asks.
  [[nodiscard]] static std::shared_ptr<ZephylsDataController> sharedInstance();

  ZephylsDataController() = default;
  ~ZephylsDataController() override;

  // Loading and saving (ZephylsDataController.cpp)

  void initialize();
  void loadZephyls() override;
  void reloadAllZephyls();

  // Makes the system groups that are missing. Kept: when nothing is stored at all, they go straight
  // to the file and the list stays as it is; the host reloads.
  void createDefaultGroups();

  // Saves every group; posts only when that succeeded and the flag says so. `payload` may be null.
  bool saveAllGroupsToDisk(const ZephylRef& payload, bool postNotification,
                           const std::string& notificationName);

  // Appends and saves. Kept: posts, without user info, whether or not the save succeeded and
  // whatever `postNotification` says; an empty list does nothing and gives false.
  bool saveAllNewGroupsToDisk(const ZephylVector& groups, bool postNotification,
                              const std::string& notificationName);

  void fixContactsInZephyls() {}  // Kept: does nothing.

  // Editing (ZephylsDataControllerEditing.cpp)

  // Each edit changes the list, starts the conversation load of every enabled group (here for the
  // active one, else in the background), saves every group, posts when that succeeded, and calls
  // one of the two, which may be empty, before it returns. Nothing is taken back when the save
  // fails. A null group fails like one that is not stored.
  using Success = std::function<void()>;
  using Failure = std::function<void(const NSError&)>;

  // Fails when the identifier is stored already; titles may be equal.
  void addZephyl(const ZephylRef& zephyl, const Success& success, const Failure& failure);

  // The given object takes the place of the stored one. Kept: it is stamped even when it is not
  // stored, and the flag is ignored: the change is always posted.
  void updateZephyl(const ZephylRef& zephyl, bool postNotification, const Success& success,
                    const Failure& failure);
  void updateZephyl(const ZephylRef& zephyl, const Success& success, const Failure& failure);

  // Kept: one update after the other, each with its own save, notification and callback.
  void updateZephyls(const ZephylVector& zephyls, const Success& success, const Failure& failure);

  // The given object is stamped, stored or not. Its picture stays on disk.
  void deleteZephyl(const ZephylRef& zephyl, const Success& success, const Failure& failure);

  // Every stored group equal to one of these goes, in one save; the others of these are ignored.
  // Kept: stamps none, and posts without user info.
  void deleteZephyls(const ZephylVector& zephyls, const Success& success, const Failure& failure);

  // Whether a stored group of any kind has exactly that title; nobody has no name.
  [[nodiscard]] bool isZephylNameAlreadyExists(const std::optional<std::string>& name) const;

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
  void restartConversationLoads();
  // The last steps of an edit. `failureText` describes a failed save.
  void finishEdit(const ZephylRef& payload, const char* notificationName, const char* failureText,
                  const Success& success, const Failure& failure);
  bool saveEveryGroup();
  [[nodiscard]] Membership matchSystemGroup(std::int64_t mode, const CKConversation& conversation,
                                            const ABAddressBookRef& addressBook);
  // Null when the default groups may show the conversation.
  [[nodiscard]] ZephylRef firstGroupHiding(const CKConversationRef& conversation);

  std::recursive_mutex initialization_;
  bool initializing_ = false;
  std::atomic<bool> initialized_ = false;
};

}  // namespace zephyl
