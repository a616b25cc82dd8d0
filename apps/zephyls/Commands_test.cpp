#include <string>
#include <vector>

#include "apps/zephyls/ProgramTest.h"

namespace zephyl::app::test {
namespace {

using Json = nlohmann::ordered_json;
using Texts = std::vector<std::string>;

constexpr char kWork[] =
    "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Work</string>"
    "<key>enabled</key><true/><key>contacts</key><array><integer>1000001</integer></array></dict>";
constexpr char kSecret[] =
    "<dict><key>identifier</key><integer>8</integer><key>title</key><string>Secret</string>"
    "<key>enabled</key><true/><key>shouldHideConversationsInDefaultGroups</key><true/>"
    "<key>contacts</key><array><string>+15555550102</string></array></dict>";

class CommandsTest : public ProgramTest {
 protected:
  CommandsTest() { writeOwnSources(); }

  static Texts keysOf(const Json& object) {
    Texts names;
    for (const auto& [key, value] : object.items()) {
      names.push_back(key);
    }
    return names;
  }
  static Texts all(const std::vector<Json>& objects, const char* key) {
    Texts values;
    for (const Json& object : objects) {
      values.push_back(object[key].is_string() ? object[key].get<std::string>()
                                               : object[key].dump());
    }
    return values;
  }
};

TEST_F(CommandsTest, TheFirstStartEnablesTheExtensionAndMakesTheSystemGroups) {
  const auto result = runOwn({"groups", "list", "--json"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(all(result.objects(), "title"),
            (Texts{"All", "Favorites", "All Groups", "Unknown", "Known"}));
  EXPECT_NE(read(settings_).find("<key>ZephylsEnabled</key>"), std::string::npos);
  EXPECT_NE(read(groups_).find("Your Favoties Contacts from Phonebook"), std::string::npos);

  const std::string settings = read(settings_);
  const std::string groups = read(groups_);
  EXPECT_EQ(runOwn({"unread"}).status, 0);
  EXPECT_EQ(read(settings_), settings);
  EXPECT_EQ(read(groups_), groups);
}

TEST_F(CommandsTest, ConversationsAreListedTheMostRecentFirst) {
  const auto objects = runOwn({"conversations", "--json"}).objects();
  ASSERT_EQ(objects.size(), 4U);
  EXPECT_EQ(keysOf(objects[0]), (Texts{"guid", "rawGuid", "name", "isGroup", "unread", "handles",
                                       "lastDate", "lastText"}));
  EXPECT_EQ(all(objects, "guid"), (Texts{"iMessage;+;chat300", "SMS;-;+15555550102",
                                         "iMessage;-;+15555550101", "iMessage;-;eve@example.com"}));
  EXPECT_EQ(all(objects, "name"),
            (Texts{"Picnic", "+1 (555) 555-0102", "Ann Larkspur", "Eve Sjö"}));
  EXPECT_EQ(objects[0]["rawGuid"], "any;+;chat300");
  EXPECT_EQ(objects[0]["isGroup"], true);
  EXPECT_EQ(objects[0]["unread"], true);
  EXPECT_EQ(objects[0]["lastDate"], "2020-01-06T10:43:20Z");
  EXPECT_EQ(objects[0]["lastText"], "Who brings cake?");
  EXPECT_EQ(objects[0]["handles"],
            Json::parse(R"([{"displayID":"+15555550101","recordID":1000001,"name":"Ann Larkspur"},
                            {"displayID":"+15555550102","recordID":null,
                             "name":"+1 (555) 555-0102"}])"));
  EXPECT_EQ(objects[3]["lastDate"], nullptr);
  EXPECT_EQ(objects[3]["lastText"], nullptr);
}

TEST_F(CommandsTest, AGroupsConversationsAreFoundByTitleAndByIdentifier) {
  writeGroups(kWork);
  const Texts expected = {"iMessage;+;chat300", "iMessage;-;+15555550101"};
  EXPECT_EQ(all(runOwn({"conversations", "--group", "Work", "--json"}).objects(), "guid"),
            expected);
  EXPECT_EQ(all(runOwn({"conversations", "--group", "7", "--json"}).objects(), "guid"), expected);
}

TEST_F(CommandsTest, AGroupsObjectHasTheDictionarysKeysAndTheCounts) {
  writeGroups(kWork);
  const auto objects = runOwn({"groups", "list", "--json"}).objects();
  ASSERT_EQ(objects.size(), 6U);
  EXPECT_EQ(keysOf(objects[0]),
            (Texts{"identifier", "title", "subTitle", "headerImagePath", "backGroundImagePath",
                   "markerCode", "createdDate", "enabled", "active", "system", "passwordProtected",
                   "zephylSystemMode", "contacts", "shouldHideConversationsInDefaultGroups",
                   "shouldHideConversationsOnLockScreen", "maskedMessage", "unreadCount",
                   "conversationCount"}));
  EXPECT_EQ(all(objects, "unreadCount"), (Texts{"1", "2", "0", "1", "2", "1"}));
  EXPECT_EQ(all(objects, "conversationCount"), (Texts{"2", "4", "0", "1", "2", "3"}));
}

TEST_F(CommandsTest, AHidingGroupTakesItsConversationsOutOfTheDefaultGroups) {
  writeGroups(std::string(kWork) + kSecret);
  const auto objects = runOwn({"unread", "--json"}).objects();
  EXPECT_EQ(keysOf(objects[0]),
            (Texts{"identifier", "title", "unreadCount", "unreadConversations", "elsewhere"}));
  EXPECT_EQ(all(objects, "title"),
            (Texts{"Work", "Secret", "All", "Favorites", "All Groups", "Unknown", "Known"}));
  EXPECT_EQ(all(objects, "unreadCount"), (Texts{"1", "1", "1", "0", "1", "1", "1"}));
  EXPECT_EQ(all(objects, "elsewhere"), (Texts{"1", "1", "1", "2", "1", "1", "1"}));
  EXPECT_EQ(objects[1]["unreadConversations"], Json::array({"SMS;-;+15555550102"}));
}

TEST_F(CommandsTest, AnExplanationNamesWhatMatchedAndWhatHides) {
  writeGroups(std::string(kWork) + kSecret);
  const auto objects = runOwn({"explain", "SMS;-;+15555550102", "--json"}).objects();
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(keysOf(objects[0]), (Texts{"identifier", "title", "member", "because", "hides"}));
  EXPECT_EQ(objects[0]["title"], "Secret");
  EXPECT_EQ(objects[0]["member"], true);
  EXPECT_EQ(objects[0]["hides"], true);
  EXPECT_NE(objects[0]["because"].get<std::string>().find("+15555550102"), std::string::npos);
  EXPECT_EQ(objects[1]["title"], "All");
  EXPECT_EQ(objects[1]["member"], false);
  EXPECT_EQ(objects[1]["because"], "hidden by the group Secret");

  const auto picnic = runOwn({"explain", "any;+;chat300", "--json"}).objects();
  EXPECT_EQ(all(picnic, "title"), (Texts{"Work", "All", "All Groups", "Unknown", "Known"}));
  EXPECT_EQ(picnic[0]["because"], "a participant is a member: 1000001 (Ann Larkspur)");
}

TEST_F(CommandsTest, AGroupIsShownWithItsMembers) {
  writeGroups(kWork);
  const auto objects = runOwn({"groups", "show", "Work", "--json"}).objects();
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0]["members"],
            Json::parse(R"([{"kind":"person","id":1000001,"name":"Ann Larkspur"}])"));
  EXPECT_EQ(objects[0]["conversations"],
            (Json::array({"iMessage;+;chat300", "iMessage;-;+15555550101"})));
  const std::string text = runOwn({"groups", "show", "Work"}).out;
  EXPECT_NE(text.find("Ann Larkspur"), std::string::npos);
}

TEST_F(CommandsTest, PeopleAreFoundByEveryWord) {
  EXPECT_EQ(all(runOwn({"contacts", "--json"}).objects(), "recordID"),
            (Texts{"1000001", "1000002"}));
  EXPECT_EQ(all(runOwn({"contacts", "--json", "SJÖ", "example"}).objects(), "name"),
            Texts{"Eve Sjö"});
  EXPECT_TRUE(runOwn({"contacts", "--json", "ann", "eve"}).objects().empty());
}

TEST_F(CommandsTest, SeveralAddressBooksCountTogether) {
  write(folder_ / "more/one.vcf", "BEGIN:VCARD\nVERSION:3.0\nFN:Ben Moss\nEND:VCARD\n");
  EXPECT_EQ(all(runOwn({"--contacts", (folder_ / "more").string(), "contacts", "--json"}).objects(),
                "name"),
            (Texts{"Ben Moss", "Ann Larkspur", "Eve Sjö"}));
}

TEST_F(CommandsTest, PeopleAreInTheOrderOfTheNameThatIsAskedFor) {
  write(contacts_,
        "BEGIN:VCARD\nVERSION:3.0\nTEL:1\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nN:Zorn;Anna;;;\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nN:\u00c4rm;Zo\u00eb;;;\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nN:arm;bob;;;\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nORG:Moss & Co\nEND:VCARD\n"
        "BEGIN:VCARD\nVERSION:3.0\nN:;Cid;;;\nEND:VCARD\n");
  const Texts byLast = {"bob arm", "Zo\u00eb \u00c4rm", "Cid", "Moss & Co", "Anna Zorn", "null"};
  EXPECT_EQ(all(runOwn({"contacts", "--json"}).objects(), "name"), byLast);
  EXPECT_EQ(all(runOwn({"--sort-names", "last", "contacts", "--json"}).objects(), "name"), byLast);
  EXPECT_EQ(all(runOwn({"--sort-names", "first", "contacts", "--json"}).objects(), "name"),
            (Texts{"Anna Zorn", "bob arm", "Cid", "Moss & Co", "Zo\u00eb \u00c4rm", "null"}));
  const auto wrong = runOwn({"--sort-names", "middle", "contacts"});
  EXPECT_EQ(wrong.status, 2);
  EXPECT_NE(wrong.errors.find("--sort-names"), std::string::npos) << wrong.errors;
}

TEST_F(CommandsTest, AConversationIsAlsoFoundByANameOrAddressThatFitsNoOther) {
  for (const char* name : {"Picnic", "any;+;chat300", "iMessage;+;chat300"}) {
    EXPECT_NE(runOwn({"explain", name}).out.find("Picnic  iMessage;+;chat300"), std::string::npos);
  }
  EXPECT_NE(runOwn({"explain", "eve@example.com"}).out.find("Eve Sjö"), std::string::npos);
  execute(messages_, "UPDATE chat SET display_name='Picnic' WHERE ROWID=1");
  const auto result = runOwn({"explain", "Picnic"});
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("iMessage;+;chat300"), std::string::npos) << result.errors;
}

TEST_F(CommandsTest, RecordIdsStayWhateverElseIsAdded) {
  EXPECT_EQ(runOwn({"contacts"}).status, 0);
  write(folder_ / "source/people.vcf",
        "BEGIN:VCARD\nVERSION:3.0\nFN:First\nUID:first\nEND:VCARD\n" + read(contacts_));
  EXPECT_EQ(all(runOwn({"contacts", "--json", "ann"}).objects(), "recordID"), Texts{"1000001"});
  EXPECT_EQ(all(runOwn({"contacts", "--json", "first"}).objects(), "recordID"), Texts{"1000003"});
}

TEST_F(CommandsTest, EveryReleaseGivesTheSameGroupsWhicheverWayTheyTravel) {
  writeGroups(std::string(kWork) + kSecret);
  const std::string now = runOwn({"unread", "--json"}).out;
  for (const char* version : {"6.1", "8.3", "9.0", "11.4", "12.0", "13.3"}) {
    EXPECT_EQ(runOwn({"--ios", version, "unread", "--json"}).out, now) << version;
  }
}

TEST_F(CommandsTest, ProtectionNeedsBiometrics) {
  EXPECT_EQ(
      runOwn({"--biometrics", "on", "groups", "list", "--json"}).objects()[0]["passwordProtected"],
      true);
  EXPECT_EQ(
      runOwn({"--biometrics", "off", "groups", "list", "--json"}).objects()[0]["passwordProtected"],
      false);
}

TEST_F(CommandsTest, TheMaskedTextComesInTheUsersLanguage) {
  writeGroups(kWork);
  EXPECT_EQ(runOwn({"--language", "de", "groups", "show", "Work", "--json"})
                .objects()[0]["maskedMessage"],
            "Diese Nachricht ist durch Zephyls geschützt und nur in der Nachrichten-App "
            "verfügbar.");
}

TEST_F(CommandsTest, SettingsAreShownAndChanged) {
  EXPECT_EQ(all(runOwn({"settings", "--json"}).objects(), "key"),
            (Texts{"ZephylsEnabled", "ZephylsSortBy", "ZephylsSortOrder",
                   "ZPRememberUnlockSessionEnabled", "ZPRememberUnlockSessionTime"}));
  EXPECT_EQ(runOwn({"settings", "get", "ZephylsEnabled"}).out, "on\n");
  EXPECT_EQ(runOwn({"settings", "get", "ZephylsSortBy"}).out, "not set\n");
  EXPECT_EQ(runOwn({"settings", "set", "ZephylsSortOrder", "1"}).out, "1\n");
  EXPECT_EQ(runOwn({"settings", "set", "ZephylsSortBy", "7"}).errors,
            "zephyls: ZephylsSortBy takes one of these numbers: user groups: 0 by title, 1 by "
            "creation date; not \"7\"\n");
  EXPECT_EQ(runOwn({"settings", "set", "ZephylsEnabled", "off"}).status, 0);
  EXPECT_EQ(runOwn({"settings", "set", "ZPRememberUnlockSessionTime", "2.5", "--json"}).out,
            "{\"key\":\"ZPRememberUnlockSessionTime\",\"value\":2.5}\n");
  EXPECT_EQ(all(runOwn({"settings", "--json"}).objects(), "value"),
            (Texts{"false", "null", "1", "null", "2.5"}));
}

TEST_F(CommandsTest, TheSampleIsShownWhenNothingIsNamed) {
  const auto result = run({});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.errors, "");
  EXPECT_NE(result.out.find("Operation Cake"), std::string::npos);
  EXPECT_NE(result.out.find("This is a sample."), std::string::npos);
  EXPECT_TRUE(std::filesystem::exists(folder_ / ".local/share/zephyls/sample-device"));
  EXPECT_EQ(run({"check"}).out.find("warning"), std::string::npos);
}

