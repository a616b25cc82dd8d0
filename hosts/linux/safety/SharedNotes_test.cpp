// Programs that keep their copies in different folders, and notes that cannot be written.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class SharedNotesTest : public SafetyFixture {
 protected:
  [[nodiscard]] SafetyOptions otherOptions() const {
    SafetyOptions others = options();
    others.folder = top_.path() + "/other state/copies";
    return others;
  }
  [[nodiscard]] FileFailure writeAsOther(const std::string& contents) {
    return other_.write(real(), contents, [](const FileReading&) { return std::nullopt; });
  }

  SafetyCopies other_{otherOptions(), log_, clock_};
};

TEST_F(SharedNotesTest, WritersExcludeOneAnother) {
  ASSERT_FALSE(write("good 1"));
  FileFailure failed;
  std::string readMeanwhile;
  // Asked while the lock is held.
  const auto whyNot = [&](const FileReading&) {
    failed = writeAsOther("good other");
    readMeanwhile = other_.read(real()).reason;
    return FileFailure("enough");
  };
  EXPECT_EQ(copies_->write(real(), "good 2", whyNot), "enough");
  ASSERT_TRUE(failed);
  EXPECT_THAT(*failed, HasSubstr("another program"));
  EXPECT_THAT(readMeanwhile, HasSubstr("another program"));
  EXPECT_EQ(top_.read("/file"), "good 1");
}

TEST_F(SharedNotesTest, WhatOneLeftTornTheOtherPutsBack) {
  leaveInterrupted("good old", "good new", "good nld");
  EXPECT_EQ(other_.read(real()).contents, "good old");
  EXPECT_EQ(top_.read("/file"), "good old");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(asideContents(), ElementsAre("good nld"));
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("the safety copy ")));
}

TEST_F(SharedNotesTest, EachWriteIsCopiedByWhoeverMakesIt) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(writeAsOther("good 2"));
  ASSERT_FALSE(write("good 3"));
  const CopyFolder others(otherOptions().folder);
  ASSERT_EQ(others.copies().size(), 1U);
  EXPECT_EQ(others.contentsOf(others.copies()[0].name).contents, "good 1");
  EXPECT_THAT(copiedContents(), ElementsAre("good 2"));
  EXPECT_EQ(other_.read(real()).contents, "good 3");
}

TEST_F(SharedNotesTest, AReadingMakesNoFolder) {
  top_.put("/file", "good 1");
  EXPECT_EQ(read(), "good 1");
  EXPECT_THAT(top_.namesIn(""), ElementsAre("file"));
}

// Nobody can make a folder or a file where a file is in the way.
TEST_F(SharedNotesTest, WithoutAFolderForNotesNothingIsWrittenAndAllIsRead) {
  top_.put("/file", "good 1");
  top_.put("/safety", "no folder");
  const FileFailure failed = write("good 2");
  ASSERT_TRUE(failed);
  EXPECT_THAT(*failed, HasSubstr("cannot be noted"));
  EXPECT_EQ(read(), "good 1");
  EXPECT_EQ(top_.read("/file"), "good 1");
}

// Even the superuser makes no lock of a folder.
TEST_F(SharedNotesTest, AFileThatCannotBeMendedIsReadAsItWasBefore) {
  leaveInterrupted("good old", "good new", "good nld");
  std::filesystem::create_directories(options().notes + "/lock");
  EXPECT_EQ(read(), "good old");
  EXPECT_EQ(top_.read("/file"), "good nld");
  EXPECT_TRUE(hasJournal());
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("cannot be mended")));
  EXPECT_TRUE(write("good newest"));
  EXPECT_EQ(top_.read("/file"), "good nld");
  std::filesystem::remove(options().notes + "/lock");
  EXPECT_EQ(read(), "good old");
  EXPECT_EQ(top_.read("/file"), "good old");
}

TEST_F(SharedNotesTest, AFinishedSaveWhoseNoteCannotBeMovedIsRead) {
  leaveInterrupted("good old", "good new", "good new");
  std::filesystem::create_directories(options().notes + "/saved");
  EXPECT_EQ(read(), "good new");
  EXPECT_THAT(log_.lines(), IsEmpty());
}

}  // namespace
}  // namespace zephyl::linux_host
