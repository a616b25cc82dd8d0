// An SQLite file of someone else's, read without touching it: no byte, time or side file of the
// source changes, whatever state it is in and whether or not another program has it open.
//
// A file with a log or an unfinished transaction beside it is read from a private copy. Otherwise
// it is read in place without locks: look at sourceChanged() when done, and read again with
// Access::kPrivateCopy if it says so.
//
// A large file that is looked at again and again should not be copied each time: with
// Access::kLogInPlace its log is read where it lies, too, and nothing is ever copied. A file with
// an unfinished transaction is then an error, as is an empty file whose log has everything; both
// are read when their writer has gone on.
//
// An object and its statements belong to one thread; different objects know nothing of each other.

#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "hosts/linux/messages/DatabaseResult.h"
#include "hosts/linux/messages/SourceFiles.h"
#include "hosts/linux/messages/Statement.h"

namespace zephyl::linux_host {

class ReadOnlyDatabase {
 public:
  enum class Access { kInPlaceWhenSafe, kPrivateCopy, kLogInPlace };

  [[nodiscard]] static DatabaseResult<ReadOnlyDatabase> open(
      const std::filesystem::path& file, Access access = Access::kInPlaceWhenSafe);

  // See Statement for how failures are told. Reading stops with an error when it takes far more
  // steps than the size of the file can call for; each call allows that many anew.
  [[nodiscard]] Statement prepare(const std::string& sql);

  // Whether the rows of a table have row ids; false when there is no such table.
  [[nodiscard]] bool hasRowID(const std::string& table) const;

  // The first failure since opening.
  [[nodiscard]] const std::optional<DatabaseError>& error() const;

  // The file as open() was told it.
  [[nodiscard]] const std::string& name() const;

  // Whether the file was written with a log beside it, and none is there. It may be complete, or
  // somebody has copied the one and not the other.
  [[nodiscard]] bool missesLog() const;

  // Whether the source was changed under a reading in place. Never true of a private copy.
  [[nodiscard]] bool sourceChanged() const;

 private:
  ReadOnlyDatabase(SourceFiles source, std::shared_ptr<Connection> connection);

  SourceFiles source_;
  std::shared_ptr<Connection> connection_;
};

}  // namespace zephyl::linux_host
