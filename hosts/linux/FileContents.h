// Whole files of this machine, read and written with every failure told. Only regular files: never
// a device, a FIFO or a folder. Pure functions of the file system, any thread.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zephyl::linux_host {

inline constexpr std::uint64_t kMaximumFileBytes = std::uint64_t{512} << 20U;

struct FileReading {
  std::optional<std::string> contents;
  std::string reason;  // why not; empty when the file is merely missing

  [[nodiscard]] bool isMissing() const { return !contents && reason.empty(); }
};

// Why an operation failed; nothing when it did not.
using FileFailure = std::optional<std::string>;

// Refuses a file larger than `kMaximumFileBytes`.
[[nodiscard]] FileReading readWholeFile(const std::string& path);

// The folder and those above it, for the user alone.
[[nodiscard]] FileFailure makeFolders(const std::string& folder);

// Over the old content, in place, and on to the disk; a new file is for the user alone. Room is
// reserved first, so that on a full disk the old content is left where the file system can tell.
// After a failure the file may be short or mixed. `path` must not be a symbolic link.
[[nodiscard]] FileFailure writeInPlace(const std::string& path, const std::string& contents);

// A new file and on to the disk; fails when there is one of that name, and is removed again when
// it could not be written whole.
struct NewFileOutcome {
  FileFailure failure;
  bool existed = false;
};
[[nodiscard]] NewFileOutcome writeNewFile(const std::string& path, const std::string& contents);

// Where a symbolic link leads, whether or not there is a file; other paths as they are.
[[nodiscard]] std::string behindLinks(const std::string& path);

// Through a new file beside it and a rename: the old content or the new, never anything between.
// `path` must not be a symbolic link. The permissions of a file that is there stay; a new one is
// for the user alone.
[[nodiscard]] FileFailure replaceFile(const std::string& path, const std::string& contents);

// Both on the disk when they return. A file that is missing is removed already; one that has the
// new name is replaced.
[[nodiscard]] FileFailure removeFile(const std::string& path);
[[nodiscard]] FileFailure renameFile(const std::string& from, const std::string& to);

}  // namespace zephyl::linux_host
