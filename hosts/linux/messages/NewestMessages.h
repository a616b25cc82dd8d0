// Looks through the messages of all chats at once: for each chat the time and text of its newest
// one and whether any is unread. One pass over each table, however many chats there are.
//
// Used within one reading, on its thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "hosts/linux/messages/ConversationRecord.h"
#include "hosts/linux/messages/MessageTime.h"
#include "hosts/linux/messages/MessagesSchema.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"
#include "hosts/linux/messages/ReadingNotes.h"

namespace zephyl::linux_host {

// From a chat's row id to its place in the list.
using ChatIndexes = std::unordered_map<std::int64_t, std::size_t>;

struct ChatMessages {
  std::optional<MessageTime> newest;
  std::optional<std::string> text;  // as ConversationRecord::lastText
  bool hasUnread = false;
};

class NewestMessages {
 public:
  // All four outlive the object.
  NewestMessages(ReadOnlyDatabase& database, const MessagesSchema& schema, ReadingNotes& notes,
                 const ChatIndexes& chats);

  // One a chat, by its place. Half a result when the database has an error afterwards.
  [[nodiscard]] std::vector<ChatMessages> read();

 private:
  // A row that puts a message into a chat. The message need not exist, and may be in many chats.
  struct Link {
    std::size_t chat = 0;
    std::int64_t message = 0;
    std::optional<MessageTime> time;
  };

  // The links of one chat that are still to be looked at.
  struct Cursor {
    std::size_t at = 0;
    std::size_t end = 0;
    bool hasNewest = false;
  };

  std::optional<MessageTime> timeIn(const Statement& row, int column, std::int64_t message);
  void readLinks();
  void readMissingTimes();
  void readUnread(std::vector<ChatMessages>& chats);
  void readNewest(std::vector<ChatMessages>& chats);
  [[nodiscard]] std::vector<Cursor> sortLinks();
  bool lookAt(const Statement& message, const Link& link, Cursor& cursor, ChatMessages& chat);

  ReadOnlyDatabase& database_;
  const MessagesSchema& schema_;
  ReadingNotes& notes_;
  const ChatIndexes& indexes_;
  std::vector<Link> links_;
  bool timesAreComplete_ = true;
};

}  // namespace zephyl::linux_host
