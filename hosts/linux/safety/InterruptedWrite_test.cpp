#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/linux/safety/Safety_testing.h"

namespace zephyl::linux_host {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using InterruptedWriteTest = SafetyFixture;

TEST_F(InterruptedWriteTest, BeforeTheFirstByteTheOldContentStands) {
  leaveInterrupted("good old", "good new", "good old");
  EXPECT_EQ(read(), "good old");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(InterruptedWriteTest, AfterTheLastByteTheNewContentStands) {
  leaveInterrupted("good old", "good new", "good new");
  EXPECT_EQ(read(), "good new");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(InterruptedWriteTest, AMixtureThatCouldBeReadIsReplacedByTheOldContent) {
  leaveInterrupted("good old", "good new", "good nld");
  EXPECT_EQ(read(), "good old");
  EXPECT_EQ(top_.read("/file"), "good old");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(asideContents(), ElementsAre("good nld"));
  EXPECT_THAT(log_.lines(),
              ElementsAre(AllOf(HasSubstr("/file: "), HasSubstr("interrupted"),
                                HasSubstr(folder().copies()[0].name), HasSubstr("unreadable-"))));
}

TEST_F(InterruptedWriteTest, AFileThatIsGoneComesBack) {
  leaveInterrupted("good old", "good new", std::nullopt);
  EXPECT_EQ(read(), "good old");
  EXPECT_THAT(log_.lines(), SizeIs(1));
}

TEST_F(InterruptedWriteTest, AFirstSaveIsDoneToItsEnd) {
  leaveNote({std::nullopt, "", "good new"}, "good n");
  EXPECT_EQ(read(), "good new");
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("about to be saved")));
}

TEST_F(InterruptedWriteTest, AFirstSaveThatDidNotBeginLeavesNoFile) {
  leaveNote({std::nullopt, "", "good new"}, std::nullopt);
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_FALSE(hasJournal());
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(InterruptedWriteTest, ADamagedCopyIsNotPutBack) {
  leaveInterrupted("good old", "good new", "good nld");
  top_.put("/state/copies/" + folder().copies()[0].name + ".plist", "good damaged");
  EXPECT_EQ(read(), "good new");
}

TEST_F(InterruptedWriteTest, WhatWasSavedBeforeStandsInForALostCopy) {
  ASSERT_FALSE(write("good old"));
  leaveNote({ContentMark::of("good old"), "", "good new"}, "good nld");
  restart();
  EXPECT_EQ(read(), "good old");
}

TEST_F(InterruptedWriteTest, AWriteMendsBeforeItWrites) {
  leaveInterrupted("good old", "good new", "good nld");
  ASSERT_FALSE(write("good newest"));
  EXPECT_EQ(read(), "good newest");
  EXPECT_THAT(copiedContents(), ElementsAre("good old"));
  EXPECT_THAT(asideContents(), ElementsAre("good nld"));
}

TEST_F(InterruptedWriteTest, AProgramThatRunsMendsWhatAnotherLeft) {
  ASSERT_FALSE(write("good old"));
  EXPECT_EQ(read(), "good old");
  leaveInterrupted("good old", "good new", "good nld");
  EXPECT_EQ(read(), "good old");
}

TEST_F(InterruptedWriteTest, ADamagedNoteTellsNothing) {
  leaveInterrupted("good old", "good new", "good nld");
  top_.put("/safety/writing", "zephyls save 1\nbefore");
  EXPECT_EQ(read(), "good nld");
  EXPECT_FALSE(write("good newest"));
  EXPECT_FALSE(hasJournal());
}

TEST_F(InterruptedWriteTest, WhatCannotBePutAsideIsNeitherReadNorOverwritten) {
  leaveInterrupted("good old", "good new", std::nullopt);
  std::filesystem::create_directories(real());
  EXPECT_THAT(copies_->read(real()).reason, HasSubstr("interrupted"));
  EXPECT_TRUE(write("good newest"));
  EXPECT_TRUE(hasJournal());
  std::filesystem::remove(real());
  EXPECT_EQ(read(), "good old");
}

TEST_F(InterruptedWriteTest, DamageByOthersIsReplacedByWhatWasSavedLast) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(write("good 2"));
  for (const char* damaged : {"", "bad"}) {
    top_.put("/file", damaged);
    restart();
    EXPECT_EQ(read(), "good 2");
  }
  EXPECT_THAT(asideContents(), ::testing::UnorderedElementsAre("", "bad"));
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("saved last"), HasSubstr("saved last")));
}

TEST_F(InterruptedWriteTest, DamageByOthersIsReplacedByTheNewestGoodCopy) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(write("good 2"));
  ASSERT_FALSE(write("good 3"));
  std::filesystem::remove(options().notes + "/saved");
  top_.put("/state/copies/" + folder().copies()[0].name + ".plist", "bad");
  top_.put("/file", "bad");
  restart();
  EXPECT_EQ(read(), "good 1");
}

TEST_F(InterruptedWriteTest, DamageWithoutAnyCopyStays) {
  top_.put("/file", "bad");
  EXPECT_EQ(read(), "bad");
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(InterruptedWriteTest, AFileThatTheUserRemovedStaysAway) {
  ASSERT_FALSE(write("good 1"));
  ASSERT_FALSE(write("good 2"));
  std::filesystem::remove(real());
  restart();
  EXPECT_EQ(read(), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

// The file as it is at every byte of a write over longer, shorter and equally long content, cut off
// there or with the rest of the old content behind it.
TEST_F(InterruptedWriteTest, AtEveryByteTheOldOrTheNewContentIsWhole) {
  const std::string contents[] = {"good 1,2,3,4", "good 1,2", "good 1,3,2,5"};
  for (const std::string& before : contents) {
    for (const std::string& after : contents) {
      for (std::size_t size = 0; size <= std::max(before.size(), after.size()); ++size) {
        const std::string written = after.substr(0, size);
        for (const std::string& torn :
             {written, written + before.substr(std::min(size, before.size()))}) {
          leaveInterrupted(before, after, torn);
          restart();
          ASSERT_EQ(read(), torn == after ? after : before) << torn;
          ASSERT_FALSE(hasJournal());
        }
      }
    }
  }
}

}  // namespace
}  // namespace zephyl::linux_host
