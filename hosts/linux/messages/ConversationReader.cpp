#include "hosts/linux/messages/ConversationReader.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>

#include "hosts/linux/messages/ChatGuid.h"

namespace zephyl::linux_host {
namespace {

constexpr std::int64_t kGroupStyle = 43;   // '+'
constexpr std::int64_t kSingleStyle = 45;  // '-'
constexpr std::int64_t kJunkFilter = 2;

}  // namespace

ConversationReader::ConversationReader(ReadOnlyDatabase& database, const MessagesSchema& schema)
    : database_(database), schema_(schema) {}

DatabaseResult<MessagesReading> ConversationReader::read() {
  readChats();
  readHandles();
  readParticipants();
  auto messages = NewestMessages(database_, schema_, notes_, indexes_).read();
  for (std::size_t index = 0; index < chats_.size(); ++index) {
    chats_[index].messages = std::move(messages[index]);
  }
  MessagesReading reading;
  reading.schemaVersion = schema_.version();
  reading.handleCount = handles_.size();
  reading.messageCount = countOfMessages();
  if (database_.error()) {
    return *database_.error();
  }
  reading.conversations = sortedRecords();
  reading.warnings = notes_.lines();
  if (!schema_.has("message", "is_read")) {
    reading.warnings.emplace_back("message has no column is_read; nothing counts as unread");
  }
  return reading;
}

// The text of a column, empty for a null.
std::string ConversationReader::textIn(const Statement& row, int column, std::string_view table,
                                       std::int64_t id, std::string_view name) {
  if (!row.isWellFormed(column)) {
    notes_.add(table, id, std::string(name) + " is not valid UTF-8; repaired");
  }
  return row.text(column).value_or(std::string());
}

void ConversationReader::readChats() {
  std::string columns = "ROWID, guid";
  for (const std::string_view column :
       {"service_name", "chat_identifier", "display_name", "room_name", "style", "is_filtered"}) {
    columns += ", " + schema_.select("chat", column);
  }
  auto row = database_.prepare("SELECT " + columns + " FROM chat");
  while (row.next()) {
    auto chat = chatIn(row);
    if (!chat) {
      continue;
    }
    if (indexes_.try_emplace(chat->record.rowID, chats_.size()).second) {
      chats_.push_back(*std::move(chat));
    } else {
      notes_.add("chat", chat->record.rowID,
                 "is there twice, so the file is damaged; left out once");
    }
  }
}

std::optional<ConversationReader::Chat> ConversationReader::chatIn(const Statement& row) {
  const std::int64_t id = row.integer(0).value_or(0);
  Chat chat;
  ConversationRecord& record = chat.record;
  record.rowID = id;
  record.rawGuid = textIn(row, 1, "chat", id, "guid");
  if (record.rawGuid.empty()) {
    notes_.add("chat", id, "has no guid; left out");
    return std::nullopt;
  }
  record.serviceName = textIn(row, 2, "chat", id, "service_name");
  record.chatIdentifier = textIn(row, 3, "chat", id, "chat_identifier");
  record.displayName = textIn(row, 4, "chat", id, "display_name");
  record.guid = canonicalChatGuid(record.rawGuid, record.serviceName);
  if (record.guid.starts_with("any;")) {
    notes_.add("chat", id, "does not tell its service; its guid is kept as it is");
  }
  const auto style = row.integer(6);
  record.isGroup = style == kGroupStyle;
  if (style != kGroupStyle && style != kSingleStyle) {
    record.isGroup = isGroupGuid(record.rawGuid) || !row.text(5).value_or(std::string()).empty();
  }
  // A null is no junk, though the phone's own comparison takes it for such: better one unread
  // conversation too many than one that never shows.
  chat.isJunk = row.integer(7) == kJunkFilter;
  return chat;
}

void ConversationReader::readHandles() {
  auto row = database_.prepare("SELECT ROWID, id FROM handle");
  while (row.next()) {
    const std::int64_t id = row.integer(0).value_or(0);
    std::optional<std::string> address;
    if (row.isNull(1)) {
      notes_.add("handle", id, "has no address; left out");
    } else {
      address = textIn(row, 1, "handle", id, "id");
    }
    handles_.try_emplace(id, std::move(address));
  }
}

// A row that names no chat or no handle of the file is what deletions leave behind; a handle that
// is in a chat twice counts once.
void ConversationReader::readParticipants() {
  std::set<std::pair<std::size_t, std::int64_t>> seen;
  auto row = database_.prepare("SELECT chat_id, handle_id FROM chat_handle_join ORDER BY ROWID");
  while (row.next()) {
    const auto chatID = row.integer(0);
    const auto handleID = row.integer(1);
    if (!chatID || !handleID) {
      continue;
    }
    const auto chat = indexes_.find(*chatID);
    const auto handle = handles_.find(*handleID);
    if (chat == indexes_.end() || handle == handles_.end() || !handle->second) {
      continue;
    }
    if (seen.emplace(chat->second, *handleID).second) {
      chats_[chat->second].record.handles.push_back(*handle->second);
    }
  }
}

std::size_t ConversationReader::countOfMessages() {
  auto row = database_.prepare("SELECT count(*) FROM message");
  return row.next() ? static_cast<std::size_t>(row.integer(0).value_or(0)) : 0;
}

std::vector<ConversationRecord> ConversationReader::sortedRecords() {
  std::sort(chats_.begin(), chats_.end(), [](const Chat& left, const Chat& right) {
    return left.messages.newest != right.messages.newest
               ? left.messages.newest > right.messages.newest
               : left.record.rowID < right.record.rowID;
  });
  std::vector<ConversationRecord> records;
  records.reserve(chats_.size());
  for (Chat& chat : chats_) {
    ConversationRecord& record = chat.record;
    record.hasUnread = chat.messages.hasUnread && !chat.isJunk;
    record.lastText = std::move(chat.messages.text);
    if (chat.messages.newest) {
      record.lastDate = chat.messages.newest->secondsSince1970();
    }
    records.push_back(std::move(record));
  }
  return records;
}

}  // namespace zephyl::linux_host
