#include "hosts/linux/messages/MessagesDatabase.h"

#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class MessagesDatabaseTest : public ::testing::Test {
 protected:
  MessagesReading read(std::string_view schema, std::string_view rows) {
    const std::string file = folder_.file("sms.db");
    TestDatabase(file, schema).run(rows);
    const auto result = MessagesDatabase::read(file);
    EXPECT_TRUE(result.ok()) << result.error().reason;
    return result.ok() ? result.value() : MessagesReading();
  }

  static std::vector<std::int64_t> rowIDs(const MessagesReading& reading) {
    std::vector<std::int64_t> rows;
    for (const ConversationRecord& record : reading.conversations) {
      rows.push_back(record.rowID);
    }
    return rows;
  }

  TemporaryFolder folder_;
};

TEST_F(MessagesDatabaseTest, ReadsAnOldDatabaseWithDatesInSeconds) {
  const auto reading = read(kOldSchema, R"(
    INSERT INTO handle VALUES (5, '+15550100', 'us', 'iMessage', NULL);
    INSERT INTO chat(ROWID, guid, style, chat_identifier, service_name) VALUES
      (2, 'iMessage;-;+15550100', 45, '+15550100', 'iMessage');
    INSERT INTO chat_handle_join VALUES (2, 5);
    INSERT INTO message(ROWID, text, date, is_finished) VALUES
      (8, 'Earlier', 399999999, 1), (9, 'Hello', 400000000, 1);
    INSERT INTO chat_message_join VALUES (2, 9), (2, 8);)");
  const ConversationRecord expected = {.rowID = 2,
                                       .guid = "iMessage;-;+15550100",
                                       .rawGuid = "iMessage;-;+15550100",
                                       .displayName = "",
                                       .chatIdentifier = "+15550100",
                                       .serviceName = "iMessage",
                                       .isGroup = false,
                                       .hasUnread = true,
                                       .handles = {"+15550100"},
                                       .lastDate = 1378307200.0,
                                       .lastText = "Hello"};
  EXPECT_THAT(reading.conversations, ElementsAre(expected));
  EXPECT_THAT(reading.warnings, IsEmpty());
  EXPECT_EQ(reading.schemaVersion, "36");
  EXPECT_EQ(reading.handleCount, 1U);
  EXPECT_EQ(reading.messageCount, 2U);
}

TEST_F(MessagesDatabaseTest, ReadsANewDatabaseWithDatesInNanoseconds) {
  const auto reading =
      read(kNewSchema, R"(
    INSERT INTO handle(ROWID, id, service) VALUES (1, '+15550100', 'RCS'), (2, 'a@b.example', 'iMessage');
    INSERT INTO chat(ROWID, guid, style, chat_identifier, service_name, display_name) VALUES
      (4, 'any;+;chat77', 43, 'chat77', 'RCS', 'Family 👪');
    INSERT INTO chat_handle_join VALUES (4, 2), (4, 1);
    INSERT INTO chat_message_join VALUES (4, 3, 700000000500000000);
    INSERT INTO message(ROWID, attributedBody, date, is_read) VALUES (3, )" +
                           blobLiteral(archivedText("Hi 👋")) + ", 700000000500000000, 1);");
  const ConversationRecord expected = {.rowID = 4,
                                       .guid = "SMS;+;chat77",
                                       .rawGuid = "any;+;chat77",
                                       .displayName = "Family 👪",
                                       .chatIdentifier = "chat77",
                                       .serviceName = "RCS",
                                       .isGroup = true,
                                       .hasUnread = false,
                                       .handles = {"a@b.example", "+15550100"},
                                       .lastDate = 1678307200.5,
                                       .lastText = "Hi 👋"};
  EXPECT_THAT(reading.conversations, ElementsAre(expected));
  EXPECT_THAT(reading.warnings, IsEmpty());
  EXPECT_EQ(reading.schemaVersion, "18026");
}

