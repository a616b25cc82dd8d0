#include <string>

#include <gmock/gmock.h>

#include "platform/foundation/NSError.h"
#include "platform/foundation/NSFileManager.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class FilesContract : public ContractTest {
 protected:
  NSFileManager& files() { return host().files(); }

  void expectLogNames(const std::string& path) {
    EXPECT_THAT(device().log(), Contains(HasSubstr(path)));
  }
};
ZEPHYLS_CONTRACT(FilesContract);

TEST_P(FilesContract, AMissingFileGivesNothingAndNoLine) {
  EXPECT_EQ(files().contentsAtPath("/var/missing"), std::nullopt);
  EXPECT_FALSE(files().fileExistsAtPath("/var/missing"));
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, WhatWasWrittenIsReadBackByteForByte) {
  const std::string everyByte = [] {
    std::string bytes;
    for (int c = 0; c < 256; ++c) {
      bytes.push_back(static_cast<char>(c));
    }
    return bytes;
  }();
  for (const std::string& contents : {everyByte, std::string(), std::string(300'000, 'x')}) {
    EXPECT_TRUE(files().writeToFile("/file", contents));
    EXPECT_EQ(files().contentsAtPath("/file"), contents);
  }
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, AShorterContentLeavesNothingOfTheLongerOne) {
  EXPECT_TRUE(files().writeToFile("/file", "a long content"));
  EXPECT_TRUE(files().writeToFile("/file", "short"));
  EXPECT_EQ(files().contentsAtPath("/file"), "short");
}

TEST_P(FilesContract, WritingMakesMissingFolders) {
  EXPECT_TRUE(files().writeToFile("/var/mobile/Library/Preferences/Zephyls/7.png", "picture"));
  EXPECT_TRUE(files().fileExistsAtPath("/var/mobile/Library/Preferences/Zephyls/7.png"));
  EXPECT_TRUE(files().fileExistsAtPath("/var/mobile/Library"));
  EXPECT_FALSE(files().fileExistsAtPath("/var/mobile/Lib"));
}

TEST_P(FilesContract, AFolderListsNamesSortedAndOnce) {
  for (const char* path : {"/d/b", "/d/sub/x", "/d/a", "/d/sub/y", "/d-e", "/d/C"}) {
    EXPECT_TRUE(files().writeToFile(path, "x"));
  }
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/d"), ElementsAre("C", "a", "b", "sub"));
}

TEST_P(FilesContract, NoFolderListsNothing) {
  EXPECT_TRUE(files().writeToFile("/file", "x"));
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/file"), IsEmpty());
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/missing"), IsEmpty());
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, AFileThatCannotBeReadGivesNothingAndALine) {
  const std::string path = device().makeUnreadableFile();
  EXPECT_EQ(files().contentsAtPath(path), std::nullopt);
  EXPECT_TRUE(files().fileExistsAtPath(path));
  expectLogNames(path);
}

TEST_P(FilesContract, AFailedWriteGivesFalseAndALine) {
  const std::string path = device().unwritableFile();
  EXPECT_FALSE(files().writeToFile(path, "text"));
  expectLogNames(path);
}

TEST_P(FilesContract, AnAtomicWriteLeavesTheNewContentAndNothingBesideIt) {
  for (const char* contents : {"a long content", "short", ""}) {
    EXPECT_TRUE(files().writeToFileAtomically("/new/folder/file", contents));
    EXPECT_EQ(files().contentsAtPath("/new/folder/file"), contents);
  }
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/new/folder"), ElementsAre("file"));
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, AFailedAtomicWriteGivesFalseAndALine) {
  EXPECT_TRUE(files().writeToFile("/folder/file", "text"));
  for (const std::string& path :
       {device().unwritableFile(), std::string("/folder"), std::string("/folder/file/below")}) {
    EXPECT_FALSE(files().writeToFileAtomically(path, "new")) << path;
    expectLogNames(path);
  }
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/folder"), ElementsAre("file"));
  EXPECT_EQ(files().contentsAtPath("/folder/file"), "text");
}

TEST_P(FilesContract, AFolderIsMadeWithThoseAboveItAndMayBeThere) {
  NSError error("untouched", 1);
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(files().createDirectoryAtPath("/var/mobile/pictures", &error));
    EXPECT_TRUE(files().fileExistsAtPath("/var/mobile/pictures"));
    EXPECT_TRUE(files().fileExistsAtPath("/var/mobile"));
  }
  EXPECT_TRUE(files().writeToFileAtomically("/var/mobile/pictures/1.png", "picture"));
  EXPECT_TRUE(files().createDirectoryAtPath("/var/mobile", nullptr));
  EXPECT_EQ(files().contentsAtPath("/var/mobile/pictures/1.png"), "picture");
  EXPECT_EQ(error.domain(), "untouched");
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, AFolderThatCannotBeMadeGivesFalseAnErrorAndALine) {
  EXPECT_TRUE(files().writeToFile("/file", "text"));
  for (const char* path : {"/file", "/file/below"}) {
    NSError error;
    EXPECT_FALSE(files().createDirectoryAtPath(path, &error)) << path;
    EXPECT_NE(error.code(), 0) << path;
    EXPECT_FALSE(error.localizedDescription().empty()) << path;
    EXPECT_FALSE(files().createDirectoryAtPath(path, nullptr)) << path;
    expectLogNames(path);
  }
  EXPECT_EQ(files().contentsAtPath("/file"), "text");
}

TEST_P(FilesContract, AFolderIsNeitherReadNorWritten) {
  EXPECT_TRUE(files().writeToFile("/folder/file", "text"));
  EXPECT_EQ(files().contentsAtPath("/folder"), std::nullopt);
  EXPECT_FALSE(files().writeToFile("/folder", "text"));
  EXPECT_EQ(files().contentsAtPath("/folder/file"), "text");
  expectLogNames("/folder");
}

TEST_P(FilesContract, ASymbolicLinkIsToldFromWhatItLeadsTo) {
  EXPECT_TRUE(files().writeToFile("/folder/file", "text"));
  device().makeLink("/to file", "/folder/file");
  device().makeLink("/to folder", "/folder");
  device().makeLink("/to nothing", "/missing");
  for (const char* link : {"/to file", "/to folder", "/to nothing"}) {
    EXPECT_TRUE(files().isSymbolicLinkAtPath(link)) << link;
  }
  for (const char* other : {"/folder/file", "/folder", "/missing", "/to folder/file", "/", ""}) {
    EXPECT_FALSE(files().isSymbolicLinkAtPath(other)) << other;
  }
  EXPECT_THAT(device().log(), IsEmpty());
}

TEST_P(FilesContract, NothingIsMadeBelowAFile) {
  EXPECT_TRUE(files().writeToFile("/file", "text"));
  EXPECT_FALSE(files().writeToFile("/file/below", "text"));
  EXPECT_EQ(files().contentsAtPath("/file"), "text");
  EXPECT_EQ(files().contentsAtPath("/file/below"), std::nullopt);
  expectLogNames("/file/below");
}

TEST_P(FilesContract, AnyThreadMayReadAndWrite) {
  onThreads(4, [this](int number) {
    const std::string path = "/threads/" + std::to_string(number);
    for (int i = 0; i < 20; ++i) {
      EXPECT_TRUE(files().writeToFile(path, path));
      EXPECT_TRUE(files().writeToFile("/shared", "the same"));
      EXPECT_EQ(files().contentsAtPath(path), path);
    }
  });
  EXPECT_EQ(files().contentsAtPath("/shared"), "the same");
  EXPECT_THAT(files().contentsOfDirectoryAtPath("/threads"), ElementsAre("0", "1", "2", "3"));
}

}  // namespace
}  // namespace zephyl::contract
