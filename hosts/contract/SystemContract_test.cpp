#include <cmath>
#include <string>
#include <thread>

#include <gmock/gmock.h>

#include "platform/addressbook/ABAddressBook.h"
#include "platform/addressbook/ABFavorites.h"
#include "platform/addressbook/ABPhoneFormatting.h"
#include "platform/audiotoolbox/AudioServices.h"
#include "platform/chatkit/CKConversationList.h"
#include "platform/foundation/Clock.h"
#include "platform/foundation/Dispatch.h"
#include "platform/foundation/ProcessInfo.h"
#include "platform/foundation/SystemLog.h"
#include "platform/uikit/UIDevice.h"

#include "hosts/contract/DeviceUnderTest.h"

namespace zephyl::contract {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class SystemContract : public ContractTest {};
ZEPHYLS_CONTRACT(SystemContract);

TEST_P(SystemContract, IsTheInstalledHostAndHandsOutTheSameParts) {
  EXPECT_EQ(&::zephyl::host(), &host());
  EXPECT_EQ(&host().files(), &host().files());
  EXPECT_EQ(&host().userDefaults(), &host().userDefaults());
  EXPECT_EQ(&host().dispatch(), &host().dispatch());
  EXPECT_EQ(&host().darwinNotifications(), &host().darwinNotifications());
  EXPECT_EQ(&host().messagingCenter(), &host().messagingCenter());
  EXPECT_EQ(host().addressBook(), host().addressBook());
  EXPECT_NE(host().addressBook(), nullptr);
  EXPECT_NE(host().makeLAContext(), nullptr);
}

TEST_P(SystemContract, TheClockCountsSecondsSince1970) {
  constexpr double kStartOf2020 = 1'577'836'800.0;
  constexpr double kStartOf2200 = 7'258'118'400.0;
  EXPECT_GT(host().clock().now(), kStartOf2020);
  EXPECT_LT(host().clock().now(), kStartOf2200);
}

TEST_P(SystemContract, TheVersionIsTheOneGiven) {
  device().setSystemVersion("12.4.1");
  EXPECT_EQ(host().device().systemVersion(), "12.4.1");
}

TEST_P(SystemContract, ADeviceIsAPhoneUnlessToldOtherwise) {
  EXPECT_EQ(host().device().userInterfaceIdiom(), UIUserInterfaceIdiom::kPhone);
  device().setSystemVersion("6.0");
  EXPECT_EQ(host().device().userInterfaceIdiom(), UIUserInterfaceIdiom::kPhone);
}

TEST_P(SystemContract, TheProcessIsTheMessagesAppUnlessToldOtherwise) {
  EXPECT_EQ(host().processInfo().bundleIdentifier(), "com.apple.MobileSMS");
  EXPECT_EQ(host().processInfo().bundlePath(), "/Applications/MobileSMS.app");
}

TEST_P(SystemContract, ThereIsAlwaysALanguage) {
  EXPECT_THAT(host().processInfo().preferredLanguages(), Not(IsEmpty()));
  EXPECT_THAT(host().processInfo().preferredLanguages(), Each(Not(IsEmpty())));
}

TEST_P(SystemContract, LinesOfTheLogKeepTheirOrder) {
  host().systemLog().log("one");
  std::thread([this] { host().systemLog().log("two"); }).join();
  EXPECT_THAT(device().log(), ElementsAre("one", "two"));
}

TEST_P(SystemContract, NoVibrationHoldsUpItsCallerOrTheQueues) {
  const Dictionary buzz{{"VibePattern", Array{Value(true), Value(300.0)}}, {"Intensity", 1.0}};
  for (const Dictionary& vibration :
       {buzz, Dictionary(), Dictionary{{"VibePattern", "no array"}, {"Intensity", "no number"}},
        Dictionary{{"VibePattern", Array{Value(true)}}}}) {
    host().audioServices().playSystemSoundWithVibration(4095, vibration);
    std::thread([&] { host().audioServices().playSystemSoundWithVibration(0, vibration); }).join();
  }
  bool ran = false;
  host().dispatch().mainAsync([&] { ran = true; });
  device().settle();
  EXPECT_TRUE(ran);
}

TEST_P(SystemContract, ADeviceIsEmptyUntilItIsFilled) {
  EXPECT_THAT(host().conversationList().conversations(), IsEmpty());
  EXPECT_THAT(host().conversationList().filteredConversationsByZephyl(nullptr), IsEmpty());
  EXPECT_THAT(host().addressBook()->copyArrayOfAllPeople(), IsEmpty());
  EXPECT_EQ(host().addressBook()->personWithRecordID(1), nullptr);
  EXPECT_EQ(host().favorites().entries("CNFavorites"), std::nullopt);
  EXPECT_EQ(host().phoneFormatting().abCopyPhoneNumberFromString("5550100"), std::nullopt);
}

}  // namespace
}  // namespace zephyl::contract
