// A group of conversations: one that the user made, or one of the five system groups, with the
// property-list dictionary that files and messages carry.
//
// Not locked: a record belongs to the thread that uses it. Only the run-time state is also written
// from the background queue, and is published whole.

#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>

#include "platform/Export.h"
#include "platform/Published.h"
#include "platform/foundation/Dictionary.h"
#include "platform/uikit/UIImage.h"

#include "model/ConversationSet.h"
#include "model/MemberSet.h"

namespace zephyl {

enum ZephylSystemMode : std::int64_t {
  ZephylSystemModeUser = 0,
  ZephylSystemModeAll = 1,
  ZephylSystemModeFavorites = 2,
  ZephylSystemModeAllGroups = 3,
  ZephylSystemModeUnknown = 4,
  ZephylSystemModeKnown = 5,
};

class ZP_EXPORT Zephyl final : public std::enable_shared_from_this<Zephyl> {
 public:
  // Made with std::make_shared and in no other way: background work holds on to the record.

  // Takes a fresh identifier; every other property keeps its zero value.
  Zephyl();

  // Takes a fresh identifier only when `dictionary` gives none of 1 or more.
  explicit Zephyl(const Dictionary& dictionary);

  // Copying consumes an identifier and then discards it for the source's own, so it is spelled out
  // and never implicit. Kept: the counter moves on. The copy has none of the run-time state.
  Zephyl(const Zephyl&) = delete;
  Zephyl& operator=(const Zephyl&) = delete;
  [[nodiscard]] std::shared_ptr<Zephyl> copy();

  // A new dictionary on each call, its keys in a fixed order. Values that were read with a type
  // their key does not have, and keys this library does not know, are written as they were read.
  // Not const: asks the getters below, of which one may clear a flag.
  [[nodiscard]] Dictionary dictionaryRepresentation();

  // Kept: the name is misspelt; companion code calls it so. Leaves the conversations, the unread
  // count and the picture alone.
  void setPropertiesFromDicitonary(const Dictionary& dictionary);

  // The dictionaries from which the store makes the system groups, six keys each. Kept: the names
  // are misspelt; Favorites takes an argument that it ignores.
  [[nodiscard]] static Dictionary allMessagesDictionaryRepresenation();
  [[nodiscard]] static Dictionary allFavoritesDictionaryRepresenation(const void* ignored);
  [[nodiscard]] static Dictionary allGroupsDictionaryRepresenation();
  [[nodiscard]] static Dictionary allUnknownDictionaryRepresenation();
  [[nodiscard]] static Dictionary allKnownDictionaryRepresenation();

  // Equal identifiers, whatever else differs.
  [[nodiscard]] bool isEqual(const Zephyl& other) const { return identifier_ == other.identifier_; }

  // The text of the dictionary.
  [[nodiscard]] std::string description();

  // The next number of this process's counter, which starts at the Unix time. Holds the record's
  // own lock.
  void setUniqueIdentifier();

  [[nodiscard]] std::int64_t identifier() const { return identifier_; }
  void setIdentifier(std::int64_t value);
  [[nodiscard]] const std::string& title() const { return title_; }
  void setTitle(std::string value);
  [[nodiscard]] const std::string& subTitle() const { return subTitle_; }
  void setSubTitle(std::string value);
  // A file name in the pictures directory; empty without a picture.
  [[nodiscard]] const std::string& headerImagePath() const { return headerImagePath_; }
  void setHeaderImagePath(std::string value);
  [[nodiscard]] const std::string& backGroundImagePath() const { return backGroundImagePath_; }
  void setBackGroundImagePath(std::string value);
  // Eight lower-case hexadecimal digits: red, green, blue, alpha.
  [[nodiscard]] const std::string& markerCode() const { return markerCode_; }
  void setMarkerCode(std::string value);
  // The group's own text, or the default text in the language of the moment when it has none.
  [[nodiscard]] std::string maskedMessage() const;
  void setMaskedMessage(std::string value);
  // Null until set or read from a dictionary.
  [[nodiscard]] std::shared_ptr<const MemberSet> contacts() const { return contacts_.load(); }
  void setContacts(std::shared_ptr<const MemberSet> value);
  [[nodiscard]] const std::optional<Date>& createdDate() const { return createdDate_; }
  void setCreatedDate(std::optional<Date> value);
  [[nodiscard]] const std::optional<Date>& updatedDate() const { return updatedDate_; }
  void setUpdatedDate(std::optional<Date> value);
  [[nodiscard]] bool isEnabled() const { return enabled_; }
  void setEnabled(bool value);
  [[nodiscard]] bool isActive() const { return active_; }
  void setActive(bool value);
  [[nodiscard]] bool isSystem() const { return system_; }
  void setSystem(bool value);
  // Not const: without biometrics this clears the stored flag, which the next save then writes.
  [[nodiscard]] bool isPasswordProtected();
  void setPasswordProtected(bool value);
  [[nodiscard]] std::int64_t zephylSystemMode() const { return zephylSystemMode_; }
  void setZephylSystemMode(std::int64_t value);
  [[nodiscard]] bool shouldHideConversationsInDefaultGroups() const {
    return hidesInDefaultGroups_;
  }
  void setShouldHideConversationsInDefaultGroups(bool value);
  [[nodiscard]] bool shouldHideConversationsOnLockScreen() const { return hidesOnLockScreen_; }
  void setShouldHideConversationsOnLockScreen(bool value);

