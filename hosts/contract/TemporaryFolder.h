// A folder that is there for one test, and what tests do with the files in it.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace zephyl::contract {

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = ::testing::TempDir() + "zephyls-test-XXXXXX";
    path_ = ::mkdtemp(pattern.data()) == nullptr ? std::string() : pattern;
    EXPECT_NE(path_, "");
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] const std::string& path() const { return path_; }

  // Each takes a path below the folder, with a slash before it.
  void put(const std::string& below, const std::string& contents) const {
    const std::filesystem::path file = path_ + below;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << contents;
  }
  [[nodiscard]] std::string read(const std::string& below) const {
    std::ifstream file(path_ + below, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  [[nodiscard]] bool has(const std::string& below) const {
    return std::filesystem::exists(path_ + below);
  }
  [[nodiscard]] std::vector<std::string> namesIn(const std::string& below) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_ + below)) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

 private:
  std::string path_;
};

}  // namespace zephyl::contract
