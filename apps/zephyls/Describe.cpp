#include "apps/zephyls/Describe.h"

#include <limits>
#include <utility>

#include <nlohmann/json.hpp>

#include "platform/Host.h"
#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/Dictionary.h"

#include "apps/zephyls/Json.h"

namespace zephyl::app {

namespace {

std::string shownAddress(const std::string& address) {
  return host().phoneFormatting().abCopyPhoneNumberFromString(address).value_or(address);
}

std::string nameOfConversation(const std::string& guid) {
  for (const CKConversationRef& conversation : host().conversationList().conversations()) {
    if (conversation->guid() == guid) {
      return conversation->facts().name;
    }
  }
  return {};
}

Json orNull(const std::optional<std::string>& text) {
  return text ? Json(*text) : Json(nullptr);
}

}  // namespace

Json groupObject(const ZephylRef& group, std::size_t conversationCount) {
  Json object = jsonOf(Value(group->dictionaryRepresentation()));
  object["unreadCount"] = group->unreadCount();
  object["conversationCount"] = conversationCount;
  return object;
}

Json conversationObject(const CKConversation& conversation) {
  const CKConversation::Facts& facts = conversation.facts();
  Json handles = Json::array();
  for (std::size_t index = 0; index < facts.handles.size(); ++index) {
    const IMHandle& handle = facts.handles[index];
    handles.push_back(
        {{"displayID", handle.displayID()},
         {"recordID", handle.respondsToPerson() ? Json(handle.personRecordID()) : Json(nullptr)},
         {"name", facts.handleNames[index]}});
  }
  return {{"guid", facts.guid},
          {"rawGuid", facts.rawGuid},
          {"name", facts.name},
          {"isGroup", facts.isGroupConversation},
          {"unread", facts.hasUnreadMessages},
          {"handles", std::move(handles)},
          {"lastDate", facts.lastDate ? Json(isoTime(*facts.lastDate)) : Json(nullptr)},
          {"lastText", orNull(facts.lastText)}};
}

Row conversationRow(const CKConversation& conversation) {
  const CKConversation::Facts& facts = conversation.facts();
  const bool unread = facts.hasUnreadMessages;
  std::string text = facts.lastText.value_or(facts.lastDate ? "(no readable text)" : "");
  if (facts.lastText && text.empty()) {
    text = "(no text)";
  }
  return {
      {unread ? "●" : " ", Style::kUnread},
      {facts.lastDate ? localTime(*facts.lastDate) : "", Style::kDim},
      {facts.name, unread ? Style::kBold : Style::kPlain},
      {std::move(text), facts.lastText && !facts.lastText->empty() ? Style::kPlain : Style::kDim}};
}

std::string traitsOf(const ZephylRef& group) {
  const std::pair<bool, const char*> traits[] = {
      {group->isActive(), "selected"},
      {!group->isEnabled(), "disabled"},
      {group->isPasswordProtected(), "protected"},
      {group->shouldHideConversationsInDefaultGroups(), "hides its conversations"},
      {group->shouldHideConversationsOnLockScreen(), "masked on the lock screen"}};
  std::string text;
  for (const auto& [applies, name] : traits) {
    if (applies) {
      text += (text.empty() ? "" : ", ") + std::string(name);
    }
  }
  return text;
}

MemberDescription describe(const Member& member) {
  if (const auto* number = std::get_if<std::int64_t>(&member)) {
    // Record ids have 32 bits; what lies beyond is nobody's.
    const bool isRecordID = *number >= 1 && *number <= std::numeric_limits<std::int32_t>::max();
    const ABPersonRef person =
        isRecordID ? host().addressBook()->personWithRecordID(static_cast<std::int32_t>(*number))
                   : nullptr;
    return {memberKind(member), std::to_string(*number),
            person == nullptr ? std::string() : nameOf(*person)};
  }
  const std::string& text = std::get<std::string>(member);
  return isChatGuid(text)
             ? MemberDescription{MemberKind::kConversation, text, nameOfConversation(text)}
             : MemberDescription{MemberKind::kAddress, text, shownAddress(text)};
}

const char* nameOf(MemberKind kind) {
  switch (kind) {
    case MemberKind::kPerson:
      return "person";
    case MemberKind::kConversation:
      return "conversation";
    case MemberKind::kAddress:
      return "address";
  }
  return "";
}

std::string textOf(const MemberDescription& member) {
  return std::string(nameOf(member.kind)) + " " + member.text +
         (member.name.empty() ? " (not found)" : "  " + member.name);
}

std::string nameOf(const ABPerson& person) {
  if (person.compositeName) {
    return *person.compositeName;
  }
  for (const auto* values : {&person.phones, &person.emails}) {
    if (!values->empty()) {
      return shownAddress(values->front().value);
    }
  }
  return "(no name)";
}

std::string counted(std::size_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace zephyl::app
