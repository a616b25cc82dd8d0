#include "hosts/linux/safety/CopyFolder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

class CopyFolderTest : public ::testing::Test {
 protected:
  // 2020-09-13 12:26:40 UTC.
  static constexpr double kNow = 1'600'000'000.25;

  std::string keep(const std::string& contents, double now = kNow,
                   const std::string& reason = "") const {
    const CopyFolder::Kept kept = folder_.keep(contents, reason, now);
    EXPECT_EQ(kept.failure, std::nullopt);
    return kept.name;
  }
  [[nodiscard]] std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (const SafetyCopy& copy : folder_.copies()) {
      result.push_back(copy.name);
    }
    return result;
  }

  contract::TemporaryFolder top_;
  CopyFolder folder_{top_.path()};
};

TEST_F(CopyFolderTest, ACopyIsNamedByItsTimeAndKnowsItsReason) {
  EXPECT_EQ(keep("content", kNow, "before \"Work\" was deleted"), "20200913-122640-250");
  const auto copies = folder_.copies();
  ASSERT_THAT(copies, SizeIs(1));
  EXPECT_DOUBLE_EQ(copies[0].time, kNow);
  EXPECT_EQ(copies[0].reason, "before \"Work\" was deleted");
  EXPECT_EQ(folder_.contentsOf(copies[0].name).contents, "content");
  EXPECT_THAT(top_.namesIn(""),
              UnorderedElementsAre("20200913-122640-250.plist", "20200913-122640-250.txt"));
}

TEST_F(CopyFolderTest, CopiesAreForTheUserAlone) {
  keep("content");
  for (const std::string& name : top_.namesIn("")) {
    struct stat status {};
    ASSERT_EQ(::stat((top_.path() + "/" + name).c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U) << name;
  }
}

TEST_F(CopyFolderTest, TheNewestComesFirstAlsoWithinAMoment) {
  keep("1");
  keep("2");
  for (int number = 3; number <= 11; ++number) {
    keep(std::to_string(number));
  }
  keep("12", kNow + 1);
  const auto found = names();
  ASSERT_THAT(found, SizeIs(12));
  EXPECT_EQ(found[0], "20200913-122641-250");
  EXPECT_EQ(found[1], "20200913-122640-250-11");
  EXPECT_EQ(found[2], "20200913-122640-250-10");
  EXPECT_EQ(found[11], "20200913-122640-250");
}

TEST_F(CopyFolderTest, AClockThatWasSetBackChangesNoOrder) {
  keep("old");
  EXPECT_EQ(keep("new", kNow - 1'000'000), "20200913-122640-250-2");
  EXPECT_EQ(folder_.contentsOf(names().front()).contents, "new");
}

TEST_F(CopyFolderTest, TheSameContentIsKeptOnceUnderTheLatestReason) {
  keep("same", kNow, "first");
  EXPECT_EQ(keep("same", kNow + 5, "second"), "20200913-122640-250");
  ASSERT_THAT(names(), SizeIs(1));
  EXPECT_EQ(folder_.copies()[0].reason, "second");
  keep("other", kNow + 6);
  keep("same", kNow + 7);
  EXPECT_THAT(names(), SizeIs(3));
}

TEST_F(CopyFolderTest, TheLastTwentyStayEachWithItsReason) {
  for (int number = 0; number < 25; ++number) {
    keep("content " + std::to_string(number), kNow + number, "reason " + std::to_string(number));
    folder_.removeSurplus();
  }
  const auto copies = folder_.copies();
  ASSERT_THAT(copies, SizeIs(20));
  EXPECT_EQ(folder_.contentsOf(copies.front().name).contents, "content 24");
  EXPECT_EQ(folder_.contentsOf(copies.back().name).contents, "content 5");
  EXPECT_EQ(copies.back().reason, "reason 5");
  EXPECT_THAT(top_.namesIn(""), SizeIs(40));
}

TEST_F(CopyFolderTest, WhatWasLeftHalfDoneGoesAndWhatIsOfOthersStays) {
  const std::string name = keep("content");
  for (const char* file : {"20200913-122640-250.plist.Ab12cd", "20200913-122640-251.txt",
                           "20200913-122641-000.txt.000000"}) {
    top_.put("/" + std::string(file), "half");
  }
  const std::vector<std::string> others = {"notes.txt", "writing.zzzzzz",
                                           "20200913-122640-25x.plist", "notes.Ab12cd"};
  for (const std::string& file : others) {
    top_.put("/" + file, "mine");
  }
  folder_.removeSurplus();
  EXPECT_THAT(names(), ElementsAre(name));
  EXPECT_THAT(top_.namesIn(""), SizeIs(others.size() + 2));
  for (const std::string& file : others) {
    EXPECT_EQ(top_.read("/" + file), "mine") << file;
  }
}

TEST_F(CopyFolderTest, OnlyANameOfACopyReachesAFile) {
  top_.put("/secret.plist", "text");
  top_.put("/20200913-122640-250-1.plist", "text");
  for (const char* name : {"secret", "../secret", "", "20200913-122640-250-1",
                           "20200913-122640-250-02", "20200913-122640-250--2"}) {
    EXPECT_TRUE(folder_.contentsOf(name).isMissing()) << name;
  }
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(CopyFolderTest, WithoutAFolderThereAreNoCopiesAndNoneCanBeMade) {
  const CopyFolder none(top_.path() + "/none");
  EXPECT_THAT(none.copies(), IsEmpty());
  EXPECT_NE(none.keep("content", "", kNow).failure, std::nullopt);
}

}  // namespace
}  // namespace zephyl::linux_host
