// Finding contacts by words: the words, the rule, and that the fast way follows it.

#include "ui/people/ContactSearch.h"

#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "contacts/testing/PersonBuilder.h"
#include "hosts/fake/Device.h"
#include "ui/people/PeopleTest.h"

namespace zephyl {
namespace {

using test::contactOf;
using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

bool finds(const PersonBuilder& person, const std::string& text) {
  const auto contact = contactOf(person);
  const auto words = searchWords(text);
  const bool isFound = contactMatches(*contact, words);
  ContactSearch search({contact});
  EXPECT_EQ(search.find(words).size(), isFound ? 1U : 0U) << text;
  return isFound;
}

class ContactSearchTest : public ::testing::Test {
 protected:
  fake::Device device_;
};

TEST_F(ContactSearchTest, WordsArePartedAtEachSpace) {
  EXPECT_THAT(searchWords("an lon"), ElementsAre("an", "lon"));
  EXPECT_THAT(searchWords("an  lon"), ElementsAre("an", "", "lon"));
  EXPECT_THAT(searchWords("a   b"), ElementsAre("a", "", "", "b"));
  EXPECT_THAT(searchWords("an\tlon"), ElementsAre("an\tlon"));
}

TEST_F(ContactSearchTest, WhiteSpaceAroundTheTextIsNoMatter) {
  EXPECT_THAT(searchWords(" \t\u00a0\u3000an lon \u2003 "), ElementsAre("an", "lon"));
  for (const char* blank : {"", " ", "   ", "\t \u00a0"}) {
    EXPECT_THAT(searchWords(blank), IsEmpty()) << blank;
  }
  // A line break is no white space of a line; bytes that are no text stay.
  EXPECT_THAT(searchWords("\n a"), ElementsAre("\n", "a"));
  EXPECT_THAT(searchWords("\xa0 a \xff"), ElementsAre("\xa0", "a", "\xff"));
}

TEST_F(ContactSearchTest, EverybodyIsFoundWithoutWords) {
  EXPECT_TRUE(finds(PersonBuilder(1), ""));
  EXPECT_TRUE(finds(PersonBuilder(1, "Ann"), "  "));
}

TEST_F(ContactSearchTest, EveryTextThatIsSearchedIsFound) {
  PersonBuilder person(1, "Anna", "Reed");
  person.email("first@example.com").email("second@example.org");
  person.address({"1 Long Lane", "Pickhurst", "Kent", "90210", "Utopia", "ut"});
  person.address({"", "London", "", "", "", ""});
  for (const char* text : {"Anna", "na Re", "first@", "second@example.org", "Long Lane",
                           "Pickhurst", "90210", "Utopia", "ut", "London"}) {
    EXPECT_TRUE(finds(person, text)) << text;
  }
}

TEST_F(ContactSearchTest, OtherTextsAreNotSearched) {
  PersonBuilder person(1, "Anna", "Reed");
  person.named("A. R.").company("Works").phone("5550100");
  person.address({"", "", "Kent", "", "", ""});
  for (const char* text : {"Anna", "Reed", "Works", "555", "Kent"}) {
    EXPECT_FALSE(finds(person, text)) << text;
  }
}

TEST_F(ContactSearchTest, EachWordMustOccurSomewhere) {
  EXPECT_TRUE(finds(PersonBuilder(1, "Anna", "Longman"), "an lon"));
  PersonBuilder inLondon(2, "Hans", "Meyer");
  inLondon.address({"", "London", "", "", "", ""});
  EXPECT_TRUE(finds(inLondon, "an lon"));
  EXPECT_TRUE(finds(inLondon, "lon an"));
  EXPECT_FALSE(finds(inLondon, "an paris"));
  EXPECT_FALSE(finds(PersonBuilder(3, "Anna", "Reed"), "an lon"));
}

TEST_F(ContactSearchTest, AWordMustOccurInOneText) {
  PersonBuilder person(1, "Ann");
  person.email("bob");
  EXPECT_FALSE(finds(person, "nnb"));
  EXPECT_FALSE(finds(person,
                     "ann\xff"
                     "bob"));
}

TEST_F(ContactSearchTest, CaseDoesNotMatterAndAccentsDo) {
  EXPECT_TRUE(finds(PersonBuilder(1, "ANNA"), "anna"));
  EXPECT_TRUE(finds(PersonBuilder(1, "anna"), "NN"));
  EXPECT_TRUE(finds(PersonBuilder(1, "\u0418\u0432\u0430\u043d"), "\u0438\u0412\u0410\u041d"));
  EXPECT_TRUE(finds(PersonBuilder(1, "M\u00dcLLER"), "m\u00fcller"));
  EXPECT_FALSE(finds(PersonBuilder(1, "M\u00fcller"), "muller"));
  EXPECT_FALSE(finds(PersonBuilder(1, "Muller"), "m\u00fc"));
}

// Kept: the platform finds an empty text nowhere.
TEST_F(ContactSearchTest, AnEmptyWordIsFoundNowhere) {
  EXPECT_FALSE(finds(PersonBuilder(1, "Anna", "Longman"), "an  lon"));
}

TEST_F(ContactSearchTest, EndlessAndBrokenTextsDoNoHarm) {
  PersonBuilder person(1, std::string(10'000, 'x'));
  EXPECT_TRUE(finds(person, std::string(10'000, 'X')));
  EXPECT_FALSE(finds(person, std::string(10'001, 'x')));
  PersonBuilder broken(2, "A\xff\xc3");
  EXPECT_TRUE(finds(broken, "a\xff"));
  EXPECT_TRUE(finds(broken, "\xc3"));
  EXPECT_FALSE(finds(broken, "\xfe"));
  std::string many;
  for (int i = 0; i < 5'000; ++i) {
    many += "x ";
  }
  EXPECT_TRUE(finds(person, many));
}

TEST_F(ContactSearchTest, NobodyIsFoundAmongNobody) {
  ContactSearch search({});
  EXPECT_THAT(search.find({"a"}), IsEmpty());
  EXPECT_THAT(search.find({}), IsEmpty());
}

APContactArray randomContacts(std::mt19937& random, std::size_t count) {
  const std::vector<std::string> parts = {"an",  "na", "lo", "n",    "b",  "\u00fc", "\u00dc",
                                          "LON", "x",  " ",  "\xff", "90", "\u0438", "\u0418"};
  const auto text = [&] {
    std::string made;
    for (std::size_t length = random() % 5; length > 0; --length) {
      made += parts[random() % parts.size()];
    }
    return made;
  };
  APContactArray contacts;
  for (std::size_t i = 0; i < count; ++i) {
    PersonBuilder person(static_cast<std::int32_t>(i));
    person.named(text());
    for (std::size_t emails = random() % 3; emails > 0; --emails) {
      person.email(text());
    }
    if (random() % 3 == 0) {
      person.address({text(), text(), "", text(), "", text()});
    }
    contacts.push_back(contactOf(person));
  }
  return contacts;
}

// As a user types: letters are added and taken away, words begun.
TEST_F(ContactSearchTest, TheFastWayIsTheRuleWhateverIsTyped) {
  std::mt19937 random(5);
  const std::string keys = "anlobx9 \b\b";
  for (int round = 0; round < 40; ++round) {
    const APContactArray contacts = randomContacts(random, random() % 200);
    ContactSearch search(contacts);
    std::string text;
    for (int stroke = 0; stroke < 40; ++stroke) {
      const char key = keys[random() % keys.size()];
      if (key != '\b') {
        text += random() % 20 == 0 ? std::string("\u0438") : std::string(1, key);
      } else if (!text.empty()) {
        text.pop_back();
      }
      const auto words = searchWords(text);
      APContactArray expected;
      for (const APContactRef& contact : contacts) {
        if (contactMatches(*contact, words)) {
          expected.push_back(contact);
        }
      }
      ASSERT_EQ(search.contactsMatching(words), expected) << text;
    }
  }
}

}  // namespace
}  // namespace zephyl
