#include "hosts/linux/safety/SaveNotes.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::linux_host {
namespace {

using ::testing::UnorderedElementsAre;

class SaveNotesTest : public ::testing::Test {
 protected:
  contract::TemporaryFolder top_;
  SaveNotes notes_{top_.path() + "/notes"};
};

TEST_F(SaveNotesTest, AnAnnouncementIsTakenOnceAndOnlyForItsContent) {
  ASSERT_FALSE(notes_.announce("content", "before going back"));
  EXPECT_EQ(notes_.takeAnnounced("content"), "before going back");
  EXPECT_EQ(notes_.takeAnnounced("content"), "");
  ASSERT_FALSE(notes_.announce("content", "before going back"));
  EXPECT_EQ(notes_.takeAnnounced("other"), "");
  EXPECT_EQ(notes_.takeAnnounced("content"), "");
}

TEST_F(SaveNotesTest, AWriteGoesFromBeingWrittenToBeingSaved) {
  ASSERT_FALSE(makeFolders(notes_.path()));
  ASSERT_FALSE(notes_.begin({std::nullopt, "/a copy\nin two lines.plist", "new"}));
  ASSERT_TRUE(notes_.writing());
  EXPECT_EQ(notes_.writing()->copy, "/a copy\nin two lines.plist");
  EXPECT_FALSE(notes_.saved());
  ASSERT_FALSE(notes_.finish());
  EXPECT_FALSE(notes_.hasWriting());
  ASSERT_TRUE(notes_.saved());
  EXPECT_EQ(notes_.saved()->after, "new");
}

TEST_F(SaveNotesTest, WhatWasLeftHalfDoneGoesAndWhatIsOfOthersStays) {
  for (const char* file : {"writing.zzzzzz", "writing.zz", "announced.zzzzzz", "lock"}) {
    top_.put("/notes/" + std::string(file), "half");
  }
  ASSERT_FALSE(notes_.begin({std::nullopt, "", "new"}));
  EXPECT_THAT(top_.namesIn("/notes"),
              UnorderedElementsAre("writing", "writing.zz", "announced.zzzzzz", "lock"));
}

}  // namespace
}  // namespace zephyl::linux_host
