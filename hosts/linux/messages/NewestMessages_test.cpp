// What the list says about each chat's messages: time, text, and whether any is unread.

#include "hosts/linux/messages/NewestMessages.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Outcome {
  ConversationRecord record;
  std::vector<std::string> warnings;
};

// A database with one chat, its row 1, and `rows` beside it.
Outcome outcomeOf(std::string_view schema, const std::string& rows) {
  const TemporaryFolder folder;
  const std::string file = folder.file("sms.db");
  TestDatabase(file, schema)
      .run("INSERT INTO chat(ROWID, guid) VALUES (1, 'iMessage;-;x');" + rows);
  const auto result = MessagesDatabase::read(file);
  if (!result.ok() || result.value().conversations.size() != 1) {
    ADD_FAILURE() << (result.ok() ? "not one conversation" : result.error().reason);
    return {};
  }
  return {result.value().conversations[0], result.value().warnings};
}

Outcome outcomeOf(const std::string& rows) {
  return outcomeOf(kMiddleSchema, rows);
}

// Messages of the chat by (row, date, further columns).
std::string messages(std::string_view columns, const std::vector<std::string>& rows) {
  std::string sql;
  for (const std::string& row : rows) {
    sql.append("INSERT INTO message(ROWID, date, ").append(columns);
    sql.append(") VALUES (").append(row).append(");");
  }
  return sql + "INSERT INTO chat_message_join SELECT 1, ROWID, date FROM message;";
}

TEST(NewestMessagesTest, ComparesSecondsWithNanoseconds) {
  const auto outcome = outcomeOf(
      messages("text", {"1, 600000000, 'seconds'", "2, 599999999999999999, 'nanoseconds'"}));
  EXPECT_EQ(outcome.record.lastText, "seconds");
  EXPECT_EQ(outcome.record.lastDate, 1578307200.0);
}

TEST(NewestMessagesTest, TakesTheLaterRowOfEqualTimes) {
  EXPECT_EQ(outcomeOf(messages("text", {"1, 5, 'first'", "2, 5, 'second'"})).record.lastText,
            "second");
}

TEST(NewestMessagesTest, LooksUpTheTimesThatTheJoinLacks) {
  const auto outcome = outcomeOf(R"(
    INSERT INTO message(ROWID, text, date) VALUES (1, 'newest', 9), (2, 'older', 8), (3, 'o', 7);
    INSERT INTO chat_message_join VALUES (1, 1, 0), (1, 2, 8), (1, 3, NULL), (1, 4, 0);)");
  EXPECT_EQ(outcome.record.lastText, "newest");
  EXPECT_EQ(outcome.record.lastDate, 978307209.0);
}

TEST(NewestMessagesTest, SkipsMessagesThatAreNotThere) {
  const auto outcome = outcomeOf(R"(
    INSERT INTO message(ROWID, text, date) VALUES (1, 'there', 5);
    INSERT INTO chat_message_join VALUES (1, 1, 5), (1, 2, 6), (1, 3, 7);)");
  EXPECT_EQ(outcome.record.lastText, "there");
  EXPECT_EQ(outcome.record.lastDate, 978307205.0);
  EXPECT_THAT(outcome.warnings, IsEmpty());
}

TEST(NewestMessagesTest, KeepsTheTextOfAMessageWithoutDate) {
  const auto outcome =
      outcomeOf(messages("text", {"1, 0, 'never'", "2, NULL, 'nowhere'", "3, 'noon', 'third'"}));
  EXPECT_EQ(outcome.record.lastText, "third");
  EXPECT_EQ(outcome.record.lastDate, std::nullopt);
  EXPECT_EQ(outcome.warnings.at(0), "message row 3: date is not a number; taken for none");
}

