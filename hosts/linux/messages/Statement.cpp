#include "hosts/linux/messages/Statement.h"

#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

#include <sqlite3.h>

#include "hosts/linux/messages/Connection.h"
#include "hosts/linux/messages/Utf8Text.h"

namespace zephyl::linux_host {
namespace {

std::optional<std::int64_t> wholePart(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  if (!(value >= -kLimit && value < kLimit)) {
    return std::nullopt;
  }
  return static_cast<std::int64_t>(std::trunc(value));
}

std::optional<std::int64_t> numberIn(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

void Statement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

Statement::Statement(std::shared_ptr<Connection> connection, const std::string& sql)
    : connection_(std::move(connection)) {
  if (connection_->error) {
    return;
  }
  sqlite3_stmt* statement = nullptr;
  const int status = sqlite3_prepare_v2(connection_->handle, sql.data(),
                                        static_cast<int>(sql.size()), &statement, nullptr);
  statement_.reset(statement);
  if (status != SQLITE_OK) {
    connection_->fail(status);
  }
}

void Statement::bind(int index, std::int64_t value) {
  if (!statement_) {
    return;
  }
  sqlite3_reset(statement_.get());
  const int status = sqlite3_bind_int64(statement_.get(), index, value);
  if (status != SQLITE_OK) {
    connection_->fail(status);
  }
}

bool Statement::next() {
  if (!statement_ || connection_->error) {
    return false;
  }
  const int status = sqlite3_step(statement_.get());
  if (status != SQLITE_ROW && status != SQLITE_DONE) {
    connection_->fail(status);
  }
  return status == SQLITE_ROW;
}

bool Statement::isNull(int column) const {
  return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

std::optional<std::int64_t> Statement::integer(int column) const {
  switch (sqlite3_column_type(statement_.get(), column)) {
    case SQLITE_INTEGER:
      return sqlite3_column_int64(statement_.get(), column);
    case SQLITE_FLOAT:
      return wholePart(sqlite3_column_double(statement_.get(), column));
    case SQLITE_TEXT:
      return numberIn(bytes(column));
    default:
      return std::nullopt;
  }
}

std::optional<std::string> Statement::text(int column) const {
  return isNull(column) ? std::nullopt : std::optional(wellFormedUtf8(bytes(column)));
}

bool Statement::isWellFormed(int column) const {
  return isWellFormedUtf8(bytes(column));
}

std::span<const std::byte> Statement::blob(int column) const {
  return std::as_bytes(std::span(bytes(column)));
}

std::string_view Statement::bytes(int column) const {
  sqlite3_stmt* const statement = statement_.get();
  // Asked for as text first, a text comes in UTF-8 whatever the file's own encoding.
  const void* data = sqlite3_column_type(statement, column) == SQLITE_BLOB
                         ? sqlite3_column_blob(statement, column)
                         : static_cast<const void*>(sqlite3_column_text(statement, column));
  const int size = sqlite3_column_bytes(statement, column);
  return {static_cast<const char*>(data), data ? static_cast<std::size_t>(size) : 0};
}

}  // namespace zephyl::linux_host
