#include <filesystem>
#include <string>
#include <vector>

#include <sqlite3.h>

#include "apps/zephyls/ProgramTest.h"

namespace zephyl::app::test {
namespace {

namespace fs = std::filesystem;

class BadInputTest : public ProgramTest {
 protected:
  BadInputTest() { writeOwnSources(); }

  // The copies that were put aside beside the groups file.
  [[nodiscard]] std::vector<fs::path> putAside() const {
    std::vector<fs::path> copies;
    for (const auto& entry : fs::directory_iterator(groups_.parent_path())) {
      if (entry.path().filename().string().find("zephyls-profiles.plist.") != std::string::npos) {
        copies.push_back(entry.path());
      }
    }
    return copies;
  }
};

TEST_F(BadInputTest, TheSourcesAreNeverTouched) {
  execute(messages_, "PRAGMA journal_mode=WAL; UPDATE chat SET display_name='' WHERE ROWID=1;");
  const auto before = listing(folder_ / "source");
  for (const std::vector<std::string>& words : {std::vector<std::string>{},
                                                {"conversations"},
                                                {"groups", "list"},
                                                {"unread"},
                                                {"contacts"},
                                                {"settings"},
                                                {"check"},
                                                {"explain", "iMessage;+;chat300"}}) {
    EXPECT_EQ(runOwn(words).status, 0);
  }
  EXPECT_EQ(listing(folder_ / "source"), before);
}

struct BadDatabase {
  const char* what;
  const char* content;
};

TEST_F(BadInputTest, ABadDatabaseIsNamedWithTheReason) {
  for (const BadDatabase& bad : {BadDatabase{"empty", ""},
                                 {"foreign", "PK\003\004 something else entirely"},
                                 {"truncated", "SQLite format 3"}}) {
    write(messages_, bad.content);
    const auto result = runOwn({"unread"});
    EXPECT_EQ(result.status, 1) << bad.what;
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.errors.find(messages_.string()), std::string::npos) << result.errors;
  }
  fs::remove(messages_);
  EXPECT_NE(runOwn({"unread"}).errors.find(messages_.string()), std::string::npos);
  EXPECT_EQ(runOwn({"unread"}).status, 1);
}

TEST_F(BadInputTest, AForeignDatabaseLacksItsTables) {
  fs::remove(messages_);
  execute(messages_, "CREATE TABLE message (ROWID INTEGER PRIMARY KEY); CREATE TABLE x (y);");
  const auto result = runOwn({"conversations"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("chat"), std::string::npos) << result.errors;
}

TEST_F(BadInputTest, AMissingAddressBookIsAnError) {
  const auto result = run({"--messages", messages_.string(), "--contacts", "/nowhere/at/all.vcf",
                           "--device", device_.string(), "contacts"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("/nowhere/at/all.vcf"), std::string::npos) << result.errors;
}

TEST_F(BadInputTest, AnUnreadableGroupsFileIsPutAsideBeforeGroupsAreSavedInItsPlace) {
  for (const char* content :
       {"", "not a property list", "<plist><array><dict>", "<plist><dict/></plist>", "bplist00"}) {
    write(groups_, content);
    for (const fs::path& copy : putAside()) {
      fs::remove(copy);
    }
    const auto result = runOwn({"groups", "list"});
    EXPECT_EQ(result.status, 1) << content;
    const auto copies = putAside();
    ASSERT_EQ(copies.size(), 1U) << content << result.errors;
    EXPECT_EQ(read(copies[0]), content);
    EXPECT_NE(result.errors.find(copies[0].string()), std::string::npos) << result.errors;
    EXPECT_NE(result.out.find("Known"), std::string::npos);
    EXPECT_NE(runOwn({"check"}).out.find(copies[0].string()), std::string::npos);
    EXPECT_EQ(runOwn({"groups", "list"}).status, 0);
  }
}

TEST_F(BadInputTest, ReadableGroupsWithOddPartsKeepThem) {
  writeGroups(
      "<dict><key>title</key><integer>5</integer><key>identifier</key><integer>3</integer>"
      "<key>enabled</key><string>YES</string><key>later</key><array><true/></array></dict>");
  EXPECT_EQ(runOwn({"groups", "list"}).status, 0);
  const std::string stored = read(groups_);
  EXPECT_NE(stored.find("Known"), std::string::npos);
  for (const char* kept : {"<integer>5</integer>", "<string>YES</string>", "<key>later</key>"}) {
    EXPECT_NE(stored.find(kept), std::string::npos) << stored;
  }
  EXPECT_TRUE(putAside().empty());
}

TEST_F(BadInputTest, AGroupsFileWithoutAnyGroupIsAnErrorWithItsReason) {
  writeGroups("<integer>5</integer>");
  const auto result = runOwn({"groups", "list"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(groups_.string() + ": element 1 is an integer"), std::string::npos)
      << result.errors;
}

TEST_F(BadInputTest, GroupsThatNoMessageCanCarryArePutAside) {
  std::string deep;
  for (int level = 0; level < 510; ++level) {
    deep.insert(0, "<array>").append("</array>");
  }
  writeGroups("<dict><key>title</key><string>Precious</string><key>later</key>" + deep + "</dict>");
  const std::string before = read(groups_);
  EXPECT_EQ(runOwn({"groups", "list"}).status, 1);
  ASSERT_EQ(putAside().size(), 1U);
  EXPECT_EQ(read(putAside()[0]), before);
  EXPECT_EQ(runOwn({"--ios", "11", "groups", "list"}).status, 0);
}

TEST_F(BadInputTest, ADeviceRootThatCannotBeWrittenIsNamed) {
  write(folder_ / "file", "");
  const std::string root = (folder_ / "file/device").string();
  const auto result = run({"--messages", messages_.string(), "--device", root, "unread"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(root), std::string::npos) << result.errors;
}

TEST_F(BadInputTest, DamagedSettingsAreNeverOverwritten) {
  write(settings_, "<plist><dict>");
  const auto result = runOwn({"settings", "set", "ZephylsEnabled", "on"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find(settings_.string()), std::string::npos) << result.errors;
  EXPECT_EQ(read(settings_), "<plist><dict>");
}

TEST_F(BadInputTest, AnAmbiguousTitleListsTheIdentifiers) {
  const std::string twin = "<key>title</key><string>Twin</string><key>enabled</key><true/></dict>";
  writeGroups("<dict><key>identifier</key><integer>11</integer>" + twin +
              "<dict><key>identifier</key><integer>12</integer>" + twin);
  const auto result = runOwn({"conversations", "--group", "Twin"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("11 12"), std::string::npos) << result.errors;
  EXPECT_EQ(runOwn({"conversations", "--group", "twin"}).status, 1);
  EXPECT_EQ(runOwn({"conversations", "--group", "12"}).status, 0);
}

TEST_F(BadInputTest, WrongUsageIsStatusTwoAndWritesNothing) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"nonsense"},
        {"groups"},
        {"groups", "show"},
        {"explain"},
        {"--ios", "twelve", "unread"},
        {"--ios", "12.", "unread"},
        {"--biometrics", "yes"},
        {"--messages"},
        {"unread", "--nonsense"},
        {"settings", "get", "Nothing"},
        {"settings", "set", "ZephylsEnabled", "perhaps"},
        {"settings", "set", "ZephylsSortBy", "1.5"},
        {"--device", ""},
        {"--messages", ""},
        {"settings", "set", "ZPRememberUnlockSessionTime", "nan"}}) {
    const auto result = runOwn(words);
    EXPECT_EQ(result.status, 2) << testing::PrintToString(words) << result.out;
    EXPECT_NE(result.errors, "");
    EXPECT_EQ(result.out, "");
  }
  EXPECT_FALSE(fs::exists(device_));
}

TEST_F(BadInputTest, UnknownNamesAreStatusOne) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"groups", "show", "Nope"}, {"explain", "SMS;-;nobody"}}) {
    const auto result = runOwn(words);
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors, "");
  }
}

