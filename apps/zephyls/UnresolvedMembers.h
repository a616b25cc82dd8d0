// People of another device whom nobody of this address book was found for. They are no members; the
// group's dictionary carries them under a key of its own, so that they leave with the next export
// and a later import may find them.

#pragma once

#include <vector>

#include "platform/foundation/Dictionary.h"

#include "apps/zephyls/GroupsDocument.h"

namespace zephyl::app {

// An array of dictionaries {"name", "phones", "emails", "id"}.
inline constexpr char kUnresolvedMembersKey[] = "unresolvedMembers";

// Those that the group's dictionary carries; what cannot be read is passed over.
[[nodiscard]] std::vector<TransferredMember> unresolvedMembers(const Dictionary& group);

// Takes the place of those; the key goes when there is nobody.
void setUnresolvedMembers(Dictionary& group, const std::vector<TransferredMember>& people);

// "Grandma (+1 555…, a@b.example)", for the user.
[[nodiscard]] std::string textOf(const TransferredMember& person);

}  // namespace zephyl::app
