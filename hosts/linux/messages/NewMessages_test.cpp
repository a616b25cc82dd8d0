// What counts as a new message, read from a database that another connection writes.

#include "hosts/linux/messages/NewMessages.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kChats =
    "PRAGMA journal_mode = WAL; PRAGMA wal_autocheckpoint = 0;"
    "INSERT INTO handle(ROWID, id, service) VALUES (1, '+15550100', 'SMS');"
    "INSERT INTO chat(ROWID, guid, style) VALUES (1, 'SMS;-;+15550100', 45);"
    "INSERT INTO message(ROWID, guid, text, date, handle_id) VALUES (1, 'first', 'old', 5, 1);"
    "INSERT INTO chat_message_join(chat_id, message_id) VALUES (1, 1);";

class NewMessagesTest : public ::testing::Test {
 protected:
  explicit NewMessagesTest(std::string_view schema = kMiddleSchema) : writer_(file_, schema) {
    writer_.run(kChats);
  }

  // A message of chat 1 by the values of (row, text) and of further columns.
  void receive(const std::string& rowAndText, const std::string& columns = "",
               const std::string& values = "") {
    writer_.run("INSERT INTO message(handle_id, date, ROWID, text" + columns + ") VALUES (1, 9, " +
                rowAndText + values + ");");
    writer_.run(
        "INSERT OR IGNORE INTO chat_message_join(chat_id, message_id)"
        " SELECT 1, max(ROWID) FROM message;"
        "UPDATE message SET guid = 'message ' || ROWID WHERE guid IS NULL");
  }

  // Those that are new, of a reading that must succeed.
  std::vector<NewMessage> news() {
    const auto reading = messages_.read();
    if (!reading.ok() || reading.value().sourceChanged) {
      ADD_FAILURE() << (reading.ok() ? "the source changed" : reading.error().reason);
      return {};
    }
    return reading.value().messages;
  }
  std::vector<std::int64_t> newRows() {
    std::vector<std::int64_t> rows;
    for (const NewMessage& message : news()) {
      rows.push_back(message.rowID);
    }
    return rows;
  }

  // A file with other messages and more of them, which may take the place of the first: that one
  // loses its log.
  std::string otherDatabase() {
    std::string file = folder_.file("other.db");
    TestDatabase(file, kMiddleSchema)
        .run(
            "INSERT INTO chat(ROWID, guid) VALUES (1, 'SMS;-;x');"
            "INSERT INTO message(ROWID, guid, text) VALUES (1, 'z', 'other'), (2, 'a', 'other'),"
            " (3, 'b', 'other');"
            "INSERT INTO chat_message_join SELECT 1, ROWID, 0 FROM message;");
    std::filesystem::remove(file_ + "-wal");
    return file;
  }

  TemporaryFolder folder_;
  const std::string file_ = folder_.file("sms.db");
  TestDatabase writer_;
  NewMessages messages_{file_};
};

class NewMessagesOfAnOldReleaseTest : public NewMessagesTest {
 protected:
  NewMessagesOfAnOldReleaseTest() : NewMessagesTest(kOldSchema) {}
};

TEST_F(NewMessagesTest, NothingIsNewAtFirst) {
  EXPECT_THAT(news(), IsEmpty());
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, TellsOfEachMessageOnce) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(NewMessage{.rowID = 2,
                                             .chatGuid = "SMS;-;+15550100",
                                             .sender = "+15550100",
                                             .text = "hello",
                                             .date = 978307209.0}));
  EXPECT_THAT(news(), IsEmpty());
  receive("3, 'again'");
  receive("4, 'and again'");
  EXPECT_THAT(newRows(), ElementsAre(3, 4));
}

TEST_F(NewMessagesTest, TouchesAndCopiesNothing) {
  const TemporaryFilesIn nowhere("/nonexistent");
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'hello'");
  const auto before = folder_.contents();
  EXPECT_THAT(newRows(), ElementsAre(2));
  EXPECT_TRUE(folder_.contents() == before);
}

TEST_F(NewMessagesTest, GoesOnWhenTheLogIsWrittenBack) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'in the log'");
  writer_.run("PRAGMA wal_checkpoint(TRUNCATE)");
  EXPECT_THAT(newRows(), ElementsAre(2));
  receive("3, 'in the next log'");
  EXPECT_THAT(newRows(), ElementsAre(3));
}