TEST_F(MessagesDatabaseTest, ListsTheMostRecentFirstAndTiesByRow) {
  const auto reading = read(kMiddleSchema, R"(
    INSERT INTO chat(ROWID, guid) VALUES (1, 'a'), (2, 'b'), (3, 'c'), (4, 'd'), (5, 'e'), (6, 'f');
    INSERT INTO message(ROWID, date) VALUES
      (1, 500000000), (2, 500000000000000000), (3, 500000001), (4, 0);
    INSERT INTO chat_message_join VALUES (6, 3, 500000001), (5, 1, 500000000),
      (3, 2, 500000000000000000), (2, 4, 0);)");
  EXPECT_THAT(rowIDs(reading), ElementsAre(6, 3, 5, 1, 2, 4));
}

TEST_F(MessagesDatabaseTest, TellsAGroupByItsStyleAndElseByItsGuidOrRoom) {
  const auto reading = read(kMiddleSchema, R"(
    INSERT INTO chat(ROWID, guid, style, room_name) VALUES
      (1, 'iMessage;-;x', 43, NULL), (2, 'iMessage;+;x', 45, 'room'), (3, 'iMessage;+;x', NULL, NULL),
      (4, 'x', 0, 'room'), (5, 'iMessage;-;x', NULL, ''), (6, 'x', NULL, NULL);)");
  std::vector<bool> groups;
  for (const ConversationRecord& record : reading.conversations) {
    groups.push_back(record.isGroup);
  }
  EXPECT_THAT(groups, ElementsAre(true, false, true, true, false, false));
}

TEST_F(MessagesDatabaseTest, KeepsTheOrderOfJoiningAndToleratesLooseEnds) {
  const auto reading = read(kMiddleSchema, R"(
    INSERT INTO handle(ROWID, id) VALUES (1, 'one'), (2, 'two'), (3, NULL);
    INSERT INTO chat(ROWID, guid) VALUES (1, 'a'), (2, 'b');
    INSERT INTO chat_handle_join VALUES (1, 2), (1, 99), (99, 1), (NULL, 1), (1, NULL), (1, 3),
      (1, 1), (1, 2), (2, 1);
    INSERT INTO chat_message_join VALUES (1, 50, 9), (99, 1, 9), (NULL, 1, 9), (1, NULL, 9);)");
  ASSERT_EQ(reading.conversations.size(), 2U);
  EXPECT_THAT(reading.conversations[0].handles, ElementsAre("two", "one"));
  EXPECT_THAT(reading.conversations[1].handles, ElementsAre("one"));
  EXPECT_EQ(reading.conversations[0].lastDate, std::nullopt);
  EXPECT_EQ(reading.conversations[0].lastText, std::nullopt);
  EXPECT_THAT(reading.warnings, ElementsAre("handle row 3: has no address; left out"));
}

TEST_F(MessagesDatabaseTest, LeavesAChatWithoutGuidOutAndSaysSo) {
  const auto reading = read(kMiddleSchema, R"(
    INSERT INTO chat(ROWID, guid, service_name) VALUES (1, NULL, ''), (2, '', ''), (3, 'any;-;x', NULL);)");
  EXPECT_THAT(rowIDs(reading), ElementsAre(3));
  EXPECT_EQ(reading.conversations[0].guid, "any;-;x");
  EXPECT_THAT(reading.warnings,
              ElementsAre("chat row 1: has no guid; left out", "chat row 2: has no guid; left out",
                          "chat row 3: does not tell its service; its guid is kept as it is"));
}

