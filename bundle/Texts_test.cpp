// The texts of the settings bundle: every language reads, and has a text for every key.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/StringTable.h"

namespace zephyl {
namespace {

Dictionary tableOf(const std::filesystem::path& language) {
  std::ifstream file(language / "Localizable.strings", std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const StringTableResult table = readStringTable(bytes);
  EXPECT_TRUE(table.ok()) << table.error().message(language.string());
  return table.ok() ? table.table() : Dictionary();
}

std::vector<std::string> keysOf(const Dictionary& table) {
  std::vector<std::string> keys;
  keys.reserve(table.size());
  for (const auto& [key, text] : table) {
    EXPECT_NE(text, Value("")) << key;
    keys.push_back(key);
  }
  std::sort(keys.begin(), keys.end());
  return keys;
}

TEST(Texts, EveryLanguageHasATextForEveryKey) {
  const std::filesystem::path bundle = ZEPHYLS_SETTINGS_BUNDLE;
  const auto english = keysOf(tableOf(bundle / "en.lproj"));
  EXPECT_GT(english.size(), 10U);
  int languages = 0;
  for (const auto& entry : std::filesystem::directory_iterator(bundle)) {
    if (entry.path().extension() == ".lproj") {
      EXPECT_EQ(keysOf(tableOf(entry.path())), english) << entry.path();
      ++languages;
    }
  }
  EXPECT_EQ(languages, 7);
}

TEST(Texts, InEnglishTheKeyIsTheText) {
  const Dictionary table = tableOf(std::filesystem::path(ZEPHYLS_SETTINGS_BUNDLE) / "en.lproj");
  for (const auto& [key, text] : table) {
    EXPECT_EQ(text, Value(key));
  }
}

}  // namespace
}  // namespace zephyl
