#include "bundle/testing/TextTable.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/foundation/StringTable.h"

namespace zephyl::test {

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::filesystem::path fileOf(const TextTable& table, std::string_view language) {
  const std::filesystem::path bundles = ZEPHYLS_BUNDLES;
  return bundles / table.folder / std::string(language).append(".lproj") /
         std::string(table.name).append(".strings");
}

Dictionary textsOf(const TextTable& table, std::string_view language) {
  const std::filesystem::path file = fileOf(table, language);
  const StringTableResult texts = readStringTable(contentOf(file));
  EXPECT_TRUE(texts.ok()) << texts.error().message(file.string());
  Dictionary found = texts.ok() ? texts.table() : Dictionary();
  EXPECT_FALSE(found.empty()) << file << " has no texts";
  return found;
}

}  // namespace zephyl::test
