// Databases for the tests: a temporary folder that watches what happens in it, files filled by SQL,
// and the schemas of three releases.

#pragma once

#include <compare>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

struct sqlite3;

namespace zephyl::linux_host {

class TemporaryFolder {
 public:
  struct Entry {
    std::string bytes;
    std::int64_t modified = 0;

    bool operator==(const Entry&) const = default;
  };

  TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder();

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  [[nodiscard]] std::string file(std::string_view name) const { return path_ / name; }

  // Every file in the folder with its bytes and time, for comparing before with after.
  [[nodiscard]] std::map<std::string, Entry> contents() const;

 private:
  std::filesystem::path path_;
};

// While it lives, private copies are made in this folder.
class TemporaryFilesIn {
 public:
  explicit TemporaryFilesIn(const std::string& folder);
  TemporaryFilesIn(const TemporaryFilesIn&) = delete;
  TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;
  ~TemporaryFilesIn();
};

[[nodiscard]] std::string readFile(const std::filesystem::path& file);
void writeFile(const std::filesystem::path& file, std::string_view bytes);

// A connection that writes. Statements that fail throw, and so fail their test.
class TestDatabase {
 public:
  explicit TestDatabase(const std::string& file, std::string_view sql = {});
  TestDatabase(const TestDatabase&) = delete;
  TestDatabase& operator=(const TestDatabase&) = delete;
  ~TestDatabase();

  void run(std::string_view sql);

 private:
  sqlite3* handle_ = nullptr;
};

// The definitions of iOS 6 (dates in seconds, none in the join table), of iOS 12 and of iOS 18.
extern const std::string_view kOldSchema;
extern const std::string_view kMiddleSchema;
extern const std::string_view kNewSchema;

// Bytes as an SQL literal: x'00ff'.
[[nodiscard]] std::string blobLiteral(std::string_view bytes);

// An archive of attributed text as Messages writes it.
[[nodiscard]] std::string archivedText(std::string_view text);

}  // namespace zephyl::linux_host