TEST_F(BadInputTest, HelpAndVersionAreEverywhere) {
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                {"--version"},
                                                {"conversations", "--help"},
                                                {"groups", "--help"},
                                                {"groups", "list", "--help"},
                                                {"groups", "show", "--help"},
                                                {"unread", "--help"},
                                                {"contacts", "--help"},
                                                {"settings", "--help"},
                                                {"settings", "set", "--help"},
                                                {"explain", "--help"},
                                                {"check", "--help"}}) {
    const auto result = run(words);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(words);
    EXPECT_NE(result.out, "");
  }
}

TEST_F(BadInputTest, TextOfOthersCannotSteerTheTerminal) {
  execute(messages_,
          "UPDATE chat SET display_name = 'a' || char(27) || '[31m' || char(10) || "
          "char(8238) || 'b' WHERE ROWID=3");
  const std::string out = runOwn({"conversations"}).out;
  EXPECT_EQ(out.find('\033'), std::string::npos);
  EXPECT_EQ(out.find("\u202e"), std::string::npos);
  EXPECT_EQ(runOwn({"conversations", "--json"}).objects()[0]["name"], "a\033[31m\n\u202eb");
}

TEST_F(BadInputTest, OutputThatCannotBeWrittenIsAnError) {
  const auto result =
      run({"--messages", messages_.string(), "--device", device_.string(), "conversations"},
          "/dev/full");
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("standard output"), std::string::npos);
}

