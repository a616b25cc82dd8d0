#include "hosts/linux/safety/SafetyCopies.h"

#include <filesystem>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "hosts/linux/FullDisk_testing.h"
#include "hosts/linux/safety/FileLock.h"
#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class SafetyCopiesTest : public SafetyFixture {
 protected:
  [[nodiscard]] std::string lock() const { return options().notes + "/lock"; }
};

TEST_F(SafetyCopiesTest, WhatIsOverwrittenIsCopiedWithItsReason) {
  ASSERT_FALSE(write("good 1"));
  EXPECT_THAT(copiedContents(), IsEmpty());
  ASSERT_FALSE(write("good 2"));
  ASSERT_FALSE(write("good 3"));
  EXPECT_EQ(read(), "good 3");
  EXPECT_THAT(copiedContents(), ElementsAre("good 2", "good 1"));
  EXPECT_EQ(folder().copies()[0].reason, "before good 2 became good 3");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(SafetyCopiesTest, TheFileIsWrittenInPlace) {
  ASSERT_FALSE(write("good 1"));
  std::filesystem::create_hard_link(real(), top_.path() + "/same");
  ASSERT_FALSE(write("good 2"));
  EXPECT_EQ(top_.read("/same"), "good 2");
}

TEST_F(SafetyCopiesTest, TheFoldersAreForTheUserAlone) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(write("good 2"));
  for (const std::string& folder : {options().folder, options().notes}) {
    struct stat status {};
    ASSERT_EQ(::stat(folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
    ASSERT_FALSE(std::filesystem::is_empty(folder));
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      ASSERT_EQ(::stat(entry.path().c_str(), &status), 0);
      EXPECT_EQ(status.st_mode & 0777U, 0600U) << entry.path();
    }
  }
}

TEST_F(SafetyCopiesTest, TwentyThatDifferAreKept) {
  for (int number = 0; number < 30; ++number) {
    clock_.set(clock_.now() + 1);
    ASSERT_FALSE(write("good " + std::to_string(number)));
  }
  const auto contents = copiedContents();
  ASSERT_THAT(contents, SizeIs(20));
  EXPECT_EQ(contents.front(), "good 28");
  EXPECT_EQ(contents.back(), "good 9");
}

TEST_F(SafetyCopiesTest, ContentThatIsThereAlreadyMakesNoCopy) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(write("good 2"));
  ASSERT_FALSE(write("good 2"));
  EXPECT_THAT(copiedContents(), ElementsAre("good 1"));
}

TEST_F(SafetyCopiesTest, AnAnnouncedWriteIsTheReason) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(SaveNotes(options().notes).announce("good 2", "before going back"));
  ASSERT_FALSE(write("good 2"));
  ASSERT_FALSE(write("good 3"));
  EXPECT_EQ(folder().copies()[0].reason, "before good 2 became good 3");
  EXPECT_EQ(folder().copies()[1].reason, "before going back");
}

TEST_F(SafetyCopiesTest, WhatMustStayIsNotOverwritten) {
  ASSERT_FALSE(write("good 1"));
  const auto stays = [](const FileReading& old) {
    EXPECT_EQ(old.contents, "good 1");
    return FileFailure("it must stay");
  };
  EXPECT_EQ(copies_->write(real(), "good 2", stays), "it must stay");
  EXPECT_EQ(read(), "good 1");
  EXPECT_THAT(copiedContents(), IsEmpty());
  EXPECT_FALSE(hasJournal());
}

TEST_F(SafetyCopiesTest, UnreadableContentIsNoSafetyCopy) {
  top_.put("/file", "bad");
  ASSERT_FALSE(write("good 1"));
  EXPECT_EQ(read(), "good 1");
  EXPECT_THAT(copiedContents(), IsEmpty());
}

TEST_F(SafetyCopiesTest, WithoutAFolderForCopiesNothingIsWrittenAndAllIsRead) {
  top_.put("/file", "good 1");
  top_.put("/state", "no folder");
  const FileFailure failed = write("good 2");
  ASSERT_TRUE(failed);
  EXPECT_THAT(*failed, HasSubstr("no safety copy can be kept"));
  EXPECT_THAT(*failed, HasSubstr(top_.path() + "/state"));
  EXPECT_EQ(read(), "good 1");
}

