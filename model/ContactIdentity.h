// The contact identity of a conversation's participant.

#pragma once

#include <cstdint>
#include <optional>

#include "platform/chatkit/CKConversation.h"
#include "platform/chatkit/IMHandle.h"

#include "model/MemberSet.h"

namespace zephyl {

// The record id of the handle's person, else the identifier of its contact, if that has one;
// nothing when the participant is no known contact.
[[nodiscard]] inline std::optional<Member> contactIdentity(const IMHandle& handle) {
  if (handle.respondsToPerson()) {
    return Member(static_cast<std::int64_t>(handle.personRecordID()));
  }
  if (handle.respondsToIsContact() && handle.isContact() && !handle.cnContactIdentifier().empty()) {
    return Member(handle.cnContactIdentifier());
  }
  return std::nullopt;
}

// That of the conversation's first handle; a handle that is missing has none.
[[nodiscard]] inline std::optional<Member> firstContactIdentity(
    const CKConversation& conversation) {
  return conversation.handles().empty() ? std::nullopt
                                        : contactIdentity(conversation.handles().front());
}

}  // namespace zephyl