TEST_F(CommandsTest, WithoutGroupsOfOnesOwnTheSystemGroupsShowTheirConversations) {
  const std::string out = runOwn({}).out;
  EXPECT_NE(out.find("Who brings cake?"), std::string::npos) << out;
  writeGroups(kWork);
  EXPECT_NE(runOwn({}).out.find("Work"), std::string::npos);
}

TEST_F(CommandsTest, FavouritesAreThoseOfThePhoneOrThoseThatAreNamed) {
  const Texts picnicAndAnn = {"iMessage;+;chat300", "iMessage;-;+15555550101"};
  const auto favorites = [&](std::vector<std::string> words) {
    words.insert(words.end(), {"conversations", "--group", "Favorites", "--json"});
    return all(runOwn(words).objects(), "guid");
  };
  EXPECT_EQ(favorites({}), Texts());
  for (const char* who : {"1000001", "Ann Larkspur", "555 555 0101"}) {
    EXPECT_EQ(favorites({"--favorite", who}), picnicAndAnn) << who;
  }
  EXPECT_EQ(favorites({"--favorite", "1000001", "--favorite", "1000002"}).size(), 3U);
  EXPECT_EQ(favorites({"--favorite", "eve@EXAMPLE.com"}), Texts{"iMessage;-;eve@example.com"});
  EXPECT_EQ(runOwn({"--favorite", "Nobody", "unread"}).status, 1);

  write(device_ / "var/mobile/Library/Preferences/com.apple.mobilephone.speeddial.plist",
        "<plist><array><dict><key>ABUid</key><integer>1000001</integer></dict></array></plist>");
  EXPECT_EQ(favorites({}), picnicAndAnn);
}

