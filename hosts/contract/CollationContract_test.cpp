#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/foundation/Collation.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class CollationContract : public ContractTest {
 protected:
  Collation& collation() { return host().collation(); }
  std::string sectionOf(const std::string& text) {
    return collation().sectionTitles().at(collation().sectionForString(text));
  }
  std::string key(const std::string& text) {
    std::string keys = "before";
    collation().appendSortKey(text, keys);
    EXPECT_TRUE(keys.starts_with("before"));
    EXPECT_EQ(keys.find('\0'), std::string::npos);
    return keys.substr(6);
  }
};
ZEPHYLS_CONTRACT(CollationContract);

TEST_P(CollationContract, TheLatinLettersHaveSectionsAndTheRestIsLast) {
  const auto titles = collation().sectionTitles();
  ASSERT_EQ(titles.size(), 27U);
  EXPECT_EQ(titles.front(), "A");
  EXPECT_EQ(titles[25], "Z");
  EXPECT_EQ(titles.back(), "#");
}

TEST_P(CollationContract, ATextIsInTheSectionOfItsFirstLetter) {
  EXPECT_EQ(sectionOf("Anna"), "A");
  EXPECT_EQ(sectionOf("anna"), "A");
  EXPECT_EQ(sectionOf("zoe"), "Z");
  EXPECT_EQ(sectionOf("M"), "M");
}

TEST_P(CollationContract, WhatBeginsWithNoLetterIsInTheLast) {
  for (const char* text : {"", "12", "+1 555", "\u65e5\u672c", "\xff\xfe", "\x01"}) {
    EXPECT_EQ(sectionOf(text), "#") << text;
  }
}

TEST_P(CollationContract, SortKeysOrderTextsWithoutRegardToCaseAtFirst) {
  EXPECT_LT(key("anna"), key("Bert"));
  EXPECT_LT(key("Anna"), key("bert"));
  EXPECT_LT(key("Ann"), key("Anna"));
  EXPECT_LT(key(""), key("a"));
  EXPECT_EQ(key("Anna"), key("Anna"));
}

TEST_P(CollationContract, ManySortedTextsAreInTheSectionsOfEach) {
  std::vector<std::string> texts = {"",    "7",   "anna", "Anna",   "Bert", "bob",
                                    "zoe", "Zoe", "Zz",   "\u65e5", "m"};
  std::sort(texts.begin(), texts.end(),
            [this](const auto& left, const auto& right) { return key(left) < key(right); });
  std::vector<const std::string*> pointers;
  std::vector<std::size_t> expected;
  for (const std::string& text : texts) {
    pointers.push_back(&text);
    expected.push_back(collation().sectionForString(text));
  }
  EXPECT_EQ(collation().sectionsForSortedStrings(pointers), expected);
  EXPECT_THAT(collation().sectionsForSortedStrings({}), ElementsAre());
  EXPECT_THAT(expected, Contains(26U));
}

TEST_P(CollationContract, LongTextsHaveKeysToo) {
  const std::string longText(10'000, 'x');
  EXPECT_LT(key(longText), key(longText + "y"));
  EXPECT_EQ(sectionOf(longText), "X");
}

}  // namespace
}  // namespace zephyl::contract
