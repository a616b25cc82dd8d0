// New messages while the file is written, replaced, lost and found.

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/NewMessagesTest.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

}  // namespace
}  // namespace zephyl::linux_host
