#include "model/GroupsFileCheck.h"

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"

#include "model/TestGroups.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

std::vector<std::string> reasons(const Array& groups) {
  std::vector<std::string> texts;
  for (const GroupsFileProblem& problem : problemsOfGroups(groups)) {
    texts.push_back(problem.place + " " + problem.reason);
  }
  return texts;
}

TEST(GroupsFileCheckTest, AnArrayOfDictionariesIsAGroupsFile) {
  EXPECT_EQ(whyNoGroupsFile("<plist><array/></plist>"), std::nullopt);
  EXPECT_EQ(whyNoGroupsFile("<plist><array><dict/></array></plist>"), std::nullopt);
}

TEST(GroupsFileCheckTest, EverythingElseIsNoneAndTheReasonSaysWhere) {
  EXPECT_EQ(whyNoGroupsFile("<plist><dict/></plist>"), "the root is a dictionary, not an array");
  EXPECT_EQ(whyNoGroupsFile("<plist><array><dict/><true/></array></plist>"),
            "element 2 is a boolean, not a dictionary");
  EXPECT_NE(whyNoGroupsFile("<plist>\n<array>\n<dict>")->find("line 3"), std::string::npos);
  EXPECT_TRUE(whyNoGroupsFile(""));
}

TEST(GroupsFileCheckTest, GroupsAsTheLibraryWritesThemHaveNoProblems) {
  EXPECT_EQ(reasons({Dictionary(GroupBuilder(1, "Work").members({12, "+15550100"})),
                     Dictionary(GroupBuilder(2, "All").system(1))}),
            std::vector<std::string>());
}

TEST(GroupsFileCheckTest, EachProblemNamesItsGroupAndKey) {
  const Array groups{Dictionary(GroupBuilder(1, "Work").with("enabled", "yes").with("later", 1)),
                     5,
                     Dictionary(GroupBuilder(1, "Twin").members({1, 1, Date{0}})),
                     Dictionary(GroupBuilder(0, "None").system(9)),
                     Dictionary(GroupBuilder(5, "A").system(1)),
                     Dictionary(GroupBuilder(6, "B").system(1))};
  const std::string work = "group 1 (Work), key ";
  const std::string twin = "group 3 (Twin), key ";
  const std::string none = "group 4 (None), key ";
  const std::vector<std::string> expected = {
      work + "enabled is a text, not a boolean; it is read as the nearest value and kept",
      work + "later is not known; it is kept",
      "element 2 is an integer, not a dictionary; it is no group and goes with the next save",
      twin + "identifier 1 belongs to an earlier group too; the two count as one group",
      twin + "contacts 1 elements are neither numbers nor texts; they are kept but are no members",
      twin + "contacts 1 members stand there more than once",
      none + "identifier is missing or below 1; the group gets a new one with the next save",
      none + "zephylSystemMode 9 is no system group; it shows nothing",
      "group 6 (B), key zephylSystemMode the same system group stands there more than once"};
  EXPECT_EQ(reasons(groups), expected);
}

}  // namespace
}  // namespace zephyl
