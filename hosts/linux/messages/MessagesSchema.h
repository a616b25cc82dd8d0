// Which tables and columns a Messages database has. The schema grew with every release, so each
// query is put together from the columns that are there.

#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>

#include "hosts/linux/messages/DatabaseResult.h"

namespace zephyl::linux_host {

class ReadOnlyDatabase;

class MessagesSchema {
 public:
  // An error when a table or column is missing without which there is nothing to show, and when a
  // view or a virtual table stands in a table's place: those may compute anything.
  [[nodiscard]] static DatabaseResult<MessagesSchema> of(ReadOnlyDatabase& database);

  // `table` is one of chat, handle, message, chat_handle_join, chat_message_join. Any case of the
  // letters in the file counts; the names asked for are in lower case.
  [[nodiscard]] bool has(std::string_view table, std::string_view column) const;

  // The column's name for a SELECT, or "NULL" when the table lacks it.
  [[nodiscard]] std::string select(std::string_view table, std::string_view column) const;

  // See MessagesReading.
  [[nodiscard]] const std::string& version() const { return version_; }

 private:
  using Columns = std::set<std::string, std::less<>>;

  std::map<std::string, Columns, std::less<>> tables_;
  std::string version_;
};

}  // namespace zephyl::linux_host
