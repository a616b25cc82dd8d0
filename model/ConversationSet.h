// The conversations that a group shows: each object once, in the list's order. Immutable.

#pragma once

#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/chatkit/CKConversation.h"

namespace zephyl {

class ConversationSet {
 public:
  explicit ConversationSet(CKConversationArray conversations)
      : conversations_(std::move(conversations)) {
    std::erase_if(conversations_, [this](const CKConversationRef& conversation) {
      return !index_.insert(conversation.get()).second;
    });
  }

  [[nodiscard]] bool contains(const CKConversation& conversation) const {
    return index_.contains(&conversation);
  }
  [[nodiscard]] const CKConversationArray& conversations() const { return conversations_; }

 private:
  CKConversationArray conversations_;
  std::unordered_set<const CKConversation*> index_;
};

}  // namespace zephyl
