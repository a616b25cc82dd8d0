#include "hosts/linux/messages/Connection.h"

#include <algorithm>
#include <string_view>

#include <sqlite3.h>

#include "hosts/linux/messages/ReadOnlyFileSystem.h"

namespace zephyl::linux_host {
namespace {

constexpr int kStepsInAUnit = 1000;
constexpr std::int64_t kStepsOfAnyFile = 2'000'000;
constexpr std::int64_t kStepsForAByte = 4;
constexpr std::int64_t kLengthOfAnyFile = 1'000'000;
constexpr std::int64_t kLongestLength = 1'000'000'000;

// A file: address with every byte escaped that could mean something in it.
std::string addressOf(const std::filesystem::path& file, bool readsLog) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789/._-";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string address = "file:";
  for (const char character : file.string()) {
    if (kPlain.find(character) != std::string_view::npos) {
      address += character;
    } else {
      const auto byte = static_cast<unsigned char>(character);
      address += '%';
      address += kHex[byte >> 4];
      address += kHex[byte & 15];
    }
  }
  return address + (readsLog ? "?mode=ro" : "?mode=ro&immutable=1");
}

int countDown(void* connection) {
  return --static_cast<Connection*>(connection)->remainingSteps < 0 ? 1 : 0;
}

std::string reasonFor(int status, const char* detail) {
  switch (status & 0xFF) {
    case SQLITE_NOTADB:
      return std::string(kNotADatabase);
    case SQLITE_CORRUPT:
      return std::string("the file is damaged or cut off (") + detail +
             "); copy it again from its source";
    case SQLITE_INTERRUPT:
      return "the file is damaged: reading it does not come to an end; copy it again from its "
             "source";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "another program has locked the file; close that program and try again";
    case SQLITE_FULL:
      return "there is no space left for temporary files; make room or set TMPDIR";
    default:
      return std::string("the file cannot be read: ") + detail;
  }
}

}  // namespace

Connection::~Connection() {
  sqlite3_close_v2(handle);
}

void Connection::open(const std::filesystem::path& database) {
  const std::string where = scratch ? scratch->database().string() : addressOf(database, readsLog);
  const int flags = scratch ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
  const int status = sqlite3_open_v2(where.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX,
                                     readsLog ? readOnlyFileSystem() : nullptr);
  if (status != SQLITE_OK) {
    fail(status);
    return;
  }
  // The schema is as untrusted as the rows: no triggers, no views, no functions with effects.
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  // No attached files, and no value longer than the file that it is said to stand in.
  sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
  const std::int64_t longest = std::min(size + kLengthOfAnyFile, kLongestLength);
  sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, static_cast<int>(longest));
  allowSteps();
  sqlite3_progress_handler(handle, kStepsInAUnit, &countDown, this);
  if (readsLog) {
    // Keeps the index of the log in memory, where it would else be a file.
    execute("PRAGMA locking_mode=EXCLUSIVE");
  }
  execute("PRAGMA query_only=1");
  execute("PRAGMA temp_store=MEMORY");
  execute("PRAGMA cache_size=-16384");
  // The first look into the file: recovers the copy's log or journal, and finds what is no
  // database.
  execute("SELECT count(*) FROM sqlite_master");
}

void Connection::fail(int status) {
  if (!error) {
    error = DatabaseError{name, reasonFor(status, handle ? sqlite3_errmsg(handle) : "no memory")};
  }
}

void Connection::allowSteps() {
  remainingSteps = (kStepsOfAnyFile + kStepsForAByte * size) / kStepsInAUnit;
}

void Connection::execute(const char* sql) {
  if (error) {
    return;
  }
  const int status = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
  if (status != SQLITE_OK) {
    fail(status);
  }
}

}  // namespace zephyl::linux_host
