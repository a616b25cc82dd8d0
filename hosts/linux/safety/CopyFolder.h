// The folder of a file's safety copies: NAME.plist with the content, and NAME.txt beside it with
// the reason. A name is the time in UTC, YYYYMMDD-HHMMSS-mmm, with -2, -3, ... where it is taken.
//
// No locks of its own: who writes keeps others out. Whatever moment the process ends at, a copy is
// there whole or not at all.

#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "hosts/linux/FileContents.h"

namespace zephyl::linux_host {

struct SafetyCopy {
  std::string name;    // "20261121-101500-250"
  double time = 0;     // seconds since 1970
  std::string reason;  // what the write did that it was made before; empty when not known
};

class CopyFolder {
 public:
  static constexpr std::size_t kMostCopies = 20;

  // Need not exist.
  explicit CopyFolder(std::string folder) : folder_(std::move(folder)) {}

  [[nodiscard]] const std::string& path() const { return folder_; }

  // The newest first; empty when there is no folder. Other files in it do not count.
  [[nodiscard]] std::vector<SafetyCopy> copies() const;

  // Missing for a name that is none of a copy.
  [[nodiscard]] FileReading contentsOf(const std::string& name) const;

  // The file of a copy's content.
  [[nodiscard]] std::string contentPath(const std::string& name) const;

  // On the disk when this returns, in a folder that is there. When the newest copy has the same
  // content, that one takes the reason. A new name always follows on the newest, also after the
  // clock was set back.
  struct Kept {
    std::string name;
    FileFailure failure;
  };
  [[nodiscard]] Kept keep(const std::string& contents, const std::string& reason, double now) const;

  // Removes all but the newest `kMostCopies`, and what a process left half-done. What cannot be
  // removed stays for the next time.
  void removeSurplus() const;

 private:
  [[nodiscard]] std::string reasonPath(const std::string& name) const;

  std::string folder_;
};

}  // namespace zephyl::linux_host
