// The sections of several languages, and the order of their texts.

#include "hosts/linux/contacts/LinuxCollation.h"

#include <algorithm>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/Utf8.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;

std::string sectionOf(LinuxCollation& collation, const std::string& text) {
  return collation.sectionTitles().at(collation.sectionForString(text));
}

std::string keyOf(LinuxCollation& collation, const std::string& text) {
  std::string key;
  collation.appendSortKey(text, key);
  return key;
}

TEST(LinuxCollationTest, AccentsThatMakeNoLetterDoNotMatter) {
  LinuxCollation english({"en"});
  EXPECT_EQ(sectionOf(english, "\u00c5ngstr\u00f6m"), "A");
  EXPECT_EQ(sectionOf(english, "\u00e9mile"), "E");
  LinuxCollation swedish({"sv"});
  EXPECT_EQ(sectionOf(swedish, "\u00c5ngstr\u00f6m"), "\u00c5");
}

TEST(LinuxCollationTest, EveryLanguageOfTheUserHasItsLetters) {
  LinuxCollation collation({"de", "ru", "ja", "ar"});
  EXPECT_THAT(collation.sectionTitles(),
              IsSupersetOf({"A", "Z", "\u0410", "\u3042", "\u0627", "#"}));
  EXPECT_EQ(sectionOf(collation, "\u0438\u0432\u0430\u043d"), "\u0418");
  EXPECT_EQ(sectionOf(collation, "\u30bf\u30ca\u30ab"), "\u305f");
  EXPECT_EQ(sectionOf(collation, "\u05d0"), "#");
  EXPECT_EQ(collation.sectionTitles().back(), "#");
}

TEST(LinuxCollationTest, ALanguageThatIsNoneIsEnglish) {
  for (const std::vector<std::string>& languages :
       {std::vector<std::string>(), {"not a tag"}, {""}, {"xx-YY"}}) {
    LinuxCollation collation(languages);
    EXPECT_THAT(collation.sectionTitles(), SizeIs(27));
  }
}

TEST(LinuxCollationTest, TextsSortAsTheLanguageHasIt) {
  LinuxCollation german({"de"});
  EXPECT_LT(keyOf(german, "M\u00fcller"), keyOf(german, "Muz"));
  EXPECT_LT(keyOf(german, "muller"), keyOf(german, "M\u00fcller"));
  LinuxCollation swedish({"sv"});
  EXPECT_LT(keyOf(swedish, "Zorn"), keyOf(swedish, "\u00d6berg"));
  EXPECT_EQ(keyOf(german, "e\u0301"), keyOf(german, "\u00e9"));
}

TEST(LinuxCollationTest, AnyThreadMayBeTheFirst) {
  LinuxCollation collation({"en"});
  std::vector<std::thread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] { EXPECT_EQ(sectionOf(collation, "Anna"), "A"); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
}

// Texts of one to four characters from everywhere, sorted.
std::vector<std::string> sortedTexts(LinuxCollation& collation) {
  std::mt19937 random(7);
  const std::u32string characters =
      U"aAbzZ\u00e9\u00c5\u00dfs\u010dch\u017e019 .-\u03b1\u03a9\u0430\u042f\u0451\u05d0\u05ea"
      U"\u0627\u064a\u3042\u30a2\u30f3\u4e00\u963f\u5f20\u674e\uac00\ud558\u0e01\U0001f600";
  std::uniform_int_distribution<std::size_t> pick(0, characters.size() - 1);
  std::vector<std::string> texts(3000);
  for (std::string& text : texts) {
    for (std::size_t length = random() % 4 + 1; length > 0; --length) {
      appendUtf8(text, characters[pick(random)]);
    }
  }
  std::sort(texts.begin(), texts.end(), [&](const auto& left, const auto& right) {
    return keyOf(collation, left) < keyOf(collation, right);
  });
  return texts;
}

TEST(LinuxCollationTest, ManyAtOnceAreWhereEachIsInAnyLanguage) {
  for (const char* language : {"en", "de", "ru", "ar", "he", "ja", "ko", "cs", "hu", "hr", "sv",
                               "zh-Hans", "zh-Hant", "th", "vi"}) {
    LinuxCollation collation({language, "ja"});
    const auto texts = sortedTexts(collation);
    std::vector<const std::string*> pointers;
    std::vector<std::size_t> expected;
    for (const std::string& text : texts) {
      pointers.push_back(&text);
      expected.push_back(collation.sectionForString(text));
    }
    EXPECT_EQ(collation.sectionsForSortedStrings(pointers), expected) << language;
  }
}

}  // namespace
}  // namespace zephyl::linux_host
