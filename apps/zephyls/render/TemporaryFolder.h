// A folder that is gone afterwards, and too when a signal ends the program. One at a time.

#pragma once

#include <memory>
#include <string>

#include "apps/zephyls/render/SignalCleanup.h"

namespace zephyl::app::render {

class TemporaryFolder {
 public:
  // Throws CommandError when there is no room for it.
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
  std::unique_ptr<SignalCleanup> cleanup_;
};

}  // namespace zephyl::app::render