TEST(NewestMessagesTest, DatesByAnyMessageButTakesTextFromNeitherEventsNorReactions) {
  const auto outcome =
      outcomeOf(messages("text, item_type, associated_message_type",
                         {"1, 1, 'old', 0, 0", "2, 2, 'words', 0, 1999", "3, 3, 'renamed', 2, 0",
                          "4, 4, 'Loved', 0, 2000", "5, 5, 'Unloved', 0, 3999"}));
  EXPECT_EQ(outcome.record.lastText, "words");
  EXPECT_EQ(outcome.record.lastDate, 978307205.0);
}

TEST(NewestMessagesTest, KnowsNoTextWhenThereAreOnlyReactions) {
  const auto outcome =
      outcomeOf(messages("text, associated_message_type", {"1, 5, 'Liked', 2001"}));
  EXPECT_EQ(outcome.record.lastText, std::nullopt);
  EXPECT_EQ(outcome.record.lastDate, 978307205.0);
}

TEST(NewestMessagesTest, WarnsOfAnArchiveThatCannotBeRead) {
  const auto outcome = outcomeOf(messages("attributedBody", {"1, 5, x'040b73'"}));
  EXPECT_EQ(outcome.record.lastText, std::nullopt);
  EXPECT_THAT(outcome.warnings,
              ElementsAre("message row 1: attributedBody cannot be read; the text is unknown"));
}

struct UnreadCase {
  std::string columns;
  std::string values;
  bool hasUnread;
};

TEST(NewestMessagesTest, CountsAsUnreadWhatThePhoneCountsSo) {
  const UnreadCase cases[] = {
      {"is_read, is_finished", "0, 1", true},
      {"is_read", "1", false},
      {"is_finished", "0", false},
      {"is_from_me", "1", false},
      {"item_type", "1", false},
      {"is_system_message", "1", false},
      {"associated_message_type", "2000", true},
      {"is_read", "NULL", false},
  };
  for (const UnreadCase& test : cases) {
    const auto rows = messages(test.columns, {"1, 5, " + test.values});
    EXPECT_EQ(outcomeOf(rows).record.hasUnread, test.hasUnread) << test.columns << test.values;
  }
}

TEST(NewestMessagesTest, NeverCountsJunkAsUnread) {
  const std::string rows = messages("is_read", {"1, 5, 0"});
  for (const auto& [filter, hasUnread] : {std::pair("NULL", true), std::pair("0", true),
                                          std::pair("1", true), std::pair("2", false)}) {
    const std::string update = std::string("UPDATE chat SET is_filtered = ") + filter + ";";
    EXPECT_EQ(outcomeOf(rows + update).record.hasUnread, hasUnread) << filter;
  }
}

TEST(NewestMessagesTest, KnowsOneUnreadAmongManyRead) {
  EXPECT_TRUE(outcomeOf(messages("is_read", {"1, 5, 1", "2, 4, 0", "3, 6, 1"})).record.hasUnread);
}

TEST(NewestMessagesTest, DoesWithoutTheColumnsThatAreMissing) {
  constexpr std::string_view kSmallSchema = R"(
    CREATE TABLE chat (ROWID INTEGER PRIMARY KEY, guid TEXT);
    CREATE TABLE handle (ROWID INTEGER PRIMARY KEY, id TEXT);
    CREATE TABLE message (ROWID INTEGER PRIMARY KEY, TEXT TEXT, date INTEGER);
    CREATE TABLE chat_handle_join (chat_id INTEGER, handle_id INTEGER);
    CREATE TABLE chat_message_join (chat_id INTEGER, message_id INTEGER);)";
  const auto outcome = outcomeOf(kSmallSchema, R"(INSERT INTO message VALUES (1, 'x', 5);
    INSERT INTO chat_message_join VALUES (1, 1);)");
  EXPECT_EQ(outcome.record.lastText, "x");
  EXPECT_EQ(outcome.record.lastDate, 978307205.0);
  EXPECT_FALSE(outcome.record.hasUnread);
  EXPECT_EQ(outcome.record.displayName, "");
}

}  // namespace
}  // namespace zephyl::linux_host
