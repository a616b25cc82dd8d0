// The Messages app's list of conversations.

#pragma once

#include <memory>

#include "platform/chatkit/CKConversation.h"

namespace zephyl {

class Zephyl;

class CKConversationList {
 public:
  virtual ~CKConversationList() = default;

  // All conversations, the most recent first. Any thread.
  [[nodiscard]] virtual CKConversationArray conversations() = 0;

  // Those that the group shows, in the list's order, by the membership rules of the store. Any
  // thread; may ask the store, and through it this list again for another group.
  [[nodiscard]] virtual CKConversationArray filteredConversationsByZephyl(
      const std::shared_ptr<Zephyl>& zephyl) = 0;
};

}  // namespace zephyl
