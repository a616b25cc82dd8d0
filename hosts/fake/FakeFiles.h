// Files in memory, by the phone's paths; any of them can be made to fail. A folder is there once
// it was made, and while a file lies in it.

#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileManager.h"

#include "hosts/fake/FakeSystem.h"

namespace zephyl::fake {

class FakeFiles : public NSFileManager {
 public:
  // Failures are named in `log`, which must outlive this.
  explicit FakeFiles(FakeSystemLog& log) : log_(log) {}

  std::optional<std::string> contentsAtPath(const std::string& path) override;
  bool writeToFile(const std::string& path, const std::string& contents) override;
  bool writeToFileAtomically(const std::string& path, const std::string& contents) override;
  bool fileExistsAtPath(const std::string& path) override;
  bool isSymbolicLinkAtPath(const std::string& path) override;
  bool createDirectoryAtPath(const std::string& path, NSError* error) override;
  std::vector<std::string> contentsOfDirectoryAtPath(const std::string& path) override;

  // Puts a file there without counting it as written.
  void put(const std::string& path, std::string contents);
  void removeFile(const std::string& path);
  // From then on that path is told to be a symbolic link; it is not followed.
  void markAsLink(const std::string& path);
  void failReading(const std::string& path, bool fails = true);
  // The file then keeps what it had.
  void failWriting(const std::string& path, bool fails = true);
  // A device that fills up: the next writes fail with only the first `bytes` in the file, or, when
  // they go through a temporary file, with what was there.
  void failWritingAfter(const std::string& path, std::size_t bytes);

  // Making that folder then fails: with the error, or without telling why.
  void failMakingFolder(const std::string& path, std::optional<NSError> error);

  // How often a write of that path was asked for, failed ones included.
  [[nodiscard]] int writesOf(const std::string& path);
  [[nodiscard]] int readsOf(const std::string& path);

 private:
  // The rest are for callers that hold the lock.
  [[nodiscard]] bool isDirectory(const std::string& path) const;
  [[nodiscard]] bool liesBelowFile(const std::string& path) const;
  // Why a write is refused before anything changes; null when it is not.
  [[nodiscard]] const char* whyNotWritable(const std::string& path) const;
  bool write(const std::string& path, const std::string& contents, bool atomically);

  FakeSystemLog& log_;
  std::mutex mutex_;
  std::map<std::string, std::string> files_;
  std::set<std::string> folders_;
  std::map<std::string, std::optional<NSError>> unmakeable_;
  std::set<std::string> links_;
  std::set<std::string> unreadable_;
  std::set<std::string> unwritable_;
  std::map<std::string, std::size_t> roomFor_;
  std::map<std::string, int> writes_;
  std::map<std::string, int> reads_;
};

}  // namespace zephyl::fake
