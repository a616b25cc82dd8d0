#include "apps/zephyls/MemberFinder.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <utility>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/chatkit/CKConversationList.h"

#include "apps/common/CommandError.h"
#include "apps/zephyls/Describe.h"
#include "apps/zephyls/GroupTexts.h"
#include "apps/zephyls/Output.h"
#include "apps/zephyls/Session.h"
#include "hosts/linux/contacts/InternationalNumber.h"
#include "model/ContactIdentity.h"
#include "services/ZPUtils.h"

namespace zephyl::app {

namespace {

ABPersonRef strangerWith(const std::string& address) {
  auto person = std::make_shared<ABPerson>();
  auto& values = address.find('@') == std::string::npos ? person->phones : person->emails;
  values.push_back({"", address});
  person->compositeName = address;
  return person;
}

std::vector<ABPersonRef> strangersWith(const std::set<std::string>& addresses) {
  std::vector<ABPersonRef> strangers;
  strangers.reserve(addresses.size());
  for (const std::string& address : addresses) {
    strangers.push_back(strangerWith(address));
  }
  return strangers;
}

std::vector<ABPersonRef> strangersInConversations() {
  std::set<std::string> addresses;
  for (const CKConversationRef& conversation : host().conversationList().conversations()) {
    for (const IMHandle& handle : conversation->handles()) {
      if (!contactIdentity(handle)) {
        addresses.insert(handle.displayID());
      }
    }
  }
  return strangersWith(addresses);
}

std::optional<std::int64_t> wholeNumber(const std::string& text) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

bool isEmail(const std::string& text) {
  const std::size_t at = text.find('@');
  return at != std::string::npos && at > 0 && at + 1 < text.size() &&
         text.find(' ') == std::string::npos;
}

// Digits, with what people write between them.
bool isNumber(const std::string& text) {
  return text.find_first_of("0123456789") != std::string::npos &&
         text.find_first_not_of("0123456789 +()-./") == std::string::npos;
}

std::string lowerCase(std::string text) {
  for (char& c : text) {
    c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return text;
}

CKConversationRef conversationWithGuid(const std::string& guid) {
  const CKConversationArray all = host().conversationList().conversations();
  const auto found = std::find_if(all.begin(), all.end(), [&](const CKConversationRef& one) {
    return one->guid() == guid || one->facts().rawGuid == guid;
  });
  return found == all.end() ? nullptr : *found;
}

ABPersonRef personWithRecordID(const std::string& text) {
  const auto number = wholeNumber(text);
  const bool isRecordID = number && *number >= 1 && std::in_range<std::int32_t>(*number);
  return isRecordID ? host().addressBook()->personWithRecordID(static_cast<std::int32_t>(*number))
                    : nullptr;
}

Member memberOf(const ABPerson& person) {
  return std::int64_t{person.recordID};
}

std::string identifiersOf(const std::vector<ABPersonRef>& people) {
  std::string text;
  for (const ABPersonRef& person : people) {
    text += " " + std::to_string(person->recordID);
  }
  return text;
}

}  // namespace

void tellRemark(Output& output, const FoundMember& found) {
  if (!found.remark.empty()) {
    output.complain(found.remark);
  }
}

MemberFinder::MemberFinder(const Session& session)
    : session_(session), strangers_(strangersInConversations(), session.userData().homeRegion()) {}

ABPersonRef MemberFinder::personWithAddress(const std::string& address) const {
  return session_.userData().matcher().personForHandle(address);
}

std::vector<ABPersonRef> MemberFinder::peopleNamed(const std::string& name) const {
  std::vector<ABPersonRef> named;
  for (const ABPersonRef& person : session_.userData().people()) {
    if (person->compositeName == name) {
      named.push_back(person);
    }
  }
  return named;
}

std::optional<std::string> MemberFinder::addressMember(const std::string& address) const {
  if (const ABPersonRef stranger = strangers_.personForHandle(address)) {
    return ZPUtils::plainPhoneNumber(*stranger->compositeName);
  }
  if (isEmail(address)) {
    // As messages name them.
    return ZPUtils::plainPhoneNumber(lowerCase(address));
  }
  return linux_host::internationalNumber(address, session_.userData().homeRegion());
}

std::optional<FoundMember> MemberFinder::findPerson(const std::string& who) const {
  if (const ABPersonRef person = personWithRecordID(who)) {
    return FoundMember{memberOf(*person), {}};
  }
  const std::vector<ABPersonRef> named = peopleNamed(who);
  if (named.size() > 1) {
    throw CommandError("several people are called \"" + who +
                       "\"; name one by record id:" + identifiersOf(named));
  }
  if (!named.empty()) {
    return FoundMember{memberOf(*named.front()), {}};
  }
  if (const ABPersonRef person = personWithAddress(who)) {
    return FoundMember{memberOf(*person), who + " is known: " + nameOf(*person) + ", record id " +
                                              std::to_string(person->recordID) +
                                              ", becomes the member"};
  }
  return std::nullopt;
}

std::optional<FoundMember> MemberFinder::findAddress(const std::string& who) const {
  const auto address = addressMember(who);
  if (!address) {
    if (isNumber(who)) {
      throw CommandError("no conversation is with " + who +
                         ", and without a country code nobody can tell how a message would name "
                         "it; write it with its country code: +…");
    }
    return std::nullopt;
  }
  const bool isInConversations = strangers_.personForHandle(who) != nullptr;
  return FoundMember{
      *address, isInConversations ? std::string() : "no conversation is with " + *address + " yet"};
}

FoundMember MemberFinder::find(const std::string& who) const {
  checkText(who, "the member");
  if (const CKConversationRef conversation = conversationWithGuid(who)) {
    return {conversation->guid(), {}};
  }
  if (who.find(";-;") != std::string::npos || who.find(";+;") != std::string::npos) {
    throw CommandError("no conversation has the GUID \"" + who +
                       "\"; `zephyls conversations --json` lists them");
  }
  if (auto person = findPerson(who)) {
    return *person;
  }
  if (auto address = findAddress(who)) {
    return *address;
  }
  throw CommandError("\"" + who +
                     "\" is nobody of the address book, no number, no e-mail address and no "
                     "conversation; `zephyls contacts` shows everybody");
}

std::vector<FoundMember> MemberFinder::findAll(const std::vector<std::string>& names) const {
  std::vector<FoundMember> found;
  found.reserve(names.size());
  for (const std::string& name : names) {
    found.push_back(find(name));
  }
  return found;
}

std::vector<ABPersonRef> MemberFinder::peopleMeant(const std::string& who) const {
  if (const ABPersonRef person = personWithRecordID(who)) {
    return {person};
  }
  if (auto named = peopleNamed(who); !named.empty()) {
    return named;
  }
  const ABPersonRef person = personWithAddress(who);
  return person == nullptr ? std::vector<ABPersonRef>() : std::vector<ABPersonRef>{person};
}

std::vector<Member> MemberFinder::membersOfPeople(const MemberSet& members,
                                                  const std::vector<ABPersonRef>& people) const {
  std::vector<Member> theirs;
  for (const Member& member : members) {
    const auto* text = std::get_if<std::string>(&member);
    const ABPersonRef owner =
        text == nullptr || isChatGuid(*text) ? nullptr : personWithAddress(*text);
    const bool isTheirs = std::any_of(people.begin(), people.end(), [&](const ABPersonRef& person) {
      return member == memberOf(*person) || person == owner;
    });
    if (isTheirs) {
      theirs.push_back(member);
    }
  }
  return theirs;
}

std::vector<Member> MemberFinder::meantMembers(const MemberSet& members,
                                               const std::string& who) const {
  if (const auto number = wholeNumber(who); number && members.contains(*number)) {
    return {*number};
  }
  const CKConversationRef conversation = conversationWithGuid(who);
  for (const std::string& text : {who, conversation == nullptr ? who : conversation->guid()}) {
    if (members.contains(text)) {
      return {text};
    }
  }
  std::vector<ABPersonRef> people = peopleMeant(who);
  std::erase_if(people, [&](const ABPersonRef& person) {
    return membersOfPeople(members, {person}).empty();
  });
  if (people.size() > 1) {
    throw CommandError("several members are called \"" + who +
                       "\"; name one by record id:" + identifiersOf(people));
  }
  if (!people.empty()) {
    return membersOfPeople(members, people);
  }
  std::set<std::string> addresses;
  for (const Member& member : members) {
    if (const auto* text = std::get_if<std::string>(&member); text && !isChatGuid(*text)) {
      addresses.insert(*text);
    }
  }
  const linux_host::HandleMatcher own(strangersWith(addresses), session_.userData().homeRegion());
  // E-mail addresses are members without their hyphens.
  for (const std::string& text : {who, ZPUtils::plainPhoneNumber(who)}) {
    if (const ABPersonRef same = own.personForHandle(text)) {
      return {*same->compositeName};
    }
  }
  return {};
}

}  // namespace zephyl::app
