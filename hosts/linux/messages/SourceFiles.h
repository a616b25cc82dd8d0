// A database file with the two files that SQLite may leave beside it, and a stamp of all three by
// which a change is noticed. Looks only: nothing is opened for writing, created or locked.

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zephyl::linux_host {

// The reason for a file that is something else. Encryption leaves no trace to tell it by.
inline constexpr std::string_view kNotADatabase =
    "this is not a SQLite database or is encrypted; name a database, and decrypt an encrypted "
    "backup first";

struct FileStamp {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  std::int64_t modifiedNanoseconds = 0;

  bool operator==(const FileStamp&) const = default;
};

class SourceFiles {
 public:
  // `database` may be a symbolic link: SQLite keeps the side files beside its target.
  explicit SourceFiles(const std::filesystem::path& database);

  [[nodiscard]] const std::filesystem::path& database() const { return database_; }
  [[nodiscard]] std::filesystem::path writeAheadLog() const;
  [[nodiscard]] std::filesystem::path rollbackJournal() const;

  // Of the database file; null when it is no file.
  [[nodiscard]] const std::optional<FileStamp>& stamp() const { return databaseStamp_; }

  // Bytes of the database file at the time of construction.
  [[nodiscard]] std::int64_t size() const { return databaseStamp_ ? databaseStamp_->size : 0; }

  // A write-ahead log that holds anything.
  [[nodiscard]] bool hasLog() const { return logStamp_ && logStamp_->size > 0; }

  // A journal from which SQLite would roll an unfinished transaction back.
  [[nodiscard]] bool hasHotJournal() const { return hotJournal_; }

  // Bytes of the log at the time of construction.
  [[nodiscard]] std::int64_t logSize() const { return logStamp_ ? logStamp_->size : 0; }

  // Whether the database itself says that it is written by way of a log.
  [[nodiscard]] bool isInLogMode() const;

  // Null when the database is a file that can be read; else what is in the way.
  [[nodiscard]] std::optional<std::string> problem() const;

  // Whether nothing about the three files has changed since construction.
  [[nodiscard]] bool unchanged() const;

  // Whether both saw the same files in the same state.
  bool operator==(const SourceFiles&) const = default;

 private:
  std::filesystem::path database_;
  std::optional<FileStamp> databaseStamp_;
  std::optional<FileStamp> logStamp_;
  std::optional<FileStamp> journalStamp_;
  bool hotJournal_ = false;
  std::string header_;  // the first bytes of the database
};

}  // namespace zephyl::linux_host
