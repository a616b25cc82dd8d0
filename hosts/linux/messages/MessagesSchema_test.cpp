#include "hosts/linux/messages/MessagesSchema.h"

#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

// The reason why a database of these definitions is refused; empty when it is not.
std::string refusal(std::string_view schema, std::string_view changes) {
  const TemporaryFolder folder;
  const std::string file = folder.file("other.db");
  TestDatabase(file, schema).run(changes);
  const auto result = MessagesDatabase::read(file);
  EXPECT_TRUE(result.ok() || result.error().file == file);
  return result.ok() ? std::string() : result.error().reason;
}

TEST(MessagesSchemaTest, NamesTheTableThatIsMissing) {
  for (const std::string table :
       {"chat", "handle", "message", "chat_handle_join", "chat_message_join"}) {
    EXPECT_THAT(refusal(kMiddleSchema, "DROP TABLE " + table),
                AllOf(HasSubstr("not a Messages database"), HasSubstr("no table \"" + table + "\""),
                      HasSubstr("name the sms.db of a phone")));
  }
  EXPECT_THAT(refusal("", "CREATE TABLE ABPerson (First TEXT)"), HasSubstr("no table \"chat\""));
}

TEST(MessagesSchemaTest, NamesTheColumnThatIsMissing) {
  const struct {
    std::string_view table, column, others;
  } cases[] = {
      {"chat", "guid", "style"},
      {"handle", "id", "service"},
      {"message", "date", "text"},
      {"message", "text", "date, attributedBody"},
      {"chat_handle_join", "chat_id", "handle_id"},
      {"chat_handle_join", "handle_id", "chat_id"},
      {"chat_message_join", "chat_id", "message_id"},
      {"chat_message_join", "message_id", "chat_id, message_date"},
  };
  for (const auto& test : cases) {
    std::string change = "DROP TABLE ";
    change.append(test.table).append("; CREATE TABLE ").append(test.table);
    change.append("(").append(test.others).append(")");
    std::string reason = "the table \"";
    reason.append(test.table).append("\" has no column \"").append(test.column).append("\"");
    EXPECT_THAT(refusal(kMiddleSchema, change), HasSubstr(reason));
  }
}

TEST(MessagesSchemaTest, NeedsRowIDs) {
  EXPECT_THAT(refusal(kMiddleSchema,
                      "DROP TABLE chat;"
                      "CREATE TABLE chat (guid TEXT PRIMARY KEY) WITHOUT ROWID"),
              HasSubstr("the table \"chat\" has no column \"ROWID\""));
}

TEST(MessagesSchemaTest, RefusesWhatOnlyLooksLikeATable) {
  const std::string_view replacements[] = {
      "CREATE VIEW message AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n)"
      " SELECT x AS ROWID, x AS date, '' AS text FROM n",
      "CREATE VIRTUAL TABLE message USING fts5(text, date)",
  };
  for (const std::string_view replacement : replacements) {
    EXPECT_THAT(refusal(kMiddleSchema, "DROP TABLE message;" + std::string(replacement)),
                HasSubstr("\"message\" is not a plain table"));
  }
}

TEST(MessagesSchemaTest, TakesAComputedColumnForMissing) {
  EXPECT_THAT(refusal(kMiddleSchema,
                      "DROP TABLE chat; CREATE TABLE chat (x TEXT,"
                      "guid TEXT AS (printf('%.*c', 1000000000, 'x')))"),
              HasSubstr("has no column \"guid\""));
}

TEST(MessagesSchemaTest, FindsNamesInAnyCase) {
  EXPECT_EQ(refusal(kMiddleSchema,
                    "ALTER TABLE chat RENAME TO chat2; ALTER TABLE chat2 RENAME TO CHAT;"
                    "ALTER TABLE message RENAME COLUMN text TO TEXT"),
            "");
}

TEST(MessagesSchemaTest, DoesWithoutAVersion) {
  EXPECT_EQ(refusal(kMiddleSchema, "DROP TABLE _SqliteDatabaseProperties"), "");
  EXPECT_EQ(refusal(kMiddleSchema,
                    "DROP TABLE _SqliteDatabaseProperties;"
                    "CREATE TABLE _SqliteDatabaseProperties (other TEXT)"),
            "");
  EXPECT_EQ(refusal(kMiddleSchema, "DELETE FROM _SqliteDatabaseProperties"), "");
}

}  // namespace
}  // namespace zephyl::linux_host
