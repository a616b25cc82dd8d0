#include "hosts/linux/LinuxDevice.h"

#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/NSFileManager.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/SystemLog.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/fake/FakePhoneBook.h"
#include "hosts/linux/LinuxSystemLog.h"

namespace zephyl::linux_host {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class LinuxDeviceTest : public ::testing::Test {
 protected:
  [[nodiscard]] DeviceOptions options() const {
    DeviceOptions options;
    options.deviceRoot = top_.path();
    return options;
  }

  contract::TemporaryFolder top_;
};

TEST_F(LinuxDeviceTest, MakingOneTouchesNoFile) {
  const LinuxDevice device(options());
  EXPECT_THAT(top_.namesIn(""), IsEmpty());
}

TEST_F(LinuxDeviceTest, EachContextIsANewOne) {
  LinuxDevice device(options());
  EXPECT_NE(device.makeLAContext(), device.makeLAContext());
}

TEST_F(LinuxDeviceTest, AReaderThatIsGivenIsPreferred) {
  DeviceOptions given = options();
  std::shared_ptr<LAContext> reader = std::make_shared<NoAuthentication>();
  given.hasBiometrics = true;
  given.makeAuthentication = [&] { return reader; };
  LinuxDevice device(std::move(given));
  EXPECT_EQ(device.makeLAContext(), reader);
}

TEST_F(LinuxDeviceTest, TheProcessIsWhomTheOptionsSay) {
  DeviceOptions shell = options();
  shell.bundleIdentifier = "com.apple.springboard";
  shell.languages = {"de-DE", "en"};
  LinuxDevice device(std::move(shell));
  EXPECT_EQ(device.processInfo().bundleIdentifier(), "com.apple.springboard");
  EXPECT_EQ(device.processInfo().bundlePath(), "/System/Library/CoreServices/SpringBoard.app");
  EXPECT_THAT(device.processInfo().preferredLanguages(), ElementsAre("de-DE", "en"));
}

TEST_F(LinuxDeviceTest, ServesTheSourcesThatItIsGiven) {
  DeviceOptions filled = options();
  auto phoneFormatting = std::make_unique<fake::FakePhoneFormatting>();
  phoneFormatting->setFormat("5550100", "555-0100");
  filled.phoneFormatting = std::move(phoneFormatting);
  auto favorites = std::make_unique<fake::FakeFavorites>();
  favorites->setEntries("CNFavorites", {ABFavoritesEntry()});
  filled.favorites = std::move(favorites);
  const auto addressBook = std::make_shared<fake::FakeAddressBook>();
  filled.addressBook = addressBook;
  LinuxDevice device(std::move(filled));
  EXPECT_EQ(device.phoneFormatting().abCopyPhoneNumberFromString("5550100"), "555-0100");
  EXPECT_THAT(*device.favorites().entries("CNFavorites"), SizeIs(1));
  EXPECT_EQ(device.addressBook(), addressBook);
}

TEST_F(LinuxDeviceTest, FilesAreGuardedByTheFunctionGiven) {
  top_.put("/groups", "old");
  DeviceOptions guarded = options();
  guarded.needsCopyBeforeOverwrite = [](const std::string&, const std::string&) {
    return std::optional<std::string>("always");
  };
  LinuxDevice device(std::move(guarded));
  EXPECT_TRUE(device.files().writeToFile("/groups", "new"));
  EXPECT_THAT(top_.namesIn(""), SizeIs(2));
}

TEST(LinuxSystemLog, TalksOnStandardErrorOnlyWhenAskedTo) {
  ::testing::internal::CaptureStderr();
  LinuxSystemLog(/*verbose=*/false).log("quiet");
  LinuxSystemLog(/*verbose=*/true).log("aloud");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "aloud\n");
}

TEST(LinuxSystemLog, NoTextCanPassForASecondLine) {
  ::testing::internal::CaptureStderr();
  LinuxSystemLog(/*verbose=*/true).log("a\nb\x1b[31m\tc\u00e9 %s");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "a b [31m c\u00e9 %s\n");
}

}  // namespace
}  // namespace zephyl::linux_host
