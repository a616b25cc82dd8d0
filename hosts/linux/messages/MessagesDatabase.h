// A Messages database (sms.db of a phone, chat.db of a Mac) of any release from iOS 6 and OS X 10.8
// on, read without touching it.
//
// An object belongs to one thread at a time. The static functions may be called from any thread.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "hosts/linux/messages/ConversationRecord.h"
#include "hosts/linux/messages/DatabaseResult.h"
#include "hosts/linux/messages/MessagesSchema.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"

namespace zephyl::linux_host {

class MessagesDatabase {
 public:
  using Access = ReadOnlyDatabase::Access;

  // Opens, reads the list and closes, with the log where it lies. When another program changes the
  // files meanwhile, or has left work undone, the list is read from a private copy.
  [[nodiscard]] static DatabaseResult<MessagesReading> read(const std::string& path);

  // The error names the file, and the table and column that a Messages database would have.
  [[nodiscard]] static DatabaseResult<MessagesDatabase> open(
      const std::string& path, Access access = Access::kInPlaceWhenSafe);

  // The whole list. After an error the object can only be dropped.
  [[nodiscard]] DatabaseResult<MessagesReading> conversations();

  // Whether another program has changed the file since it was opened in place. What was read
  // is then not to be trusted: open it anew, with Access::kPrivateCopy if that repeats.
  [[nodiscard]] bool sourceChanged() const { return database_.sourceChanged(); }

  // For reading more than the list.
  [[nodiscard]] ReadOnlyDatabase& database() { return database_; }
  [[nodiscard]] const MessagesSchema& schema() const { return schema_; }

 private:
  [[nodiscard]] static DatabaseResult<MessagesReading> listOf(
      DatabaseResult<MessagesDatabase>& database);

  MessagesDatabase(ReadOnlyDatabase database, MessagesSchema schema);

  ReadOnlyDatabase database_;
  MessagesSchema schema_;
};

}  // namespace zephyl::linux_host
