// Which member of a group the user means by a name, a number, an address or the GUID of a
// conversation.
//
// The form of a member decides whether it ever matches: the conversations of people who are in the
// address book are found by record id only, those of all others by the very address that the
// conversation bears, in plain form. Needs the session's groups started; main thread.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/addressbook/ABPerson.h"

#include "hosts/linux/contacts/HandleMatcher.h"
#include "model/MemberSet.h"

namespace zephyl::app {

class Output;
class Session;

struct FoundMember {
  Member member;
  std::string remark;  // what the user may not expect; empty for nothing
};

// On standard error.
void tellRemark(Output& output, const FoundMember& found);

class MemberFinder {
 public:
  // `session` must outlive this.
  explicit MemberFinder(const Session& session);

  // What is to become a member: the conversation of that GUID, else the person of that record id or
  // full name, else whoever has that number or e-mail address. Throws CommandError when it fits
  // nothing, or a full name several people.
  [[nodiscard]] FoundMember find(const std::string& who) const;
  [[nodiscard]] std::vector<FoundMember> findAll(const std::vector<std::string>& names) const;

  // Those of `members` that are meant: the very member, else the person's record id and addresses,
  // else the same number in another spelling. Empty when none is.
  [[nodiscard]] std::vector<Member> meantMembers(const MemberSet& members,
                                                 const std::string& who) const;

  // The form in which a number or e-mail address matches the conversations of somebody who is in no
  // address book. Nothing for other texts, and for short numbers that no conversation bears: a
  // member matches as it is written, and without a country code nobody can tell how that is.
  [[nodiscard]] std::optional<std::string> addressMember(const std::string& address) const;

  // The person in whose entry a number or e-mail address stands; null when nobody's.
  [[nodiscard]] ABPersonRef personWithAddress(const std::string& address) const;

  // Everybody of exactly that full name.
  [[nodiscard]] std::vector<ABPersonRef> peopleNamed(const std::string& name) const;

 private:
  [[nodiscard]] std::optional<FoundMember> findPerson(const std::string& who) const;
  [[nodiscard]] std::optional<FoundMember> findAddress(const std::string& who) const;
  [[nodiscard]] std::vector<ABPersonRef> peopleMeant(const std::string& who) const;
  // Their record ids and addresses among the members.
  [[nodiscard]] std::vector<Member> membersOfPeople(const MemberSet& members,
                                                    const std::vector<ABPersonRef>& people) const;

  const Session& session_;
  // The participants of conversations who are in no address book, as if each were a person.
  linux_host::HandleMatcher strangers_;
};

}  // namespace zephyl::app