TEST_F(BadInputTest, TheCheckFindsWhatIsWrongAndChangesNothing) {
  writeGroups(
      "<dict><key>title</key><string>Work</string><key>enabled</key><string>x</string>"
      "<key>contacts</key><array><integer>5</integer><string>SMS;-;gone</string></array>"
      "</dict>");
  write(settings_, "<plist><dict><key>ZephylsSortBy</key><string>x</string></dict></plist>");
  write(device_ / "var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
        "rubbish");
  const auto before = listing(folder_ / "device");
  const auto result = runOwn({"check", "--json"});
  EXPECT_EQ(result.status, 1);
  for (const char* part : {"key identifier: is missing", "key enabled", "nobody's record id",
                           "SMS;-;gone", "key ZephylsSortBy", "speeddial.plist: line 1"}) {
    EXPECT_NE(result.out.find(part), std::string::npos) << part << result.out;
  }
  EXPECT_EQ(listing(folder_ / "device"), before);
}

TEST_F(BadInputTest, TheCheckMakesNoDeviceRoot) {
  EXPECT_EQ(runOwn({"check"}).status, 0);
  EXPECT_FALSE(fs::exists(device_));
}

TEST_F(BadInputTest, DamagedSourcesAreShownAsFarAsTheyGo) {
  execute(
      messages_,
      "UPDATE message SET text = NULL, attributedBody = x'040b73747265616d' WHERE ROWID=3;"
      "INSERT INTO chat_message_join VALUES (1, 999, 0), (99, 1, 0);"
      "INSERT INTO handle VALUES (9, NULL, 'SMS'); INSERT INTO chat_handle_join VALUES (1, 9);");
  write(contacts_, read(contacts_) +
                       "BEGIN:VCARD\nVERSION:3.0\nFN:Cut\nPHOTO;ENCODING=b;TYPE=PNG:iVBORw0KGgo");
  const auto result = runOwn({"conversations", "--json"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.objects().size(), 4U);
  EXPECT_EQ(result.objects()[0]["lastText"], nullptr);
  EXPECT_NE(result.errors.find(contacts_.string() + ":"), std::string::npos) << result.errors;
  EXPECT_EQ(runOwn({"contacts", "--json", "Cut"}).objects().back()["name"], "Cut");
}

TEST_F(BadInputTest, ADatabaseThatCannotTellWhatIsUnreadSaysSo) {
  execute(messages_, "ALTER TABLE message DROP COLUMN is_read");
  const auto result = runOwn({"unread", "--json"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.objects()[0]["unreadCount"], 0);
  EXPECT_NE(result.errors.find("no column is_read"), std::string::npos) << result.errors;
}

TEST_F(BadInputTest, ALogThatHoldsEverythingIsRead) {
  // As left behind by a program that was killed: the main file is all but empty.
  sqlite3* connection = nullptr;
  fs::remove(messages_);
  ASSERT_EQ(sqlite3_open((folder_ / "live.db").c_str(), &connection), SQLITE_OK);
  sqlite3_exec(connection, "PRAGMA journal_mode=WAL; PRAGMA wal_autocheckpoint=0", nullptr, nullptr,
               nullptr);
  sqlite3_exec(connection, ownSchema(), nullptr, nullptr, nullptr);
  fs::copy(folder_ / "live.db", messages_);
  fs::copy(folder_ / "live.db-wal", messages_.string() + "-wal");
  sqlite3_close(connection);
  EXPECT_EQ(runOwn({"conversations", "--json"}).objects().size(), 4U);
  // Locked by another program, it is read all the same.
  ASSERT_EQ(sqlite3_open(messages_.c_str(), &connection), SQLITE_OK);
  sqlite3_exec(connection, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM chat",
               nullptr, nullptr, nullptr);
  EXPECT_EQ(runOwn({"conversations", "--json"}).objects().size(), 4U);
  sqlite3_close(connection);
}

}  // namespace
}  // namespace zephyl::app::test
