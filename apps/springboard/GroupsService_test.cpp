#include "apps/springboard/GroupsService.h"

#include <string>

#include <gtest/gtest.h>

#include "platform/foundation/NSKeyedArchive.h"
#include "platform/foundation/PropertyList.h"

#include "hosts/fake/Device.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "model/Zephyl.h"
#include "model/ZephylKeys.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {
namespace {

class GroupsServiceTest : public ::testing::Test {
 protected:
  GroupsServiceTest() { serveGroups(center_); }

  // What the answer holds; null when there is no answer or nothing in it.
  Value ask(const char* message, const Value& data) {
    const Dictionary userInfo{{kServiceMessageData, data}};
    const auto reply = center_.sendMessageAndReceiveReplyName(kZephylsMessageCenter, message,
                                                              data.isNull() ? nullptr : &userInfo);
    return reply ? (*reply)[kServiceMessageData] : Value();
  }

  fake::Device device_;
  linux_host::InProcessMessagingCenter center_{device_.systemLog()};
};

TEST_F(GroupsServiceTest, GroupsAreThoseOfTheFile) {
  EXPECT_TRUE(ask(kGetGroupsMessage, {}).isNull());
  const Array groups{Dictionary{{"title", "Work"}}};
  device_.files().put(kGroupsFilePath, writeXmlPropertyList(Value(groups)));
  EXPECT_EQ(ask(kGetGroupsMessage, {}), Value(groups));
}

TEST_F(GroupsServiceTest, ASaveWritesTheFileAndAnswersWithTheResult) {
  const Array groups{Dictionary{{"title", "Work"}}};
  EXPECT_EQ(ask(kSaveGroupsMessage, groups), Value(true));
  EXPECT_EQ(ask(kGetGroupsMessage, {}), Value(groups));
  EXPECT_EQ(ask(kSaveGroupsMessage, Array{}), Value(true));
  device_.files().failWriting(kGroupsFilePath);
  EXPECT_EQ(ask(kSaveGroupsMessage, groups), Value(false));
}

TEST_F(GroupsServiceTest, WhatIsNoArrayOfDictionariesIsRefusedAndTheFileStays) {
  device_.files().put(kGroupsFilePath, "before");
  for (const Value& groups : {Value(), Value("text"), Value(Dictionary{}), Value(Array{5})}) {
    EXPECT_EQ(ask(kSaveGroupsMessage, groups), Value(false));
  }
  EXPECT_EQ(device_.files().contentsAtPath(kGroupsFilePath), "before");
  EXPECT_EQ(device_.systemLog().lines().size(), 4U);
}

TEST_F(GroupsServiceTest, APictureComesAsAnArchive) {
  const std::string path = std::string(kGroupPicturesDirectory) + "/7.png";
  EXPECT_TRUE(ask(kServiceMessageData, path).isNull());
  device_.files().put(path, "picture");
  const Value archive = ask(kServiceMessageData, path);
  ASSERT_NE(archive.ifData(), nullptr);
  const UIImageRef image = unarchivedImage(*archive.ifData());
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(std::string(image->file().begin(), image->file().end()), "picture");
}

TEST_F(GroupsServiceTest, OnlyFilesInThePicturesDirectoryArePictures) {
  device_.files().put("/etc/passwd", "secret");
  const std::string directory = kGroupPicturesDirectory;
  device_.files().put(directory + "/sub/7.png", "secret");
  device_.files().put(directory, "secret");
  for (const std::string& path :
       {std::string("/etc/passwd"), directory + "/../../../../../etc/passwd", directory,
        directory + "/", directory + "/..", directory + "/sub/7.png", std::string("7.png")}) {
    EXPECT_TRUE(ask(kServiceMessageData, path).isNull()) << path;
  }
  EXPECT_EQ(device_.systemLog().lines().size(), 7U);
  EXPECT_TRUE(ask(kServiceMessageData, "").isNull());
  EXPECT_TRUE(ask(kServiceMessageData, 5).isNull());
  EXPECT_EQ(device_.systemLog().lines().size(), 7U);
}

// A list of groups in which arrays stand inside one another so deep that the file is at its limit.
std::string nested(std::size_t depth) {
  std::string text = "<plist><array><dict><key>later</key>";
  for (std::size_t level = 2; level < depth; ++level) {
    text += "<array>";
  }
  for (std::size_t level = 2; level < depth; ++level) {
    text += "</array>";
  }
  return text + "</dict></array></plist>";
}

TEST_F(GroupsServiceTest, GroupsThatNobodyCouldReadAreKept) {
  EXPECT_EQ(whyKeepGroupsFile("/other/file", "rubbish"), std::nullopt);
  EXPECT_EQ(whyKeepGroupsFile(kGroupsFilePath, nested(3)), std::nullopt);
  EXPECT_TRUE(whyKeepGroupsFile(kGroupsFilePath, "rubbish"));
  EXPECT_TRUE(whyKeepGroupsFile(kGroupsFilePath, "<plist><array><true/></array></plist>"));
}

TEST_F(GroupsServiceTest, GroupsThatNoMessageCarriesAreKept) {
  device_.files().put(kGroupsFilePath, nested(511));
  EXPECT_FALSE(ask(kGetGroupsMessage, {}).isNull());
  EXPECT_EQ(whyKeepGroupsFile(kGroupsFilePath, nested(511)), std::nullopt);

  device_.files().put(kGroupsFilePath, nested(512));
  EXPECT_TRUE(ask(kGetGroupsMessage, {}).isNull());
  EXPECT_TRUE(whyKeepGroupsFile(kGroupsFilePath, nested(512)));

  std::string large = "<plist><array><dict><key>later</key><string>";
  large.resize(61'000'000, 'x');
  large += "</string></dict></array></plist>";
  device_.files().put(kGroupsFilePath, large);
  EXPECT_TRUE(ask(kGetGroupsMessage, {}).isNull());
  EXPECT_TRUE(whyKeepGroupsFile(kGroupsFilePath, large));
}

// The store of another process, from version 12 on, sees the same groups.
TEST_F(GroupsServiceTest, TheStoreWorksThroughIt) {
  device_.device().setSystemVersion("14.0");
  for (const char* message : {kGetGroupsMessage, kSaveGroupsMessage}) {
    device_.messagingCenter().setAnswer(message, [this, message](const Dictionary* userInfo) {
      return center_.sendMessageAndReceiveReplyName(kZephylsMessageCenter, message, userInfo);
    });
  }
  const auto store = ZephylsDataController::sharedInstance();
  store->createDefaultGroups();
  store->reloadAllZephyls();
  EXPECT_EQ(store->allZephyls()->size(), 5U);
  EXPECT_EQ(device_.files().writesOf(kGroupsFilePath), 1);
}

}  // namespace
}  // namespace zephyl::app
