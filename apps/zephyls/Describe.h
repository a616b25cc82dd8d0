// How groups, people and conversations are told to the user. Needs the session's groups started.

#pragma once

#include <string>

#include <nlohmann/json_fwd.hpp>

#include "platform/addressbook/ABPerson.h"
#include "platform/chatkit/CKConversation.h"

#include "apps/zephyls/Output.h"
#include "model/MemberSet.h"
#include "model/Zephyl.h"

namespace zephyl::app {

// The keys of the group's dictionary, then "unreadCount" and "conversationCount".
[[nodiscard]] Json groupObject(const ZephylRef& group, std::size_t conversationCount);

[[nodiscard]] Json conversationObject(const CKConversation& conversation);

// A mark for unread, the time, the name and the last text: the columns of a list.
[[nodiscard]] Row conversationRow(const CKConversation& conversation);

// "disabled, protected": what is out of the ordinary about the group; empty for nothing.
[[nodiscard]] std::string traitsOf(const ZephylRef& group);

struct MemberDescription {
  // What the group's conversations are found by: a number kept as text is an address.
  MemberKind kind = MemberKind::kAddress;
  std::string text;  // the member itself
  std::string name;  // of the person or conversation behind it; empty when nobody is found
};

[[nodiscard]] MemberDescription describe(const Member& member);

// "person", "conversation" or "address".
[[nodiscard]] const char* nameOf(MemberKind kind);

// "person 12  Ann Larkspur": kind, member and name, or that nobody was found.
[[nodiscard]] std::string textOf(const MemberDescription& member);

[[nodiscard]] std::string nameOf(const ABPerson& person);

// "1 conversation", "2 conversations".
[[nodiscard]] std::string counted(std::size_t count, const std::string& noun);

}  // namespace zephyl::app
