#include "hosts/linux/messages/MessagesDatabase.h"

#include <utility>

#include "hosts/linux/messages/ConversationReader.h"

namespace zephyl::linux_host {

MessagesDatabase::MessagesDatabase(ReadOnlyDatabase database, MessagesSchema schema)
    : database_(std::move(database)), schema_(std::move(schema)) {}

DatabaseResult<MessagesDatabase> MessagesDatabase::open(const std::string& path, Access access) {
  auto database = ReadOnlyDatabase::open(path, access);
  if (!database.ok()) {
    return database.error();
  }
  auto schema = MessagesSchema::of(database.value());
  if (!schema.ok()) {
    return schema.error();
  }
  return MessagesDatabase(std::move(database).value(), std::move(schema).value());
}

DatabaseResult<MessagesReading> MessagesDatabase::conversations() {
  return ConversationReader(database_, schema_).read();
}

DatabaseResult<MessagesReading> MessagesDatabase::read(const std::string& path) {
  const SourceFiles before(path);
  auto database = open(path, Access::kLogInPlace);
  auto reading = listOf(database);
  const bool mayBeWholeInACopy = !reading.ok() && (before.hasLog() || before.hasHotJournal());
  if (before.unchanged() && !mayBeWholeInACopy) {
    return reading;
  }
  auto copy = open(path, Access::kPrivateCopy);
  return listOf(copy);
}

DatabaseResult<MessagesReading> MessagesDatabase::listOf(
    DatabaseResult<MessagesDatabase>& database) {
  return database.ok() ? database.value().conversations()
                       : DatabaseResult<MessagesReading>(database.error());
}

}  // namespace zephyl::linux_host
