// The tables of texts: each is there in every language, says the same in all of them, and can be
// filled in as its key tells.

#include <algorithm>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"

#include "bundle/testing/TextTable.h"

namespace zephyl {
namespace {

using test::TextTable;

class Texts : public ::testing::TestWithParam<TextTable> {};

// Those whose keys are no names of the system's own.
class TextsByEnglish : public Texts {};

std::set<std::string> keysOf(const Dictionary& table) {
  std::set<std::string> keys;
  for (const auto& [key, text] : table) {
    keys.insert(key);
  }
  return keys;
}

std::string textOf(const Value& value) {
  const std::string* text = value.ifString();
  return text == nullptr ? std::string() : *text;
}

// The places that are filled in, in order: "%@", "%ld", "%1$@"; "%%" is none.
std::vector<std::string> placesIn(const std::string& text) {
  std::vector<std::string> places;
  for (std::size_t at = text.find('%'); at != std::string::npos; at = text.find('%', at)) {
    const std::size_t end = text.find_first_of("@diufsx%", at + 1);
    const std::string place = text.substr(at, end == std::string::npos ? end : end + 1 - at);
    if (place != "%%") {
      places.push_back(place);
    }
    at += place.size();
  }
  return places;
}

std::string whiteSpaceBefore(const std::string& text) {
  return text.substr(0, std::min(text.find_first_not_of(" \t\r\n"), text.size()));
}

std::string whiteSpaceAfter(const std::string& text) {
  return text.substr(text.find_last_not_of(" \t\r\n") + 1);
}

// Runs `check` on each text with its key, in every language.
template <typename Check>
void forEachText(const TextTable& table, const Check& check) {
  for (const std::string_view language : test::kLanguages) {
    for (const auto& [key, text] : test::textsOf(table, language)) {
      SCOPED_TRACE(std::string(language).append(": ").append(key));
      check(key, textOf(text));
    }
  }
}

TEST_P(Texts, StandInSevenLanguagesAndNoOther) {
  std::set<std::string> found;
  for (const auto& entry : std::filesystem::directory_iterator(
           test::fileOf(GetParam(), "en").parent_path().parent_path())) {
    if (entry.is_directory()) {
      found.insert(entry.path().stem().string());
    }
  }
  EXPECT_EQ(found, std::set<std::string>(test::kLanguages.begin(), test::kLanguages.end()));
}

TEST_P(Texts, EveryLanguageHasEveryKey) {
  const auto english = keysOf(test::textsOf(GetParam(), "en"));
  for (const std::string_view language : test::kLanguages) {
    EXPECT_EQ(keysOf(test::textsOf(GetParam(), language)), english) << language;
  }
}

// A table may give a key twice, and the last text stays: nobody would see the first.
TEST_P(Texts, NoKeyStandsTwice) {
  for (const std::string_view language : test::kLanguages) {
    const std::string content = "\n" + test::contentOf(test::fileOf(GetParam(), language));
    std::size_t entries = 0;
    for (std::size_t at = content.find("\n\""); at != std::string::npos;
         at = content.find("\n\"", at + 1)) {
      ++entries;
    }
    EXPECT_EQ(entries, test::textsOf(GetParam(), language).size()) << language;
  }
}

TEST_P(TextsByEnglish, TheKeyIsTheText) {
  for (const auto& [key, text] : test::textsOf(GetParam(), "en")) {
    EXPECT_EQ(textOf(text), key);
  }
}

TEST_P(Texts, NoTextIsEmpty) {
  forEachText(GetParam(),
              [](const std::string& /*key*/, const std::string& text) { EXPECT_NE(text, ""); });
}

TEST_P(Texts, HaveThePlacesOfTheirKeysInTheSameOrder) {
  forEachText(GetParam(), [](const std::string& key, const std::string& text) {
    EXPECT_EQ(placesIn(text), placesIn(key));
  });
}

TEST_P(Texts, BeginAndEndAndBreakLinesAsTheirKeys) {
  forEachText(GetParam(), [](const std::string& key, const std::string& text) {
    EXPECT_EQ(whiteSpaceBefore(text), whiteSpaceBefore(key));
    EXPECT_EQ(whiteSpaceAfter(text), whiteSpaceAfter(key));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(key.begin(), key.end(), '\n'));
  });
}

std::string nameOf(const ::testing::TestParamInfo<TextTable>& info) {
  return std::string(info.param.folder.substr(0, info.param.folder.find('.')));
}

INSTANTIATE_TEST_SUITE_P(Tables, Texts, ::testing::ValuesIn(test::kTextTables), nameOf);
INSTANTIATE_TEST_SUITE_P(Tables, TextsByEnglish,
                         ::testing::Values(test::kSettingsTexts, test::kSystemTexts,
                                           test::kMessagesTexts),
                         nameOf);

TEST(TextPlaces, AreFoundInOrder) {
  EXPECT_EQ(placesIn("%@ has %ld of 100%% in '%2$@'"),
            (std::vector<std::string>{"%@", "%ld", "%2$@"}));
  EXPECT_EQ(placesIn("nothing"), std::vector<std::string>());
}

}  // namespace
}  // namespace zephyl
