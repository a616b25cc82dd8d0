// A folder that is gone afterwards.

#pragma once

#include <string>

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
};

}  // namespace zephyl::app::render
