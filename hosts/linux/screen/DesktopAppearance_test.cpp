#include "hosts/linux/screen/DesktopAppearance.h"

#include <QDBusMetaType>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/screen/EventLoop_testing.h"
#include "hosts/linux/screen/LinuxUIKit.h"
#include "hosts/linux/screen/Portal_testing.h"
#include "hosts/linux/testing/PrivateBus.h"

namespace zephyl::linux_host {
namespace {

constexpr char kAppearance[] = "org.freedesktop.appearance";
constexpr char kDesktop[] = "org.gnome.desktop.interface";

class DesktopAppearanceTest : public ::testing::Test {
 protected:
  DesktopAppearanceTest() { qDBusRegisterMetaType<PortalValues>(); }

  std::unique_ptr<DesktopAppearance> follow() {
    return std::make_unique<DesktopAppearance>(
        bus_.address(),
        [this](const DesktopAppearance::Settings& settings) { told_.push_back(settings); });
  }

  test::PrivateBus bus_;
  std::vector<DesktopAppearance::Settings> told_;
};

TEST_F(DesktopAppearanceTest, TellsWhatThePortalSays) {
  const Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", 1U}}},
                                       {kDesktop, {{"enable-animations", false}}}});
  const auto settings = follow()->settings();
  EXPECT_EQ(settings.dark, true);
  EXPECT_EQ(settings.reducedMotion, true);
  EXPECT_TRUE(told_.empty());
}

TEST_F(DesktopAppearanceTest, NoPreferenceIsNothing) {
  const Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", 0U}}}});
  EXPECT_EQ(follow()->settings(), DesktopAppearance::Settings());
}

TEST_F(DesktopAppearanceTest, TheCommonSettingOutranksThatOfOneDesktop) {
  const Portal portal(bus_.address(), {{kAppearance, {{"reduced-motion", 0U}}},
                                       {kDesktop, {{"enable-animations", false}}}});
  EXPECT_EQ(follow()->settings().reducedMotion, false);
}

TEST_F(DesktopAppearanceTest, FollowsChanges) {
  Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", 1U}}}});
  const auto appearance = follow();
  portal.change(kAppearance, "accent-color", 3U);
  portal.change("org.example", "color-scheme", 2U);
  portal.change(kAppearance, "color-scheme", 1U);
  portal.change(kAppearance, "color-scheme", 2U);
  ASSERT_TRUE(runUntil([this] { return !told_.empty(); }));
  ASSERT_EQ(told_.size(), 1U);
  EXPECT_EQ(told_.back().dark, false);
  portal.change(kDesktop, "enable-animations", false);
  ASSERT_TRUE(runUntil([this] { return told_.size() == 2; }));
  EXPECT_EQ(appearance->settings().reducedMotion, true);
}

TEST_F(DesktopAppearanceTest, ValuesOfOtherTypesAreNoPreference) {
  const Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", "dark"}}}});
  EXPECT_EQ(follow()->settings().dark, std::nullopt);
}

TEST_F(DesktopAppearanceTest, ALateAnswerIsAChange) {
  Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", 1U}}}}, /*silent=*/true);
  const auto appearance = follow();
  EXPECT_EQ(appearance->settings(), DesktopAppearance::Settings());
  portal.answerNow();
  ASSERT_TRUE(runUntil([this] { return !told_.empty(); }));
  EXPECT_EQ(appearance->settings().dark, true);
}

TEST_F(DesktopAppearanceTest, WithoutPortalOrBusThereIsNothing) {
  EXPECT_EQ(follow()->settings(), DesktopAppearance::Settings());
  const DesktopAppearance without("unix:path=/nonexistent/bus", nullptr);
  EXPECT_EQ(without.settings(), DesktopAppearance::Settings());
}

TEST_F(DesktopAppearanceTest, TheScreenFollowsWhatItsOptionsLeaveOpen) {
  Portal portal(bus_.address(), {{kAppearance, {{"color-scheme", 1U}, {"reduced-motion", 1U}}}});
  UIKitOptions options;
  options.appearanceBus = bus_.address();
  options.screen.reducedMotion = false;
  LinuxUIKit kit(std::move(options));
  EXPECT_EQ(kit.screen().userInterfaceStyle(), UIUserInterfaceStyle::kDark);
  EXPECT_FALSE(kit.screen().prefersReducedMotion());
  int changes = 0;
  kit.screen().setChangeHandler([&changes] { ++changes; });
  portal.change(kAppearance, "color-scheme", 2U);
  ASSERT_TRUE(runUntil([&changes] { return changes > 0; }));
  EXPECT_EQ(kit.screen().userInterfaceStyle(), UIUserInterfaceStyle::kLight);
}

}  // namespace
}  // namespace zephyl::linux_host
