// A database with one message that another connection writes, and what of it is new.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/messages/NewMessages.h"
#include "hosts/linux/messages/TestDatabase.h"

namespace zephyl::linux_host {

inline constexpr std::string_view kChats =
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

}  // namespace zephyl::linux_host
