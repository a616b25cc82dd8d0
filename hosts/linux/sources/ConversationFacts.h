// Joins what the Messages database knows of its conversations with the people of the address book.
// A pure function, any thread.

#pragma once

#include <string>
#include <vector>

#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/chatkit/CKConversation.h"

#include "hosts/linux/contacts/HandleMatcher.h"
#include "hosts/linux/messages/ConversationRecord.h"

namespace zephyl::linux_host {

// One conversation a record, in the same order. A handle whose person is known answers with the
// person's record id, any other answers with nothing but its address.
//
// A conversation bears its own name, else the names of its participants ("Ann, Bob & Cid"), else
// its chat identifier.
[[nodiscard]] CKConversationArray conversationsOf(const std::vector<ConversationRecord>& records,
                                                  const HandleMatcher& people,
                                                  ABPhoneFormatting& formatting);

}  // namespace zephyl::linux_host
