// Runs the program as a user does: its own process, a folder of its own, nothing of the machine's.

#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace zephyl::app::test {

struct ProgramResult {
  int status = -1;
  std::string out;
  std::string errors;

  // Each line of `out`; a line that is no JSON fails the test.
  [[nodiscard]] std::vector<nlohmann::ordered_json> objects() const;
};

class ProgramTest : public ::testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  // With the environment cleared but for `environment_`. Standard output goes to `outputFile` when
  // one is named.
  [[nodiscard]] ProgramResult run(const std::vector<std::string>& words,
                                  const std::string& outputFile = "") const;
  // On the small database and address book below, with a device root of their own.
  [[nodiscard]] ProgramResult runOwn(std::vector<std::string> words) const;

  // chat.db with four conversations, and people.vcf with two people.
  void writeOwnSources() const;
  // The SQL that makes that database.
  [[nodiscard]] static const char* ownSchema();
  void execute(const std::filesystem::path& database, const std::string& sql) const;
  void write(const std::filesystem::path& file, const std::string& content) const;
  [[nodiscard]] static std::string read(const std::filesystem::path& file);
  // As an XML property list.
  void writeGroups(const std::string& dictionaries) const;

  // Name, content and time of every file below a folder.
  using Listing = std::map<std::string, std::string>;
  [[nodiscard]] static Listing listing(const std::filesystem::path& folder);

  std::filesystem::path folder_;
  std::filesystem::path messages_;
  std::filesystem::path contacts_;
  std::filesystem::path device_;
  std::filesystem::path groups_;
  std::filesystem::path settings_;
  std::map<std::string, std::string> environment_;
  std::string input_ = "/dev/null";  // the file that is the standard input
};

}  // namespace zephyl::app::test
