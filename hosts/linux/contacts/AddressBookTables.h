// Which tables and columns a phone's address book has. The schema grew with every release, so each
// query is put together from the columns that are there.

#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zephyl::linux_host {

class ReadOnlyDatabase;

class AddressBookTables {
 public:
  // Looks for these tables, spelt in any case. Views and virtual tables count as missing: those may
  // compute anything.
  AddressBookTables(ReadOnlyDatabase& database, const std::vector<std::string>& names);

  [[nodiscard]] bool has(std::string_view table) const { return tables_.contains(table); }
  [[nodiscard]] bool has(std::string_view table, std::string_view column) const;

  // The columns' names for a SELECT, in order, with "NULL" for those that the table lacks.
  [[nodiscard]] std::string select(std::string_view table,
                                   const std::vector<std::string_view>& columns) const;

 private:
  // Column names in lower case.
  std::map<std::string, std::set<std::string, std::less<>>, std::less<>> tables_;
};

}  // namespace zephyl::linux_host
