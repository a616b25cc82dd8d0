#include <map>
#include <string>
#include <utility>

#include <sys/stat.h>

#include "apps/zephyls/EditingTest.h"

namespace zephyl::app::test {
namespace {

// Another address book with the same Ann, who has another record id there.
constexpr char kOtherPeople[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Zoe\r\nUID:zoe\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Zed\r\nUID:zed\r\nEND:VCARD\r\n"
    "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:A. Larkspur\r\nTEL:+1 555 555 0101\r\nUID:a\r\nEND:VCARD\r\n";

class TransferTest : public EditingTest {
 protected:
  TransferTest() : file_((folder_ / "groups.json").string()) {
    write(folder_ / "one.png", onePixelPng());
    change({"create",
            "Work",
            "--subtitle",
            "Sub",
            "--colour",
            "11223344",
            "--hide",
            "--mask",
            "--masked-text",
            "Later",
            "--disabled",
            "--picture",
            (folder_ / "one.png").string(),
            "--member",
            "Ann Larkspur",
            "--member",
            "Eve Sjö",
            "--member",
            "iMessage;+;chat300",
            "--member",
            "+15555550102"});
    change({"create", "Home", "--member", "Ann Larkspur"});
    change({"export", file_});
  }

  // From now on a device without groups, with an address book of its own.
  void moveToOtherDevice(const std::string& people = kOtherPeople) {
    groups_ = folder_ / "other" / std::filesystem::relative(groups_, device_);
    device_ = folder_ / "other";
    contacts_ = folder_ / "other.vcf";
    write(contacts_, people);
    EXPECT_EQ(titles(), Texts());
  }
  // The exported file with one text in the place of another.
  void mend(const std::string& from, const std::string& to) const {
    std::string text = read(file_);
    const std::size_t at = text.find(from);
    ASSERT_NE(at, std::string::npos) << from;
    write(file_, text.replace(at, from.size(), to));
  }

  const std::string file_;
};

class TransferReleasesTest : public TransferTest,
                             public ::testing::WithParamInterface<const char*> {};

INSTANTIATE_TEST_SUITE_P(FileAndMessages, TransferReleasesTest, ::testing::Values("11.4", "14.0"),
                         [](const auto& release) {
                           return std::string(release.param).starts_with("11") ? "File"
                                                                               : "Messages";
                         });

TEST_P(TransferReleasesTest, GroupsArriveWholeOnAnotherDevice) {
  release_ = GetParam();
  const Json left = group("Work");
  moveToOtherDevice();
  change({"import", file_});
  EXPECT_EQ(titles(), (Texts{"Work", "Home"}));
  const Json arrived = group("Work");
  for (const char* key :
       {"title", "subTitle", "markerCode", "maskedMessage", "enabled", "createdDate",
        "shouldHideConversationsInDefaultGroups", "shouldHideConversationsOnLockScreen"}) {
    EXPECT_EQ(arrived[key], left[key]) << key;
  }
  EXPECT_EQ(arrived["headerImagePath"], arrived["identifier"].dump() + ".png");
  EXPECT_EQ(read(pictures() / arrived["headerImagePath"]), onePixelPng());
  // Ann by her number. Nobody is Eve: her address, as the conversation bears it.
  EXPECT_EQ(arrived["contacts"],
            Json::array({1000003, "eve@example.com", "iMessage;+;chat300", "+15555550102"}));
}

TEST_F(TransferTest, WhoIsNotFoundIsListedKeptAndFoundLater) {
  moveToOtherDevice();
  const ProgramResult result = change({"import", file_});
  EXPECT_NE(result.errors.find("\"Work\": nobody of the address book is Eve Sjö (Eve@Example.com)"),
            std::string::npos);
  EXPECT_NE(change({"show", "Work"}).out.find("not found      Eve Sjö"), std::string::npos);
  change({"edit", "Work", "--no-hide"});
  const std::string again = (folder_ / "again.json").string();
  change({"export", again});
  EXPECT_NE(read(again).find("\"Eve Sjö\""), std::string::npos);

  write(contacts_, std::string(kOtherPeople) +
                       "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Eve Sjö\r\nUID:e\r\nEND:VCARD\r\n");
  EXPECT_EQ(change({"import", file_}).errors, "");
  EXPECT_EQ(group("Work")["contacts"].back(), 1000004);
  EXPECT_FALSE(group("Work").contains("unresolvedMembers"));
}

TEST_F(TransferTest, SeveralPossiblePeopleAreNobody) {
  mend("(555) 555-0101", "");
  moveToOtherDevice(
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Zoe\r\nUID:z\r\nEND:VCARD\r\n"
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann Larkspur\r\nUID:a\r\nEND:VCARD\r\n"
      "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann Larkspur\r\nUID:b\r\nEND:VCARD\r\n");
  EXPECT_NE(change({"import", file_}).errors.find("several people may be Ann Larkspur"),
            std::string::npos);
  EXPECT_EQ(group("Work")["contacts"],
            Json::array({"eve@example.com", "iMessage;+;chat300", "+15555550102"}));
}

TEST_F(TransferTest, AMergedGroupGetsMembersAndStaysAsItIsOtherwise) {
  change({"edit", "Work", "--title", "Job", "--subtitle", "New"});
  change({"remove-member", "Job", "Ann Larkspur"});
  change({"delete", "--yes", "Home"});
  change({"create", "Home"});
  const auto objects = change({"import", file_, "--json"}).objects();
  ASSERT_EQ(objects.size(), 2U);
  EXPECT_EQ(objects[0]["title"], "Job");
  EXPECT_EQ(objects[0]["subTitle"], "New");
  EXPECT_EQ(objects[0]["contacts"].back(), 1000001);
  EXPECT_EQ(objects[1]["change"], "changed");
  EXPECT_EQ(objects[1]["contacts"], Json::array({1000001}));
  EXPECT_EQ(titles(), (Texts{"Job", "Home"}));
  EXPECT_EQ(changed({"import", file_})["change"], "unchanged");
}

TEST_F(TransferTest, ReplacingTakesTheGroupsOfTheFileOnly) {
  change({"create", "Other"});
  change({"edit", "Work", "--title", "Job", "--picture", "none"});
  const std::string identifier = identifierOf("Job");
  expectRefused({"import", file_, "--replace"}, "say --yes", 2);
  change({"import", file_, "--replace", "--yes"});
  EXPECT_EQ(titles(), (Texts{"Work", "Home"}));
  EXPECT_EQ(identifierOf("Work"), identifier);
  EXPECT_EQ(group("Work")["headerImagePath"], identifier + ".png");
  EXPECT_EQ(change({"list", "--json"}).objects().size(), 7U);
}

TEST_P(TransferReleasesTest, ReplacingTheGroupsOfTheFileByThemselvesChangesNothing) {
  release_ = GetParam();
  change({"edit", "Home", "--masked-text", "Away"});
  change({"export", file_, "--force"});
  const ProgramResult result = change({"import", file_, "--replace", "--dry-run"});
  EXPECT_EQ(result.out, "Work  " + identifierOf("Work") + "  unchanged\nHome  " +
                            identifierOf("Home") + "  unchanged\n");
  write(folder_ / "other.bmp", onePixelBmp());
  change({"edit", "Work", "--picture", (folder_ / "other.bmp").string()});
  EXPECT_NE(change({"import", file_, "--replace", "--dry-run"}).out.find("picture  new"),
            std::string::npos);
  change({"edit", "Work", "--picture", "none"});
  change({"import", file_, "--replace", "--yes"});
  EXPECT_EQ(read(pictures() / group("Work")["headerImagePath"]), onePixelPng());
}

TEST_F(TransferTest, ADeviceWithoutAReaderExportsWhatItsFileSaysOfProtection) {
  writeGroups(
      "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Secret</string>"
      "<key>enabled</key><true/><key>passwordProtected</key><true/></dict>"
      "<dict><key>identifier</key><integer>8</integer><key>title</key><string>Open</string>"
      "<key>enabled</key><true/><key>passwordProtected</key><false/></dict>");
  const Texts words = {"--biometrics", "off", "groups", "export", file_, "--force"};
  ASSERT_EQ(runOwn(words).status, 0);
  moveToOtherDevice();
  EXPECT_EQ(runOwn({"--biometrics", "on", "groups", "import", file_}).status, 0);
  const auto listed = runOwn({"--biometrics", "on", "groups", "list", "--json"}).objects();
  std::map<std::string, bool> isProtected;
  for (const Json& one : listed) {
    isProtected[one["title"]] = one["passwordProtected"];
  }
  EXPECT_TRUE(isProtected["Secret"]);
  EXPECT_FALSE(isProtected["Open"]);
}

TEST_F(TransferTest, ADryRunTellsEverythingAndChangesNothing) {
  change({"delete", "--yes", "Home"});
  change({"create", "Other"});
  const Listing before = listing(device_);
  const ProgramResult merge = change({"import", file_, "--dry-run"});
  EXPECT_NE(merge.out.find("Work  " + identifierOf("Work") + "  unchanged\n"), std::string::npos);
  EXPECT_NE(merge.out.find("Home  created\n"), std::string::npos);
  const ProgramResult replace = change({"import", file_, "--replace", "--dry-run"});
  EXPECT_NE(replace.out.find("Other  " + identifierOf("Other") + "  deleted\n"), std::string::npos);
  Listing after = listing(device_);
  EXPECT_EQ(after, before);
}

TEST_F(TransferTest, AFileThatIsWrongAnywhereChangesNothing) {
  const std::string whole = read(file_);
  change({"delete", "--yes", "Work", "Home"});
  const auto expectBad = [&](const std::string& contents, const std::string& message) {
    write(file_, contents);
    expectRefused({"import", file_}, file_ + ": " + message);
    expectRefused({"import", file_, "--replace", "--yes"}, file_ + ": " + message);
  };
  expectBad("", "no whole JSON document: at line 1");
  expectBad(whole.substr(0, whole.size() / 2), "no whole JSON document: at line ");
  expectBad("[1, 2]", "no export of groups");
  write(file_, whole);
  mend("\"version\": 1", "\"version\": 2");
  expectBad(read(file_), "is of version 2, written by a newer zephyls");
  write(file_, whole);
  mend("iVBORw0KGgo", "AAAARw0KGgo");
  expectBad(read(file_), "groups[0].picture: no picture: ");
  write(file_, whole);
  mend("\"title\": \"Home\"", "\"title\": 5");
  expectBad(read(file_), "groups[1].title: is no text");
  expectRefused({"import", (folder_ / "missing").string()}, "there is no such file");
  expectRefused({"import", folder_.string()}, folder_.string());
}

TEST_F(TransferTest, AColourOrMemberThatIsNoneChangesNothing) {
  const std::string whole = read(file_);
  change({"delete", "--yes", "Work", "Home"});
  const auto expectBad = [&](const std::string& from, const std::string& to,
                             const std::string& message) {
    write(file_, whole);
    mend(from, to);
    expectRefused({"import", file_}, file_ + ": groups[0]" + message);
  };
  expectBad("\"11223344\"", "\"not a colour\"", ".markerCode: is no colour such as ");
  expectBad("\"+15555550102\"", "\"\"", ".members[3].address: must not be empty");
  expectBad("\"iMessage;+;chat300\"", "\"chat300\"",
            ".members[2].guid: is no GUID of a conversation: chat300");
  EXPECT_EQ(titles(), Texts());
}

TEST_F(TransferTest, AnAddressArrivesInPlainForm) {
  mend("\"+15555550102\"", "\"+1 (555) 555-0199\"");
  change({"delete", "--yes", "Work", "Home"});
  change({"import", file_});
  EXPECT_EQ(group("Work")["contacts"].back(), "+15555550199");
}

TEST_F(TransferTest, AGroupThatSaysNothingOfItIsEnabled) {
  mend("   \"enabled\": false,\n", "");
  change({"delete", "--yes", "Work", "Home"});
  change({"import", file_});
  EXPECT_EQ(group("Work")["enabled"], true);
}

TEST_F(TransferTest, WhatNoImportTakesIsNotExported) {
  writeGroups(
      "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Odd</string>"
      "<key>enabled</key><true/><key>markerCode</key><string>teal</string>"
      "<key>contacts</key><array><string></string><string>+15555550102</string></array></dict>");
  const ProgramResult result = groups({"export", file_, "--force"});
  EXPECT_NE(result.errors.find("the group \"Odd\" has no colour such as "), std::string::npos);
  change({"import", file_, "--replace", "--yes"});
  EXPECT_EQ(group("Odd")["contacts"], Json::array({"+15555550102", ""}));
}

TEST_F(TransferTest, AnExportIsForTheUserAloneAndWritesOverNothing) {
  struct stat status {};
  ASSERT_EQ(stat(file_.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  const std::string before = read(file_);
  expectRefused({"export", file_}, "write over it with --force");
  EXPECT_EQ(read(file_), before);
  EXPECT_EQ(change({"export", file_, "Home", "--force"}).out,
            "Home  1 member\n1 group in " + file_ + "\n");
  EXPECT_EQ(read(file_).find("Work"), std::string::npos);
  expectRefused({"export", folder_.string(), "--force"}, "is a folder");
  expectRefused({"export", (folder_ / "no/such/folder").string()}, "no/such/folder: ");
  expectRefused({"export", (folder_ / "all").string(), "All"}, "\"All\" is a system group");
}

TEST_F(TransferTest, AnImportThatCannotBeSavedSaysWhatWasDone) {
  change({"delete", "--yes", "Work", "Home"});
  write(folder_ / "state", "no folder");
  environment_["XDG_STATE_HOME"] = (folder_ / "state").string();
  expectRefused({"import", file_}, "Unable to save groups to disk. Nothing was imported.");
}

TEST_F(TransferTest, TheStandardStreamsServeAsFiles) {
  const std::string text = change({"export", "-"}).out;
  change({"delete", "--yes", "Work", "Home"});
  input_ = (folder_ / "stdin").string();
  write(input_, text);
  change({"import", "-"});
  EXPECT_EQ(titles(), (Texts{"Work", "Home"}));
  write(input_, text.substr(0, 100));
  expectRefused({"import", "-"}, "standard input: no whole JSON document");
}

}  // namespace
}  // namespace zephyl::app::test
