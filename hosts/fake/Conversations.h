// Short ways to make participants and conversations in tests.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/chatkit/CKConversation.h"

namespace zephyl::fake {

[[nodiscard]] inline IMHandle known(std::int32_t recordID, std::string displayID = "+15550100") {
  return IMHandle::withPerson(std::move(displayID), recordID);
}

[[nodiscard]] inline IMHandle unknown(std::string displayID) {
  return IMHandle(std::move(displayID));
}

// One handle makes a one-to-one conversation, several make a group; `unread` says whether it has
// unread messages.
[[nodiscard]] inline CKConversationRef chat(std::string guid, std::vector<IMHandle> handles,
                                            bool unread = false) {
  CKConversation::Facts facts;
  facts.guid = std::move(guid);
  facts.rawGuid = facts.guid;
  facts.isGroupConversation = handles.size() > 1;
  facts.hasUnreadMessages = unread;
  facts.handles = std::move(handles);
  return std::make_shared<CKConversation>(std::move(facts));
}

[[nodiscard]] inline CKConversationRef unreadChat(std::string guid, std::vector<IMHandle> handles) {
  return chat(std::move(guid), std::move(handles), /*unread=*/true);
}

// A group conversation whatever the number of its participants.
[[nodiscard]] inline CKConversationRef groupChat(std::string guid, std::vector<IMHandle> handles) {
  CKConversation::Facts facts;
  facts.guid = std::move(guid);
  facts.isGroupConversation = true;
  facts.handles = std::move(handles);
  return std::make_shared<CKConversation>(std::move(facts));
}

}  // namespace zephyl::fake
