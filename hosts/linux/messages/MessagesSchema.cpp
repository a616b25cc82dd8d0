#include "hosts/linux/messages/MessagesSchema.h"

#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/linux/messages/ReadOnlyDatabase.h"

namespace zephyl::linux_host {
namespace {

struct Requirement {
  std::string_view table;
  bool needsRowID;
  std::vector<std::string_view> columns;
};

const std::vector<Requirement>& requirements() {
  static const std::vector<Requirement> kRequirements = {
      {"chat", true, {"guid"}},
      {"handle", true, {"id"}},
      {"message", true, {"date", "text"}},
      {"chat_handle_join", true, {"chat_id", "handle_id"}},
      {"chat_message_join", false, {"chat_id", "message_id"}},
  };
  return kRequirements;
}

enum class Kind { kMissing, kTable, kOther };

// A virtual table is listed as a table, so the definition is looked at as well. SQLite writes its
// beginning in one way only.
Kind kindOf(ReadOnlyDatabase& database, std::string_view table) {
  auto statement = database.prepare(
      "SELECT type = 'table' AND sql LIKE 'CREATE TABLE %' FROM sqlite_master"
      " WHERE type IN ('table', 'view') AND lower(name) = '" +
      std::string(table) + "'");
  if (!statement.next()) {
    return Kind::kMissing;
  }
  return statement.integer(0) == 1 ? Kind::kTable : Kind::kOther;
}

std::string lowerCase(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') {
      character = static_cast<char>(character - 'A' + 'a');
    }
  }
  return text;
}

// Columns whose values are computed are not listed, and so count as missing.
std::set<std::string, std::less<>> columnsOf(ReadOnlyDatabase& database, std::string_view table) {
  std::set<std::string, std::less<>> columns;
  auto statement = database.prepare("PRAGMA table_info(" + std::string(table) + ")");
  while (statement.next()) {
    columns.insert(lowerCase(statement.text(1).value_or(std::string())));
  }
  return columns;
}

std::string clientVersion(ReadOnlyDatabase& database) {
  if (kindOf(database, "_sqlitedatabaseproperties") != Kind::kTable) {
    return {};
  }
  const auto columns = columnsOf(database, "_SqliteDatabaseProperties");
  if (!columns.contains("key") || !columns.contains("value")) {
    return {};
  }
  auto statement =
      database.prepare("SELECT value FROM _SqliteDatabaseProperties WHERE key = '_ClientVersion'");
  return statement.next() ? statement.text(0).value_or(std::string()) : std::string();
}

DatabaseError notMessages(const ReadOnlyDatabase& database, const std::string& what) {
  std::string reason = "this is not a Messages database: " + what +
                       "; name the sms.db of a phone or the chat.db of a Mac";
  if (database.missesLog()) {
    reason += ", with the file ending in \"-wal\" beside it if there is one";
  }
  return {database.name(), std::move(reason)};
}

std::string quoted(std::string_view name) {
  return '"' + std::string(name) + '"';
}

}  // namespace

DatabaseResult<MessagesSchema> MessagesSchema::of(ReadOnlyDatabase& database) {
  MessagesSchema schema;
  std::optional<std::string> problem;
  for (const Requirement& required : requirements()) {
    const Kind kind = kindOf(database, required.table);
    if (kind == Kind::kMissing) {
      problem = "it has no table " + quoted(required.table);
    } else if (kind == Kind::kOther) {
      problem = quoted(required.table) + " is not a plain table";
    } else if (required.needsRowID && !database.hasRowID(std::string(required.table))) {
      problem = "the table " + quoted(required.table) + " has no column \"ROWID\"";
    }
    if (problem) {
      break;
    }
    Columns& columns = schema.tables_[std::string(required.table)];
    columns = columnsOf(database, required.table);
    for (const std::string_view column : required.columns) {
      if (!problem && !columns.contains(column)) {
        problem = "the table " + quoted(required.table) + " has no column " + quoted(column);
      }
    }
  }
  if (!database.error() && !problem) {
    schema.version_ = clientVersion(database);
  }
  if (database.error()) {
    return *database.error();
  }
  if (problem) {
    return notMessages(database, *problem);
  }
  return schema;
}

bool MessagesSchema::has(std::string_view table, std::string_view column) const {
  const auto found = tables_.find(table);
  return found != tables_.end() && found->second.contains(column);
}

std::string MessagesSchema::select(std::string_view table, std::string_view column) const {
  return has(table, column) ? std::string(column) : "NULL";
}

}  // namespace zephyl::linux_host
