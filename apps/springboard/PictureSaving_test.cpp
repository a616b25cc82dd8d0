// Pictures that other processes hand in, on a device with real files.

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "platform/foundation/NSKeyedArchive.h"

#include "apps/springboard/GroupsService.h"
#include "apps/springboard/TestPictures.h"
#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakeSystem.h"
#include "hosts/linux/FullDisk_testing.h"
#include "hosts/linux/InProcessMessagingCenter.h"
#include "hosts/linux/LinuxDevice.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {
namespace {

using test::fileOf;
using test::noise;
using test::textOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// A log that outlives the device.
class ForwardedLog : public SystemLog {
 public:
  explicit ForwardedLog(SystemLog& target) : target_(target) {}
  void log(const std::string& line) override { target_.log(line); }

 private:
  SystemLog& target_;
};

class PictureSavingTest : public ::testing::Test {
 protected:
  PictureSavingTest() {
    linux_host::DeviceOptions options;
    options.deviceRoot = root_.path();
    options.systemLog = std::make_unique<ForwardedLog>(log_);
    device_ = std::make_unique<linux_host::LinuxDevice>(std::move(options));
    install(*device_);
    serveGroups(center_);
  }
  ~PictureSavingTest() override { uninstall(); }

  // What the shell answers; null when it answers nothing.
  Value ask(const char* message, const Value& data) {
    const Dictionary userInfo{{kServiceMessageData, data}};
    const auto reply =
        center_.sendMessageAndReceiveReplyName(kZephylsMessageCenter, message, &userInfo);
    return reply ? (*reply)[kServiceMessageData] : Value();
  }
  Value save(const Value& image, const Value& path) {
    return ask(kSaveImageMessage, archivedData(Dictionary{{"image", image}, {"path", path}}));
  }
  Value savePicture(const std::string& name) {
    return save(archivableImage(UIImage(png_)), inPictures(name));
  }

  static std::string inPictures(const std::string& name) {
    return std::string(kGroupPicturesDirectory) + "/" + name;
  }
  [[nodiscard]] std::string place(const std::string& path) const { return root_.path() + path; }
  static unsigned permissions(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777U;
  }

