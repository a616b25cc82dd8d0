// What differs between two lists of groups, and how it is taken back.

#include "apps/common/GroupDifference.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/TestGroups.h"

namespace zephyl::app {
namespace {

using test::GroupBuilder;
using Groups = std::vector<Dictionary>;
using Members = std::vector<Member>;

// That there is one, of a group.
GroupDifference only(const GroupStep& step) {
  EXPECT_EQ(step.size(), 1U);
  return step.empty() ? GroupDifference{Dictionary(), Dictionary()} : step.front();
}
Members membersIn(const Dictionary& group) {
  const MemberSet members(*group[keys::kContacts].ifArray());
  return {members.begin(), members.end()};
}

TEST(GroupDifferenceTest, MembersThatAreGoneHaveLeftAndOthersJoined) {
  const auto difference =
      only(differencesBetween({GroupBuilder(7, "Family").members({1, "+15550100", "12"})},
                              {GroupBuilder(7, "Family").members({2, 1, 12})}));
  EXPECT_EQ(difference.title(), "Family");
  EXPECT_EQ(difference.left(), (Members{"+15550100", "12"}));
  EXPECT_EQ(difference.joined(), (Members{2, 12}));
}

TEST(GroupDifferenceTest, AGroupThatIsGoneLosesNoMembers) {
  const auto gone = only(differencesBetween({GroupBuilder(7, "Family").members({1})}, Groups()));
  EXPECT_FALSE(gone.after);
  EXPECT_EQ(gone.identifier(), 7);
  EXPECT_EQ(gone.left(), Members());
  const auto made = only(differencesBetween({}, {GroupBuilder(7, "Family").members({1})}));
  EXPECT_FALSE(made.before);
  EXPECT_EQ(made.joined(), Members());
}

TEST(GroupDifferenceTest, SelectionAndTimesAreNoDifference) {
  EXPECT_TRUE(differencesBetween({GroupBuilder(7, "A").with(keys::kActive, false)},
                                 {GroupBuilder(7, "A")
                                      .active()
                                      .with(keys::kUpdatedDate, Date{9})
                                      .with(keys::kCreatedDate, Date{9})})
                  .empty());
  EXPECT_EQ(differencesBetween({GroupBuilder(7, "A")}, {GroupBuilder(7, "B")}).size(), 1U);
}

TEST(GroupDifferenceTest, ASystemGroupIsNeitherNewNorGoneButMayDiffer) {
  EXPECT_TRUE(differencesBetween({}, {GroupBuilder(1, "All").system(1)}).empty());
  EXPECT_TRUE(differencesBetween({GroupBuilder(1, "All").system(1)}, {}).empty());
  EXPECT_EQ(differencesBetween({GroupBuilder(1, "All").system(1)},
                               {GroupBuilder(1, "All").system(1).disabled()})
                .size(),
            1U);
}

TEST(GroupDifferenceTest, DifferencesStandInTheOrderOfTheLists) {
  const GroupStep step =
      differencesBetween({GroupBuilder(1, "a"), GroupBuilder(2, "b"), GroupBuilder(3, "c")},
                         {GroupBuilder(4, "d"), GroupBuilder(3, "C"), GroupBuilder(1, "A")});
  std::vector<std::string> titles;
  for (const GroupDifference& difference : step) {
    titles.push_back(difference.title());
  }
  EXPECT_EQ(titles, (std::vector<std::string>{"A", "C", "d", "b"}));
}

TEST(GroupDifferenceTest, WhatIsTakenBackIsAsBefore) {
  const Dictionary before = GroupBuilder(7, "Family").members({1, "+15550100", 2}).with("x", "old");
  const Dictionary after = GroupBuilder(7, "Kin").members({2, 3}).with("y", "new");
  const auto difference = only(differencesBetween({before}, {after}));
  EXPECT_EQ(difference.takenBackFrom(after)["title"], Value("Family"));
  EXPECT_EQ(membersIn(difference.takenBackFrom(after)), (Members{1, "+15550100", 2}));
  EXPECT_EQ(difference.takenBackFrom(after)["x"], Value("old"));
  EXPECT_EQ(difference.takenBackFrom(after).find("y"), nullptr);
}

TEST(GroupDifferenceTest, WhatElseBecameOfTheGroupStays) {
  const auto difference =
      only(differencesBetween({GroupBuilder(7, "Family").members({1, "+15550100"})},
                              {GroupBuilder(7, "Family").members({1, 5})}));
  const Dictionary back =
      difference.takenBackFrom(GroupBuilder(7, "Kin").members({5, 9}).disabled());
  EXPECT_EQ(back["title"], Value("Kin"));
  EXPECT_FALSE(back["enabled"].boolValue());
  EXPECT_EQ(membersIn(back), (Members{9, "+15550100"}));
}

// Such as a member of an odd type.
TEST(GroupDifferenceTest, ElementsThatAreNoMembersAreCarriedAlong) {
  const auto difference =
      only(differencesBetween({GroupBuilder(7, "A").members({1, Data{4, 2}, "x"})},
                              {GroupBuilder(7, "A").members({1, Data{4, 2}})}));
  const Dictionary back =
      difference.takenBackFrom(GroupBuilder(7, "A").members({Data{4, 2}, 1, 8}));
  const Value contacts = back["contacts"];
  EXPECT_EQ(*contacts.ifArray(), (Array{1, 8, "x", Data{4, 2}}));
}

TEST(GroupDifferenceTest, OfGroupsWithOneIdentifierOnlyTheFirstCounts) {
  const Groups twice{GroupBuilder(7, "A"), GroupBuilder(7, "B")};
  EXPECT_TRUE(differencesBetween(twice, twice).empty());
  EXPECT_EQ(differencesBetween(twice, {}).size(), 1U);
}

}  // namespace
}  // namespace zephyl::app
