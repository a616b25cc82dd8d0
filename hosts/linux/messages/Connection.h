// What a database object and its statements share: the SQLite handle and the first failure.
// Belongs to the thread of its database.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "hosts/linux/messages/DatabaseError.h"
#include "hosts/linux/messages/ScratchCopy.h"

struct sqlite3;

namespace zephyl::linux_host {

struct Connection {
  Connection() = default;
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection();

  // Opens `database`, in place unless there is a `scratch`; failures are in `error` afterwards.
  void open(const std::filesystem::path& database);

  // Keeps what `status` means as the error, unless there is one already.
  void fail(int status);

  // A fresh allowance for one statement's work, by the size of the file: no honest reading comes
  // near it, and a file whose pages go round in circles does not keep a program for ever.
  void allowSteps();

  // Runs a statement for its effect on this connection.
  void execute(const char* sql);

  std::optional<ScratchCopy> scratch;
  // In place, together with the log beside it.
  bool readsLog = false;
  sqlite3* handle = nullptr;
  // As the caller named the file.
  std::string name;
  // Of the file and its log, in bytes.
  std::int64_t size = 0;
  // Steps of SQLite's machine, in units of the progress handler, that are still allowed.
  std::int64_t remainingSteps = 0;
  std::optional<DatabaseError> error;
};

}  // namespace zephyl::linux_host
