// A way for SQLite to reach files that cannot change them: whatever SQLite or a hostile file asks
// for, files are opened for reading only, and none is created, deleted or locked.
//
// With it a database can be read together with its log as another program writes them. Nothing
// holds that program off meanwhile: look afterwards whether the files are still the same.

#pragma once

namespace zephyl::linux_host {

// Its name for sqlite3_open_v2(). A connection that shall read a log has to ask for the exclusive
// locking mode first, so that the index of the log is kept in memory. Any thread.
[[nodiscard]] const char* readOnlyFileSystem();

}  // namespace zephyl::linux_host
