#include "apps/springboard/GroupsSafety.h"

#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "apps/springboard/SaveDescription.h"
#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::app {
namespace {

Value group(int identifier, const char* title, bool enabled = true) {
  return Dictionary{{"identifier", identifier}, {"title", title}, {"enabled", enabled}};
}

std::string described(const Array& before, const Array& after) {
  return describeSave(writeXmlPropertyList(Value(before)), writeXmlPropertyList(Value(after)));
}

TEST(SaveDescriptionTest, OneGroupIsNamed) {
  const Value work = group(1, "Work");
  const Value home = group(2, "Home");
  EXPECT_EQ(described({work, home}, {home}), "before \"Work\" was deleted");
  EXPECT_EQ(described({work}, {work, home}), "before \"Home\" was added");
  EXPECT_EQ(described({work, home}, {group(1, "Work", false), home}),
            "before \"Work\" was changed");
  EXPECT_EQ(described({work}, {group(1, "Job")}), "before \"Work\" was renamed \"Job\"");
}

TEST(SaveDescriptionTest, SeveralAreCounted) {
  const Value work = group(1, "Work");
  const Value home = group(2, "Home");
  EXPECT_EQ(described({}, {work, home}), "before 2 groups were added");
  EXPECT_EQ(
      described({work, home, group(3, "Club")}, {group(4, "Choir"), group(1, "Job")}),
      "before 2 groups were deleted and \"Choir\" was added and \"Work\" was renamed \"Job\"");
}

TEST(SaveDescriptionTest, TwoOfOneIdentifierAreTwoGroups) {
  EXPECT_EQ(described({group(1, "Work"), group(1, "Twin")}, {group(1, "Work")}),
            "before \"Twin\" was deleted");
}

TEST(SaveDescriptionTest, WhatHasNoTitleIsAGroup) {
  EXPECT_EQ(described({Dictionary{{"identifier", 5}}}, {}), "before a group was deleted");
}

TEST(SaveDescriptionTest, OrderAndFormAloneAreNoChangeOfAGroup) {
  EXPECT_EQ(described({group(1, "A"), group(2, "B")}, {group(2, "B"), group(1, "A")}),
            "before the groups were written anew");
  EXPECT_EQ(describeSave("rubbish", "rubbish too"), "before the groups were written anew");
}

TEST(GroupsSafetyTest, OneGroupAmongOtherThingsIsEnough) {
  EXPECT_TRUE(whyNoGroupsAtAll(""));
  EXPECT_TRUE(whyNoGroupsAtAll("<plist version=\"1.0\"><dict/></plist>"));
  EXPECT_TRUE(whyNoGroupsAtAll(writeXmlPropertyList(Value(Array{5}))));
  EXPECT_FALSE(whyNoGroupsAtAll(writeXmlPropertyList(Value(Array{}))));
  EXPECT_FALSE(whyNoGroupsAtAll(writeXmlPropertyList(Value(Array{5, group(1, "Work")}))));
}

TEST(GroupsSafetyTest, ADeviceRootHasOneFolderHoweverItIsNamed) {
  const contract::TemporaryFolder top;
  std::filesystem::create_directories(top.path() + "/one/device");
  std::filesystem::create_directories(top.path() + "/two/device");
  std::filesystem::create_directory_symlink(top.path() + "/one", top.path() + "/link");
  const std::string folder = groupCopiesFolder("/state", top.path() + "/one/device");
  EXPECT_TRUE(folder.starts_with("/state/copies/device-"));
  EXPECT_EQ(groupCopiesFolder("/state", top.path() + "/one/device/"), folder);
  EXPECT_EQ(groupCopiesFolder("/state", top.path() + "/link/../one/./device"), folder);
  EXPECT_EQ(groupCopiesFolder("/state", top.path() + "/link/device"), folder);
  EXPECT_NE(groupCopiesFolder("/state", top.path() + "/two/device"), folder);
}

TEST(GroupsSafetyTest, ProgramsOfOneDeviceRootShareNotesWhateverTheirStateFolders) {
  const linux_host::SafetyOptions one = safetyOfGroups("/one", "/device");
  const linux_host::SafetyOptions two = safetyOfGroups("/two", "/device");
  EXPECT_EQ(one.notes, "/device/safety");
  EXPECT_EQ(two.notes, one.notes);
  EXPECT_NE(two.folder, one.folder);
}

}  // namespace
}  // namespace zephyl::app
