// One SQL statement being stepped through. Failures are not returned here: the first one of a
// connection is kept in it, so a loop over rows is followed by one look at the database's error().
//
// Belongs to the thread that uses its database. May outlive the database object.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

struct sqlite3_stmt;

namespace zephyl::linux_host {

struct Connection;

class Statement {
 public:
  // A statement that SQLite refuses has no rows.
  Statement(std::shared_ptr<Connection> connection, const std::string& sql);

  // Values for "?1", "?2", ...; starts the statement anew.
  void bind(int index, std::int64_t value);

  // Moves to the next row; false at the end and after a failure of this connection.
  [[nodiscard]] bool next();

  // Columns count from 0. All are to be asked of a row that next() has given.
  [[nodiscard]] bool isNull(int column) const;

  // Null unless the column holds a whole number, or a real or a text that stands for one within
  // 64 bits; fractions are cut off.
  [[nodiscard]] std::optional<std::int64_t> integer(int column) const;

  // Well-formed UTF-8, repaired where the file holds something else; null for a null. Numbers come
  // as their text, blobs are taken for text.
  [[nodiscard]] std::optional<std::string> text(int column) const;

  // Whether text() gives what the file holds, unrepaired.
  [[nodiscard]] bool isWellFormed(int column) const;

  // The bytes of a blob or of a text, unrepaired; empty for a null. Valid until next(), bind() or
  // the end of the statement.
  [[nodiscard]] std::string_view bytes(int column) const;
  [[nodiscard]] std::span<const std::byte> blob(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };

  // Declared first: the connection must close last.
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

}  // namespace zephyl::linux_host
