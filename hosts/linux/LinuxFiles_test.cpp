#include "hosts/linux/LinuxFiles.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/FullDisk_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

namespace fs = std::filesystem;

class LinuxFilesTest : public ::testing::Test {
 protected:
  // The files whose old content has to be kept when it does not begin with "good".
  static std::optional<std::string> whyKept(const std::string& path, const std::string& contents) {
    return path == "/groups" && !contents.starts_with("good")
               ? std::optional<std::string>("the groups could not be read")
               : std::nullopt;
  }

  static mode_t permissions(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777U;
  }

  // The names of the copies kept of "/groups", sorted.
  [[nodiscard]] std::vector<std::string> copies() const {
    std::vector<std::string> names = top_.namesIn("");
    std::erase_if(names, [](const std::string& name) { return !name.starts_with("groups."); });
    EXPECT_THAT(names, Each(MatchesRegex("groups\\.unreadable-[0-9]{8}-[0-9]{6}(-[0-9]+)?")));
    std::sort(names.begin(), names.end());
    return names;
  }

  contract::TemporaryFolder top_;
  contract::TemporaryFolder share_;
  fake::FakeSystemLog log_;
  fake::FakeClock clock_;
  const DeviceRoot root_{top_.path(), share_.path()};
  LinuxFiles files_{root_, log_, clock_, whyKept};
};

TEST_F(LinuxFilesTest, WhatIsWrittenIsForTheUserAlone) {
  ASSERT_TRUE(files_.writeToFile("/var/mobile/file", "text"));
  EXPECT_EQ(permissions(top_.path() + "/var/mobile/file"), 0600U);
  EXPECT_EQ(permissions(top_.path() + "/var/mobile"), 0700U);
}

TEST_F(LinuxFilesTest, WritesInPlace) {
  top_.put("/file", "old");
  fs::create_hard_link(top_.path() + "/file", top_.path() + "/same");
  ASSERT_TRUE(files_.writeToFile("/file", "new"));
  EXPECT_EQ(top_.read("/same"), "new");
}

TEST_F(LinuxFilesTest, ListsRootAndOverlayAsOne) {
  top_.put("/System/b", "");
  share_.put("/System/a", "");
  share_.put("/System/b", "");
  EXPECT_THAT(files_.contentsOfDirectoryAtPath("/System"), ElementsAre("a", "b"));
  EXPECT_TRUE(files_.fileExistsAtPath("/System/a"));
}

TEST_F(LinuxFilesTest, NeverWritesIntoTheOverlay) {
  share_.put("/Library/file", "overlay");
  ASSERT_TRUE(files_.writeToFile("/Library/file", "mine"));
  EXPECT_EQ(share_.read("/Library/file"), "overlay");
  EXPECT_EQ(files_.contentsAtPath("/Library/file"), "mine");
}

TEST_F(LinuxFilesTest, NoPathReachesAFileOutside) {
  share_.put("/secret", "text");
  fs::create_symlink(share_.path() + "/secret", top_.path() + "/link");
  fs::create_symlink(share_.path() + "/new", top_.path() + "/dangling");
  const std::string upwards = "/../../../../../../.." + share_.path() + "/secret";
  for (const std::string& path : {upwards, std::string("/link"), std::string("/secret\0", 8)}) {
    EXPECT_EQ(files_.contentsAtPath(path), std::nullopt) << path;
  }
  EXPECT_FALSE(files_.writeToFile("/link", "changed"));
  EXPECT_FALSE(files_.writeToFile("/dangling", "made"));
  EXPECT_EQ(share_.read("/secret"), "text");
  EXPECT_FALSE(share_.has("/new"));
  EXPECT_TRUE(files_.writeToFile(upwards, "changed"));
  EXPECT_EQ(share_.read("/secret"), "text");
}

TEST_F(LinuxFilesTest, AFifoIsNotWaitedFor) {
  ASSERT_EQ(::mkfifo((top_.path() + "/fifo").c_str(), 0600), 0);
  EXPECT_EQ(files_.contentsAtPath("/fifo"), std::nullopt);
  EXPECT_FALSE(files_.writeToFile("/fifo", "text"));
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("/fifo"), HasSubstr("no regular file")),
                                        AllOf(HasSubstr("/fifo"), HasSubstr("no regular file"))));
}

TEST_F(LinuxFilesTest, AHugeFileIsNotRead) {
  top_.put("/huge", "");
  fs::resize_file(top_.path() + "/huge", (std::uintmax_t{512} << 20U) + 1);
  EXPECT_EQ(files_.contentsAtPath("/huge"), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("/huge"), HasSubstr("512 MiB"))));
}

TEST_F(LinuxFilesTest, ARootThatCannotBeMadeIsTold) {
  top_.put("/file", "text");
  const DeviceRoot root(top_.path() + "/file", "");
  LinuxFiles files(root, log_, clock_, {});
  EXPECT_FALSE(files.writeToFile("/var/x", "text"));
  EXPECT_EQ(files.contentsAtPath("/var/x"), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre(AllOf(HasSubstr("/var/x"), HasSubstr("cannot make"))));
}

