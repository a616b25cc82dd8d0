// The words for what a step did.

#include "apps/common/GroupStepText.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "model/TestGroups.h"

namespace zephyl::app {
namespace {

using test::GroupBuilder;
using Texts = std::vector<std::string>;

class GroupStepTextTest : public ::testing::Test {
 protected:
  static std::string name(const Member& member) {
    const auto* const number = std::get_if<std::int64_t>(&member);
    return number != nullptr ? "P" + std::to_string(*number) : std::get<std::string>(member);
  }
  static Texts losses(const std::vector<Dictionary>& before, const std::vector<Dictionary>& after) {
    return lossesOf(differencesBetween(before, after), name);
  }
  static std::string summary(const std::vector<Dictionary>& before,
                             const std::vector<Dictionary>& after) {
    return summaryOf(differencesBetween(before, after), name);
  }

  fake::Device device_;
};

TEST_F(GroupStepTextTest, WhoLeftIsToldByName) {
  EXPECT_EQ(losses({GroupBuilder(7, "Family").members({1, "+15550100"})},
                   {GroupBuilder(7, "Family").members({2})}),
            (Texts{"No longer in the group 'Family': P1, +15550100."}));
}

TEST_F(GroupStepTextTest, ManyAreCounted) {
  const Dictionary before = GroupBuilder(7, "Family").members({1, 2, 3, 4, 5});
  EXPECT_EQ(losses({before}, {GroupBuilder(7, "Family").members({5})}),
            (Texts{"No longer in the group 'Family': P1, P2, P3 and 1 more."}));
  EXPECT_EQ(losses({before}, {GroupBuilder(7, "Family").members({4, 5})}),
            (Texts{"No longer in the group 'Family': P1, P2, P3."}));
}

TEST_F(GroupStepTextTest, DeletedGroupsAreToldTogether) {
  const std::vector<Dictionary> groups{GroupBuilder(1, "a"), GroupBuilder(2, "b"),
                                       GroupBuilder(3, "c"), GroupBuilder(4, "d")};
  EXPECT_EQ(losses({groups[0]}, {}), (Texts{"The group 'a' is deleted."}));
  EXPECT_EQ(losses({groups[0], groups[1]}, {}), (Texts{"These groups are deleted: a, b."}));
  EXPECT_EQ(losses(groups, {}), (Texts{"These groups are deleted: a, b, c and 1 more."}));
}

TEST_F(GroupStepTextTest, WhatIsNotLostIsInTheSummaryOnly) {
  EXPECT_EQ(losses({GroupBuilder(7, "a").members({1})}, {GroupBuilder(7, "b").members({1, 2})}),
            Texts());
  EXPECT_EQ(summary({GroupBuilder(7, "a").members({1})}, {GroupBuilder(7, "b").members({1, 2})}),
            "Now in the group 'b': P2.");
  EXPECT_EQ(summary({GroupBuilder(7, "a")}, {GroupBuilder(7, "b")}), "The group 'b' is changed.");
  EXPECT_EQ(summary({}, {GroupBuilder(7, "b").members({1})}), "The group 'b' is new.");
}

TEST_F(GroupStepTextTest, TheSummaryBeginsWithTheLosses) {
  EXPECT_EQ(summary({GroupBuilder(7, "a").members({1}), GroupBuilder(8, "b")},
                    {GroupBuilder(7, "a").members({2})}),
            "No longer in the group 'a': P1. The group 'b' is deleted. Now in the group 'a': P2.");
  EXPECT_EQ(summary({}, {}), "");
}

// A name may hold what stands for a name in the texts.
TEST_F(GroupStepTextTest, PlacesInNamesAreNotFilled) {
  EXPECT_EQ(
      losses({GroupBuilder(7, "%@").members({"%@", "x"})}, {GroupBuilder(7, "%@").members({})}),
      (Texts{"No longer in the group '%@': %@, x."}));
}

}  // namespace
}  // namespace zephyl::app
