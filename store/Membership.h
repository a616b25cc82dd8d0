// Why a group shows a conversation, or why it does not. A plain value.

#pragma once

#include <cstddef>
#include <optional>

#include "model/MemberSet.h"
#include "model/Zephyl.h"

namespace zephyl {

enum class MembershipRule {
  kNone,                // the group does not hold the conversation
  kChatGuid,            // a member is the conversation's GUID
  kContact,             // a member is the contact behind a participant
  kNumber,              // a member is the first participant's plain number
  kNumberContact,       // a member is the contact behind that number
  kEverything,          // All
  kGroupConversation,   // All Groups
  kUnknownParticipant,  // Unknown
  kKnownParticipant,    // Known
};

struct Membership {
  MembershipRule rule = MembershipRule::kNone;
  // The element of the group's members, or of the favourites, that matched.
  std::optional<Member> member;
  // Which of the conversation's handles decided; nothing where none did.
  std::optional<std::size_t> handle;
  // The group that hides the conversation from this default group; null when none does.
  ZephylRef hiddenBy;

  [[nodiscard]] bool isShown() const {
    return rule != MembershipRule::kNone && hiddenBy == nullptr;
  }
};

}  // namespace zephyl