TEST_F(LinuxFilesTest, AContentThatDoesNotFitIsTold) {
  top_.put("/file", "old content");
  const FileSizeLimit limit(4096);
  for (const char* path : {"/file", "/new"}) {
    EXPECT_FALSE(files_.writeToFile(path, std::string(100'000, 'x'))) << path;
    EXPECT_THAT(log_.lines().back(), HasSubstr(std::string(path) + ": not written: ")) << path;
    EXPECT_LE(top_.read(path).size(), 4096U) << path;
    EXPECT_TRUE(files_.writeToFile(path, "what fits")) << path;
    EXPECT_EQ(top_.read(path), "what fits");
  }
}

TEST_F(LinuxFilesTest, OnAFullDiskTheOldContentStaysWhereTheDiskCanTell) {
  const TinyDisk disk;
  const DeviceRoot root(disk.folder().path(), "");
  LinuxFiles files(root, log_, clock_, {});
  ASSERT_TRUE(files.writeToFile("/file", "old content"));
  EXPECT_FALSE(files.writeToFile("/file", std::string(200'000, 'x')));
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("/file: not written: ")));
  EXPECT_FALSE(files.writeToFile("/new", std::string(200'000, 'x')));
  if (disk.reservesRoom()) {
    EXPECT_EQ(disk.folder().read("/file"), "old content");
    EXPECT_FALSE(disk.folder().has("/new"));
  }
  EXPECT_TRUE(files.writeToFile("/file", std::string(20'000, 'x')));
}

TEST_F(LinuxFilesTest, OnAFullDiskAnAtomicWriteLeavesTheOldContentAndNothingElse) {
  const TinyDisk disk;
  const DeviceRoot root(disk.folder().path(), "");
  LinuxFiles files(root, log_, clock_, {});
  ASSERT_TRUE(files.writeToFileAtomically("/file", "old content"));
  for (const char* path : {"/file", "/new"}) {
    EXPECT_FALSE(files.writeToFileAtomically(path, std::string(200'000, 'x'))) << path;
  }
  EXPECT_EQ(disk.folder().read("/file"), "old content");
  EXPECT_THAT(disk.folder().namesIn(""), ElementsAre("file"));
  EXPECT_EQ(permissions(disk.folder().path() + "/file"), 0600U);
  EXPECT_THAT(log_.lines(), SizeIs(2));
}

TEST_F(LinuxFilesTest, WhatNobodyCouldReadIsKeptBeforeItIsOverwritten) {
  top_.put("/groups", "bad");
  ASSERT_TRUE(files_.writeToFile("/groups", "good"));
  ASSERT_THAT(copies(), SizeIs(1));
  const std::string copy = copies().front();
  EXPECT_EQ(top_.read("/" + copy), "bad");
  EXPECT_EQ(permissions(top_.path() + "/" + copy), 0600U);
  EXPECT_EQ(top_.read("/groups"), "good");
  EXPECT_THAT(log_.lines(),
              ElementsAre(AllOf(HasSubstr("/groups"), HasSubstr("could not be read"),
                                HasSubstr((fs::canonical(top_.path()) / copy).string()))));
}

TEST_F(LinuxFilesTest, ReadableNewAndOtherFilesAreNotCopied) {
  ASSERT_TRUE(files_.writeToFile("/groups", "good 1"));
  ASSERT_TRUE(files_.writeToFile("/groups", "good 2"));
  top_.put("/other", "bad");
  ASSERT_TRUE(files_.writeToFile("/other", "good"));
  EXPECT_THAT(top_.namesIn(""), SizeIs(2));
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(LinuxFilesTest, CopiesOfTheSameSecondGetNumbersAndNoneIsOverwritten) {
  for (const char* content : {"bad 1", "bad 2", "bad 3"}) {
    top_.put("/groups", content);
    ASSERT_TRUE(files_.writeToFile("/groups", "good"));
  }
  const auto kept = copies();
  ASSERT_THAT(kept, SizeIs(3));
  EXPECT_EQ(kept[1], kept[0] + "-2");
  EXPECT_EQ(kept[2], kept[0] + "-3");
  EXPECT_EQ(top_.read("/" + kept[0]), "bad 1");
  EXPECT_EQ(top_.read("/" + kept[1]), "bad 2");
  EXPECT_EQ(top_.read("/" + kept[2]), "bad 3");
}

TEST_F(LinuxFilesTest, WithoutRoomForTheCopyNothingIsOverwritten) {
  const std::string bad = "bad" + std::string(8192, '!');
  top_.put("/groups", bad);
  const FileSizeLimit limit(4096);
  EXPECT_FALSE(files_.writeToFile("/groups", "good"));
  EXPECT_EQ(top_.read("/groups"), bad);
  EXPECT_THAT(copies(), IsEmpty());
  EXPECT_THAT(log_.lines(),
              ElementsAre(AllOf(HasSubstr("/groups: not written: "), HasSubstr("no copy"))));
}

TEST_F(LinuxFilesTest, WhatCannotEvenBeCopiedIsNotOverwritten) {
  top_.put("/groups", "");
  fs::resize_file(top_.path() + "/groups", (std::uintmax_t{512} << 20U) + 1);
  EXPECT_FALSE(files_.writeToFile("/groups", "good"));
  EXPECT_EQ(fs::file_size(top_.path() + "/groups"), (std::uintmax_t{512} << 20U) + 1);
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("cannot be read and therefore not be kept")));
}

}  // namespace
}  // namespace zephyl::linux_host
