#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/LinuxFiles.h"
#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The device's files with "/file" as the one that is kept.
class SafeDeviceFilesTest : public SafetyFixture {
 protected:
  static std::optional<std::string> whyKept(const std::string& path, const std::string& contents) {
    return path == "/file" && !contents.starts_with("good")
               ? std::optional<std::string>("nobody could read it")
               : std::nullopt;
  }

  const DeviceRoot root_{top_.path(), ""};
  LinuxFiles files_{root_, log_, clock_, whyKept, options()};
};

TEST_F(SafeDeviceFilesTest, TheFileIsKeptAndOthersAreNot) {
  for (const char* contents : {"good 1", "good 2"}) {
    ASSERT_TRUE(files_.writeToFile("/file", contents));
    ASSERT_TRUE(files_.writeToFile("/other", contents));
  }
  EXPECT_THAT(copiedContents(), ElementsAre("good 1"));
  EXPECT_EQ(files_.contentsAtPath("/file"), "good 2");
  EXPECT_EQ(files_.contentsAtPath("/other"), "good 2");
}

TEST_F(SafeDeviceFilesTest, WhatNobodyCouldReadIsPutAsideAndIsNoCopy) {
  top_.put("/file", "bad");
  ASSERT_TRUE(files_.writeToFile("/file", "good 1"));
  EXPECT_THAT(asideContents(), ElementsAre("bad"));
  EXPECT_THAT(copiedContents(), IsEmpty());
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("nobody could read it")));
}

TEST_F(SafeDeviceFilesTest, AnInterruptedWriteIsMendedByTheFirstReadingAndTold) {
  leaveInterrupted("good old", "good new", "good nld");
  EXPECT_EQ(files_.contentsAtPath("/file"), "good old");
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("/file: a save was interrupted"),
                                              HasSubstr("safety copy"))));
}

TEST_F(SafeDeviceFilesTest, ARefusedWriteIsToldWithPlaceAndReason) {
  ASSERT_TRUE(files_.writeToFile("/file", "good 1"));
  std::filesystem::remove_all(top_.path() + "/state");
  top_.put("/state", "no folder");
  EXPECT_FALSE(files_.writeToFile("/file", "good 2"));
  EXPECT_EQ(top_.read("/file"), "good 1");
  EXPECT_THAT(log_.lines(),
              ElementsAre(AllOf(HasSubstr("/file: not written: "), HasSubstr("no safety copy"))));
  EXPECT_TRUE(files_.writeToFile("/other", "good 2"));
}

}  // namespace
}  // namespace zephyl::linux_host
