// What a Messages database says about its conversations: plain values, one record for each chat
// row, and remarks on what was wrong in the file but did not hinder the reading.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zephyl::linux_host {

// All texts are well-formed UTF-8; what the file lacks is empty.
struct ConversationRecord {
  std::int64_t rowID = 0;
  std::string guid;     // canonical, see canonicalChatGuid()
  std::string rawGuid;  // as the database has it
  std::string displayName;
  std::string chatIdentifier;
  std::string serviceName;
  bool isGroup = false;
  bool hasUnread = false;
  std::vector<std::string> handles;  // raw addresses in the order they joined, without the owner
  // Of the newest message, in seconds since 1970; null without messages or when it has no date.
  std::optional<double> lastDate;
  // Of the newest message that is neither an event nor a reaction. Empty when it holds attachments
  // only; null when there is no such message, or its text cannot be made out.
  std::optional<std::string> lastText;

  bool operator==(const ConversationRecord&) const = default;
};

struct MessagesReading {
  // The most recent first; those of one time, and at the end those without a date, by row id.
  std::vector<ConversationRecord> conversations;

  // For people, each naming the table and, where it is about one, the row.
  std::vector<std::string> warnings;

  // The version that the file's owner has written into it ("12005"); empty when there is none.
  std::string schemaVersion;

  std::size_t handleCount = 0;
  std::size_t messageCount = 0;  // rows, whether or not they belong to a conversation
};

}  // namespace zephyl::linux_host