TEST_F(SafetyCopiesTest, WithoutRoomForTheCopyNothingIsWritten) {
  const TinyDisk disk;
  SafetyOptions small = options();
  small.folder = disk.folder().path() + "/copies";
  top_.put("/file", "good" + std::string(60'000, '1'));
  SafetyCopies copies(small, log_, clock_);
  const auto any = [](const FileReading&) { return std::nullopt; };
  const std::string next = "good" + std::string(59'000, '2');
  ASSERT_TRUE(copies.write(real(), next, any));
  EXPECT_EQ(copies.read(real()).contents, "good" + std::string(60'000, '1'));
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(SafetyCopiesTest, AWriteThatDoesNotFitLeavesTheOldContentAndNoNote) {
  const TinyDisk disk;
  const std::string file = disk.folder().path() + "/file";
  const auto any = [](const FileReading&) { return std::nullopt; };
  ASSERT_FALSE(copies_->write(file, "good 1", any));
  EXPECT_TRUE(copies_->write(file, "good" + std::string(200'000, 'x'), any));
  EXPECT_EQ(copies_->read(file).contents, "good 1");
  EXPECT_FALSE(hasJournal());
  std::filesystem::remove(file);
  EXPECT_TRUE(copies_->write(file, "good" + std::string(200'000, 'x'), any));
  EXPECT_TRUE(copies_->read(file).isMissing());
  EXPECT_FALSE(hasJournal());
  EXPECT_FALSE(copies_->write(file, "good 2", any));
}

TEST_F(SafetyCopiesTest, AFolderInTheFilesPlaceIsAFailureAndLeavesNoNote) {
  std::filesystem::create_directories(real());
  EXPECT_TRUE(write("good 1"));
  EXPECT_FALSE(hasJournal());
}

TEST_F(SafetyCopiesTest, AReaderWaitsForAWriterButNotForever) {
  ASSERT_FALSE(write("good 1"));
  {
    const FileLock writer(lock(), FileLock::Kind::kExclusive, {});
    EXPECT_THAT(copies_->read(real()).reason, HasSubstr("another program"));
  }
  EXPECT_EQ(read(), "good 1");
}

TEST_F(SafetyCopiesTest, AWriterWaitsForAReaderButNotForever) {
  ASSERT_FALSE(write("good 1"));
  {
    const FileLock reader(lock(), FileLock::Kind::kShared, {});
    EXPECT_EQ(read(), "good 1");
    const FileFailure failed = write("good 2");
    ASSERT_TRUE(failed);
    EXPECT_THAT(*failed, HasSubstr("another program"));
    EXPECT_EQ(read(), "good 1");
  }
  EXPECT_FALSE(write("good 2"));
}

// It would write what it holds for everything, while the file holds more.
TEST_F(SafetyCopiesTest, WhoCouldNotReadDoesNotWrite) {
  ASSERT_FALSE(write("good 1"));
  {
    const FileLock writer(lock(), FileLock::Kind::kExclusive, {});
    EXPECT_EQ(read(), std::nullopt);
  }
  EXPECT_TRUE(write("good nothing"));
  EXPECT_EQ(top_.read("/file"), "good 1");
  EXPECT_EQ(read(), "good 1");
  EXPECT_FALSE(write("good 2"));
}

TEST_F(SafetyCopiesTest, ManyThreadsReadOnlyWholeContents) {
  ASSERT_FALSE(write("good" + std::string(100'000, '0')));
  SafetyOptions patient = options();
  patient.longestWait = std::chrono::seconds(10);
  SafetyCopies other(patient, log_, clock_);
  std::thread writer([&] {
    for (char digit = '1'; digit <= '9'; ++digit) {
      const std::string contents = "good" + std::string(100'000, digit);
      EXPECT_FALSE(other.write(real(), contents, [](const FileReading&) { return std::nullopt; }));
    }
  });
  SafetyCopies reader(patient, log_, clock_);
  for (int turn = 0; turn < 50; ++turn) {
    const std::string contents = reader.read(real()).contents.value_or("");
    EXPECT_EQ(contents.size(), 100'004U);
    EXPECT_EQ(contents.find_first_not_of(contents.back(), 4), std::string::npos);
  }
  writer.join();
  EXPECT_THAT(log_.lines(), IsEmpty());
}

}  // namespace
}  // namespace zephyl::linux_host
