#include "model/ZPSettings.h"

#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "platform/foundation/Dictionary.h"
#include "platform/foundation/PropertyList.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

constexpr char kFile[] = "/var/mobile/Library/Preferences/com.vantor.zephyls.plist";

class ZPSettingsTest : public ::testing::Test {
 protected:
  void store(const Dictionary& settings) {
    device_.files().put(kFile, writeXmlPropertyList(Value(settings)));
  }
  static void expectZeros(const ZPSettings& settings) {
    EXPECT_FALSE(settings.isZephylsEnabled());
    EXPECT_EQ(settings.zephylsSortBy(), 0);
    EXPECT_EQ(settings.zephylsSortOrder(), 0);
    EXPECT_FALSE(settings.isRememberUnlcokSession());
    EXPECT_EQ(settings.unlockSessionTime(), 0.0);
  }

  fake::Device device_;
};

TEST_F(ZPSettingsTest, WithoutAFileEverythingIsZero) {
  expectZeros(*ZPSettings::sharedSettings());
}

TEST_F(ZPSettingsTest, AFileThatIsNoDictionaryCountsAsMissing) {
  for (const char* content : {"", "not a list", "<plist><array/></plist>", "bplist00"}) {
    device_.files().put(kFile, content);
    expectZeros(ZPSettings());
  }
  device_.files().failReading(kFile);
  expectZeros(ZPSettings());
}

TEST_F(ZPSettingsTest, TheFiveKeysAreRead) {
  store({{"ZephylsEnabled", true},
         {"ZephylsSortBy", 2},
         {"ZephylsSortOrder", -1},
         {"ZPRememberUnlockSessionEnabled", true},
         {"ZPRememberUnlockSessionTime", 5}});
  const auto settings = ZPSettings::sharedSettings();
  EXPECT_TRUE(settings->isZephylsEnabled());
  EXPECT_EQ(settings->zephylsSortBy(), 2);
  EXPECT_EQ(settings->zephylsSortOrder(), -1);
  EXPECT_TRUE(settings->isRememberUnlcokSession());
  EXPECT_EQ(settings->unlockSessionTime() * 60, 300.0);
}

TEST_F(ZPSettingsTest, TheSessionTimePassesThroughSinglePrecision) {
  store({{"ZPRememberUnlockSessionTime", 0.1}});
  EXPECT_EQ(ZPSettings().unlockSessionTime(), 0.100000001490116119384765625);
}

TEST_F(ZPSettingsTest, ValuesOfAnotherTypeConvert) {
  store({{"ZephylsEnabled", "1"},
         {"ZephylsSortBy", "1"},
         {"ZephylsSortOrder", "down"},
         {"ZPRememberUnlockSessionEnabled", 1},
         {"ZPRememberUnlockSessionTime", "2.5 minutes"}});
  const ZPSettings settings;
  EXPECT_TRUE(settings.isZephylsEnabled());
  EXPECT_EQ(settings.zephylsSortBy(), 1);
  EXPECT_EQ(settings.zephylsSortOrder(), 0);
  EXPECT_TRUE(settings.isRememberUnlcokSession());
  EXPECT_EQ(settings.unlockSessionTime(), 2.5);
}

TEST_F(ZPSettingsTest, TheFileIsReadOncePerProcess) {
  store({{"ZephylsSortBy", 1}});
  EXPECT_EQ(ZPSettings::sharedSettings()->zephylsSortBy(), 1);
  store({{"ZephylsSortBy", 0}});
  EXPECT_EQ(ZPSettings::sharedSettings()->zephylsSortBy(), 1);
  EXPECT_EQ(device_.files().readsOf(kFile), 1);
  device_.restartProcess();
  EXPECT_EQ(ZPSettings::sharedSettings()->zephylsSortBy(), 0);
}

TEST_F(ZPSettingsTest, SettersChangeOnlyTheCopyInMemory) {
  const auto settings = ZPSettings::sharedSettings();
  settings->setZephylsEnabled(true);
  settings->setUnlockSessionTime(1.25);
  EXPECT_TRUE(ZPSettings::sharedSettings()->isZephylsEnabled());
  EXPECT_EQ(settings->unlockSessionTime(), 1.25);
  EXPECT_EQ(device_.files().writesOf(kFile), 0);
}

}  // namespace
}  // namespace zephyl
