// Contacts in sections: the rule, and that the fast way follows it.

#include "ui/people/ContactPartition.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Collation.h"

#include "contacts/testing/PersonBuilder.h"
#include "hosts/fake/Device.h"
#include "ui/people/PeopleTest.h"

namespace zephyl {
namespace {

using test::contactOf;
using test::PersonBuilder;

constexpr auto kByLast = ABPersonSortOrdering::kByLastName;
constexpr auto kByFirst = ABPersonSortOrdering::kByFirstName;

class ContactPartitionTest : public ::testing::Test {
 protected:
  // By the rule and the fast way, which must be the same.
  std::string partitioned(const APContactArray& contacts, ABPersonSortOrdering ordering = kByLast) {
    const ContactSections sections = contactSectionsByTheRule(contacts, ordering);
    EXPECT_EQ(partition_.sections(contacts, ordering), sections);
    return test::namesIn(sections, device_.collation().sectionTitles());
  }

  fake::Device device_;
  ContactPartition partition_;
};

TEST_F(ContactPartitionTest, WithoutContactsEverySectionIsEmpty) {
  EXPECT_EQ(emptyContactSections().size(), 27U);
  EXPECT_EQ(partitioned({}), "");
  EXPECT_EQ(partition_.sections({}, kByLast), emptyContactSections());
}

TEST_F(ContactPartitionTest, OfTheSameFirstPhoneTheFirstCardIsListed) {
  EXPECT_EQ(partitioned({contactOf(PersonBuilder(1, "Zoe", "Ash").phone("1").phone("2")),
                         contactOf(PersonBuilder(2, "Ann", "Ash").phone("1")),
                         contactOf(PersonBuilder(3, "Bob", "Ash").phone("2")),
                         contactOf(PersonBuilder(4, "Cid", "Ash")),
                         contactOf(PersonBuilder(5, "Dan", "Ash"))}),
            "A:Bob Ash,Cid Ash,Dan Ash,Zoe Ash");
}

TEST_F(ContactPartitionTest, PhonesAreComparedAsTheyAreWritten) {
  EXPECT_EQ(partitioned({contactOf(PersonBuilder(1, "Ann").phone("555 1")),
                         contactOf(PersonBuilder(2, "Abe").phone("5551")),
                         contactOf(PersonBuilder(3, "Ali").phone("")),
                         contactOf(PersonBuilder(4, "Ada").phone(""))}),
            "A:Abe,Ali,Ann");
}

TEST_F(ContactPartitionTest, TheSectionIsByTheNameThatTheUserSortsBy) {
  const APContactArray contacts = {
      contactOf(PersonBuilder(1, "Ann", "Reed")), contactOf(PersonBuilder(2, "Bob")),
      contactOf(PersonBuilder(3, "", "Cole")), contactOf(PersonBuilder(4).company("Dash")),
      contactOf(PersonBuilder(5).named("7 Up"))};
  EXPECT_EQ(partitioned(contacts, kByLast), "B:Bob C:Cole D:Dash R:Ann Reed #:7 Up");
  EXPECT_EQ(partitioned(contacts, kByFirst), "A:Ann Reed B:Bob C:Cole D:Dash #:7 Up");
}

TEST_F(ContactPartitionTest, ASectionIsOrderedByLastNamesThenByFirstNames) {
  EXPECT_EQ(
      partitioned(
          {contactOf(PersonBuilder(1, "Zoe", "Reed")), contactOf(PersonBuilder(2, "Ann", "Rowe")),
           contactOf(PersonBuilder(3, "bob", "Reed")), contactOf(PersonBuilder(4, "Ann", "Reed")),
           contactOf(PersonBuilder(5, "Abe", "Rand"))}),
      "R:Abe Rand,Ann Reed,bob Reed,Zoe Reed,Ann Rowe");
}

// The order within a section does not change with the sort order of the user.
TEST_F(ContactPartitionTest, AlsoByFirstNameTheSectionIsOrderedByLastNames) {
  EXPECT_EQ(partitioned({contactOf(PersonBuilder(1, "Ann", "Zander")),
                         contactOf(PersonBuilder(2, "Abe", "Ash")),
                         contactOf(PersonBuilder(3, "Ada").named("Ada of Lund"))},
                        kByFirst),
            "A:Ada of Lund,Abe Ash,Ann Zander");
}

// "REED" and "Reed" sort alike and are not the same: runs of one are told apart as they stand.
TEST_F(ContactPartitionTest, NamesThatSortAlikeAndDifferMakeRunsOfTheirOwn) {
  EXPECT_EQ(
      partitioned(
          {contactOf(PersonBuilder(1, "Zoe", "Reed")), contactOf(PersonBuilder(2, "Bob", "Reed")),
           contactOf(PersonBuilder(3, "Ann", "REED")), contactOf(PersonBuilder(4, "Cid", "Reed")),
           contactOf(PersonBuilder(5, "Abe", "Reed"))}),
      "R:Bob Reed,Zoe Reed,Ann REED,Abe Reed,Cid Reed");
}

TEST_F(ContactPartitionTest, SomeOfThoseItKnowsAreInTheSameOrder) {
  const auto ann = contactOf(PersonBuilder(1, "Ann", "Reed").phone("1"));
  const auto bob = contactOf(PersonBuilder(2, "Bob", "Reed").phone("1"));
  const auto cid = contactOf(PersonBuilder(3, "Cid", "Ash"));
  EXPECT_EQ(partitioned({bob, ann, cid}), "A:Cid Ash R:Bob Reed");
  EXPECT_EQ(partitioned({ann, cid}), "A:Cid Ash R:Ann Reed");
  EXPECT_EQ(partitioned({cid, cid}), "A:Cid Ash,Cid Ash");
  EXPECT_EQ(partitioned({bob}), "R:Bob Reed");
  const auto dan = contactOf(PersonBuilder(4, "Dan", "Reed"));
  EXPECT_EQ(partitioned({dan, ann}), "R:Ann Reed,Dan Reed");
  EXPECT_EQ(partitioned({cid, dan}), "A:Cid Ash R:Dan Reed");
}

TEST_F(ContactPartitionTest, OtherSectionsAreLookedForAnew) {
  const APContactArray contacts = {contactOf(PersonBuilder(1, "Ann")),
                                   contactOf(PersonBuilder(2, "Bob"))};
  EXPECT_EQ(partitioned(contacts), "A:Ann B:Bob");
  device_.collation().setSectionTitles({"B"});
  EXPECT_EQ(partitioned(contacts), "B:Bob #:Ann");
}

TEST_F(ContactPartitionTest, OddNamesAreListed) {
  EXPECT_EQ(partitioned({contactOf(PersonBuilder(1, std::string(10'000, 'x'), "Ash").named("long")),
                         contactOf(PersonBuilder(2, "\xff\xfe", "").named("broken")),
                         contactOf(PersonBuilder(3)), contactOf(PersonBuilder(4, " "))}),
            "A:long #:, ,broken");
}

std::string randomName(std::mt19937& random) {
  const std::vector<std::string> names = {"",     "Ann",  "ann", "ANN", "Bob", "bob", "Reed",
                                          "reed", "REED", "Ash", "ash", "7",   "Zoe", "\u00c4rm"};
  return names[random() % names.size()];
}

TEST_F(ContactPartitionTest, TheFastWayIsTheRuleWhateverTheContacts) {
  std::mt19937 random(3);
  for (int round = 0; round < 300; ++round) {
    APContactArray all;
    for (std::size_t count = random() % 40; count > 0; --count) {
      PersonBuilder person(static_cast<std::int32_t>(count), randomName(random),
                           randomName(random));
      person.named(randomName(random) + "!");
      if (random() % 2 == 0) {
        person.phone(std::to_string(random() % 20));
      }
      all.push_back(contactOf(person));
    }
    const auto ordering = random() % 2 == 0 ? kByLast : kByFirst;
    const ContactSections sections = partition_.sections(all, ordering);
    ASSERT_EQ(sections, contactSectionsByTheRule(all, ordering));
    // A search among them, in the order in which they are listed.
    APContactArray some;
    for (const APContactArray& section : sections) {
      for (const APContactRef& contact : section) {
        if (random() % 3 == 0) {
          some.push_back(contact);
        }
      }
    }
    ASSERT_EQ(partition_.sections(some, ordering), contactSectionsByTheRule(some, ordering));
  }
}

}  // namespace
}  // namespace zephyl
