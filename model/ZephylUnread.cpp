// The conversations that a group shows and how many of them are unread.

#include <algorithm>
#include <utility>

#include "platform/Host.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/Dispatch.h"

#include "model/ContactIdentity.h"
#include "model/Zephyl.h"
#include "store/ZephylsDataController.h"

namespace zephyl {

namespace {

std::shared_ptr<const ConversationSet> conversationsOf(const ZephylRef& group) {
  return std::make_shared<const ConversationSet>(
      host().conversationList().filteredConversationsByZephyl(group));
}

}  // namespace

void Zephyl::setConversations(std::shared_ptr<const ConversationSet> value) {
  conversations_.store(std::move(value));
}

void Zephyl::setUnreadConversations(std::shared_ptr<const std::set<std::string>> value) {
  unreadConversations_.store(std::move(value));
}

void Zephyl::loadAffiliatedConversations(bool inBackground) {
  if (!inBackground) {
    setConversations(conversationsOf(shared_from_this()));
    return;
  }
  // Alive while the list is asked, but not for the sake of the result.
  host().dispatch().globalAsync(QueuePriority::kHigh, [group = shared_from_this()]() mutable {
    auto conversations = conversationsOf(group);
    const std::weak_ptr<Zephyl> result = std::exchange(group, nullptr);
    if (const auto still = result.lock()) {
      still->setConversations(std::move(conversations));
    }
  });
}

bool Zephyl::isConversationMemberOfYou(const CKConversationRef& conversation) const {
  const auto shown = conversations();
  if (shown != nullptr && shown->contains(*conversation)) {
    return true;
  }
  const auto members = contacts();
  return members != nullptr && members->contains(conversation->guid());
}

// Whether a member is among the participants, or the conversation is one of the group's own.
bool Zephyl::counts(const CKConversationRef& conversation) const {
  const auto members = contacts();
  const auto& handles = conversation->handles();
  const auto isMember = [&](const std::optional<Member>& identity) {
    return identity && members != nullptr && members->contains(*identity);
  };
  if (!conversation->isGroupConversation()) {
    return isMember(firstContactIdentity(*conversation)) || isConversationMemberOfYou(conversation);
  }
  return std::any_of(handles.begin(), handles.end(), [&](const IMHandle& handle) {
    return isMember(contactIdentity(handle)) || isConversationMemberOfYou(conversation);
  });
}

// What one unread conversation adds to the count.
std::int64_t Zephyl::unreadWeight(const CKConversationRef& conversation, bool anyGroupHides) const {
  const auto& handles = conversation->handles();
  const auto isUnknown = [](const IMHandle& handle) { return !contactIdentity(handle); };
  switch (zephylSystemMode_) {
    case ZephylSystemModeAllGroups:
      // Kept: once some group hides its conversations, one-to-one conversations count too.
      return anyGroupHides || conversation->isGroupConversation() ? 1 : 0;
    case ZephylSystemModeUnknown:
      if (!conversation->isGroupConversation()) {
        return firstContactIdentity(*conversation) ? 0 : 1;
      }
      // Kept: a group conversation counts once for every unknown participant.
      return std::count_if(handles.begin(), handles.end(), isUnknown);
    case ZephylSystemModeAll:
      return isConversationMemberOfYou(conversation) ? 1 : 0;
    default:
      return counts(conversation) ? 1 : 0;
  }
}

void Zephyl::loadUnreadCount() {
  // A record that was never filled from a dictionary has no set to note the GUIDs in.
  const bool noted = unreadConversations() != nullptr;
  unreadCount_ = 0;
  if (noted) {
    setUnreadConversations(std::make_shared<const std::set<std::string>>());
  }
  const auto snapshot = conversations();
  if (snapshot == nullptr || snapshot->conversations().empty()) {
    // Kept: the walk uses what was there before this load, so this time nothing counts.
    loadAffiliatedConversations(/*inBackground=*/false);
  }
  const bool anyGroupHides =
      ZephylsDataController::sharedInstance()->isAnyOfGroupHasHideConversationsEnabled();
  if (snapshot == nullptr) {
    return;
  }
  std::int64_t count = 0;
  auto unread = std::make_shared<std::set<std::string>>();
  for (const CKConversationRef& conversation : snapshot->conversations()) {
    if (!conversation->hasUnreadMessages()) {
      continue;
    }
    if (const std::int64_t weight = unreadWeight(conversation, anyGroupHides); weight > 0) {
      count += weight;
      unread->insert(conversation->guid());
    }
  }
  unreadCount_ = count;
  if (noted) {
    setUnreadConversations(std::move(unread));
  }
}

void Zephyl::loadUnreadCount(std::function<void(std::int64_t count)> completion) {
  if (!requiresUpdateForUnReadCount_) {
    if (completion) {
      completion(unreadCount());
    }
    return;
  }
  host().dispatch().globalAsync(QueuePriority::kHigh,
                                [weak = weak_from_this(), completion = std::move(completion)] {
                                  const auto group = weak.lock();
                                  if (group == nullptr) {
                                    return;
                                  }
                                  group->loadUnreadCount();
                                  group->setRequiresUpdateForUnReadCount(false);
                                  if (completion) {
                                    completion(group->unreadCount());
                                  }
                                });
}

std::int64_t Zephyl::unreadCount() {
  loadUnreadCount();
  return unreadCount_;
}

}  // namespace zephyl
