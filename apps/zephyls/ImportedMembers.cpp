#include "apps/zephyls/ImportedMembers.h"

#include <algorithm>
#include <optional>

#include "apps/zephyls/Describe.h"
#include "apps/zephyls/UnresolvedMembers.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

using People = std::vector<ABPersonRef>;

Member memberOf(const ABPerson& person) {
  return std::int64_t{person.recordID};
}

// Leaves the list alone when nobody of it fits.
template <class Fits>
void narrow(People& people, const Fits& fits) {
  People fitting;
  std::copy_if(people.begin(), people.end(), std::back_inserter(fitting), fits);
  if (!fitting.empty()) {
    people = std::move(fitting);
  }
}

People candidatesFor(const TransferredMember& member, const MemberFinder& finder) {
  People people;
  for (const auto* values : {&member.phones, &member.emails}) {
    for (const std::string& value : *values) {
      const ABPersonRef person = finder.personWithAddress(value);
      if (person != nullptr && std::find(people.begin(), people.end(), person) == people.end()) {
        people.push_back(person);
      }
    }
  }
  if (people.empty() && !member.name.empty()) {
    people = finder.peopleNamed(member.name);
  }
  if (people.size() > 1) {
    narrow(people, [&](const ABPersonRef& one) { return one->compositeName == member.name; });
  }
  if (people.size() > 1) {
    narrow(people, [&](const ABPersonRef& one) { return one->recordID == member.recordID; });
  }
  return people;
}

std::vector<std::string> addressesOf(const TransferredMember& member, const MemberFinder& finder) {
  std::vector<std::string> addresses;
  for (const auto* values : {&member.phones, &member.emails}) {
    for (const std::string& value : *values) {
      if (const auto address = finder.addressMember(value)) {
        addresses.push_back(*address);
      }
    }
  }
  return addresses;
}

void addPerson(ImportedMembers& imported, const TransferredMember& member,
               const MemberFinder& finder) {
  const People people = candidatesFor(member, finder);
  if (people.size() == 1) {
    imported.members.add(memberOf(*people.front()));
    return;
  }
  imported.unresolved.push_back(member);
  if (!people.empty()) {
    imported.remarks.push_back("several people may be " + textOf(member) +
                               "; kept with the group, but not as a member");
    return;
  }
  const std::vector<std::string> addresses = addressesOf(member, finder);
  for (const std::string& address : addresses) {
    imported.members.add(address);
  }
  imported.remarks.push_back(
      "nobody of the address book is " + textOf(member) +
      (addresses.empty() ? "; kept with the group, but not as a member"
                         : "; kept with the group, with numbers and addresses as members"));
}

}  // namespace

ImportedMembers importedMembers(const std::vector<TransferredMember>& members,
                                const MemberFinder& finder) {
  ImportedMembers imported;
  for (const TransferredMember& member : members) {
    if (member.kind == MemberKind::kPerson) {
      addPerson(imported, member, finder);
      continue;
    }
    const ABPersonRef person =
        member.kind == MemberKind::kAddress ? finder.personWithAddress(member.text) : nullptr;
    if (person != nullptr) {
      imported.members.add(memberOf(*person));
    } else {
      imported.members.add(member.kind == MemberKind::kAddress
                               ? ZPUtils::plainPhoneNumber(member.text)
                               : member.text);
    }
    if (member.kind == MemberKind::kConversation && describe(member.text).name.empty()) {
      imported.remarks.push_back("no conversation has the GUID " + member.text +
                                 "; it is a member all the same");
    }
  }
  return imported;
}

}  // namespace zephyl::app
