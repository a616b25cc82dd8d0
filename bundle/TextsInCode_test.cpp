// Every text that the code looks up stands in its table, in every language.

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"

#include "bundle/testing/LocalizedTexts.h"
#include "bundle/testing/TextTable.h"

namespace zephyl {
namespace {

namespace fs = std::filesystem;

// Those that are not there yet hold no texts.
constexpr std::array<std::string_view, 7> kFolders = {"model", "store", "services", "contacts",
                                                      "ui",    "apps",  "platform"};

bool isSource(const fs::path& file) {
  const std::string name = file.filename().string();
  return (name.ends_with(".h") || name.ends_with(".cpp")) && !name.ends_with("_test.cpp") &&
         !name.ends_with("Test.cpp");
}

std::vector<test::SourceOutline> sourcesOfTheProject() {
  const fs::path top = ZEPHYLS_SOURCES;
  std::vector<fs::path> files;
  for (const std::string_view folder : kFolders) {
    if (fs::is_directory(top / folder)) {
      for (const auto& entry : fs::recursive_directory_iterator(top / folder)) {
        if (isSource(entry.path())) {
          files.push_back(entry.path());
        }
      }
    }
  }
  std::sort(files.begin(), files.end());
  std::vector<test::SourceOutline> sources;
  sources.reserve(files.size());
  for (const fs::path& file : files) {
    sources.emplace_back(file.lexically_relative(top).string(), test::contentOf(file));
  }
  return sources;
}

class TextsInCode : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { found_ = test::localizedTextsOf(sourcesOfTheProject()); }

  static inline test::LocalizedTexts found_;
};

// The tables of a language by name: two bundles call theirs the same, and a text may stand in
// either.
std::multimap<std::string_view, Dictionary> tablesOf(std::string_view language) {
  std::multimap<std::string_view, Dictionary> tables;
  for (const test::TextTable& table : test::kTextTables) {
    tables.emplace(table.name, test::textsOf(table, language));
  }
  return tables;
}

TEST_F(TextsInCode, StandInTheirTableInEveryLanguage) {
  for (const std::string_view language : test::kLanguages) {
    const auto tables = tablesOf(language);
    for (const test::LocalizedText& used : found_.texts) {
      const auto [begin, end] = tables.equal_range(used.table);
      EXPECT_TRUE(std::any_of(
          begin, end,
          [&used](const auto& table) { return table.second.find(used.text) != nullptr; }))
          << used.file << ":" << used.line << ": \"" << used.text << "\" is not in the table "
          << used.table << " (" << language << ")";
    }
  }
}

TEST_F(TextsInCode, CanAllBeToldFromTheCode) {
  for (const std::string& place : found_.unclear) {
    ADD_FAILURE() << place << "\nWrite the text into the call, or into a constant, or hand it "
                  << "through a parameter; then it can be checked.";
  }
}

// The search itself: the texts that were in the code before there were screens.
TEST_F(TextsInCode, AreFound) {
  for (const std::string_view known :
       {"Unable to add group.", "Is Group saved to disk?", "Change group identifier and try again.",
        "Your device cannot authenticate using TouchID.",
        "This message is protected by Zephyls and available in Messages app only."}) {
    EXPECT_TRUE(std::any_of(found_.texts.begin(), found_.texts.end(),
                            [&](const test::LocalizedText& text) { return text.text == known; }))
        << known;
  }
}

}  // namespace
}  // namespace zephyl
