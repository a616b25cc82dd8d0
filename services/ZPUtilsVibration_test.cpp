#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "services/ZPUtils.h"

namespace zephyl {
namespace {

constexpr char kShell[] = "com.apple.springboard";

class VibrationTest : public ::testing::Test {
 protected:
  std::optional<Dictionary> shell() {
    return device_.userDefaults().persistentDomainForName(kShell);
  }
  std::size_t played() { return device_.audioServices().played().size(); }

  const std::vector<std::string> bothChanged_ = {"com.apple.springboard.ring-vibrate.changed",
                                                 "com.apple.springboard.silent-vibrate.changed"};
  fake::Device device_;
};

TEST_F(VibrationTest, BeforeNineNothingHappens) {
  device_.device().setSystemVersion("8.4");
  ZPUtils::vibrateDevice();
  device_.dispatch().advance(1);
  EXPECT_EQ(played(), 0U);
  EXPECT_EQ(shell(), std::nullopt);
  EXPECT_TRUE(device_.darwinNotifications().posted().empty());
}

TEST_F(VibrationTest, WithVibrationOnRingItIsPlayedAtOnce) {
  const Dictionary domain{{"ring-vibrate", true}, {"other", 3}};
  device_.userDefaults().setPersistentDomain(domain, kShell);
  ZPUtils::vibrateDevice();
  ASSERT_EQ(played(), 1U);
  const auto [sound, vibration] = device_.audioServices().played().front();
  EXPECT_EQ(sound, 4095U);
  EXPECT_EQ(vibration, (Dictionary{{"VibePattern", Array{true, 300.0}}, {"Intensity", 1.0}}));
  EXPECT_EQ(shell(), domain);
  EXPECT_TRUE(device_.darwinNotifications().posted().empty());
}

TEST_F(VibrationTest, OtherwiseItIsSwitchedOnForTheMomentAndThenRestored) {
  device_.userDefaults().setPersistentDomain(
      {{"ring-vibrate", false}, {"silent-vibrate", true}, {"other", 3}}, kShell);
  ZPUtils::vibrateDevice();
  EXPECT_EQ(played(), 0U);
  EXPECT_EQ(shell(), (Dictionary{{"ring-vibrate", true}, {"silent-vibrate", true}, {"other", 3}}));
  EXPECT_EQ(device_.darwinNotifications().posted(), bothChanged_);

  device_.dispatch().advance(0.29);
  EXPECT_EQ(played(), 0U);
  device_.dispatch().advance(0.02);
  EXPECT_EQ(played(), 1U);
  EXPECT_EQ(shell(), (Dictionary{{"ring-vibrate", false}, {"silent-vibrate", true}, {"other", 3}}));
  std::vector<std::string> twice = bothChanged_;
  twice.insert(twice.end(), bothChanged_.begin(), bothChanged_.end());
  EXPECT_EQ(device_.darwinNotifications().posted(), twice);
}

TEST_F(VibrationTest, TheDelayedHalfPlaysOnTheMainQueueBeforeItRestoresTheSettings) {
  std::optional<Dictionary> whilePlaying;
  std::size_t postedBefore = 0;
  bool onMain = false;
  device_.audioServices().setWhilePlaying([&] {
    whilePlaying = shell();
    postedBefore = device_.darwinNotifications().posted().size();
    onMain = device_.dispatch().isMainThread();
  });
  device_.dispatch().runOnOwnThread([] { ZPUtils::vibrateDevice(); });
  device_.dispatch().runGlobal();
  EXPECT_EQ(played(), 0U);
  device_.dispatch().advance(0.3);
  EXPECT_EQ(whilePlaying, (Dictionary{{"ring-vibrate", true}, {"silent-vibrate", true}}));
  EXPECT_EQ(postedBefore, 2U);
  EXPECT_TRUE(onMain);
}

TEST_F(VibrationTest, WithVibrationOnRingItIsPlayedOnTheCallersThread) {
  device_.userDefaults().setPersistentDomain({{"ring-vibrate", true}}, kShell);
  bool onMain = true;
  device_.audioServices().setWhilePlaying([&] { onMain = device_.dispatch().isMainThread(); });
  device_.dispatch().runOnOwnThread([] { ZPUtils::vibrateDevice(); });
  EXPECT_EQ(played(), 1U);
  EXPECT_FALSE(onMain);
}

TEST_F(VibrationTest, WithoutASettingBothEndSwitchedOff) {
  ZPUtils::vibrateDevice();
  EXPECT_EQ(shell(), (Dictionary{{"ring-vibrate", true}, {"silent-vibrate", true}}));
  device_.dispatch().advance(0.3);
  EXPECT_EQ(played(), 1U);
  EXPECT_EQ(shell(), (Dictionary{{"ring-vibrate", false}, {"silent-vibrate", false}}));
}

}  // namespace
}  // namespace zephyl
