#include "model/ZPLocalizedText.h"

#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class ZPLocalizedTextTest : public ::testing::Test {
 protected:
  void putTable(const std::string& bundle, const std::string& language, const std::string& text) {
    device_.files().put(
        std::string(bundle).append("/").append(language).append(".lproj/Localizable.strings"),
        std::string("\"Status: Disabled\" = \"").append(text).append("\";\n"));
  }
  [[nodiscard]] static std::string status() { return zpLocalizedText("Status: Disabled"); }

  static constexpr char kMainBundle[] = "/Applications/MobileSMS.app";

  fake::Device device_;
};

TEST_F(ZPLocalizedTextTest, TheSettingsBundleGoesBeforeTheMainBundle) {
  putTable(kMainBundle, "en", "From the app");
  putTable(kZephylsSettingsBundlePath, "en", "Asleep");
  EXPECT_EQ(status(), "Asleep");
}

TEST_F(ZPLocalizedTextTest, WithoutTheSettingsBundleTheMainBundleIsAsked) {
  putTable(kMainBundle, "en", "From the app");
  EXPECT_EQ(status(), "From the app");
  device_.processInfo().setPreferredLanguages({"de"});
  putTable(kMainBundle, "de", "Deaktiviert");
  EXPECT_EQ(status(), "Deaktiviert");
}

TEST_F(ZPLocalizedTextTest, ATableThatIsReplacedCountsAtOnce) {
  putTable(kMainBundle, "en", "Before");
  EXPECT_EQ(status(), "Before");
  putTable(kMainBundle, "en", "Behind");
  EXPECT_EQ(status(), "Behind");
  device_.files().put(std::string(kMainBundle) + "/en.lproj/Localizable.strings", "no table");
  EXPECT_EQ(status(), "Status: Disabled");
  putTable(kMainBundle, "en", "Before");
  EXPECT_EQ(status(), "Before");
}

// The default is the empty text, which stands for the key.
TEST_F(ZPLocalizedTextTest, ATextThatNoTableHasIsTheEnglishOne) {
  EXPECT_EQ(status(), "Status: Disabled");
  putTable(kMainBundle, "en", "From the app");
  EXPECT_EQ(zpLocalizedText("Other"), "Other");
}

// Kept: a settings bundle without the text hides the main bundle's.
TEST_F(ZPLocalizedTextTest, ASettingsBundleWithoutTheTextIsAskedAlone) {
  putTable(kMainBundle, "en", "From the app");
  device_.files().put(std::string(kZephylsSettingsBundlePath).append("/check.png"), "check");
  EXPECT_EQ(status(), "Status: Disabled");
}

}  // namespace
}  // namespace zephyl
