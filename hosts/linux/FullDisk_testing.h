// Disks that fill up, each for one test.

#pragma once

#include <csignal>
#include <cstdint>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::linux_host {

// No file of this process grows past a size.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(std::uint64_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    EXPECT_EQ(::getrlimit(RLIMIT_FSIZE, &old_), 0);
    const rlimit limit{bytes, old_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  void (*oldHandler_)(int);
  rlimit old_{};
};

// A folder with room for 64 KiB in all: a disk of its own where the user may mount one, else the
// folder with a limit on its files.
class TinyDisk {
 public:
  TinyDisk() : isMounted_(::mount("tmpfs", folder_.path().c_str(), "tmpfs", 0, "size=64k") == 0) {
    if (!isMounted_) {
      limit_.emplace(64 * 1024);
    }
  }
  ~TinyDisk() {
    if (isMounted_) {
      ::umount2(folder_.path().c_str(), MNT_DETACH);
    }
  }
  TinyDisk(const TinyDisk&) = delete;
  TinyDisk& operator=(const TinyDisk&) = delete;

  [[nodiscard]] const contract::TemporaryFolder& folder() const { return folder_; }

  // Whether it can tell beforehand that something does not fit.
  [[nodiscard]] bool reservesRoom() const { return isMounted_; }

 private:
  contract::TemporaryFolder folder_;
  bool isMounted_;
  std::optional<FileSizeLimit> limit_;
};

}  // namespace zephyl::linux_host
