#include "hosts/linux/messages/NewestMessages.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "hosts/linux/messages/MessageText.h"

namespace zephyl::linux_host {
namespace {

constexpr std::int64_t kFirstReaction = 2000;
constexpr std::int64_t kLastReaction = 3999;

// What the phone itself calls unread, as far as the columns exist. Events (item_type) may stay
// unread for ever, so they are not counted.
std::string unreadCondition(const MessagesSchema& schema) {
  std::string condition = "is_read = 0";
  constexpr std::pair<std::string_view, std::string_view> kFurther[] = {
      {"is_finished", "1"}, {"is_from_me", "0"}, {"item_type", "0"}, {"is_system_message", "0"}};
  for (const auto& [column, value] : kFurther) {
    if (schema.has("message", column)) {
      condition.append(" AND ").append(column).append(" = ").append(value);
    }
  }
  return condition;
}

}  // namespace

NewestMessages::NewestMessages(ReadOnlyDatabase& database, const MessagesSchema& schema,
                               ReadingNotes& notes, const ChatIndexes& chats)
    : database_(database), schema_(schema), notes_(notes), indexes_(chats) {}

std::vector<ChatMessages> NewestMessages::read() {
  std::vector<ChatMessages> chats(indexes_.size());
  readLinks();
  if (!timesAreComplete_) {
    readMissingTimes();
  }
  readUnread(chats);
  readNewest(chats);
  return chats;
}

std::optional<MessageTime> NewestMessages::timeIn(const Statement& row, int column,
                                                  std::int64_t message) {
  const auto value = row.integer(column);
  if (!value && !row.isNull(column)) {
    notes_.add("message", message, "date is not a number; taken for none");
  }
  return value ? MessageTime::fromDatabase(*value) : std::nullopt;
}

// Recent releases copy the date into this table.
void NewestMessages::readLinks() {
  auto row = database_.prepare("SELECT chat_id, message_id, " +
                               schema_.select("chat_message_join", "message_date") +
                               " FROM chat_message_join");
  while (row.next()) {
    const auto chat = row.integer(0);
    const auto message = row.integer(1);
    const auto found = chat && message ? indexes_.find(*chat) : indexes_.end();
    if (found == indexes_.end()) {
      continue;
    }
    links_.push_back({found->second, *message, timeIn(row, 2, *message)});
    timesAreComplete_ = timesAreComplete_ && links_.back().time;
  }
}

void NewestMessages::readMissingTimes() {
  std::vector<std::pair<std::int64_t, MessageTime>> times;
  auto row = database_.prepare("SELECT ROWID, date FROM message");
  while (row.next()) {
    const auto message = row.integer(0);
    const auto time = message ? timeIn(row, 1, *message) : std::nullopt;
    if (time) {
      times.emplace_back(*message, *time);
    }
  }
  std::sort(times.begin(), times.end());
  for (Link& link : links_) {
    if (link.time) {
      continue;
    }
    const auto found = std::lower_bound(
        times.begin(), times.end(), link.message,
        [](const auto& entry, std::int64_t message) { return entry.first < message; });
    if (found != times.end() && found->first == link.message) {
      link.time = found->second;
    }
  }
}

void NewestMessages::readUnread(std::vector<ChatMessages>& chats) {
  if (!schema_.has("message", "is_read")) {
    return;
  }
  std::vector<std::int64_t> unread;
  auto row = database_.prepare("SELECT ROWID FROM message WHERE " + unreadCondition(schema_));
  while (row.next()) {
    if (const auto message = row.integer(0)) {
      unread.push_back(*message);
    }
  }
  std::sort(unread.begin(), unread.end());
  for (const Link& link : links_) {
    bool& hasUnread = chats[link.chat].hasUnread;
    hasUnread = hasUnread || std::binary_search(unread.begin(), unread.end(), link.message);
  }
}

// In rounds: each looks at the next message of every chat that is not settled, in the order in
// which the file holds them. Most chats are settled by the first round.
void NewestMessages::readNewest(std::vector<ChatMessages>& chats) {
  std::vector<Cursor> cursors = sortLinks();
  auto message = database_.prepare("SELECT " + schema_.select("message", "item_type") + ", " +
                                   schema_.select("message", "associated_message_type") +
                                   ", text, " + schema_.select("message", "attributedbody") +
                                   " FROM message WHERE ROWID = ?1");
  while (!cursors.empty()) {
    std::sort(cursors.begin(), cursors.end(), [this](const Cursor& left, const Cursor& right) {
      return links_[left.at].message < links_[right.at].message;
    });
    std::vector<Cursor> unsettled;
    for (Cursor cursor : cursors) {
      const Link& link = links_[cursor.at];
      message.bind(1, link.message);
      const bool isSettled = message.next() && lookAt(message, link, cursor, chats[link.chat]);
      if (!isSettled && ++cursor.at < cursor.end) {
        unsettled.push_back(cursor);
      }
    }
    cursors = std::move(unsettled);
  }
}

// By chat, the newest first, with a cursor for each chat. A link without a time comes behind all
// others; among equals the later row is the newer.
std::vector<NewestMessages::Cursor> NewestMessages::sortLinks() {
  std::sort(links_.begin(), links_.end(), [](const Link& left, const Link& right) {
    return std::tie(left.chat, right.time, right.message) <
           std::tie(right.chat, left.time, left.message);
  });
  std::vector<Cursor> cursors;
  for (std::size_t index = 0; index < links_.size(); ++index) {
    if (index == 0 || links_[index].chat != links_[index - 1].chat) {
      cursors.push_back({.at = index});
    }
    cursors.back().end = index + 1;
  }
  return cursors;
}

// Whether the chat is settled with this message.
bool NewestMessages::lookAt(const Statement& message, const Link& link, Cursor& cursor,
                            ChatMessages& chat) {
  if (!std::exchange(cursor.hasNewest, /*new_value=*/true)) {
    chat.newest = link.time;
  }
  const std::int64_t reaction = message.integer(1).value_or(0);
  if (message.integer(0).value_or(0) != 0 ||
      (reaction >= kFirstReaction && reaction <= kLastReaction)) {
    return false;
  }
  auto [text, isRepaired] = messageText(message.bytes(2), message.blob(3));
  if (isRepaired) {
    notes_.add("message", link.message, "the text is not valid UTF-8; repaired");
  }
  chat.text = std::move(text);
  if (!chat.text) {
    notes_.add("message", link.message, "attributedBody cannot be read; the text is unknown");
  }
  return true;
}

}  // namespace zephyl::linux_host
