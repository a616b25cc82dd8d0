#include "services/ZPUtils.h"

#include <algorithm>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class ZPUtilsTest : public ::testing::Test {
 protected:
  // Which of the eight tests pass, from 8 to 14.
  std::vector<bool> passed(const std::string& version) {
    device_.device().setSystemVersion(version);
    return {ZPUtils::isIOS8(),  ZPUtils::isIOS8_3(), ZPUtils::isIOS9(),  ZPUtils::isIOS10(),
            ZPUtils::isIOS11(), ZPUtils::isIOS12(),  ZPUtils::isIOS13(), ZPUtils::isIOS14()};
  }

  fake::Device device_;
};

struct Release {
  const char* version;
  int passes;
};

TEST_F(ZPUtilsTest, AVersionTestMeansThatReleaseOrLater) {
  for (const Release& release :
       {Release{"", 0}, {"beta", 0},   {"6.1.4", 0}, {"7.99", 0}, {"8", 1},      {"8.0.2", 1},
        {"8.2", 1},     {"8.3", 2},    {"8.3.1", 2}, {"8.4", 2},  {"9.0", 3},    {"9.3.5", 3},
        {"10.0", 4},    {"10.3.4", 4}, {"11.4", 5},  {"12", 6},   {"12.4.1", 6}, {"13", 7},
        {"13.7", 7},    {"14.0", 8},   {"18.1", 8}}) {
    std::vector<bool> expected(8, false);
    std::fill_n(expected.begin(), release.passes, true);
    EXPECT_EQ(passed(release.version), expected) << release.version;
  }
}

TEST_F(ZPUtilsTest, TheAuthenticationContextIsMadeOnce) {
  const auto context = ZPUtils::context();
  EXPECT_NE(context, nullptr);
  EXPECT_EQ(ZPUtils::context(), context);
}

TEST_F(ZPUtilsTest, BiometricsAreAskedForEachTime) {
  EXPECT_TRUE(ZPUtils::supportsTouchID());
  device_.authentication().setAvailable(false);
  EXPECT_FALSE(ZPUtils::supportsTouchID());
  EXPECT_EQ(device_.authentication().questions(), 2);
}

TEST_F(ZPUtilsTest, BiometricsAreAskedForWithoutThePasscodeAndWithoutTheReason) {
  for (const char* version : {"11.4", "14.0"}) {
    device_.device().setSystemVersion(version);
    device_.dispatch().runOnOwnThread([] { EXPECT_TRUE(ZPUtils::supportsTouchID()); });
    const auto policy = device_.authentication().questionedPolicy();
    ASSERT_TRUE(policy.has_value());
    EXPECT_EQ(static_cast<int>(*policy), 1);
    EXPECT_FALSE(device_.authentication().questionedForError());
  }
}

TEST_F(ZPUtilsTest, FromTwelveOnABackgroundCallerAsksOnTheMainThread) {
  for (const auto& [version, onMain] :
       {std::pair{"11.4", false}, std::pair{"12.0", true}, std::pair{"14.2", true}}) {
    device_.device().setSystemVersion(version);
    bool supported = false;
    device_.dispatch().globalAsync(QueuePriority::kDefault,
                                   [&] { supported = ZPUtils::supportsTouchID(); });
    device_.dispatch().runGlobal();
    EXPECT_TRUE(supported) << version;
    EXPECT_EQ(device_.authentication().questionedOn() == std::this_thread::get_id(), onMain)
        << version;
  }
}

class ChatKitTextTest : public ZPUtilsTest {
 protected:
  ChatKitTextTest() {
    device_.files().put(
        "/System/Library/PrivateFrameworks/ChatKit.framework/en.lproj/ChatKit.strings",
        "\"APP_TITLE\" = \"Messages\";\n\"B\" = \"second\";\n\"SAME\" = \"SAME\";\n");
  }
};

TEST_F(ChatKitTextTest, AKnownKeyGivesItsText) {
  EXPECT_EQ(ZPUtils::chatKitLocalizedString("APP_TITLE"), "Messages");
}

TEST_F(ChatKitTextTest, AnUnknownKeyComesBack) {
  EXPECT_EQ(ZPUtils::chatKitLocalizedString("NOWHERE"), "NOWHERE");
  EXPECT_EQ(ZPUtils::chatKitLocalizedString(""), "");
}

TEST_F(ChatKitTextTest, TheFirstKnownKeyOfSeveralWins) {
  const auto texts = [](const std::vector<std::string>& keys) {
    return ZPUtils::chatKitLocalizedStringWithKeys(keys);
  };
  EXPECT_EQ(texts({}), std::nullopt);
  EXPECT_EQ(texts({"A", "B"}), "second");
  EXPECT_EQ(texts({"B", "APP_TITLE"}), "second");
  EXPECT_EQ(texts({"X", "A"}), "A");
  EXPECT_EQ(texts({"SAME", "B"}), "second");
}

TEST_F(ZPUtilsTest, APhoneNumberIsFormattedByTheAddressBook) {
  device_.phoneFormatting().setFormat("+15550100", "+1 (555) 0100");
  EXPECT_EQ(ZPUtils::formattedPhoneNumber("+15550100"), "+1 (555) 0100");
  EXPECT_EQ(ZPUtils::formattedPhoneNumber("22000"), std::nullopt);
}

struct Plain {
  const char* text;
  const char* plain;
};

TEST_F(ZPUtilsTest, ThePlainNumberLeavesOutFourCharactersAndNoMore) {
  for (const Plain& one : {Plain{"(555) 010-9999", "5550109999"},
                           {"+44 20.7946", "+4420.7946"},
                           {"", ""},
                           {" ()-", ""},
                           {"ken.doh@example.com", "ken.doh@example.com"},
                           {"555\u00a00100", "555\u00a00100"},
                           {"٠١٢-٣", "٠١٢٣"},
                           {"555\u20110100", "555\u20110100"},
                           {"a\tb", "a\tb"}}) {
    EXPECT_EQ(ZPUtils::plainPhoneNumber(one.text), one.plain) << one.text;
  }
}

TEST_F(ZPUtilsTest, NoContactIsEverFoundByItsNumber) {
  EXPECT_EQ(ZPUtils::contactIDFromPhoneNumber("+15550100", device_.addressBook()), -1);
  EXPECT_EQ(ZPUtils::contactIDFromPhoneNumber("", nullptr), -1);
}

TEST_F(ZPUtilsTest, TheMasterSwitchIsThatOfTheSettings) {
  EXPECT_FALSE(ZPUtils::isZephylsEnabled());
  device_.restartProcess();
  device_.files().put(ZPUtils::settingsFilePath(),
                      "<plist><dict><key>ZephylsEnabled</key><true/></dict></plist>");
  EXPECT_TRUE(ZPUtils::isZephylsEnabled());
}

TEST_F(ZPUtilsTest, TheSettingsFileLiesAmongThePreferences) {
  EXPECT_EQ(ZPUtils::settingsFilePath(),
            "/var/mobile/Library/Preferences/com.vantor.zephyls.plist");
}

}  // namespace
}  // namespace zephyl
