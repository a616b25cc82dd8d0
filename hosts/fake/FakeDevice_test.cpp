#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Once.h"

#include "hosts/fake/Device.h"

namespace zephyl::fake {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

class FakeDeviceTest : public ::testing::Test {
 protected:
  static CKConversationRef conversation(const std::string& guid) {
    CKConversation::Facts facts;
    facts.guid = guid;
    return std::make_shared<CKConversation>(std::move(facts));
  }

  Device device_;
};

TEST_F(FakeDeviceTest, IsInstalledWhileItLives) {
  EXPECT_EQ(&host(), &device_);
  EXPECT_EQ(&host().files(), &device_.files());
  EXPECT_EQ(host().makeLAContext().get(), &device_.authentication());
  EXPECT_EQ(host().addressBook().get(), &device_.people());
}

TEST_F(FakeDeviceTest, ARestartedProcessKeepsFilesAndForgetsWhatWasMadeOnce) {
  static Once<int> once;
  int made = 0;
  const auto make = [&] { return std::make_shared<int>(++made); };
  device_.files().put("/a", "text");
  EXPECT_EQ(*once.get(make), 1);
  EXPECT_EQ(*once.get(make), 1);
  device_.restartProcess();
  EXPECT_EQ(*once.get(make), 2);
  EXPECT_EQ(device_.files().contentsAtPath("/a"), "text");
}

TEST_F(FakeDeviceTest, PostedNotificationsAreLoggedInOrderWithOrWithoutObservers) {
  int calls = 0;
  device_.darwinNotifications().addObserver("b", [&] { ++calls; });
  device_.darwinNotifications().post("b");
  device_.darwinNotifications().post("a");
  EXPECT_EQ(calls, 0);
  device_.dispatch().runMain();
  EXPECT_EQ(calls, 1);
  EXPECT_THAT(device_.darwinNotifications().posted(), ElementsAre("b", "a"));
}

TEST_F(FakeDeviceTest, MessagesAreLoggedWhetherAnsweredOrNot) {
  auto& center = device_.messagingCenter();
  center.setAnswer("get", [](const Dictionary* userInfo) {
    return Dictionary({{"hadUserInfo", userInfo != nullptr}});
  });
  const Dictionary request{{"key", 1}};
  EXPECT_EQ(center.sendMessageAndReceiveReplyName("c", "get", &request),
            Dictionary({{"hadUserInfo", true}}));
  EXPECT_EQ(center.sendMessageAndReceiveReplyName("c", "other", nullptr), std::nullopt);
  ASSERT_THAT(center.sent(), SizeIs(2));
  EXPECT_EQ(center.sent()[0].center, "c");
  EXPECT_EQ(center.sent()[0].name, "get");
  EXPECT_EQ(center.sent()[0].userInfo, request);
  EXPECT_EQ(center.sent()[1].userInfo, std::nullopt);
}

TEST_F(FakeDeviceTest, AGroupShowsWhatTheTestSays) {
  auto& list = device_.conversationList();
  const auto one = conversation("one");
  const auto two = conversation("two");
  list.setConversations({one, two});
  EXPECT_THAT(list.filteredConversationsByZephyl(nullptr), ElementsAre(one, two));
  list.setShows([](const auto&, const auto& each) { return each->guid() == "two"; });
  EXPECT_THAT(list.filteredConversationsByZephyl(nullptr), ElementsAre(two));
  EXPECT_THAT(list.conversations(), ElementsAre(one, two));
  EXPECT_EQ(list.asked(), 2);
}

TEST_F(FakeDeviceTest, AFavoritesClassThatWasNeverSetDoesNotExist) {
  ABFavoritesEntry entry;
  entry.abUid = 7;
  device_.favorites().setEntries("CNFavorites", {entry});
  EXPECT_EQ(device_.favorites().entries("ABFavoritesListManager"), std::nullopt);
  const auto entries = device_.favorites().entries("CNFavorites");
  ASSERT_TRUE(entries.has_value());
  ASSERT_THAT(*entries, SizeIs(1));
  EXPECT_EQ(entries->front().abUid, 7);
  EXPECT_EQ(device_.favorites().asked(), 2);
}

TEST_F(FakeDeviceTest, PeopleAreFoundByTheirRecordIds) {
  ABPerson anna;
  anna.recordID = 12;
  device_.people().setPeople({std::make_shared<ABPerson>(anna)});
  EXPECT_EQ(device_.people().personWithRecordID(12)->recordID, 12);
  EXPECT_EQ(device_.people().personWithRecordID(13), nullptr);
}

TEST_F(FakeDeviceTest, OnlyNumbersThatWereSetAreFormatted) {
  device_.phoneFormatting().setFormat("5550100", "555-0100");
  EXPECT_EQ(device_.phoneFormatting().abCopyPhoneNumberFromString("5550100"), "555-0100");
  EXPECT_EQ(device_.phoneFormatting().abCopyPhoneNumberFromString("5550199"), std::nullopt);
}

TEST_F(FakeDeviceTest, SystemAnswersAreThoseOfTheTest) {
  device_.clock().set(42.5);
  device_.device().setSystemVersion("13.4");
  device_.processInfo().setBundleIdentifier("com.apple.springboard");
  device_.processInfo().setPreferredLanguages({"de", "en"});
  EXPECT_EQ(host().clock().now(), 42.5);
  EXPECT_EQ(host().device().systemVersion(), "13.4");
  EXPECT_EQ(host().processInfo().bundleIdentifier(), "com.apple.springboard");
  EXPECT_THAT(host().processInfo().preferredLanguages(), ElementsAre("de", "en"));
}

TEST_F(FakeDeviceTest, ATestMayLookRoundWhileAVibrationIsPlayed) {
  std::size_t played = 0;
  device_.audioServices().setWhilePlaying(
      [&] { played = device_.audioServices().played().size(); });
  host().audioServices().playSystemSoundWithVibration(4095, {});
  EXPECT_EQ(played, 1U);
}

TEST_F(FakeDeviceTest, VibrationsAndSynchronizationsAreRecorded) {
  host().audioServices().playSystemSoundWithVibration(4095, Dictionary{{"Intensity", 1.0}});
  ASSERT_THAT(device_.audioServices().played(), SizeIs(1));
  EXPECT_EQ(device_.audioServices().played()[0].first, 4095U);
  EXPECT_TRUE(device_.userDefaults().synchronize());
  device_.userDefaults().failSynchronizing();
  EXPECT_FALSE(device_.userDefaults().synchronize());
  EXPECT_EQ(device_.userDefaults().synchronizations(), 2);
}

}  // namespace
}  // namespace zephyl::fake
