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
#include <set>
#include <string>

#include "platform/Export.h"
#include "platform/Published.h"
#include "platform/foundation/Dictionary.h"
#include "platform/uikit/UIImage.h"

#include "model/ConversationSet.h"
#include "model/ZephylProperties.h"

namespace zephyl {

class ZP_EXPORT Zephyl final : public ZephylProperties,
                               public std::enable_shared_from_this<Zephyl> {
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

  // The group's own text, or the default text in the language of the moment when it has none.
  [[nodiscard]] std::string maskedMessage() const;
  // Not const: without biometrics this clears the stored flag, which the next save then writes.
  [[nodiscard]] bool isPasswordProtected();

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
  [[nodiscard]] bool counts(const CKConversationRef& conversation) const;
  [[nodiscard]] std::int64_t unreadWeight(const CKConversationRef& conversation,
                                          bool anyGroupHides) const;

  std::mutex numbering_;
  UIImageRef headerImage_;

  Published<const ConversationSet> conversations_;
  Published<const std::set<std::string>> unreadConversations_;
  std::atomic<std::int64_t> unreadCount_ = 0;
  std::atomic<bool> requiresUpdateForUnReadCount_ = false;
};

using ZephylRef = std::shared_ptr<Zephyl>;

}  // namespace zephyl
