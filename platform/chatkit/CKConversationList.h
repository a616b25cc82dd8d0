// The Messages app's list of conversations. Any thread.

#pragma once

#include <memory>
#include <string>

#include "platform/chatkit/CKConversation.h"

namespace zephyl {

class Zephyl;

// Posted on the main thread when other conversations came in.
inline constexpr char kCKConversationListChangedNotification[] =
    "CKConversationListChangedNotification";

class CKConversationList {
 public:
  virtual ~CKConversationList() = default;

  // All conversations, the most recent first.
  [[nodiscard]] virtual CKConversationArray conversations() = 0;

  // Those that the group shows, in the list's order, by the membership rules of the store. May
  // ask the store, and through it this list again for another group.
  [[nodiscard]] virtual CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& zephyl) = 0;

  // Null when there is none of that GUID, in canonical form.
  [[nodiscard]] virtual CKConversationRef conversationForExistingChatWithGUID(
      const std::string& guid) = 0;

  // What screens list: everything while all are shown, else those of the group that the user is in,
  // if any. Off at first.
  virtual void shouldShowAllConversations(bool all) = 0;
  [[nodiscard]] virtual CKConversationArray listedConversations() = 0;
};

}  // namespace zephyl
