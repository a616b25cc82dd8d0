// A private copy of a database with its side files, in a folder that only this user may enter and
// that goes away with the object. SQLite may write to the copy; the source stays as it is.

#pragma once

#include <filesystem>
#include <functional>
#include <utility>

#include "hosts/linux/messages/DatabaseResult.h"
#include "hosts/linux/messages/SourceFiles.h"

namespace zephyl::linux_host {

class ScratchCopy {
 public:
  // Called after each attempt, before the sources are looked at again.
  using Observer = std::function<void(int attempt)>;

  static constexpr int kAttempts = 6;

  // Copies again when a source has changed meanwhile, with growing pauses, and gives up after
  // `kAttempts`. The error names the source by its path.
  [[nodiscard]] static DatabaseResult<ScratchCopy> of(const std::filesystem::path& database,
                                                      const Observer& observer = {});

  ScratchCopy(ScratchCopy&& other) noexcept;
  ScratchCopy& operator=(ScratchCopy&& other) noexcept;
  ScratchCopy(const ScratchCopy&) = delete;
  ScratchCopy& operator=(const ScratchCopy&) = delete;
  ~ScratchCopy();

  [[nodiscard]] std::filesystem::path database() const { return folder_ / "database"; }

 private:
  explicit ScratchCopy(std::filesystem::path folder) : folder_(std::move(folder)) {}

  void remove() noexcept;

  std::filesystem::path folder_;
};

}  // namespace zephyl::linux_host