  // Asks the message center for the picture until it has one; null without a picture.
  [[nodiscard]] UIImageRef headerImage();
  void setHeaderImage(UIImageRef value) { headerImage_ = std::move(value); }

  // Run-time state: read and written from any thread, never stored.

  // Null until first loaded.
  [[nodiscard]] std::shared_ptr<const ConversationSet> conversations() const {
    return conversations_.load();
  }
  void setConversations(std::shared_ptr<const ConversationSet> value);
  // Chat GUIDs; null in a record that was never filled from a dictionary.
  [[nodiscard]] std::shared_ptr<const std::set<std::string>> unreadConversations() const {
    return unreadConversations_.load();
  }
  void setUnreadConversations(std::shared_ptr<const std::set<std::string>> value);
  [[nodiscard]] bool requiresUpdateForUnReadCount() const { return requiresUpdateForUnReadCount_; }
  void setRequiresUpdateForUnReadCount(bool value) { requiresUpdateForUnReadCount_ = value; }

  // In the background the call returns at once, and a group released meanwhile is not written.
  void loadAffiliatedConversations(bool inBackground);

  // In the group's conversations as they were last loaded, or a member by its chat GUID.
  [[nodiscard]] bool isConversationMemberOfYou(const CKConversationRef& conversation) const;

  // Recounts on the calling thread.
  void loadUnreadCount();
  // Recounts on the high-priority queue when the count is stale, else on the calling thread, and
  // calls `completion` (may be null) there with the count.
  void loadUnreadCount(std::function<void(std::int64_t count)> completion);
  // Recounts, then gives the count. Kept: a group whose conversations were not loaded yet loads
  // them but counts 0 this once.
  [[nodiscard]] std::int64_t unreadCount();
  void setUnreadCount(std::int64_t value) { unreadCount_ = value; }

 private:
  void readStoredProperties(const Dictionary& dictionary);
  [[nodiscard]] bool counts(const CKConversationRef& conversation) const;
  [[nodiscard]] std::int64_t unreadWeight(const CKConversationRef& conversation,
                                          bool anyGroupHides) const;

  std::mutex numbering_;
  std::int64_t identifier_ = 0;
  std::string title_;
  std::string subTitle_;
  std::string headerImagePath_;
  std::string backGroundImagePath_;
  std::string markerCode_;
  std::string maskedMessage_;
  Published<const MemberSet> contacts_;
  std::optional<Date> createdDate_;
  std::optional<Date> updatedDate_;
  std::atomic<bool> enabled_ = false;
  std::atomic<bool> active_ = false;
  std::atomic<bool> system_ = false;
  std::atomic<bool> passwordProtected_ = false;
  std::atomic<std::int64_t> zephylSystemMode_ = 0;
  std::atomic<bool> hidesInDefaultGroups_ = false;
  std::atomic<bool> hidesOnLockScreen_ = false;
  // By key: what was read with another type than its key has, and what this library does not know.
  Dictionary carried_;
  UIImageRef headerImage_;

  Published<const ConversationSet> conversations_;
  Published<const std::set<std::string>> unreadConversations_;
  std::atomic<std::int64_t> unreadCount_ = 0;
  std::atomic<bool> requiresUpdateForUnReadCount_ = false;
};

using ZephylRef = std::shared_ptr<Zephyl>;

}  // namespace zephyl
