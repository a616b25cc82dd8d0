// One reading of the conversation list out of an open database. Used once, on one thread.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hosts/linux/messages/ConversationRecord.h"
#include "hosts/linux/messages/DatabaseResult.h"
#include "hosts/linux/messages/MessagesSchema.h"
#include "hosts/linux/messages/NewestMessages.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"
#include "hosts/linux/messages/ReadingNotes.h"

namespace zephyl::linux_host {

class ConversationReader {
 public:
  // Both outlive the object.
  ConversationReader(ReadOnlyDatabase& database, const MessagesSchema& schema);

  [[nodiscard]] DatabaseResult<MessagesReading> read();

 private:
  // A chat while it is being read.
  struct Chat {
    ConversationRecord record;
    ChatMessages messages;
    bool isJunk = false;
  };

  std::string textIn(const Statement& row, int column, std::string_view table, std::int64_t id,
                     std::string_view name);
  void readChats();
  [[nodiscard]] std::optional<Chat> chatIn(const Statement& row);
  void readHandles();
  void readParticipants();
  [[nodiscard]] std::size_t countOfMessages();
  [[nodiscard]] std::vector<ConversationRecord> sortedRecords();

  ReadOnlyDatabase& database_;
  const MessagesSchema& schema_;
  ReadingNotes notes_;
  std::vector<Chat> chats_;
  ChatIndexes indexes_;
  // Null for a handle without an address.
  std::unordered_map<std::int64_t, std::optional<std::string>> handles_;
};

}  // namespace zephyl::linux_host
