#include "hosts/fake/FakeFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zephyl::fake {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FakeFilesTest : public ::testing::Test {
 protected:
  FakeSystemLog log_;
  FakeFiles files_{log_};
};

TEST_F(FakeFilesTest, AFileMadeToFailIsReadAgainOnceItIsMadeToWork) {
  files_.put("/a", "text");
  files_.failReading("/a");
  EXPECT_EQ(files_.contentsAtPath("/a"), std::nullopt);
  EXPECT_THAT(log_.lines(), ElementsAre("/a: not read: made to fail"));
  files_.failReading("/a", /*fails=*/false);
  EXPECT_EQ(files_.contentsAtPath("/a"), "text");
  EXPECT_EQ(files_.readsOf("/a"), 2);
}

TEST_F(FakeFilesTest, AMissingFileIsNotLoggedEvenWhenItWouldFail) {
  files_.failReading("/a");
  EXPECT_EQ(files_.contentsAtPath("/a"), std::nullopt);
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(FakeFilesTest, AFailedWriteIsCountedAndKeepsTheOldContent) {
  files_.put("/a", "old");
  files_.failWriting("/a");
  EXPECT_FALSE(files_.writeToFile("/a", "new"));
  EXPECT_EQ(files_.contentsAtPath("/a"), "old");
  EXPECT_EQ(files_.writesOf("/a"), 1);
  files_.failWriting("/a", /*fails=*/false);
  EXPECT_TRUE(files_.writeToFile("/a", "new"));
  EXPECT_EQ(files_.contentsAtPath("/a"), "new");
  EXPECT_EQ(files_.writesOf("/a"), 2);
}

TEST_F(FakeFilesTest, ADeviceThatFillsUpLeavesAShortFile) {
  files_.put("/a", "a long old content");
  files_.failWritingAfter("/a", 2);
  EXPECT_FALSE(files_.writeToFile("/a", "new"));
  EXPECT_EQ(files_.contentsAtPath("/a"), "ne");
  EXPECT_TRUE(files_.writeToFile("/a", "ok"));
  EXPECT_EQ(files_.contentsAtPath("/a"), "ok");
}

TEST_F(FakeFilesTest, ADeviceThatFillsUpKeepsAFileThatIsWrittenAtomically) {
  files_.put("/a", "a long old content");
  files_.failWritingAfter("/a", 2);
  EXPECT_FALSE(files_.writeToFileAtomically("/a", "new"));
  EXPECT_EQ(files_.contentsAtPath("/a"), "a long old content");
  EXPECT_EQ(files_.writesOf("/a"), 1);
}

TEST_F(FakeFilesTest, PuttingAFileIsNoWrite) {
  files_.put("/a", "text");
  EXPECT_EQ(files_.writesOf("/a"), 0);
}

TEST_F(FakeFilesTest, AFolderIsThereWhileAFileLiesInIt) {
  files_.put("/a/b", "text");
  files_.put("/a-z", "sorts between the folder's name and what is in it");
  EXPECT_TRUE(files_.fileExistsAtPath("/a"));
  files_.removeFile("/a/b");
  EXPECT_FALSE(files_.fileExistsAtPath("/a"));
}

}  // namespace
}  // namespace zephyl::fake
