#include "hosts/linux/messages/NewMessages.h"

#include <algorithm>
#include <limits>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "hosts/linux/messages/ChatGuid.h"
#include "hosts/linux/messages/MessageText.h"
#include "hosts/linux/messages/MessageTime.h"

namespace zephyl::linux_host {
namespace {

// A message that is never finished is forgotten when so many younger ones are not, either.
constexpr std::size_t kMostUnfinished = 100;
constexpr std::int64_t kJunkFilter = 2;

// What is worth telling of, finished or not, as far as the columns exist. From 1000 on the
// associated messages are stickers and reactions, which belong to another message.
std::string incomingCondition(const MessagesSchema& schema) {
  std::string condition = "ROWID BETWEEN ?1 AND ?2";
  constexpr std::pair<std::string_view, std::string_view> kFurther[] = {
      {"is_from_me", "= 0"},
      {"is_read", "= 0"},
      {"item_type", "= 0"},
      {"is_system_message", "= 0"},
      {"associated_message_type", "< 1000"}};
  for (const auto& [column, value] : kFurther) {
    if (schema.has("message", column)) {
      condition.append(" AND coalesce(").append(column).append(", 0) ").append(value);
    }
  }
  return condition;
}

std::string guidOfMessage(MessagesDatabase& database, std::int64_t row) {
  if (!database.schema().has("message", "guid")) {
    return {};
  }
  auto statement = database.database().prepare("SELECT guid FROM message WHERE ROWID = ?1");
  statement.bind(1, row);
  return statement.next() ? statement.text(0).value_or(std::string()) : std::string();
}

}  // namespace

DatabaseResult<NewMessages::Reading> NewMessages::read() {
  const SourceFiles before(file_);
  Reading reading;
  Position found;
  auto database = MessagesDatabase::open(file_, ReadOnlyDatabase::Access::kLogInPlace);
  std::optional<DatabaseError> error;
  if (database.ok()) {
    found = endOf(database.value(), before.stamp().value_or(FileStamp()));
    reading.messages = readFrom(database.value(), found);
    error = database.value().database().error();
  } else {
    error = database.error();
  }
  if (!before.unchanged()) {
    return Reading{.messages = {}, .sourceChanged = true};
  }
  if (error) {
    return *error;
  }
  last_ = std::move(found);
  return reading;
}

NewMessages::Position NewMessages::endOf(MessagesDatabase& database, const FileStamp& file) {
  Position end;
  end.file = file;
  auto row = database.database().prepare("SELECT max(ROWID) FROM message");
  end.rowID = row.next() ? row.integer(0).value_or(0) : 0;
  end.messageGuid = guidOfMessage(database, end.rowID);
  return end;
}

bool NewMessages::continuesIn(MessagesDatabase& database, const Position& found) const {
  if (!last_ || found.rowID < last_->rowID) {
    return false;
  }
  const std::string guid =
      last_->messageGuid.empty() ? std::string() : guidOfMessage(database, last_->rowID);
  if (!guid.empty()) {
    return guid == last_->messageGuid;
  }
  return found.file.device == last_->file.device && found.file.inode == last_->file.inode;
}

// Messages that are to be told of later are left in `found`.
std::vector<NewMessage> NewMessages::readFrom(MessagesDatabase& database, Position& found) const {
  std::vector<NewMessage> messages;
  if (!continuesIn(database, found)) {
    return messages;
  }
  std::vector<Candidate> candidates = readCandidates(database);
  if (candidates.empty()) {
    return messages;
  }
  readChats(database, candidates);
  readSenders(database, candidates);
  for (Candidate& candidate : candidates) {
    if (!candidate.isFinished || !candidate.chat) {
      found.unfinished.push_back(candidate.message.rowID);
    } else if (!candidate.message.chatGuid.empty()) {
      messages.push_back(std::move(candidate.message));
    }
  }
  if (found.unfinished.size() > kMostUnfinished) {
    found.unfinished.erase(found.unfinished.begin(), found.unfinished.end() - kMostUnfinished);
  }
  if (messages.size() <= kMostTexts) {
    readTexts(database, messages);
  }
  return messages;
}

// Without chat, sender and text.
std::vector<NewMessages::Candidate> NewMessages::readCandidates(MessagesDatabase& database) const {
  std::vector<Candidate> candidates;
  const MessagesSchema& schema = database.schema();
  auto row = database.database().prepare(
      "SELECT ROWID, date, " + schema.select("message", "is_finished") + ", " +
      schema.select("message", "handle_id") + " FROM message WHERE " + incomingCondition(schema));
  const auto readRows = [&](std::int64_t first, std::int64_t last) {
    row.bind(1, first);
    row.bind(2, last);
    while (row.next()) {
      Candidate candidate;
      candidate.message.rowID = row.integer(0).value_or(0);
      const auto time = MessageTime::fromDatabase(row.integer(1).value_or(0));
      if (time) {
        candidate.message.date = time->secondsSince1970();
      }
      candidate.isFinished = row.integer(2).value_or(1) != 0;
      candidate.handle = row.integer(3);
      candidates.push_back(std::move(candidate));
    }
  };
  for (const std::int64_t unfinished : last_->unfinished) {
    readRows(unfinished, unfinished);
  }
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  if (last_->rowID < kMost) {
    readRows(last_->rowID + 1, kMost);
  }
  return candidates;
}

// The guid stays empty when the chat is not there or holds junk. One pass for all messages: older
// files have no index by which to find the chat of one.
void NewMessages::readChats(MessagesDatabase& database, std::vector<Candidate>& candidates) {
  std::unordered_map<std::int64_t, std::int64_t> chatOf;
  auto join = database.database().prepare(
      "SELECT message_id, min(chat_id) FROM chat_message_join"
      " WHERE message_id BETWEEN ?1 AND ?2 GROUP BY message_id");
  join.bind(1, candidates.front().message.rowID);
  join.bind(2, candidates.back().message.rowID);
  while (join.next()) {
    if (const auto chat = join.integer(1)) {
      chatOf.try_emplace(join.integer(0).value_or(0), *chat);
    }
  }
  const MessagesSchema& schema = database.schema();
  auto row = database.database().prepare("SELECT guid, " + schema.select("chat", "service_name") +
                                         ", " + schema.select("chat", "is_filtered") +
                                         " FROM chat WHERE ROWID = ?1");
  std::unordered_map<std::int64_t, std::string> guids;
  for (Candidate& candidate : candidates) {
    const auto found = chatOf.find(candidate.message.rowID);
    if (found == chatOf.end()) {
      continue;
    }
    candidate.chat = found->second;
    const auto [guid, isNew] = guids.try_emplace(found->second);
    if (isNew) {
      row.bind(1, found->second);
      if (row.next() && row.integer(2) != kJunkFilter) {
        guid->second = canonicalChatGuid(row.text(0).value_or(std::string()),
                                         row.text(1).value_or(std::string()));
      }
    }
    candidate.message.chatGuid = guid->second;
  }
}

void NewMessages::readSenders(MessagesDatabase& database, std::vector<Candidate>& candidates) {
  auto row = database.database().prepare("SELECT id FROM handle WHERE ROWID = ?1");
  std::unordered_map<std::int64_t, std::string> addresses;
  for (Candidate& candidate : candidates) {
    if (!candidate.handle) {
      continue;
    }
    const auto [address, isNew] = addresses.try_emplace(*candidate.handle);
    if (isNew) {
      row.bind(1, *candidate.handle);
      address->second = row.next() ? row.text(0).value_or(std::string()) : std::string();
    }
    candidate.message.sender = address->second;
  }
}

void NewMessages::readTexts(MessagesDatabase& database, std::vector<NewMessage>& messages) {
  auto row = database.database().prepare("SELECT text, " +
                                         database.schema().select("message", "attributedbody") +
                                         " FROM message WHERE ROWID = ?1");
  for (NewMessage& message : messages) {
    row.bind(1, message.rowID);
    if (row.next()) {
      message.text = messageText(row.bytes(0), row.blob(1)).text;
    }
  }
}

}  // namespace zephyl::linux_host
