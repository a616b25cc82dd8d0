// The device's files, by the phone's absolute paths; the host says where they really lie.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zephyl {

class NSError;

class NSFileManager {
 public:
  virtual ~NSFileManager() = default;

  // The whole content; nothing when the file is missing or cannot be read, with the reason in the
  // system log unless it is merely missing. Any thread.
  [[nodiscard]] virtual std::optional<std::string> contentsAtPath(const std::string& path) = 0;

  // Writes in place, not through a temporary file, making missing directories. False when anything
  // failed; the file may then be short. Any thread.
  virtual bool writeToFile(const std::string& path, const std::string& contents) = 0;

  // The same through a temporary file: whatever fails, the old content stays as it was.
  virtual bool writeToFileAtomically(const std::string& path, const std::string& contents) = 0;

  [[nodiscard]] virtual bool fileExistsAtPath(const std::string& path) = 0;

  // Whether the item itself is a symbolic link, wherever it leads. Links before the last part of
  // the path are followed. Any thread.
  [[nodiscard]] virtual bool isSymbolicLinkAtPath(const std::string& path) = 0;

  // With those above it; one that is there already is good. False when anything failed, with the
  // reason in `error`, which may be null, and in the system log. Any thread.
  virtual bool createDirectoryAtPath(const std::string& path, NSError* error) = 0;

  // Names, not paths, sorted; empty when there is no such directory.
  [[nodiscard]] virtual std::vector<std::string> contentsOfDirectoryAtPath(
      const std::string& path) = 0;
};

}  // namespace zephyl