TEST_F(NewMessagesOfAnOldReleaseTest, AreFoundToo) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'hello'", ", is_finished", ", 1");
  EXPECT_THAT(newRows(), ElementsAre(2));
}

TEST_F(NewMessagesTest, TellsOnlyOfWhatCameInAndIsNotReadYet) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'mine'", ", is_from_me", ", 1");
  receive("3, 'read'", ", is_read", ", 1");
  receive("4, 'left the conversation'", ", item_type", ", 1");
  receive("5, 'of the system'", ", is_system_message", ", 1");
  receive("6, 'Loved'", ", associated_message_type", ", 2000");
  receive("7, 'no longer loved'", ", associated_message_type", ", 3000");
  receive("8, 'sticker'", ", associated_message_type", ", 1000");
  receive("9, 'nothing said'", ", is_read, item_type, is_from_me, associated_message_type",
          ", NULL, NULL, NULL, NULL");
  EXPECT_THAT(newRows(), ElementsAre(9));
}

TEST_F(NewMessagesTest, KeepsQuietAboutJunk) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET is_filtered = 2");
  receive("2, 'buy now'");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET is_filtered = 1");
  receive("3, 'from somebody unknown'");
  EXPECT_THAT(newRows(), ElementsAre(3));
}

TEST_F(NewMessagesTest, WaitsUntilAMessageIsFinished) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'unfin'", ", is_finished", ", 0");
  receive("3, 'finished'");
  EXPECT_THAT(newRows(), ElementsAre(3));
  writer_.run("UPDATE message SET text = 'unfinished no more', is_finished = 1 WHERE ROWID = 2");
  const auto news = this->news();
  ASSERT_THAT(news, SizeIs(1));
  EXPECT_EQ(news[0].text, "unfinished no more");
  EXPECT_THAT(this->news(), IsEmpty());
}

TEST_F(NewMessagesTest, WaitsUntilAMessageIsInAConversation) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("INSERT INTO message(ROWID, text, handle_id) VALUES (2, 'where?', 1)");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("INSERT INTO chat_message_join VALUES (1, 2, 0)");
  EXPECT_THAT(newRows(), ElementsAre(2));
}

TEST_F(NewMessagesTest, ForgetsAnUnfinishedMessageThatWasReadOrDeleted) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'read'", ", is_finished", ", 0");
  receive("3, 'deleted'", ", is_finished", ", 0");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run(
      "DELETE FROM chat_message_join WHERE message_id = 3; DROP TRIGGER "
      "after_delete_on_message; DELETE FROM message WHERE ROWID = 3;"
      "UPDATE message SET is_finished = 1, is_read = 1 WHERE ROWID = 2");
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, ReadsArchivedTextsAndTellsOfThoseThatCannotBeRead) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, NULL", ", attributedBody", ", " + blobLiteral(archivedText("archived")));
  receive("3, NULL", ", attributedBody", ", x'040b73'");
  receive("4, char(65532)");
  const auto news = this->news();
  ASSERT_THAT(news, SizeIs(3));
  EXPECT_EQ(news[0].text, "archived");
  EXPECT_EQ(news[1].text, std::nullopt);
  EXPECT_EQ(news[2].text, "");
}

TEST_F(NewMessagesTest, ConversationsAreCalledByTheirCanonicalGuid) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE chat SET guid = 'any;-;+15550100', service_name = 'RCS'");
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(Field(&NewMessage::chatGuid, "SMS;-;+15550100")));
}

TEST_F(NewMessagesTest, AMessageWithoutSenderHasNone) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("DELETE FROM handle");
  receive("2, 'hello'");
  EXPECT_THAT(news(), ElementsAre(Field(&NewMessage::sender, "")));
}

TEST_F(NewMessagesTest, OfABurstNoTextsAreRead) {
  EXPECT_THAT(news(), IsEmpty());
  for (std::size_t i = 0; i < NewMessages::kMostTexts; ++i) {
    receive("NULL, 'text'");
  }
  EXPECT_EQ(news().at(0).text, "text");
  for (std::size_t i = 0; i <= NewMessages::kMostTexts; ++i) {
    receive("NULL, 'text'");
  }
  const auto burst = news();
  ASSERT_THAT(burst, SizeIs(NewMessages::kMostTexts + 1));
  EXPECT_EQ(burst[0].text, std::nullopt);
  EXPECT_EQ(burst[0].chatGuid, "SMS;-;+15550100");
}

