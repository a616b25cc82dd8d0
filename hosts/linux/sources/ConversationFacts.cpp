#include "hosts/linux/sources/ConversationFacts.h"

#include <memory>
#include <unordered_map>
#include <utility>

namespace zephyl::linux_host {

namespace {

struct Participant {
  IMHandle handle;
  std::string name;
};

// Finds each address once, however many conversations it takes part in.
class Participants {
 public:
  Participants(const HandleMatcher& people, ABPhoneFormatting& formatting)
      : people_(people), formatting_(formatting) {}

  const Participant& of(const std::string& address) {
    const auto known = found_.find(address);
    return known == found_.end() ? found_.emplace(address, find(address)).first->second
                                 : known->second;
  }
  [[nodiscard]] std::string shown(const std::string& address) {
    return formatting_.abCopyPhoneNumberFromString(address).value_or(address);
  }

 private:
  [[nodiscard]] Participant find(const std::string& address) {
    const ABPersonRef person = people_.personForHandle(address);
    if (person == nullptr) {
      return {IMHandle(address), shown(address)};
    }
    return {IMHandle::withPerson(address, person->recordID),
            person->compositeName.value_or(shown(address))};
  }

  const HandleMatcher& people_;
  ABPhoneFormatting& formatting_;
  std::unordered_map<std::string, Participant> found_;
};

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (index > 0) {
      text += index + 1 == names.size() ? " & " : ", ";
    }
    text += names[index];
  }
  return text;
}

CKConversation::Facts factsOf(const ConversationRecord& record, Participants& participants) {
  CKConversation::Facts facts;
  facts.guid = record.guid;
  facts.rawGuid = record.rawGuid;
  facts.isGroupConversation = record.isGroup;
  facts.hasUnreadMessages = record.hasUnread;
  facts.lastDate = record.lastDate;
  facts.lastText = record.lastText;
  facts.handles.reserve(record.handles.size());
  for (const std::string& address : record.handles) {
    const Participant& participant = participants.of(address);
    facts.handles.push_back(participant.handle);
    facts.handleNames.push_back(participant.name);
  }
  facts.name = record.displayName;
  if (facts.name.empty()) {
    facts.name = facts.handleNames.empty() ? participants.shown(record.chatIdentifier)
                                           : joined(facts.handleNames);
  }
  return facts;
}

}  // namespace

CKConversationArray conversationsOf(const std::vector<ConversationRecord>& records,
                                    const HandleMatcher& people, ABPhoneFormatting& formatting) {
  Participants participants(people, formatting);
  CKConversationArray conversations;
  conversations.reserve(records.size());
  for (const ConversationRecord& record : records) {
    conversations.push_back(std::make_shared<CKConversation>(factsOf(record, participants)));
  }
  return conversations;
}

}  // namespace zephyl::linux_host
