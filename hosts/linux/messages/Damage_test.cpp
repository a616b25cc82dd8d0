// Databases with every kind of damage: whatever a file holds, reading it ends with a list or an
// error, and never with text that is not UTF-8.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/messages/MessagesDatabase.h"
#include "hosts/linux/messages/TestDatabase.h"
#include "hosts/linux/messages/Utf8Text.h"

namespace zephyl::linux_host {
namespace {

using ::testing::HasSubstr;

constexpr std::size_t kPageSize = 512;

class DamageTest : public ::testing::Test {
 protected:
  DamageTest() {
    TestDatabase database(file_, "PRAGMA page_size = 512; PRAGMA journal_mode = OFF;");
    database.run(kOldSchema);
    database.run(R"(
      INSERT INTO handle(ROWID, id, service) VALUES (1, 'one', 'SMS'), (2, 'two', 'SMS');
      INSERT INTO chat(ROWID, guid, style) VALUES (1, 'SMS;-;one', 45), (2, 'SMS;+;chat2', 43);
      INSERT INTO chat_handle_join VALUES (1, 1), (2, 1), (2, 2);
      INSERT INTO chat_message_join VALUES (1, 1), (2, 2), (2, 3);
      INSERT INTO message(ROWID, text, date) VALUES (1, 'Hello', 5), (2, hex(zeroblob(600)), 6);)");
    database.run("INSERT INTO message(ROWID, attributedBody, date) VALUES (3, " +
                 blobLiteral(archivedText("archived")) + ", 7)");
    whole_ = readFile(file_);
  }

  // Whether a list came out of it. An error must be a sentence about this file.
  bool canRead(std::string_view bytes) {
    writeFile(file_, bytes);
    const auto result = MessagesDatabase::read(file_);
    if (!result.ok()) {
      EXPECT_EQ(result.error().file, file_);
      EXPECT_FALSE(result.error().reason.empty());
      return false;
    }
    for (const ConversationRecord& record : result.value().conversations) {
      EXPECT_TRUE(isWellFormedUtf8(record.guid + record.displayName + record.chatIdentifier));
      EXPECT_TRUE(isWellFormedUtf8(record.lastText.value_or("")));
    }
    return true;
  }

  // The place of a table's first page in the file, counted from 0.
  std::size_t rootOf(const std::string& table) {
    auto database = ReadOnlyDatabase::open(file_);
    auto row =
        database.value().prepare("SELECT rootpage FROM sqlite_master WHERE name = '" + table + "'");
    EXPECT_TRUE(row.next());
    return static_cast<std::size_t>(row.integer(0).value_or(1)) - 1;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.file("sms.db");
  std::string whole_;
};

TEST_F(DamageTest, FindsEveryCut) {
  ASSERT_TRUE(canRead(whole_));
  for (std::size_t size = 0; size < whole_.size(); size += size < 600 ? 1 : 37) {
    EXPECT_FALSE(canRead(whole_.substr(0, size))) << size;
  }
}

TEST_F(DamageTest, SurvivesEveryByteBeingAnother) {
  std::size_t readable = 0;
  std::size_t refused = 0;
  for (std::size_t at = 0; at < whole_.size(); at += at < kPageSize ? 1 : 5) {
    std::string changed = whole_;
    changed[at] = static_cast<char>(changed[at] ^ (at % 2 == 0 ? 0xFF : 1 << at % 8));
    ++(canRead(changed) ? readable : refused);
  }
  EXPECT_GT(readable, 0U);
  EXPECT_GT(refused, 0U);
}

TEST_F(DamageTest, SurvivesPagesInEachOthersPlace) {
  const std::size_t pages = whole_.size() / kPageSize;
  for (std::size_t from = 0; from < pages; ++from) {
    for (std::size_t to = 1; to < pages; ++to) {
      std::string changed = whole_;
      changed.replace(to * kPageSize, kPageSize, whole_, from * kPageSize, kPageSize);
      canRead(changed);
    }
  }
}

// A log that is cut or changed counts up to its last whole transaction.
TEST_F(DamageTest, SurvivesADamagedLog) {
  const TemporaryFolder other;
  const std::string source = other.file("sms.db");
  writeFile(source, whole_);
  TestDatabase writer(source, "PRAGMA journal_mode = WAL");
  writer.run("UPDATE message SET text = 'changed'");
  const std::string database = readFile(source);
  const std::string log = readFile(source + "-wal");
  ASSERT_FALSE(log.empty());
  for (std::size_t at = 0; at < log.size(); at += 19) {
    std::string changed = log;
    changed[at] = static_cast<char>(~changed[at]);
    for (const std::string& damaged : {changed, log.substr(0, at)}) {
      writeFile(file_ + "-wal", damaged);
      canRead(database);
    }
  }
}

// An interior page of the chat table, all of whose children are the page `child`.
std::string pageOfOneChild(std::uint8_t child) {
  constexpr std::size_t kCells = 60;
  constexpr std::size_t kCellSize = 5;
  std::string page(kPageSize, '\0');
  const std::size_t content = kPageSize - kCells * kCellSize;
  page[0] = 5;
  page[4] = static_cast<char>(kCells);
  page[5] = static_cast<char>(content >> 8);
  page[6] = static_cast<char>(content & 0xFF);
  page[11] = static_cast<char>(child);
  for (std::size_t cell = 0; cell < kCells; ++cell) {
    const std::size_t at = content + cell * kCellSize;
    page[12 + 2 * cell] = static_cast<char>(at >> 8);
    page[13 + 2 * cell] = static_cast<char>(at & 0xFF);
    page[at + 3] = static_cast<char>(child);
    page[at + 4] = static_cast<char>(cell);
  }
  return page;
}

// Sixty to the power of nine rows in a small file.
TEST_F(DamageTest, GivesUpOnPagesThatLeadToTheSamePageAgainAndAgain) {
  const std::size_t pages = whole_.size() / kPageSize;
  constexpr std::size_t kLevels = 8;
  std::string bytes = whole_;
  const std::size_t root = rootOf("chat");
  bytes.replace(root * kPageSize, kPageSize, pageOfOneChild(static_cast<std::uint8_t>(pages + 1)));
  for (std::size_t level = 1; level <= kLevels; ++level) {
    bytes += pageOfOneChild(static_cast<std::uint8_t>(pages + 1 + level));
  }
  bytes += whole_.substr(root * kPageSize, kPageSize);
  bytes[31] = static_cast<char>(bytes.size() / kPageSize);
  writeFile(file_, bytes);
  const auto result = MessagesDatabase::read(file_);
  ASSERT_FALSE(result.ok());
  EXPECT_THAT(result.error().reason, HasSubstr("does not come to an end"));
}

}  // namespace
}  // namespace zephyl::linux_host