  const Data png_ = fileOf(noise(60, 40), "PNG");
  fake::FakeSystemLog log_;
  contract::TemporaryFolder root_;
  contract::TemporaryFolder elsewhere_;
  std::unique_ptr<linux_host::LinuxDevice> device_;
  linux_host::InProcessMessagingCenter center_{log_};
};

TEST_F(PictureSavingTest, APictureBecomesAFileForTheUserAlone) {
  EXPECT_EQ(savePicture("7.png"), Value(true));
  EXPECT_EQ(root_.read(inPictures("7.png")), textOf(png_));
  EXPECT_EQ(permissions(place(inPictures("7.png"))), 0600U);
  EXPECT_EQ(permissions(place(kGroupPicturesDirectory)), 0700U);
  EXPECT_THAT(root_.namesIn(kGroupPicturesDirectory), ElementsAre("7.png"));
  EXPECT_THAT(log_.lines(), IsEmpty());
}

TEST_F(PictureSavingTest, WhatWasSavedIsHandedOut) {
  const Data jpeg = fileOf(noise(60, 40), "JPEG");
  EXPECT_EQ(save(archivableImage(UIImage(jpeg)), inPictures("7.png")), Value(true));
  const Value archive = ask(kServiceMessageData, inPictures("7.png"));
  ASSERT_NE(archive.ifData(), nullptr);
  const UIImageRef image = unarchivedImage(*archive.ifData());
  ASSERT_NE(image, nullptr);
  EXPECT_THAT(textOf(image->file()), ::testing::StartsWith("\x89PNG"));
}

TEST_F(PictureSavingTest, ANewPictureTakesThePlaceOfTheOldOne) {
  root_.put(inPictures("7.png"), "old");
  EXPECT_EQ(savePicture("7.png"), Value(true));
  EXPECT_EQ(root_.read(inPictures("7.png")), textOf(png_));
}

TEST_F(PictureSavingTest, WhatIsNoPictureIsRefusedAndTheOldOneStays) {
  root_.put(inPictures("7.png"), "old");
  const std::string rubbish = "rubbish";
  EXPECT_EQ(
      save(archivableImage(UIImage(Data(rubbish.begin(), rubbish.end()))), inPictures("7.png")),
      Value(false));
  EXPECT_EQ(root_.read(inPictures("7.png")), "old");
  EXPECT_THAT(log_.lines(), ElementsAre(HasSubstr("save.image refused: ")));
}

TEST_F(PictureSavingTest, ARequestOfAnotherShapeIsRefused) {
  const Value image = archivableImage(UIImage(png_));
  const std::string path = inPictures("7.png");
  for (const Value& data :
       {Value("text"), Value(Data{1, 2, 3}), Value(archivedData(Array{image, path})),
        Value(archivedData(image)), Value(archivedData(Dictionary{{"path", path}})),
        Value(archivedData(Dictionary{{"image", image}})),
        Value(archivedData(Dictionary{{"image", Value(png_)}, {"path", path}})),
        Value(archivedData(Dictionary{{"image", image}, {"path", 7}}))}) {
    EXPECT_EQ(ask(kSaveImageMessage, data), Value(false));
  }
  EXPECT_EQ(
      center_.sendMessageAndReceiveReplyName(kZephylsMessageCenter, kSaveImageMessage, nullptr),
      (Dictionary{{kServiceMessageData, false}}));
  EXPECT_THAT(log_.lines(), SizeIs(9));
  EXPECT_THAT(root_.namesIn(""), IsEmpty());
}

TEST_F(PictureSavingTest, OnlyFilesRightInThePicturesDirectoryAreWritten) {
  std::string withNul = inPictures("7");
  withNul.push_back('\0');
  for (const std::string& path :
       {std::string("/etc/7.png"), std::string("7.png"), std::string(), inPictures(""),
        inPictures("."), inPictures(".."), inPictures("../7.png"), inPictures("sub/7.png"),
        inPictures("sub/../7.png"), std::string(kGroupPicturesDirectory),
        std::string(kGroupPicturesDirectory) + "x/7.png", "/x/.." + inPictures("7.png"),
        withNul + ".png"}) {
    const std::size_t lines = log_.lines().size();
    EXPECT_EQ(save(archivableImage(UIImage(png_)), path), Value(false)) << path;
    EXPECT_GT(log_.lines().size(), lines) << path;
  }
  EXPECT_THAT(root_.namesIn(""), IsEmpty());
}

TEST_F(PictureSavingTest, ALinkThatLeadsOutOfTheDeviceIsNotFollowed) {
  std::filesystem::create_directories(place(kGroupPicturesDirectory));
  elsewhere_.put("/target", "untouched");
  std::filesystem::create_symlink(elsewhere_.path() + "/target", place(inPictures("7.png")));
  std::filesystem::create_symlink(elsewhere_.path() + "/new", place(inPictures("8.png")));
  EXPECT_EQ(savePicture("7.png"), Value(false));
  EXPECT_EQ(savePicture("8.png"), Value(false));
  EXPECT_EQ(elsewhere_.read("/target"), "untouched");
  EXPECT_THAT(elsewhere_.namesIn(""), ElementsAre("target"));
  EXPECT_FALSE(log_.lines().empty());
}

TEST_F(PictureSavingTest, APicturesDirectoryThatLiesElsewhereIsNotFollowed) {
  const std::filesystem::path directory = place(kGroupPicturesDirectory);
  std::filesystem::create_directories(directory.parent_path());
  std::filesystem::create_symlink(elsewhere_.path(), directory);
  EXPECT_EQ(savePicture("7.png"), Value(false));
  EXPECT_THAT(elsewhere_.namesIn(""), IsEmpty());
  EXPECT_FALSE(log_.lines().empty());
}

TEST_F(PictureSavingTest, APictureThatIsALinkInsideTheDeviceIsNeitherSavedNorGiven) {
  root_.put(kGroupsFilePath, "the groups");
  std::filesystem::create_directories(place(kGroupPicturesDirectory));
  const std::string link = place(inPictures("7.png"));
  std::filesystem::create_symlink(
      "../" + std::filesystem::path(kGroupsFilePath).filename().string(), link);
  EXPECT_EQ(savePicture("7.png"), Value(false));
  EXPECT_TRUE(ask(kServiceMessageData, inPictures("7.png")).isNull());
  EXPECT_EQ(root_.read(kGroupsFilePath), "the groups");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  EXPECT_THAT(log_.lines(), SizeIs(2));
  EXPECT_THAT(log_.lines(), Each(HasSubstr("a symbolic link: " + inPictures("7.png"))));
}

TEST_F(PictureSavingTest, APicturesDirectoryThatIsALinkInsideTheDeviceIsNotUsed) {
  root_.put(kGroupsFilePath, "the groups");
  std::filesystem::create_symlink(".", place(kGroupPicturesDirectory));
  const std::string name = std::filesystem::path(kGroupsFilePath).filename();
  EXPECT_EQ(savePicture(name), Value(false));
  EXPECT_TRUE(ask(kServiceMessageData, inPictures(name)).isNull());
  EXPECT_EQ(root_.read(kGroupsFilePath), "the groups");
  EXPECT_THAT(log_.lines(), SizeIs(2));
  EXPECT_THAT(log_.lines(),
              Each(HasSubstr(std::string("a symbolic link: ") + kGroupPicturesDirectory)));
}

TEST_F(PictureSavingTest, AFullDiskLeavesTheOldPictureAndNothingElse) {
  root_.put(inPictures("7.png"), "old");
  const linux_host::FileSizeLimit limit(1024);
  ASSERT_GT(png_.size(), 1024U);
  EXPECT_EQ(savePicture("7.png"), Value(false));
  EXPECT_EQ(root_.read(inPictures("7.png")), "old");
  EXPECT_THAT(root_.namesIn(kGroupPicturesDirectory), ElementsAre("7.png"));
  EXPECT_FALSE(log_.lines().empty());
}

}  // namespace
}  // namespace zephyl::app
