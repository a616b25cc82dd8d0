#include "hosts/linux/messages/ReadOnlyFileSystem.h"

#include <sqlite3.h>

namespace zephyl::linux_host {
namespace {

constexpr char kName[] = "zephyls-read-only";

// What stands below: SQLite's own files of a Unix system, without locks.
sqlite3_vfs* unlockedFiles() {
  return sqlite3_vfs_find("unix-none");
}

int openForReading(sqlite3_vfs* /*self*/, const char* name, sqlite3_file* file, int flags,
                   int* flagsGiven) {
  // SQLite looks at this after a failure, too.
  file->pMethods = nullptr;
  // A temporary file has no name; who reads keeps such things in memory.
  if (name == nullptr) {
    return SQLITE_CANTOPEN;
  }
  constexpr int kWriting = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE |
                           SQLITE_OPEN_DELETEONCLOSE;
  sqlite3_vfs* below = unlockedFiles();
  return below->xOpen(below, name, file, (flags & ~kWriting) | SQLITE_OPEN_READONLY, flagsGiven);
}

int refuseToDelete(sqlite3_vfs* /*self*/, const char* /*name*/, int /*syncsFolder*/) {
  return SQLITE_IOERR_DELETE;
}

sqlite3_vfs* registered() {
  static sqlite3_vfs system = *unlockedFiles();
  system.pNext = nullptr;
  system.zName = kName;
  system.xOpen = &openForReading;
  system.xDelete = &refuseToDelete;
  sqlite3_vfs_register(&system, /*makeDflt=*/0);
  return &system;
}

}  // namespace

const char* readOnlyFileSystem() {
  static const sqlite3_vfs* const kSystem = registered();
  return kSystem->zName;
}

}  // namespace zephyl::linux_host