TEST_F(NewMessagesTest, AnotherDatabaseInItsPlaceBeginsAnew) {
  receive("2, 'two'");
  EXPECT_THAT(news(), IsEmpty());
  std::filesystem::rename(otherDatabase(), file_);
  EXPECT_THAT(news(), IsEmpty());
  TestDatabase(file_).run(
      "INSERT INTO message(ROWID, guid, text) VALUES (4, 'c', 'new');"
      "INSERT INTO chat_message_join VALUES (1, 4, 0)");
  EXPECT_THAT(newRows(), ElementsAre(4));
}

TEST_F(NewMessagesTest, AnotherDatabaseWrittenOverItBeginsAnew) {
  receive("2, 'two'");
  EXPECT_THAT(news(), IsEmpty());
  std::filesystem::copy_file(otherDatabase(), file_,
                             std::filesystem::copy_options::overwrite_existing);
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, WithoutMessageGuidsANewFileBeginsAnew) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE message SET guid = NULL");
  EXPECT_THAT(news(), IsEmpty());
  std::filesystem::rename(otherDatabase(), file_);
  EXPECT_THAT(news(), IsEmpty());
}

TEST_F(NewMessagesTest, AShorterDatabaseInItsPlaceBeginsAnew) {
  receive("2, 'two'");
  receive("3, 'three'");
  EXPECT_THAT(news(), IsEmpty());
  writer_.run(
      "DROP TRIGGER after_delete_on_message; DELETE FROM message WHERE ROWID > 1;"
      "DELETE FROM chat_message_join WHERE message_id > 1;");
  EXPECT_THAT(news(), IsEmpty());
  receive("4, 'new'");
  EXPECT_THAT(newRows(), ElementsAre(4));
}

TEST_F(NewMessagesTest, ALaterCopyOfTheSameDatabaseGoesOn) {
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("PRAGMA wal_checkpoint(TRUNCATE); PRAGMA journal_mode = DELETE;");
  const std::string copy = folder_.file("copy.db");
  std::filesystem::copy_file(file_, copy);
  TestDatabase(copy).run(
      "INSERT INTO message(ROWID, text) VALUES (2, 'synchronised');"
      "INSERT INTO chat_message_join VALUES (1, 2, 0)");
  std::filesystem::rename(copy, file_);
  EXPECT_THAT(newRows(), ElementsAre(2));
}

TEST_F(NewMessagesTest, AnErrorLosesNothing) {
  EXPECT_THAT(news(), IsEmpty());
  receive("2, 'meanwhile'");
  std::filesystem::rename(file_, file_ + ".away");
  const auto reading = messages_.read();
  ASSERT_FALSE(reading.ok());
  EXPECT_EQ(reading.error().file, file_);
  std::filesystem::rename(file_ + ".away", file_);
  EXPECT_THAT(newRows(), ElementsAre(2));
}

// The log is written back and begun anew all the time.
TEST_F(NewMessagesTest, EachMessageIsToldOfOnceWhileAnotherProgramWrites) {
  constexpr std::int64_t kCount = 400;
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("PRAGMA wal_autocheckpoint = 5");
  std::atomic<bool> isDone = false;
  std::thread writing([&] {
    for (std::int64_t row = 2; row < kCount; ++row) {
      receive(std::to_string(row) + ", 'hello'");
    }
    isDone = true;
  });
  std::vector<std::int64_t> rows;
  for (bool isLast = false; !isLast;) {
    isLast = isDone;
    const auto reading = messages_.read();
    if (!reading.ok()) {
      ADD_FAILURE() << reading.error().reason;
      continue;
    }
    for (const NewMessage& message : reading.value().messages) {
      rows.push_back(message.rowID);
    }
  }
  writing.join();
  std::vector<std::int64_t> expected(kCount - 2);
  std::iota(expected.begin(), expected.end(), 2);
  EXPECT_EQ(rows, expected);
}

TEST_F(NewMessagesTest, OfManyUnfinishedMessagesTheYoungestAreRemembered) {
  EXPECT_THAT(news(), IsEmpty());
  for (int row = 2; row < 103; ++row) {
    receive(std::to_string(row) + ", 'unfinished'", ", is_finished", ", 0");
  }
  EXPECT_THAT(news(), IsEmpty());
  writer_.run("UPDATE message SET is_finished = 1");
  const auto rows = newRows();
  ASSERT_THAT(rows, SizeIs(100));
  EXPECT_EQ(rows.front(), 3);
}

}  // namespace
}  // namespace zephyl::linux_host
