#include <string>

#include "apps/zephyls/EditingTest.h"

namespace zephyl::app::test {
namespace {

class ReleasesTest : public EditingTest, public ::testing::WithParamInterface<const char*> {
 protected:
  ReleasesTest() { release_ = GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(FileAndMessages, ReleasesTest, ::testing::Values("11.4", "14.0"),
                         [](const auto& release) {
                           return std::string(release.param).starts_with("11") ? "File"
                                                                               : "Messages";
                         });

TEST_P(ReleasesTest, AGroupIsMadeChangedAndDeleted) {
  EXPECT_NE(change({"create", "Work", "--member", "Ann Larkspur"}).out.find("  created\n"),
            std::string::npos);
  EXPECT_EQ(group("Work")["conversations"],
            Json::array({"iMessage;+;chat300", "iMessage;-;+15555550101"}));
  const std::string identifier = identifierOf("Work");

  EXPECT_EQ(change({"edit", "Work", "--title", "Job", "--colour", "#FF8000"}).out,
            "Job  " + identifier + "  changed\n  title   Work → Job\n  colour  none → ff8000ff\n");
  EXPECT_EQ(change({"disable", "Job"}).out,
            "Job  " + identifier + "  changed\n  enabled  on → off\n");
  EXPECT_EQ(group("Job")["enabled"], false);
  EXPECT_EQ(change({"enable", "Job"}).out,
            "Job  " + identifier + "  changed\n  enabled  off → on\n");
  EXPECT_EQ(change({"activate", "Job"}).out,
            "Job  " + identifier + "  changed\n  active  off → on\n");
  EXPECT_EQ(group("Job")["active"], true);
  EXPECT_EQ(change({"delete", "--yes", "Job"}).out, "Job  " + identifier + "  deleted\n");
  EXPECT_EQ(titles(), Texts());
  EXPECT_EQ(change({"list", "--json"}).objects().size(), 5U);
}

TEST_P(ReleasesTest, APictureIsStoredAsPngUnderTheIdentifier) {
  write(folder_ / "one.bmp", onePixelBmp());
  write(folder_ / "one.png", onePixelPng());
  const Json made = changed({"create", "Work", "--picture", (folder_ / "one.bmp").string()});
  const std::string name = made["identifier"].dump() + ".png";
  EXPECT_EQ(made["headerImagePath"], name);
  EXPECT_TRUE(read(pictures() / name).starts_with("\x89PNG"));

  EXPECT_NE(change({"edit", "Work", "--picture", (folder_ / "one.png").string()})
                .out.find("picture  new\n"),
            std::string::npos);
  EXPECT_EQ(read(pictures() / name), onePixelPng());

  EXPECT_EQ(changed({"edit", "Work", "--picture", "none"})["headerImagePath"], "");
  EXPECT_EQ(read(pictures() / name), onePixelPng());
}

TEST_P(ReleasesTest, AFailedSaveLeavesThePicturesAsTheyWere) {
  write(folder_ / "one.bmp", onePixelBmp());
  write(folder_ / "one.png", onePixelPng());
  const std::string bmp = (folder_ / "one.bmp").string();
  const std::string work = (folder_ / "work.json").string();
  const std::string home = (folder_ / "home.json").string();
  change({"create", "Work", "--picture", bmp});
  change({"create", "Home", "--picture", bmp});
  change({"export", work, "Work"});
  change({"export", home, "Home"});
  change({"edit", "Work", "--picture", (folder_ / "one.png").string()});
  change({"delete", "--yes", "Home"});
  const auto stored = [&] {
    Listing contents;
    for (const auto& entry : std::filesystem::directory_iterator(pictures())) {
      contents[entry.path().string()] = read(entry.path());
    }
    return contents;
  };
  const Listing before = stored();
  EXPECT_EQ(before.at(pictures() / (identifierOf("Work") + ".png")), onePixelPng());
  write(folder_ / "state", "no folder");
  environment_["XDG_STATE_HOME"] = (folder_ / "state").string();
  expectRefused({"edit", "Work", "--picture", bmp}, "Unable to save groups to disk.");
  expectRefused({"create", "Other", "--picture", bmp}, "Unable to save groups to disk.");
  expectRefused({"import", work, "--replace", "--yes"}, "Nothing was imported.");
  expectRefused({"import", home, "--replace", "--yes"}, "Nothing was imported.");
  EXPECT_EQ(stored(), before);
}

TEST_P(ReleasesTest, WhatIsNoPictureIsRefused) {
  EXPECT_EQ(titles(), Texts());
  write(folder_ / "text.png", "no picture");
  write(folder_ / "half.png", onePixelPng().substr(0, 50));
  for (const char* name : {"text.png", "half.png", "missing.png", "."}) {
    const std::string file = (folder_ / name).string();
    expectRefused({"create", "Work", "--picture", file}, file + ": ");
  }
  EXPECT_FALSE(std::filesystem::exists(pictures()));
}

TEST_P(ReleasesTest, EachPropertyIsSetAndToldWithItsOldValue) {
  const Json made = changed({"create", "Work", "--subtitle", "Sub", "--colour", "11223344",
                             "--hide", "--mask", "--masked-text", "Later", "--disabled"});
  EXPECT_EQ(made["change"], "created");
  EXPECT_EQ(made["subTitle"], "Sub");
  EXPECT_EQ(made["markerCode"], "11223344");
  EXPECT_EQ(made["maskedMessage"], "Later");
  EXPECT_EQ(made["enabled"], false);
  EXPECT_EQ(made["shouldHideConversationsInDefaultGroups"], true);
  EXPECT_EQ(made["shouldHideConversationsOnLockScreen"], true);
  EXPECT_EQ(made["createdDate"], group("Work")["createdDate"]);

  const Json edited = changed({"edit", "Work", "--subtitle", "", "--colour", "none", "--no-hide",
                               "--no-mask", "--masked-text", "Later"});
  EXPECT_EQ(edited["change"], "changed");
  EXPECT_EQ(edited["before"], Json::parse(R"({"subTitle":"Sub","markerCode":"11223344",
                            "shouldHideConversationsInDefaultGroups":true,
                            "shouldHideConversationsOnLockScreen":true})"));
  EXPECT_EQ(edited["markerCode"], "");
  EXPECT_EQ(group("Work")["subTitle"], "");
}

TEST_F(EditingTest, AnEditThatChangesNothingWritesNothing) {
  change({"create", "Work"});
  const std::string before = read(groups_);
  EXPECT_EQ(changed({"edit", "Work", "--title", "Work"})["change"], "unchanged");
  EXPECT_EQ(changed({"enable", "Work"})["change"], "unchanged");
  EXPECT_EQ(read(groups_), before);
}

TEST_F(EditingTest, WrongTextsAreRefusedBeforeAnythingChanges) {
  change({"create", "Work"});
  for (const char* colour : {"red", "ff80", "#ff80000", "ff8000000", "gg0000", ""}) {
    expectRefused({"edit", "Work", "--title", "Job", "--colour", colour}, "no colour such as", 2);
  }
  expectRefused({"create", ""}, "must not be empty", 2);
  expectRefused({"edit", "Work", "--title", ""}, "must not be empty", 2);
  expectRefused({"edit", "Work", "--masked-text", ""}, "must not be empty", 2);
  expectRefused({"create", "\xff"}, "no valid UTF-8", 2);
  expectRefused({"edit", "Work"}, "say what to change", 2);
  expectRefused({"edit", "Work", "--hide", "--no-hide"}, "exclude each other", 2);
  expectRefused({"edit", "Nothing", "--hide"}, "no group has the title or identifier");
  expectRefused({"create", "Job", "--member", "Nobody"}, "\"Nobody\" is nobody");
  expectRefused({"delete", "--yes", "Work", "Nothing"}, "no group has the title or identifier");
}

TEST_F(EditingTest, ATitleOfSeveralGroupsNamesNone) {
  change({"create", "Work"});
  const std::string first = identifierOf("Work");
  const ProgramResult second = groups({"create", "Work", "--json"});
  EXPECT_EQ(second.status, 0);
  const std::string identifier = second.objects().at(0)["identifier"].dump();
  EXPECT_NE(second.errors.find("several groups are titled \"Work\" now"), std::string::npos);
  expectRefused({"delete", "--yes", "Work"}, first + " " + identifier);
  change({"edit", identifier, "--title", "Job"});
  EXPECT_EQ(titles(), (Texts{"Work", "Job"}));
}

TEST_F(EditingTest, SystemGroupsAreOnlyEnabledDisabledAndActivated) {
  EXPECT_EQ(titles(), Texts());
  expectRefused({"edit", "All", "--hide"}, "\"All\" is a system group");
  expectRefused({"delete", "--yes", "All"}, "\"All\" is a system group");
  expectRefused({"add-member", "All", "Ann Larkspur"}, "\"All\" is a system group");
  expectRefused({"remove-member", "All", "Ann Larkspur"}, "\"All\" is a system group");
  change({"disable", "All", "Known"});
  EXPECT_EQ(group("Known")["enabled"], false);
  expectRefused({"activate", "All"}, "is disabled");
  change({"enable", "All"});
  change({"activate", "All"});
  EXPECT_EQ(group("All")["active"], true);
}

TEST_F(EditingTest, OnlyOneGroupIsActive) {
  change({"create", "Work"});
  change({"create", "Home"});
  change({"activate", "Work"});
  const auto objects = change({"activate", "Home", "--json"}).objects();
  ASSERT_EQ(objects.size(), 2U);
  EXPECT_EQ(objects[0]["title"], "Work");
  EXPECT_EQ(objects[0]["active"], false);
  EXPECT_EQ(objects[1]["title"], "Home");
  EXPECT_EQ(group("Work")["active"], false);
  EXPECT_EQ(changed({"activate", "Home"})["change"], "unchanged");
}

// Where no safety copy can be kept, nothing is written.
TEST_P(ReleasesTest, ASaveThatFailsIsAnErrorAndLeavesTheGroupsAsTheyWere) {
  change({"create", "Work"});
  write(folder_ / "state", "no folder");
  environment_["XDG_STATE_HOME"] = (folder_ / "state").string();
  for (const Texts& words :
       {Texts{"create", "Job"}, Texts{"edit", "Work", "--hide"}, Texts{"disable", "Work"},
        Texts{"activate", "Work"}, Texts{"add-member", "Work", "Ann Larkspur"}}) {
    expectRefused(words, "Unable to save groups to disk.");
  }
  expectRefused({"delete", "--yes", "Work"}, "Unable to remove and save groups to disk.");
  environment_.erase("XDG_STATE_HOME");
  EXPECT_EQ(titles(), Texts{"Work"});
}

// Groups from elsewhere may stand where the counter is going to be.
TEST_F(EditingTest, ANewGroupPassesByIdentifiersThatAreTaken) {
  change({"create", "First"});
  const std::int64_t first = group("First")["identifier"];
  std::string dictionaries;
  for (std::int64_t identifier = first; identifier < first + 20; ++identifier) {
    dictionaries += "<dict><key>identifier</key><integer>" + std::to_string(identifier) +
                    "</integer><key>title</key><string>Old</string></dict>";
  }
  writeGroups(dictionaries);
  const Json made = changed({"create", "New"});
  EXPECT_GE(made["identifier"].get<std::int64_t>(), first + 20);
  EXPECT_EQ(titles().size(), 21U);
}

// What an editor does not know stays in the group.
TEST_F(EditingTest, WhatIsNotKnownSurvivesAChange) {
  writeGroups(
      "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Work</string>"
      "<key>later</key><array><real>1.5</real></array>"
      "<key>contacts</key><array><data>AAEC</data><string>x</string></array></dict>");
  change({"edit", "Work", "--title", "Job"});
  change({"add-member", "Job", "Ann Larkspur"});
  const std::string file = read(groups_);
  EXPECT_NE(file.find("<key>later</key>"), std::string::npos);
  EXPECT_NE(file.find("AAEC"), std::string::npos);
  EXPECT_EQ(group("Job")["contacts"], Json::parse(R"(["x", 1000001, "AAEC"])"));
}

TEST_F(EditingTest, TheCheckTellsOfPicturesThatAreNone) {
  write(folder_ / "one.png", onePixelPng());
  for (const char* title : {"Whole", "Gone", "Torn"}) {
    change({"create", title, "--picture", (folder_ / "one.png").string()});
  }
  const auto file = [&](const char* title) { return pictures() / (identifierOf(title) + ".png"); };
  EXPECT_EQ(runOwn({"check"}).out.find("picture"), std::string::npos);
  std::filesystem::remove(file("Gone"));
  write(file("Torn"), onePixelPng().substr(0, 30));
  const auto check = [&] { return runOwn({"check", "--json"}).out; };
  EXPECT_NE(
      check().find("group Gone: its picture " + file("Gone").string() + ": there is no such file"),
      std::string::npos)
      << check();
  EXPECT_NE(check().find("group Torn: its picture " + file("Torn").string() + ": no picture: "),
            std::string::npos);
  EXPECT_EQ(check().find("group Whole"), std::string::npos);
  // The header of a picture of 60000 by 60000 pixels.
  std::string large = onePixelPng();
  large.replace(16, 8, std::string("\0\0\xEA\x60\0\0\xEA\x60", 8));
  write(file("Whole"), large);
  EXPECT_NE(check().find("group Whole: its picture"), std::string::npos);
}

}  // namespace
}  // namespace zephyl::app::test
