#include "model/MemberSet.h"

#include <gtest/gtest.h>

namespace zephyl {
namespace {

TEST(MemberSetTest, ANumberAndItsTextDiffer) {
  const MemberSet members{std::int64_t{12}};
  EXPECT_TRUE(members.contains(std::int64_t{12}));
  EXPECT_FALSE(members.contains("12"));
}

TEST(MemberSetTest, EachMemberIsHeldOnceInTheOrderOfArrival) {
  const MemberSet members(Array{"b", 3, "a", "b", 3});
  EXPECT_EQ(members.size(), 3U);
  EXPECT_EQ(members.array(), (Array{"b", 3, "a"}));
}

TEST(MemberSetTest, AddingAndRemovingTellWhetherAnythingChanged) {
  MemberSet members;
  EXPECT_TRUE(members.add("a"));
  EXPECT_FALSE(members.add("a"));
  EXPECT_TRUE(members.remove("a"));
  EXPECT_FALSE(members.remove("a"));
  EXPECT_TRUE(members.empty());
  EXPECT_TRUE(members.array().empty());
}

TEST(MemberSetTest, ARealWithoutFractionIsTheIntegerAndIsWrittenAsItCame) {
  const MemberSet members(Array{7.0, 7.5, 1e300});
  EXPECT_EQ(members.size(), 1U);
  EXPECT_TRUE(members.contains(std::int64_t{7}));
  EXPECT_EQ(members.array(), (Array{7.0, 7.5, 1e300}));
}

TEST(MemberSetTest, ABooleanIsTheIntegerAndIsWrittenAsItCame) {
  const MemberSet members(Array{true, 1});
  EXPECT_EQ(members.size(), 1U);
  EXPECT_TRUE(members.contains(std::int64_t{1}));
  EXPECT_EQ(members.array(), Array{true});
}

TEST(MemberSetTest, ElementsOfOtherTypesAreCarriedBehindTheMembers) {
  const MemberSet members(Array{Date{1}, Data{1}, "a", Array{}, 5});
  EXPECT_EQ(members.size(), 2U);
  EXPECT_EQ(members.array(), (Array{"a", 5, Date{1}, Data{1}, Array{}}));
}

}  // namespace
}  // namespace zephyl
