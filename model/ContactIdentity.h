// The contact identity of a conversation's participant.

#pragma once

#include <cstdint>
#include <optional>

#include "platform/chatkit/IMHandle.h"

#include "model/MemberSet.h"

namespace zephyl {

// The record id of the handle's person, else the identifier of its contact; nothing when the
// participant is no known contact.
[[nodiscard]] inline std::optional<Member> contactIdentity(const IMHandle& handle) {
  if (handle.respondsToPerson()) {
    return Member(static_cast<std::int64_t>(handle.personRecordID()));
  }
  if (handle.respondsToIsContact() && handle.isContact()) {
    return Member(handle.cnContactIdentifier());
  }
  return std::nullopt;
}

}  // namespace zephyl
