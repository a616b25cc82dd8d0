#include <filesystem>
#include <string>
#include <vector>

#include "apps/zephyls/ProgramTest.h"

namespace zephyl::app::test {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

class CopiesTest : public ProgramTest {
 protected:
  CopiesTest() { writeOwnSources(); }

  // With the system groups in it.
  void start() const { EXPECT_EQ(runOwn({"groups", "list"}).status, 0); }
  void create(const std::string& title, const std::string& release = "14.0") const {
    const auto result = runOwn({"--ios", release, "groups", "create", title});
    EXPECT_EQ(result.status, 0) << result.errors;
  }
  [[nodiscard]] std::vector<Json> copies() const {
    const auto result = runOwn({"groups", "copies", "--json"});
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.objects();
  }
  [[nodiscard]] Json newestCopy() const {
    const auto listed = copies();
    EXPECT_FALSE(listed.empty());
    return listed.empty() ? Json{{"name", "none"}} : listed.front();
  }
  [[nodiscard]] fs::path copiesFolder() const {
    for (const auto& entry : fs::directory_iterator(folder_ / ".local/state/zephyls/copies")) {
      return entry.path();
    }
    return {};
  }
};

TEST_F(CopiesTest, EveryChangeLeavesACopyWithItsReason) {
  start();
  EXPECT_TRUE(copies().empty());
  create("Work");
  EXPECT_EQ(runOwn({"groups", "edit", "Work", "--title", "Job"}).status, 0);
  EXPECT_EQ(runOwn({"groups", "delete", "Job", "--yes"}).status, 0);
  const auto listed = copies();
  ASSERT_EQ(listed.size(), 3U);
  EXPECT_EQ(listed[0]["reason"], "before \"Job\" was deleted");
  EXPECT_EQ(listed[0]["groups"], 6);
  EXPECT_EQ(listed[1]["reason"], "before \"Work\" was renamed \"Job\"");
  EXPECT_EQ(listed[2]["reason"], "before \"Work\" was added");
  EXPECT_EQ(listed[2]["groups"], 5);
  const std::string text = runOwn({"groups", "copies"}).out;
  EXPECT_NE(text.find(listed[0]["name"].get<std::string>()), std::string::npos);
  EXPECT_NE(text.find("before \"Work\" was added"), std::string::npos);
}

TEST_F(CopiesTest, ACopyBringsBackWhatWasDeletedWhicheverWayGroupsTravel) {
  for (const char* release : {"11.0", "14.0"}) {
    fs::remove_all(device_);
    fs::remove_all(folder_ / ".local");
    start();
    create("Work", release);
    const std::string before = read(groups_);
    EXPECT_EQ(runOwn({"--ios", release, "groups", "delete", "Work", "--yes"}).status, 0);
    const std::string deleted = read(groups_);
    const std::string name = newestCopy()["name"];
    const auto result = runOwn({"--ios", release, "groups", "restore", name, "--json"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.objects(), std::vector{Json({{"name", name}, {"groups", 6}})}) << release;
    EXPECT_EQ(read(groups_), before) << release;
    EXPECT_EQ(newestCopy()["reason"], "before restoring " + name) << release;
    // The way back.
    EXPECT_EQ(runOwn({"--ios", release, "groups", "restore", "last"}).status, 0);
    EXPECT_EQ(read(groups_), deleted) << release;
  }
}

TEST_F(CopiesTest, ACopyThatIsNotThereOrDamagedChangesNothing) {
  start();
  EXPECT_EQ(runOwn({"groups", "restore", "last"}).status, 1);
  create("Work");
  const std::string before = read(groups_);
  const std::string name = newestCopy()["name"];
  write(copiesFolder() / (name + ".plist"), "<plist><array>");
  for (const std::string& copy :
       {name, std::string("last"), std::string("nothing"), "../copies/" + name, std::string("")}) {
    const auto result = runOwn({"groups", "restore", copy});
    EXPECT_EQ(result.status, 1) << copy;
    EXPECT_NE(result.errors, "");
  }
  EXPECT_EQ(read(groups_), before);
  EXPECT_TRUE(newestCopy()["groups"].is_null());
  EXPECT_NE(runOwn({"groups", "copies"}).out.find("damaged"), std::string::npos);
}

TEST_F(CopiesTest, ATornGroupsFileIsPutBackAndTheUserIsTold) {
  start();
  create("Work");
  const std::string whole = read(groups_);
  write(groups_, whole.substr(0, whole.size() / 2));
  const auto result = runOwn({"groups", "list"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(groups_.string() + ": "), std::string::npos) << result.errors;
  EXPECT_NE(result.errors.find("put back"), std::string::npos) << result.errors;
  EXPECT_NE(result.out.find("Work"), std::string::npos);
  EXPECT_EQ(read(groups_), whole);
  EXPECT_EQ(runOwn({"groups", "list"}).status, 0);
}

TEST_F(CopiesTest, WithoutAPlaceForCopiesNothingIsSaved) {
  start();
  const std::string before = read(groups_);
  environment_["XDG_STATE_HOME"] = (folder_ / "source/chat.db").string();
  const auto result = runOwn({"groups", "create", "Work"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("no safety copy"), std::string::npos) << result.errors;
  EXPECT_EQ(read(groups_), before);
  EXPECT_EQ(runOwn({"groups", "list"}).status, 0);
}

TEST_F(CopiesTest, CopiesLieInTheStateFolderOfEachDeviceRoot) {
  start();
  create("Work");
  environment_["XDG_STATE_HOME"] = (folder_ / "state").string();
  EXPECT_TRUE(copies().empty());
  create("Home");
  EXPECT_EQ(copies().size(), 1U);
  device_ = folder_ / "other/device";
  EXPECT_TRUE(copies().empty());
  environment_.erase("XDG_STATE_HOME");
  environment_.erase("HOME");
  start();
  create("Club");
  EXPECT_TRUE(fs::exists(device_ / "state/copies"));
}

TEST_F(CopiesTest, AProtectedGroupAsksForTheFingerprint) {
  writeGroups(
      "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Secret</string>"
      "<key>enabled</key><true/><key>passwordProtected</key><true/></dict>");
  EXPECT_EQ(runOwn({"--biometrics", "on", "groups", "create", "Work"}).status, 0);
  const std::string before = read(groups_);
  // Nobody's finger is recognized.
  EXPECT_EQ(runOwn({"--biometrics", "on", "groups", "restore", "last"}).status, 1);
  EXPECT_EQ(read(groups_), before);
}

}  // namespace
}  // namespace zephyl::app::test
