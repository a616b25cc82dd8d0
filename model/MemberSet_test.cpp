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

TEST(MemberSetTest, ACopyOfNoSetIsEmptyAndOneOfASetLeavesItAlone) {
  EXPECT_TRUE(membersOrNone(nullptr).empty());
  const MemberSet members(Array{"a", Date{1}});
  MemberSet copy = membersOrNone(&members);
  copy.add("b");
  EXPECT_EQ(copy.array(), (Array{"a", "b", Date{1}}));
  EXPECT_EQ(members.array(), (Array{"a", Date{1}}));
}

TEST(MemberKindTest, ANumberOfOneOrMoreIsAPerson) {
  EXPECT_EQ(memberKind(std::int64_t{1}), MemberKind::kPerson);
  EXPECT_EQ(memberKind(std::int64_t{1} << 40U), MemberKind::kPerson);
  EXPECT_EQ(memberKind(std::int64_t{0}), MemberKind::kAddress);
  EXPECT_EQ(memberKind(std::int64_t{-5}), MemberKind::kAddress);
}

// Kept: phone numbers among them.
TEST(MemberKindTest, ATextThatBeginsWithANumberIsAPersonToo) {
  for (const char* text : {"12", " 12", "+15550100", "5550100", "1-800-MY-APPLE", "7@b.example",
                           "99999999999999999999"}) {
    EXPECT_EQ(memberKind(text), MemberKind::kPerson) << text;
  }
  EXPECT_EQ(memberNumber("+15550100"), 15550100);
  EXPECT_EQ(memberNumber(" 12x"), 12);
}

TEST(MemberKindTest, AConversationIsToldByTheBeginningOfItsGuid) {
  for (const char* text : {"SMS;-;+15550100", "sms;-;22000", "iMessage;+;chat1", "SMS"}) {
    EXPECT_EQ(memberKind(text), MemberKind::kConversation) << text;
  }
  for (const char* text : {"Sms;-;1", "imessage;-;1", "any;-;1", " SMS;-;1"}) {
    EXPECT_EQ(memberKind(text), MemberKind::kAddress) << text;
  }
}

TEST(MemberKindTest, AnyOtherTextIsAnAddress) {
  for (const char* text : {"ada@example.com", "0", "-12", "*100#", "tel:+1555", ""}) {
    EXPECT_EQ(memberKind(text), MemberKind::kAddress) << text;
    EXPECT_LT(memberNumber(text), 1) << text;
  }
}

}  // namespace
}  // namespace zephyl
