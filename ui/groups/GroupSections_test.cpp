// Which groups stand in which section, and in which order.

#include "ui/groups/GroupSections.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "model/TestGroups.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Words = std::vector<std::string>;

class GroupSectionsTest : public ::testing::Test {
 protected:
  static ZephylRef made(const GroupBuilder& builder) {
    return std::make_shared<Zephyl>(static_cast<Dictionary>(builder));
  }
  static ZephylRef user(const std::string& title) { return made(GroupBuilder(++next_, title)); }
  static ZephylRef system(const std::string& title) {
    return made(GroupBuilder(++next_, title).system(ZephylSystemModeAll));
  }
  static ZephylRef dated(const std::string& title, double seconds) {
    return made(GroupBuilder(++next_, title).with(keys::kCreatedDate, Date{seconds}));
  }
  static Words titles(const GroupSections& sections, std::int64_t section) {
    Words names;
    for (const ZephylRef& group : sections.groupsIn(section)) {
      names.push_back(group->title());
    }
    return names;
  }
  static GroupSections of(const ZephylVector& groups, const GroupOrder& order = {}) {
    return {groups, /*withSystemGroups=*/true, order};
  }

  static inline std::int64_t next_ = 0;
  fake::Device device_;
};

TEST_F(GroupSectionsTest, SystemGroupsComeFirstWhateverTheStoresOrder) {
  const GroupSections sections = of({user("A"), system("B")});
  EXPECT_EQ(sections.titles(), (SectionKeys{"Default", "User"}));
  EXPECT_EQ(sections.keyOf(0), "Default");
  EXPECT_EQ(sections.keyOf(1), "User");
  EXPECT_EQ(titles(sections, 0), Words{"B"});
  EXPECT_EQ(titles(sections, 1), Words{"A"});
}

TEST_F(GroupSectionsTest, AKeyWithoutGroupsIsNoSection) {
  EXPECT_TRUE(of({}).titles().empty());
  EXPECT_EQ(of({user("A")}).titles(), SectionKeys{"User"});
  EXPECT_EQ(of({user("A")}).keyOf(0), "User");
  EXPECT_EQ(of({system("A")}).titles(), SectionKeys{"Default"});
}

TEST_F(GroupSectionsTest, WithoutSystemGroupsThereIsOneSectionAtMost) {
  const GroupSections sections({system("A"), user("B")}, /*withSystemGroups=*/false, {});
  EXPECT_EQ(sections.titles(), SectionKeys{"User"});
  EXPECT_EQ(titles(sections, 0), Words{"B"});
  EXPECT_TRUE(GroupSections({system("A")}, false, {}).titles().empty());
}

TEST_F(GroupSectionsTest, TitlesAreSortedWithoutRegardToCase) {
  EXPECT_EQ(titles(of({user("b"), user("C"), user("a"), user("B")}), 0),
            (Words{"a", "b", "B", "C"}));
  EXPECT_EQ(titles(of({user("Я"), user("б"), user("А")}), 0), (Words{"А", "б", "Я"}));
}

TEST_F(GroupSectionsTest, AccentsAreNotPassedOver) {
  EXPECT_EQ(titles(of({user("Éa"), user("Ez"), user("F")}), 0), (Words{"Ez", "F", "Éa"}));
}

TEST_F(GroupSectionsTest, DescendingIsTheOtherWay) {
  EXPECT_EQ(titles(of({user("b"), user("C"), user("a")}, {true, false}), 0),
            (Words{"C", "b", "a"}));
}

TEST_F(GroupSectionsTest, WhatIsEqualStaysInTheStoresOrderEitherWay) {
  const ZephylVector groups = {user("x"), user("X"), user("x")};
  for (const bool ascending : {true, false}) {
    EXPECT_EQ(titles(of(groups, {true, ascending}), 0), (Words{"x", "X", "x"})) << ascending;
  }
}

TEST_F(GroupSectionsTest, DatesAreSortedByTime) {
  const ZephylVector groups = {dated("new", 30), dated("old", -10), dated("middle", 20)};
  EXPECT_EQ(titles(of(groups, {false, true}), 0), (Words{"old", "middle", "new"}));
  EXPECT_EQ(titles(of(groups, {false, false}), 0), (Words{"new", "middle", "old"}));
}

TEST_F(GroupSectionsTest, GroupsWithoutADateAreTheOldest) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const ZephylVector groups = {dated("first", -1e9), user("without"), dated("odd", none)};
  EXPECT_EQ(titles(of(groups, {false, true}), 0), (Words{"without", "odd", "first"}));
}

TEST_F(GroupSectionsTest, SystemGroupsAreByTitleWhateverTheOrder) {
  const ZephylVector groups = {system("b"), system("C"), system("A")};
  for (const GroupOrder& order : {GroupOrder{true, false}, {false, true}, {false, false}}) {
    EXPECT_EQ(titles(of(groups, order), 0), (Words{"A", "b", "C"}));
  }
}

TEST_F(GroupSectionsTest, RowsThatThereAreNotHaveNoGroup) {
  const GroupSections sections = of({user("A"), user("B")});
  EXPECT_EQ(sections.groupAt({0, 1})->title(), "B");
  for (const NSIndexPath& path : {NSIndexPath{0, 2}, {0, -1}, {1, 0}, {-1, 0}}) {
    EXPECT_EQ(sections.groupAt(path), nullptr);
  }
  EXPECT_EQ(sections.keyOf(1), "");
  EXPECT_EQ(sections.keyOf(-1), "");
  EXPECT_TRUE(sections.groupsIn(7).empty());
}

}  // namespace
}  // namespace zephyl