TEST_F(MessagesDatabaseTest, RepairsTextThatIsNotUtf8AndSaysWhere) {
  const auto reading = read(kMiddleSchema, R"(
    INSERT INTO handle(ROWID, id) VALUES (1, CAST(x'61ff' AS TEXT));
    INSERT INTO chat(ROWID, guid, display_name, chat_identifier) VALUES
      (1, CAST(x'62eda080' AS TEXT), CAST(x'c3' AS TEXT), x'63c0');
    INSERT INTO chat_handle_join VALUES (1, 1);
    INSERT INTO message(ROWID, text, date) VALUES (7, CAST(x'64f0908d' AS TEXT), 5);
    INSERT INTO chat_message_join VALUES (1, 7, 5);)");
  ASSERT_EQ(reading.conversations.size(), 1U);
  const ConversationRecord& record = reading.conversations[0];
  EXPECT_EQ(record.guid, "b\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(record.displayName, "\uFFFD");
  EXPECT_EQ(record.chatIdentifier, "c\uFFFD");
  EXPECT_THAT(record.handles, ElementsAre("a\uFFFD"));
  EXPECT_EQ(record.lastText, "d\uFFFD");
  EXPECT_THAT(reading.warnings,
              ElementsAre("chat row 1: guid is not valid UTF-8; repaired",
                          "chat row 1: chat_identifier is not valid UTF-8; repaired",
                          "chat row 1: display_name is not valid UTF-8; repaired",
                          "handle row 1: id is not valid UTF-8; repaired",
                          "message row 7: the text is not valid UTF-8; repaired"));
}

TEST_F(MessagesDatabaseTest, ReadsADatabaseInUtf16) {
  const auto reading =
      read(std::string("PRAGMA encoding = 'UTF-16le';").append(kMiddleSchema),
           "INSERT INTO chat(ROWID, guid, display_name) VALUES (1, 'iMessage;-;x', 'Zoë 😀');");
  ASSERT_EQ(reading.conversations.size(), 1U);
  EXPECT_EQ(reading.conversations[0].displayName, "Zoë 😀");
}

TEST_F(MessagesDatabaseTest, ReadsTheLogWithoutACopy) {
  const std::string file = folder_.file("sms.db");
  TestDatabase writer(file, kNewSchema);
  writer.run("PRAGMA journal_mode = WAL; INSERT INTO chat(ROWID, guid) VALUES (3, 'SMS;-;x')");
  const TemporaryFilesIn nowhere("/nonexistent");
  const auto result = MessagesDatabase::read(file);
  ASSERT_TRUE(result.ok()) << result.error().reason;
  EXPECT_THAT(rowIDs(result.value()), ElementsAre(3));
}

TEST_F(MessagesDatabaseTest, ReadsACopyOfAFileWithAnUnfinishedTransaction) {
  const std::string file = folder_.file("sms.db");
  TestDatabase writer(file, kNewSchema);
  writer.run(
      "INSERT INTO chat(ROWID, guid) VALUES (3, 'SMS;-;x');"
      "PRAGMA cache_size = 1; PRAGMA cache_spill = 1; BEGIN IMMEDIATE;"
      "WITH RECURSIVE n(i) AS (SELECT 4 UNION ALL SELECT i + 1 FROM n WHERE i < 50000)"
      "INSERT INTO chat(ROWID, guid) SELECT i, 'SMS;-;' || i FROM n");
  const auto result = MessagesDatabase::read(file);
  ASSERT_TRUE(result.ok()) << result.error().reason;
  EXPECT_THAT(rowIDs(result.value()), ElementsAre(3));
}

TEST_F(MessagesDatabaseTest, StaysOpenForReadingMoreThanTheList) {
  const std::string file = folder_.file("chat.db");
  TestDatabase(file, kNewSchema).run("INSERT INTO message(text, date) VALUES ('x', 1), ('y', 2)");
  auto database = MessagesDatabase::open(file);
  ASSERT_TRUE(database.ok());
  EXPECT_TRUE(database.value().conversations().ok());
  EXPECT_TRUE(database.value().schema().has("message", "date_edited"));
  auto statement = database.value().database().prepare("SELECT text FROM message ORDER BY date");
  ASSERT_TRUE(statement.next());
  EXPECT_EQ(statement.text(0), "x");
  EXPECT_FALSE(database.value().sourceChanged());
  TestDatabase(file).run("INSERT INTO message(text, date) VALUES ('z', 3)");
  EXPECT_TRUE(database.value().sourceChanged());
}

}  // namespace
}  // namespace zephyl::linux_host
