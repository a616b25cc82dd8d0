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
  const auto attempt = [&path](Access access) -> std::pair<DatabaseResult<MessagesReading>, bool> {
    auto database = open(path, access);
    if (!database.ok()) {
      return {database.error(), false};
    }
    auto reading = database.value().conversations();
    return {std::move(reading), database.value().sourceChanged()};
  };
  auto [reading, changed] = attempt(Access::kInPlaceWhenSafe);
  return changed ? attempt(Access::kPrivateCopy).first : std::move(reading);
}

}  // namespace zephyl::linux_host
