#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "apps/zephyls/EditingTest.h"
#include "hosts/linux/testing/ChildProcess.h"

namespace zephyl::app::test {
namespace {

class MembersTest : public EditingTest {
 protected:
  MembersTest() { change({"create", "Work"}); }

  // What the members of the group are after a change.
  [[nodiscard]] Json membersAfter(Texts words) const {
    return changed(std::move(words))["contacts"];
  }
  [[nodiscard]] Json conversations() const { return group("Work")["conversations"]; }
};

TEST_F(MembersTest, APersonIsNamedByRecordIdNameNumberOrAddress) {
  for (const char* who : {"1000001", "Ann Larkspur", "(555) 555-0101", "+15555550101"}) {
    EXPECT_EQ(membersAfter({"add-member", "Work", who}), Json::array({1000001})) << who;
    EXPECT_EQ(membersAfter({"remove-member", "Work", who}), Json::array()) << who;
  }
  for (const char* who : {"Eve Sjö", "EVE@example.com"}) {
    EXPECT_EQ(membersAfter({"add-member", "Work", who}), Json::array({1000002})) << who;
    EXPECT_EQ(membersAfter({"remove-member", "Work", who}), Json::array()) << who;
  }
}

// The conversations of people who are known are found by person only.
TEST_F(MembersTest, TheNumberOfAKnownPersonAddsThePersonAndSaysSo) {
  const ProgramResult result = change({"add-member", "Work", "555 555 0101"});
  EXPECT_NE(result.errors.find("555 555 0101 is known: Ann Larkspur, record id 1000001"),
            std::string::npos);
  EXPECT_EQ(conversations(), Json::array({"iMessage;+;chat300", "iMessage;-;+15555550101"}));
}

TEST_F(MembersTest, AStrangersNumberBecomesTheOneThatTheConversationBears) {
  for (const char* who : {"(555) 555-0102", "1 555 555 0102", "+15555550102"}) {
    EXPECT_EQ(membersAfter({"add-member", "Work", who}), Json::array({"+15555550102"})) << who;
    EXPECT_EQ(conversations(), Json::array({"SMS;-;+15555550102"}));
    EXPECT_EQ(membersAfter({"remove-member", "Work", who}), Json::array()) << who;
  }
}

TEST_F(MembersTest, ShortCodesAndAddressesMatchTheirConversations) {
  execute(messages_,
          "INSERT INTO handle VALUES (9, '22000', 'SMS'), (10, 'a-b@example.com', 'iMessage');"
          "INSERT INTO chat (ROWID, guid, style, chat_identifier, service_name, display_name) "
          "VALUES (9, 'SMS;-;22000', 45, '22000', 'SMS', ''),"
          "(10, 'iMessage;-;a-b@example.com', 45, 'a-b@example.com', 'iMessage', '');"
          "INSERT INTO chat_handle_join VALUES (9, 9), (10, 10);");
  // Members are in plain form, which has no hyphens.
  EXPECT_EQ(membersAfter({"add-member", "Work", "22000", "A-B@Example.com"}),
            Json::array({"22000", "ab@example.com"}));
  EXPECT_EQ(conversations().size(), 2U);
  EXPECT_EQ(membersAfter({"remove-member", "Work", "a-b@example.com", "220 00"}), Json::array());
}

TEST_F(MembersTest, ANumberWithoutAConversationIsKeptInternationalAndSaysSo) {
  const ProgramResult result = change({"add-member", "Work", "555-555-0177", "Bob@Example.com"});
  EXPECT_NE(result.errors.find("no conversation is with +15555550177 yet"), std::string::npos);
  EXPECT_EQ(group("Work")["contacts"], Json::array({"+15555550177", "bob@example.com"}));
  EXPECT_EQ(membersAfter({"remove-member", "Work", "5555550177"}),
            Json::array({"bob@example.com"}));
}

TEST_F(MembersTest, AConversationIsNamedByEitherOfItsGuids) {
  for (const char* guid : {"iMessage;+;chat300", "any;+;chat300"}) {
    EXPECT_EQ(membersAfter({"add-member", "Work", guid}), Json::array({"iMessage;+;chat300"}));
    EXPECT_EQ(membersAfter({"remove-member", "Work", guid}), Json::array());
  }
}

TEST_F(MembersTest, OneUnknownMemberRefusesAll) {
  expectRefused({"add-member", "Work", "Ann Larkspur", "Nobody"}, "\"Nobody\" is nobody");
  expectRefused({"add-member", "Work", "Ann Larkspur", "12"}, "without a country code");
  expectRefused({"add-member", "Work", "Ann Larkspur", "SMS;-;+1999"},
                "no conversation has the GUID");
  expectRefused({"add-member", "Work", "Ann Larkspur", ""}, "is nobody");
  change({"add-member", "Work", "Ann Larkspur"});
  expectRefused({"remove-member", "Work", "Ann Larkspur", "Eve Sjö"}, "\"Eve Sjö\" is no member");
  expectRefused({"remove-member", "Work", "Ann Larkspur", "Nobody"}, "\"Nobody\" is no member");
}

TEST_F(MembersTest, AFullNameOfSeveralPeopleNamesNone) {
  write(contacts_,
        read(contacts_) +
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ann Larkspur\r\nUID:other\r\nEND:VCARD\r\n");
  const std::string several = "several people are called \"Ann Larkspur\"";
  expectRefused({"add-member", "Work", "Ann Larkspur"}, several);
  expectRefused({"add-member", "Work", "Ann Larkspur"}, "1000001 1000003");
  change({"add-member", "Work", "1000003"});
  // Only one of them is a member.
  EXPECT_EQ(membersAfter({"remove-member", "Work", "Ann Larkspur"}), Json::array());
}

TEST_F(MembersTest, AMemberThatIsThereAlreadyIsSaidAndNoError) {
  change({"add-member", "Work", "Ann Larkspur"});
  const ProgramResult result = change({"add-member", "Work", "1000001", "Eve Sjö"});
  EXPECT_NE(result.errors.find("person 1000001  Ann Larkspur is a member already"),
            std::string::npos);
  EXPECT_EQ(group("Work")["contacts"], Json::array({1000001, 1000002}));
}

// Someone who was a stranger when the number became a member.
TEST_F(MembersTest, APersonLeavesWithRecordIdAndNumber) {
  writeGroups(
      "<dict><key>identifier</key><integer>7</integer><key>title</key><string>Work</string>"
      "<key>contacts</key><array><string>+15555550101</string><integer>1000001</integer>"
      "<integer>5</integer><string>iMessage;-;gone</string></array></dict>");
  EXPECT_EQ(membersAfter({"remove-member", "Work", "Ann Larkspur"}),
            Json::array({5, "iMessage;-;gone"}));
  EXPECT_EQ(membersAfter({"remove-member", "Work", "5", "iMessage;-;gone"}), Json::array());
}

TEST_F(MembersTest, ManyProgramsAddAtTheSameTimeAndNothingIsLost) {
  constexpr int kPrograms = 6;
  const std::string program = ZEPHYLS_PROGRAM;
  for (const char* release : {"11.4", "14.0"}) {
    std::vector<std::unique_ptr<zephyl::test::ChildProcess>> programs;
    for (int index = 0; index < kPrograms; ++index) {
      const std::string number = "+1555555080" + std::to_string(index);
      zephyl::test::ChildOptions options;
      options.environment = environment_;
      options.inheritsEnvironment = false;
      std::vector<std::string> words = {program,
                                        "--messages",
                                        messages_.string(),
                                        "--contacts",
                                        contacts_.string(),
                                        "--device",
                                        device_.string(),
                                        "--ios",
                                        release,
                                        "groups"};
      const std::vector<std::string> what =
          index % 2 == 0 ? Texts{"add-member", "Work", number} : Texts{"create", number};
      words.insert(words.end(), what.begin(), what.end());
      programs.push_back(std::make_unique<zephyl::test::ChildProcess>(words, options));
    }
    for (const auto& one : programs) {
      EXPECT_EQ(one->wait(std::chrono::seconds(60)), 0);
    }
    EXPECT_EQ(group("Work")["contacts"].size(), 3U) << release;
    EXPECT_EQ(titles().size(), 4U) << release;
    change({"delete", "--yes", "+15555550801", "+15555550803", "+15555550805"});
    change({"remove-member", "Work", "+15555550800", "+15555550802", "+15555550804"});
  }
}

}  // namespace
}  // namespace zephyl::app::test
