#include "hosts/linux/messages/ReadOnlyDatabase.h"

#include <utility>

#include <sqlite3.h>

#include "hosts/linux/messages/Connection.h"
#include "hosts/linux/messages/ScratchCopy.h"

namespace zephyl::linux_host {
namespace {

std::optional<std::string> whyNotInPlace(const SourceFiles& source) {
  if (source.hasHotJournal()) {
    return "another program is in the middle of changing the file; wait until it is done";
  }
  if (source.size() == 0) {
    return "the file is empty, and what belongs into it is still in its log";
  }
  return std::nullopt;
}

}  // namespace

ReadOnlyDatabase::ReadOnlyDatabase(SourceFiles source, std::shared_ptr<Connection> connection)
    : source_(std::move(source)), connection_(std::move(connection)) {}

DatabaseResult<ReadOnlyDatabase> ReadOnlyDatabase::open(const std::filesystem::path& file,
                                                        Access access) {
  SourceFiles source(file);
  if (auto problem = source.problem()) {
    return DatabaseError{file.string(), std::move(*problem)};
  }
  auto connection = std::make_shared<Connection>();
  connection->name = file.string();
  connection->size = source.size() + source.logSize();
  if (access == Access::kLogInPlace) {
    if (auto problem = whyNotInPlace(source)) {
      return DatabaseError{file.string(), std::move(*problem)};
    }
    connection->readsLog = source.hasLog();
  } else if (access == Access::kPrivateCopy || source.hasLog() || source.hasHotJournal()) {
    auto copy = ScratchCopy::of(source.database());
    if (!copy.ok()) {
      return DatabaseError{file.string(), copy.error().reason};
    }
    connection->scratch = std::move(copy).value();
  }
  connection->open(source.database());
  if (connection->error) {
    return *connection->error;
  }
  return ReadOnlyDatabase(std::move(source), std::move(connection));
}

Statement ReadOnlyDatabase::prepare(const std::string& sql) {
  connection_->allowSteps();
  return {connection_, sql};
}

bool ReadOnlyDatabase::hasRowID(const std::string& table) const {
  return sqlite3_table_column_metadata(connection_->handle, "main", table.c_str(), "rowid", nullptr,
                                       nullptr, nullptr, nullptr, nullptr) == SQLITE_OK;
}

const std::optional<DatabaseError>& ReadOnlyDatabase::error() const {
  return connection_->error;
}

const std::string& ReadOnlyDatabase::name() const {
  return connection_->name;
}

bool ReadOnlyDatabase::missesLog() const {
  return source_.isInLogMode() && !source_.hasLog();
}

bool ReadOnlyDatabase::sourceChanged() const {
  return !connection_->scratch && !source_.unchanged();
}

}  // namespace zephyl::linux_host
