// Why the finger is asked for, letter for letter, and what is told of a check that failed.

#include "services/GroupProtection.h"

#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "model/ZPLocalizedText.h"

namespace zephyl {
namespace {

class GroupProtectionTest : public ::testing::Test {
 protected:
  fake::Device device_;
};

TEST_F(GroupProtectionTest, TitlesAreJoinedIntoOnePhrase) {
  EXPECT_EQ(joinedTitles({}), "");
  EXPECT_EQ(joinedTitles({"A"}), "A");
  EXPECT_EQ(joinedTitles({"A", "B"}), "A and B");
  EXPECT_EQ(joinedTitles({"A", "B", "C"}), "A, B and C");
  EXPECT_EQ(joinedTitles({"A", "B", "C", "D"}), "A, B, C and D");
}

TEST_F(GroupProtectionTest, OneGroupIsOpenedByItsTitle) {
  EXPECT_EQ(reasonToOpenGroup("Work"),
            "Group 'Work' is protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupProtectionTest, OneGroupIsDeletedAsOne) {
  EXPECT_EQ(reasonToDeleteGroups({"A"}),
            "Group 'A' is protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupProtectionTest, SeveralGroupsAreDeletedAsMany) {
  EXPECT_EQ(reasonToDeleteGroups({"A", "B", "C"}),
            "Groups 'A, B and C' are protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupProtectionTest, GroupsThatAreAddedToAreNotNamed) {
  EXPECT_EQ(reasonToAddToGroups(),
            "Few groups are protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupProtectionTest, ATitleThatLooksLikeAPlaceIsOnlyShown) {
  EXPECT_EQ(reasonToDeleteGroups({"%@", "100%"}),
            "Groups '%@ and 100%' are protected. Please authenticate uisng your finger print.");
}

TEST_F(GroupProtectionTest, TheTextsAreLocalized) {
  device_.files().put(
      std::string(kZephylsSettingsBundlePath) + "/en.lproj/Localizable.strings",
      "\"%@ '%@' %@ protected. Please authenticate uisng your finger print.\" = \"%@ <%@> %@!\";"
      "\"Groups\" = \"Gruppen\"; \"are\" = \"sind\";");
  EXPECT_EQ(reasonToDeleteGroups({"A", "B"}), "Gruppen <A and B> sind!");
}

TEST_F(GroupProtectionTest, AFailureWithoutAnErrorIsTold) {
  EXPECT_EQ(whyNotRecognized(nullptr), "Unable to verify your identity.");
}

TEST_F(GroupProtectionTest, AnErrorIsToldByItsDescription) {
  const NSError error("com.example", -8, {{kNSLocalizedDescriptionKey, "Locked out."}});
  EXPECT_EQ(whyNotRecognized(&error), "Unable to verify your identity. Error: 'Locked out.'");
}

TEST_F(GroupProtectionTest, NothingIsToldOfACheckThatWasCancelled) {
  for (const std::int64_t code : {-2, -4}) {
    const NSError error("any.domain", code, {{kNSLocalizedDescriptionKey, "Cancelled."}});
    EXPECT_EQ(whyNotRecognized(&error), std::nullopt) << code;
  }
  const NSError other("any.domain", -3, {{kNSLocalizedDescriptionKey, "Other."}});
  EXPECT_NE(whyNotRecognized(&other), std::nullopt);
}

TEST_F(GroupProtectionTest, AFormatKeepsThePlacesForWhichThereIsNoText) {
  EXPECT_EQ(zpFilledText("%@ and %@", {"A"}), "A and %@");
  EXPECT_EQ(zpFilledText("no place", {"A"}), "no place");
}

}  // namespace
}  // namespace zephyl
