// The members of a group from another device, as this device's address book has them.

#pragma once

#include <string>
#include <vector>

#include "apps/zephyls/GroupsDocument.h"
#include "apps/zephyls/MemberFinder.h"
#include "model/MemberSet.h"

namespace zephyl::app {

struct ImportedMembers {
  MemberSet members;
  // People for whom nobody was found, or several: their record ids mean somebody else here.
  std::vector<TransferredMember> unresolved;
  std::vector<std::string> remarks;
};

// A person is whoever has one of the numbers or addresses, else the one of exactly that name; among
// several, the one of that name and then of that record id. For a person who is not found at all,
// the numbers and addresses become members as well. Conversations keep their GUIDs. Addresses of
// people who are known become those people; others take the plain form in which they match.
[[nodiscard]] ImportedMembers importedMembers(const std::vector<TransferredMember>& members,
                                              const MemberFinder& finder);

}  // namespace zephyl::app
