#include "hosts/linux/DeviceRoot.h"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/contract/TemporaryFolder.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class DeviceRootTest : public ::testing::Test {
 protected:
  // Without what the machine's temporary folder may itself be reached through.
  static std::string real(const contract::TemporaryFolder& folder) {
    return std::filesystem::canonical(folder.path()).string();
  }

  contract::TemporaryFolder top_;
  contract::TemporaryFolder share_;
  const std::string rootPath_ = real(top_);
  const std::string sharePath_ = real(share_);
  const DeviceRoot root_{rootPath_, sharePath_};
};

TEST_F(DeviceRootTest, PathsAreTakenAsThePhoneTakesThem) {
  struct Case {
    std::string path;
    std::string below;
  };
  for (const auto& [path, below] :
       {Case{"/var/mobile/a", "/var/mobile/a"}, Case{"/var//mobile/./a/", "/var/mobile/a"},
        Case{"/var/x/../a", "/var/a"}, Case{"/..", ""}, Case{"/../../etc/passwd", "/etc/passwd"},
        Case{"/a/../../../b", "/b"}, Case{"/a/...", "/a/..."}, Case{"/", ""}}) {
    const DeviceLocation location = root_.forWriting(path);
    EXPECT_EQ(location.refusal, "") << path;
    EXPECT_EQ(std::filesystem::path(location.path).lexically_normal(),
              std::filesystem::path(rootPath_ + below))
        << path;
  }
}

TEST_F(DeviceRootTest, PathsThatAreNoneAreRefused) {
  for (const std::string& path : {std::string(), std::string("relative"), std::string("../up"),
                                  std::string("/a\0/b", 5), std::string("~/file")}) {
    EXPECT_NE(root_.forWriting(path).refusal, "") << path;
    EXPECT_NE(root_.forReading(path).refusal, "") << path;
    EXPECT_EQ(root_.forReading(path).path, "") << path;
    EXPECT_THAT(root_.foldersOf(path), IsEmpty()) << path;
  }
}

TEST_F(DeviceRootTest, ALinkOutOfTheRootIsRefused) {
  share_.put("/secret", "text");
  std::filesystem::create_directory_symlink(sharePath_, rootPath_ + "/out");
  std::filesystem::create_symlink(sharePath_ + "/secret", rootPath_ + "/file");
  for (const char* path : {"/out", "/out/secret", "/out/new", "/file"}) {
    EXPECT_THAT(root_.forReading(path).refusal, HasSubstr("symbolic link")) << path;
    EXPECT_THAT(root_.forWriting(path).refusal, HasSubstr("symbolic link")) << path;
    EXPECT_THAT(root_.foldersOf(path), IsEmpty()) << path;
  }
}

TEST_F(DeviceRootTest, AFolderBesideTheRootWithALongerNameIsOutside) {
  const std::string beside = rootPath_ + "-beside";
  std::filesystem::create_directory(beside);
  std::filesystem::create_directory_symlink(beside, rootPath_ + "/link");
  EXPECT_THAT(root_.forWriting("/link/file").refusal, HasSubstr("symbolic link"));
  std::filesystem::remove_all(beside);
}

TEST_F(DeviceRootTest, ALinkWithinTheRootIsFollowed) {
  top_.put("/private/var/file", "text");
  std::filesystem::create_directory_symlink("private/var", rootPath_ + "/var");
  EXPECT_EQ(root_.forWriting("/var/file").path, rootPath_ + "/private/var/file");
}

TEST_F(DeviceRootTest, TheRootItselfMayBeALink) {
  const std::string link = sharePath_ + "/link";
  std::filesystem::create_directory_symlink(rootPath_, link);
  EXPECT_EQ(DeviceRoot(link, "").forWriting("/file").path, rootPath_ + "/file");
  EXPECT_EQ(DeviceRoot(rootPath_ + "/", "").forWriting("/file").path, rootPath_ + "/file");
}

TEST_F(DeviceRootTest, TheSystemsFilesComeFromTheOverlayUnlessTheRootHasThem) {
  for (const char* path : {"/System/texts", "/Library/texts", "/Applications/texts"}) {
    share_.put(path, "overlay");
    EXPECT_EQ(root_.forReading(path).path, sharePath_ + path);
    EXPECT_EQ(root_.forWriting(path).path, rootPath_ + path);
    top_.put(path, "root");
    EXPECT_EQ(root_.forReading(path).path, rootPath_ + path);
  }
}

TEST_F(DeviceRootTest, NothingElseComesFromTheOverlay) {
  for (const char* path : {"/var/file", "/Systems/file", "/file"}) {
    share_.put(path, "overlay");
    EXPECT_EQ(root_.forReading(path).path, rootPath_ + path);
  }
  EXPECT_EQ(root_.forReading("/System/../var/file").path, rootPath_ + "/var/file");
}

TEST_F(DeviceRootTest, AFolderOfTheSystemIsMadeOfBoth) {
  EXPECT_THAT(root_.foldersOf("/System/Library/"),
              ElementsAre(rootPath_ + "/System/Library", sharePath_ + "/System/Library"));
  EXPECT_THAT(root_.foldersOf("/var"), ElementsAre(rootPath_ + "/var"));
}

TEST_F(DeviceRootTest, WithoutAnOverlayEverythingIsBelowTheRoot) {
  EXPECT_EQ(DeviceRoot(rootPath_, "").forReading("/System/x").path, rootPath_ + "/System/x");
}

}  // namespace
}  // namespace zephyl::linux_host
