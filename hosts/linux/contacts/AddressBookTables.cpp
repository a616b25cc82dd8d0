#include "hosts/linux/contacts/AddressBookTables.h"

#include "hosts/linux/contacts/AsciiText.h"
#include "hosts/linux/messages/ReadOnlyDatabase.h"
#include "hosts/linux/messages/Statement.h"

namespace zephyl::linux_host {

AddressBookTables::AddressBookTables(ReadOnlyDatabase& database,
                                     const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    // SQLite writes the beginning of a definition in one way only.
    Statement kind = database.prepare(
        "SELECT 1 FROM sqlite_master WHERE type = 'table' AND sql LIKE 'CREATE TABLE %' AND "
        "lower(name) = '" +
        ascii::lower(name) + "'");
    if (!kind.next()) {
      continue;
    }
    auto& columns = tables_[name];
    if (database.hasRowID(name)) {
      columns.insert("rowid");
    }
    Statement statement = database.prepare("PRAGMA table_info(" + name + ")");
    while (statement.next()) {
      columns.insert(ascii::lower(statement.text(1).value_or(std::string())));
    }
  }
}

bool AddressBookTables::has(std::string_view table, std::string_view column) const {
  const auto found = tables_.find(table);
  return found != tables_.end() && found->second.contains(ascii::lower(column));
}

std::string AddressBookTables::select(std::string_view table,
                                      const std::vector<std::string_view>& columns) const {
  std::string list;
  for (const std::string_view column : columns) {
    list.append(list.empty() ? "" : ", ").append(has(table, column) ? column : "NULL");
  }
  return list;
}

}  // namespace zephyl::linux_host