TEST_F(CommandsTest, ADisabledGroupIsExplainedTooAndEveryGroupThatHides) {
  const std::string members =
      "<key>shouldHideConversationsInDefaultGroups</key><true/><key>contacts</key><array>"
      "<string>+15555550102</string></array></dict>";
  const auto group = [&](int identifier, const char* enabled) {
    return "<dict><key>identifier</key><integer>" + std::to_string(identifier) +
           "</integer><key>title</key><string>G" + std::to_string(identifier) +
           "</string><key>enabled</key>" + enabled + members;
  };
  writeGroups(group(1, "<true/>") + group(2, "<false/>") + group(3, "<true/>"));
  const auto objects = runOwn({"explain", "SMS;-;+15555550102", "--json"}).objects();
  EXPECT_EQ(all(objects, "title"), (Texts{"G1", "G2", "G3", "All", "Unknown"}));
  EXPECT_EQ(all(objects, "member"), (Texts{"true", "true", "true", "false", "false"}));
  EXPECT_EQ(all(objects, "hides"), (Texts{"true", "false", "true", "false", "false"}));
}

TEST_F(CommandsTest, APhonesFilesInTheDeviceRootAreFound) {
  namespace fs = std::filesystem;
  fs::create_directories(device_ / "var/mobile/Library/SMS");
  fs::copy(messages_, device_ / "var/mobile/Library/SMS/sms.db");
  const auto result = run({"--device", device_.string(), "conversations", "--json"});
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.objects().size(), 4U);
}

}  // namespace
}  // namespace zephyl::app::test
