#include "hosts/linux/screen/LinuxScreen.h"

#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/screen/EventLoop_testing.h"
#include "hosts/linux/screen/LinuxDisplayLink.h"
#include "hosts/linux/screen/RecentlyUsed.h"

namespace zephyl::linux_host {
namespace {

TEST(LinuxScreenTest, IsAPhoneUnlessAskedOtherwise) {
  LinuxScreen screen({});
  EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 390, 844));
  EXPECT_EQ(screen.scale(), 2);
  EXPECT_EQ(screen.userInterfaceStyle(), UIUserInterfaceStyle::kLight);
  EXPECT_EQ(screen.userInterfaceLayoutDirection(), UIUserInterfaceLayoutDirection::kLeftToRight);
  EXPECT_FALSE(screen.prefersReducedMotion());
}

TEST(LinuxScreenTest, TellsOfChangesOnly) {
  LinuxScreen screen({});
  int changes = 0;
  screen.setChangeHandler([&changes] { ++changes; });
  screen.setGeometry({390, 844}, 2);
  screen.setStyle(UIUserInterfaceStyle::kLight);
  screen.setSafeAreaInsets({});
  screen.setDesktopSettings(std::nullopt, false);
  EXPECT_EQ(changes, 0);
  screen.setGeometry({390, 844}, 1.25);
  screen.setStyle(UIUserInterfaceStyle::kDark);
  screen.setSafeAreaInsets({20, 0, 0, 0});
  EXPECT_EQ(changes, 3);
}

TEST(LinuxScreenTest, SizesAndScalesAreSane) {
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  ScreenOptions options;
  options.size = {nan, -4};
  options.scale = nan;
  LinuxScreen screen(options);
  EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 1, 1));
  EXPECT_EQ(screen.scale(), 1);
  screen.setGeometry({1e300, 10}, 1e9);
  EXPECT_EQ(screen.bounds(), CGRectMake(0, 0, 1e8, 10));
  EXPECT_EQ(screen.scale(), 16);
}

TEST(LinuxScreenTest, TheUserOutranksTheDesktop) {
  LinuxScreen screen({});
  screen.setDesktopSettings(UIUserInterfaceStyle::kDark, true);
  EXPECT_EQ(screen.userInterfaceStyle(), UIUserInterfaceStyle::kDark);
  EXPECT_TRUE(screen.prefersReducedMotion());
  screen.setStyle(UIUserInterfaceStyle::kLight);
  EXPECT_EQ(screen.userInterfaceStyle(), UIUserInterfaceStyle::kLight);
  screen.setStyle(std::nullopt);
  EXPECT_EQ(screen.userInterfaceStyle(), UIUserInterfaceStyle::kDark);
}

TEST(LinuxScreenTest, AHandlerMayReplaceItself) {
  LinuxScreen screen({});
  int second = 0;
  screen.setChangeHandler([&] { screen.setChangeHandler([&second] { ++second; }); });
  screen.setGeometry({10, 10}, 2);
  screen.setGeometry({11, 10}, 2);
  EXPECT_EQ(second, 1);
}

class LinuxDisplayLinkTest : public ::testing::Test {
 protected:
  double now_ = 1000;
  LinuxDisplayLink link_{[this] { return now_; }};
};

TEST_F(LinuxDisplayLinkTest, TheTimeStandsStillUntilTheFrameThatWasAskedFor) {
  const double before = link_.timestamp();
  double inFrame = 0;
  link_.requestFrame([&] {
    inFrame = link_.timestamp();
    now_ += 5;
    EXPECT_EQ(link_.timestamp(), inFrame);
  });
  now_ += 1;
  EXPECT_EQ(link_.timestamp(), before);
  ASSERT_TRUE(runUntil([&] { return inFrame > 0; }));
  EXPECT_EQ(inFrame, 1001);
}

TEST_F(LinuxDisplayLinkTest, TheTimeGoesOnWhileNobodyAsks) {
  const double before = link_.timestamp();
  now_ += 1;
  EXPECT_NEAR(link_.timestamp(), before + 1, 1.0 / 60);
  now_ -= 20;
  EXPECT_NEAR(link_.timestamp(), before + 1, 1.0 / 60);
}

TEST_F(LinuxDisplayLinkTest, AFrameComesOnceAndTheLastRequestCounts) {
  std::string calls;
  link_.requestFrame([&] { calls += "a"; });
  link_.requestFrame([&] {
    calls += "b";
    link_.requestFrame([&] { calls += "c"; });
    EXPECT_EQ(calls, "b");
  });
  EXPECT_EQ(calls, "");
  ASSERT_TRUE(runUntil([&] { return calls.size() >= 2; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(calls, "bc");
}

TEST(RecentlyUsedTest, ForgetsWhatWasUnusedTheLongest) {
  RecentlyUsed<int, std::string> cache(10);
  cache.put(1, "one", 4);
  cache.put(2, "two", 4);
  ASSERT_NE(cache.find(1), nullptr);
  cache.put(3, "three", 4);
  EXPECT_EQ(cache.find(2), nullptr);
  ASSERT_NE(cache.find(1), nullptr);
  EXPECT_EQ(*cache.find(3), "three");
  EXPECT_EQ(cache.bytes(), 8U);
}

TEST(RecentlyUsedTest, ReplacesAndRefusesWhatIsTooLarge) {
  RecentlyUsed<int, std::string> cache(10);
  cache.put(1, "one", 4);
  cache.put(1, "uno", 6);
  EXPECT_EQ(*cache.find(1), "uno");
  EXPECT_EQ(cache.bytes(), 6U);
  cache.put(1, "eins", 11);
  EXPECT_EQ(cache.find(1), nullptr);
  EXPECT_EQ(cache.bytes(), 0U);
  EXPECT_EQ(cache.size(), 0U);
}

}  // namespace
}  // namespace zephyl::linux_host
