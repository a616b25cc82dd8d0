// Small files, read and written as a whole. Any thread.

#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zephyl::linux_host {

struct WholeFile {
  bool exists = false;
  std::string bytes;
  // Why an existing file could not be read.
  std::optional<std::string> failure;
};

// Only regular files of up to 256 MiB.
[[nodiscard]] WholeFile readWhole(const std::filesystem::path& file);

// Through a new file beside it that takes its place: what was there stays until all is on the disk.
// A symbolic link stays one. The reason when it fails.
[[nodiscard]] std::optional<std::string> replaceWhole(const std::filesystem::path& file,
                                                      const std::string& bytes);

}  // namespace zephyl::linux_host
