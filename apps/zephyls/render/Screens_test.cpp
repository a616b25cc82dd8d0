// `zephyls render` of the screens, on a database of the test's and after what a script does.

#include <string>
#include <vector>

#include "apps/zephyls/ProgramTest.h"

namespace zephyl::app::test {
namespace {

using Texts = std::vector<std::string>;

// In the row of the marker, with a colour.
constexpr char kSwatch[] = "#87234 (345 10; 70 24) #";

class ScreensTest : public ProgramTest {
 protected:
  ScreensTest() {
    writeOwnSources();
    writeGroups(group(1, "All",
                      "<key>system</key><true/><key>zephylSystemMode</key>"
                      "<integer>1</integer>") +
                group(2, "Favorites",
                      "<key>system</key><true/><key>zephylSystemMode</key>"
                      "<integer>2</integer>") +
                group(8, "Work") + group(9, "Friends"));
  }

  static std::string group(int identifier, const std::string& title, const std::string& more = "") {
    return "<dict><key>identifier</key><integer>" + std::to_string(identifier) +
           "</integer><key>title</key><string>" + title + "</string><key>enabled</key><true/>" +
           more + "</dict>";
  }
  // The view tree after the words.
  std::string tree(Texts words) {
    words.insert(words.begin() + 1, "--tree");
    words.insert(words.begin(), "render");
    const ProgramResult result = runOwn(words);
    EXPECT_EQ(result.status, 0) << result.errors;
    return result.out;
  }
  static bool shows(const std::string& tree, const std::string& text) {
    return tree.find(text) != std::string::npos;
  }
};

TEST_F(ScreensTest, TheGroupsAreThoseOfTheDevice) {
  const std::string groups = tree({"groups"});
  EXPECT_TRUE(shows(groups, "row \"Work"));
  EXPECT_TRUE(shows(groups, "header \"Default\""));
  const std::string adding = tree({"add"});
  EXPECT_TRUE(shows(adding, "row \"Work"));
  EXPECT_FALSE(shows(adding, "row \"All"));
}

TEST_F(ScreensTest, EveryScreenBecomesAPicture) {
  for (const char* screen : {"groups", "manage", "add", "recipients", "editor", "new-group",
                             "contacts", "search", "conversations", "colour"}) {
    const std::string file = (folder_ / screen).string();
    const auto result = runOwn({"render", screen, "--scale", "1", "-o", file});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(read(file).substr(1, 3), "PNG") << screen;
  }
}

// The first key shows where the keyboard is.
TEST_F(ScreensTest, StepsOfAllKindsAreDoneInTheOrderOfTheCommandLine) {
  const std::string after = tree({"manage", "--tap", "Edit", "--tap", "Work", "--key", "Up",
                                  "--key", "Up", "--key", "Space", "--tap", "Delete"});
  EXPECT_FALSE(shows(after, "row \"Work"));
  EXPECT_FALSE(shows(after, "row \"Friends"));
  EXPECT_TRUE(shows(after, "row \"All"));
}

TEST_F(ScreensTest, ASwipedRowIsDeleted) {
  const std::string after = tree({"manage", "--swipe", "Work", "--tap", "Delete"});
  EXPECT_FALSE(shows(after, "row \"Work"));
  EXPECT_TRUE(shows(after, "row \"Friends"));
}

// The picker of people drops what it does not show.
TEST_F(ScreensTest, WhatLeftAGroupIsToldAndComesBack) {
  writeGroups(group(8, "Work",
                    "<key>contacts</key><array><string>+15555550101</string>"
                    "<string>nobody@example.com</string></array>"));
  const Texts words = {"render", "contacts", "--tree", "--tap", "Done", "--tap", "Save"};
  const std::string left =
      "zephyls: No longer in the group 'Work': Ann Larkspur (+1 (555) 555-0101), "
      "nobody@example.com.\n";
  EXPECT_EQ(runOwn(words).errors, left);
  Texts undoing = words;
  undoing.insert(undoing.end(), {"--key", "Ctrl+Z", "--tap", "Work"});
  const auto undone = runOwn(undoing);
  EXPECT_EQ(undone.errors, left +
                               "zephyls: Undone: Now in the group 'Work': Ann Larkspur "
                               "(+1 (555) 555-0101), nobody@example.com.\n");
  EXPECT_TRUE(shows(undone.out, "nobody@example.com"));
  EXPECT_FALSE(shows(tree({"contacts", "--tap", "Done", "--tap", "Save", "--tap", "Work"}),
                     "nobody@example.com"));
}

TEST_F(ScreensTest, ADeletedGroupComesBackAndGoesAgain) {
  Texts words = {"manage", "--swipe", "Work", "--tap", "Delete", "--key", "Ctrl+Z"};
  EXPECT_TRUE(shows(tree(words), "row \"Work"));
  words.insert(words.end(), {"--key", "Ctrl+Shift+Z"});
  EXPECT_FALSE(shows(tree(words), "row \"Work"));
  words.insert(words.begin(), {"render", "--tree", "--language", "de"});
  words[words.size() - 5] = "L\u00f6schen";
  EXPECT_EQ(runOwn(words).errors,
            "zephyls: Die Gruppe \u201eWork\u201c ist gel\u00f6scht.\n"
            "zephyls: Widerrufen: Die Gruppe \u201eWork\u201c ist neu.\n"
            "zephyls: Wiederholt: Die Gruppe \u201eWork\u201c ist gel\u00f6scht.\n");
}

TEST_F(ScreensTest, PeopleAreListedAndFoundByWhatIsTyped) {
  const std::string people = tree({"contacts"});
  EXPECT_TRUE(shows(people, "row \"Ann Larkspur"));
  EXPECT_TRUE(shows(people, "row \"Eve Sj\u00f6"));
  const std::string found = tree({"search", "--type", "eve"});
  EXPECT_TRUE(shows(found, "row \"Eve Sj\u00f6"));
  EXPECT_NE(found, tree({"search"}));
}

TEST_F(ScreensTest, ANewGroupIsMadeFromTheList) {
  const std::string after =
      tree({"groups", "--tap", "Add", "--tap", "Title", "--type", "Choir", "--tap", "Save"});
  EXPECT_TRUE(shows(after, "row \"Choir"));
}

TEST_F(ScreensTest, AMarkersColourIsPickedAndSaved) {
  const Texts pick = {"--tap", "Marker Color", "--tap", "Hue", "--tap", "Done"};
  Texts words = {"manage", "--tap", "Work"};
  EXPECT_FALSE(shows(tree(words), kSwatch));
  words.insert(words.end(), pick.begin(), pick.end());
  EXPECT_TRUE(shows(tree(words), kSwatch));
  for (const char* const tapped : {"Save", "Work"}) {
    words.insert(words.end(), {"--tap", tapped});
  }
  EXPECT_TRUE(shows(tree(words), kSwatch));
}

TEST_F(ScreensTest, ANewGroupGetsAMarkersColourToo) {
  for (const char* const screen : {"groups", "add"}) {
    const std::string after = tree({screen, "--tap", "Add", "--tap", "Title", "--type", "Choir",
                                    "--tap", "Marker Color", "--tap", "Hue", "--tap", "Done"});
    EXPECT_TRUE(shows(after, kSwatch)) << screen;
    EXPECT_TRUE(shows(after, "button \"Save\"")) << screen;
  }
}

TEST_F(ScreensTest, WithoutAFingerprintReaderNoColourIsOffered) {
  const std::string editor = tree({"editor", "--group", "Work", "--biometrics", "off"});
  EXPECT_TRUE(shows(editor, "row \"Enable\""));
  EXPECT_FALSE(shows(editor, "row \"Password protected\""));
}

// Whatever a script does, it does to a copy.
TEST_F(ScreensTest, NothingOfTheUsersChanges) {
  ASSERT_EQ(runOwn({"groups", "list"}).status, 0);
  const auto before = listing(device_);
  const auto sources = listing(folder_ / "source");
  tree({"manage", "--swipe", "Work", "--tap", "Delete"});
  EXPECT_EQ(listing(device_), before);
  EXPECT_EQ(listing(folder_ / "source"), sources);
}

TEST_F(ScreensTest, TheReleaseDecidesWhatABarHas) {
  EXPECT_TRUE(shows(tree({"groups", "--ios", "14.0"}), "button \"Cancel\""));
  EXPECT_FALSE(shows(tree({"groups", "--ios", "12.4"}), "button \"Cancel\""));
}

TEST_F(ScreensTest, TheLanguageDecidesTheDirection) {
  const auto picture = [this](const Texts& words) {
    Texts all = {"render", "manage", "--scale", "1", "-o", (folder_ / "a.png").string()};
    all.insert(all.end(), words.begin(), words.end());
    EXPECT_EQ(runOwn(all).status, 0);
    return read(folder_ / "a.png");
  };
  const std::string arabic = picture({"--language", "ar"});
  EXPECT_EQ(picture({"--language", "ar", "--rtl"}), arabic);
  EXPECT_NE(picture({"--language", "de", "--rtl"}), picture({"--language", "de"}));
  // Without texts of its own it is shown in English.
  EXPECT_EQ(picture({"--language", "he"}), picture({}));
  EXPECT_EQ(picture({"--language", "ar-EG"}), arabic);
}

TEST_F(ScreensTest, TheKindOfDeviceDecidesTheSizeOfTheScreen) {
  EXPECT_TRUE(shows(tree({"manage"}), "UIWindow (0 0; 390 844)"));
  EXPECT_TRUE(shows(tree({"manage", "--idiom", "pad"}), "UIWindow (0 0; 810 1080)"));
  EXPECT_EQ(runOwn({"render", "manage", "--tree", "--idiom", "watch"}).status, 2);
}

// This machine has none that could be reached.
TEST_F(ScreensTest, TheReaderOfTheMachineIsTakenWhenItIsNamed) {
  writeGroups(group(8, "Secret", "<key>passwordProtected</key><true/>"));
  EXPECT_FALSE(shows(tree({"manage", "--tap", "Secret"}), "button \"Save\""));
  EXPECT_TRUE(
      shows(tree({"manage", "--biometrics", "auto", "--tap", "Secret"}), "button \"Save\""));
}

TEST_F(ScreensTest, AScreenCanBeAboutANamedConversation) {
  EXPECT_EQ(runOwn({"render", "recipients", "--tree", "--conversation", "nobody"}).status, 1);
  const auto all = runOwn({"conversations", "--json"}).objects();
  const std::string guid = all.at(0)["guid"];
  EXPECT_TRUE(shows(tree({"recipients", "--conversation", guid}), "button \"Add to Groups\""));
}

TEST_F(ScreensTest, TheEmojiBeforeANameMayBeLeftOutWhereNothingElseFits) {
  const auto update = [this](const std::string& name, int row) {
    execute(messages_, "UPDATE chat SET display_name='" + name +
                           "', style=43 WHERE ROWID=" + std::to_string(row));
  };
  const auto found = [this](const std::string& name) {
    return runOwn({"explain", name}).out.find("chat300") != std::string::npos;
  };
  update("\U0001F575\U0001F3FD\u200D\u2642\uFE0F\U0001F92B Cake", 3);
  EXPECT_TRUE(found("Cake"));
  EXPECT_FALSE(found("ake"));
  EXPECT_FALSE(found(""));
  EXPECT_TRUE(shows(tree({"recipients", "--conversation", "Cake"}), "button \"Add to Groups\""));
  update("\U0001F370 Cake", 4);
  EXPECT_NE(runOwn({"explain", "Cake"}).errors.find("several conversations"), std::string::npos);
  update("Cake", 4);
  EXPECT_FALSE(found("Cake"));
  EXPECT_EQ(runOwn({"explain", "Cake"}).status, 0);
}

TEST_F(ScreensTest, AProtectedGroupIsNotOpenedByAFingerThatNobodyKnows) {
  writeGroups(group(1, "All", "<key>system</key><true/>") +
              group(8, "Secret", "<key>passwordProtected</key><true/>"));
  EXPECT_TRUE(shows(tree({"manage", "--tap", "Secret"}), "Unable to verify your identity."));
  EXPECT_TRUE(shows(tree({"manage", "--biometrics", "off", "--tap", "Secret"}), "button \"Save\""));
}

TEST_F(ScreensTest, AScreenOfAProtectedGroupAsksFirst) {
  writeGroups(group(8, "Secret",
                    "<key>passwordProtected</key><true/><key>contacts</key><array>"
                    "<string>nobody@example.com</string></array>") +
              group(9, "Open"));
  for (const char* screen : {"editor", "contacts", "search", "conversations", "colour"}) {
    const std::string file = (folder_ / screen).string();
    const auto refused = runOwn({"render", screen, "--group", "Secret", "-o", file});
    EXPECT_EQ(refused.status, 1) << screen;
    EXPECT_NE(refused.errors.find("Unable to verify your identity"), std::string::npos)
        << refused.errors;
    EXPECT_FALSE(std::filesystem::exists(file)) << screen;
  }
  EXPECT_TRUE(
      shows(tree({"editor", "--group", "Secret", "--biometrics", "off"}), "nobody@example.com"));
  EXPECT_TRUE(shows(tree({"editor"}), "Open"));
}

TEST_F(ScreensTest, BadDataIsToldUnderItsOwnNameAndByTheExitStatus) {
  write(groups_, "junk{");
  const std::string picture = (folder_ / "a.png").string();
  const auto result = runOwn({"render", "manage", "-o", picture});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "zephyls: " + groups_.string() +
                               ": line 1: neither an XML nor a binary property list\n");
  EXPECT_TRUE(std::filesystem::exists(picture));
  EXPECT_EQ(read(groups_), "junk{");
}

TEST_F(ScreensTest, ContactsThatAreNotThereAreBadData) {
  const std::string missing = (folder_ / "nobody.vcf").string();
  const auto result =
      run({"render", "contacts", "--tree", "--contacts", missing, "--device", device_.string()});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(missing), std::string::npos) << result.errors;
  EXPECT_NE(result.out, "");
}

TEST_F(ScreensTest, ADeviceRootThatIsAFileIsAnError) {
  const std::string file = (folder_ / "file").string();
  write(file, "mine");
  const auto result = run({"render", "groups", "--tree", "--device", file});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "zephyls: the device root " + file + " is no folder\n");
  EXPECT_EQ(result.out, "");
}

TEST_F(ScreensTest, AStepThatCannotBeDoneIsWrongUsageAndMakesNoPicture) {
  const std::string file = (folder_ / "a.png").string();
  const auto result = runOwn({"render", "manage", "--tap", "Nothing", "-o", file});
  EXPECT_EQ(result.status, 2);
  EXPECT_NE(result.errors.find("nothing on the screen is called \"Nothing\""), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(file));
  EXPECT_EQ(runOwn({"render", "badge", "--tap", "1", "--tree"}).status, 2);
}

}  // namespace
}  // namespace zephyl::app::test
