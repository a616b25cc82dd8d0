// What becomes of the fields of a vCard.

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

using Texts = std::vector<ABLabeledText>;

class VCardFieldsTest : public ::testing::Test {
 protected:
  ABPerson person(const std::string& version, const std::vector<std::string>& lines) const {
    return texts_.person(card(version, lines));
  }

  VCardTexts texts_;
};

TEST_F(VCardFieldsTest, ANameHasFivePartsThatMayBeLists) {
  const ABPerson person =
      this->person("3.0", {"N:Public;John;Quinlan,Paul;Mr.;Esq.,M.D.", "FN:Someone else"});
  EXPECT_EQ(person.lastName, "Public");
  EXPECT_EQ(person.firstName, "John");
  EXPECT_EQ(person.middleName, "Quinlan Paul");
  EXPECT_EQ(person.prefix, "Mr.");
  EXPECT_EQ(person.suffix, "Esq. M.D.");
  EXPECT_EQ(person.compositeName, "Mr. John Quinlan Paul Public Esq. M.D.");
}

TEST_F(VCardFieldsTest, CommasOfOldNamesAreText) {
  EXPECT_EQ(person("2.1", {"N:Doe;John;A,B;;"}).middleName, "A,B");
}

TEST_F(VCardFieldsTest, ThePersonIsCalledByTheFirstNameThatIsThere) {
  const std::vector<std::pair<std::vector<std::string>, std::optional<std::string>>> cases = {
      {{"N:;;;;", "FN:Full", "ORG:Org", "NICKNAME:Nick"}, "Full"},
      {{"N:;;;;", "ORG:Org", "NICKNAME:Nick"}, "Org"},
      {{"NICKNAME:Nick"}, "Nick"},
      {{"N:Doe;;;;", "ORG:Org;Unit", "X-ABShowAs:COMPANY"}, "Org"},
      {{"N:Doe;;;;", "X-ABShowAs:COMPANY"}, "Doe"},
      {{"TEL:1234567"}, std::nullopt},
      {{"N:;;;;", "FN:", "EMAIL:ann@example.com"}, std::nullopt},
      {{"FN:ann@example.com", "EMAIL:ann@example.com"}, std::nullopt},
      {{"FN: +1 (555) 010-0199 ", "TEL:+15550100199"}, std::nullopt},
      {{"FN:ann@example.com", "ORG:Org"}, "Org"},
      {{"FN:555 0100", "NICKNAME:Nick"}, "Nick"},
      {{"N:ann@example.com;;;;", "FN:555 0100"}, "ann@example.com"},
      {{"FN:7 Up"}, "7 Up"},
      {{"FN:Ann @ Home"}, "Ann @ Home"},
      {{"FN:@ann"}, "@ann"},
      {{"FN:Ann@"}, "Ann@"},
      {{"FN:a@b@c"}, "a@b@c"},
      {{"FN:-"}, "-"},
  };
  for (const auto& [lines, name] : cases) {
    EXPECT_EQ(person("3.0", lines).compositeName, name);
  }
}

TEST_F(VCardFieldsTest, CompaniesAndGroupsAreTold) {
  EXPECT_TRUE(person("4.0", {"KIND:org", "ORG:Org"}).isCompany);
  EXPECT_FALSE(person("4.0", {"KIND:individual", "ORG:Org"}).isCompany);
  const VCardReading reading =
      texts_.read(card("3.0", {"N:Friends;;;;", "X-ADDRESSBOOKSERVER-KIND:group"}));
  EXPECT_TRUE(reading.entries.empty());
  EXPECT_EQ(withoutFile(reading.notes.warnings(), texts_.file()),
            std::vector<std::string>{"1: the card is a group of people and is left out"});
}

TEST_F(VCardFieldsTest, PhoneTypesBecomeLabels) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"TEL;TYPE=CELL:1", "_$!<Mobile>!$_"},
      {"TEL;CELL;VOICE:1", "_$!<Mobile>!$_"},
      {"TEL;type=iPhone;type=CELL:1", "iPhone"},
      {"TEL;TYPE=\"home,voice\":1", "_$!<Home>!$_"},
      {"TEL;TYPE=WORK:1", "_$!<Work>!$_"},
      {"TEL;TYPE=MAIN:1", "_$!<Main>!$_"},
      {"TEL;TYPE=HOME,FAX:1", "_$!<HomeFAX>!$_"},
      {"TEL;WORK;FAX:1", "_$!<WorkFAX>!$_"},
      {"TEL;FAX:1", "_$!<OtherFAX>!$_"},
      {"TEL;TYPE=pager:1", "_$!<Pager>!$_"},
      {"TEL;TYPE=OTHER:1", "_$!<Other>!$_"},
      {"TEL;X-Boat:1", "Boat"},
      {"TEL:1", ""},
  };
  for (const auto& [line, label] : cases) {
    EXPECT_EQ(person("3.0", {line}).phones, (Texts{{label, "1"}})) << line;
  }
}

TEST_F(VCardFieldsTest, GroupsGiveLabelsAndCountryCodes) {
  const ABPerson person = this->person(
      "3.0", {"item1.TEL;type=CELL:1", "item1.X-ABLabel:Boat", "item2.EMAIL:a@b.example",
              "item2.X-ABLabel:_$!<Other>!$_", "item3.ADR:;;Street;;;;", "item3.X-ABADR:de"});
  EXPECT_EQ(person.phones, (Texts{{"Boat", "1"}}));
  EXPECT_EQ(person.emails, (Texts{{"_$!<Other>!$_", "a@b.example"}}));
  EXPECT_EQ(person.addresses, (std::vector<ABAddress>{{"Street", "", "", "", "", "de"}}));
}

TEST_F(VCardFieldsTest, PreferredValuesComeFirst) {
  EXPECT_EQ(person("3.0", {"TEL:1", "TEL;TYPE=pref:2", "TEL:3"}).phones,
            (Texts{{"", "2"}, {"", "1"}, {"", "3"}}));
  EXPECT_EQ(person("2.1", {"TEL:1", "TEL;PREF:2"}).phones, (Texts{{"", "2"}, {"", "1"}}));
  EXPECT_EQ(person("4.0", {"EMAIL;PREF=2:b@x", "EMAIL;PREF=1:a@x", "EMAIL:c@x"}).emails,
            (Texts{{"", "a@x"}, {"", "b@x"}, {"", "c@x"}}));
}

TEST_F(VCardFieldsTest, AddressesOfTheWebAreValues) {
  const ABPerson person =
      this->person("4.0", {"TEL;VALUE=uri:tel:+1-418-656-9254;ext=102;phone-context=example.com",
                           "EMAIL:mailto:a%2Bb@c.example"});
  EXPECT_EQ(person.phones, (Texts{{"", "+1-418-656-9254;ext=102"}}));
  EXPECT_EQ(person.emails, (Texts{{"", "a+b@c.example"}}));
}

TEST_F(VCardFieldsTest, AddressesHaveSevenParts) {
  const ABPerson person =
      this->person("3.0", {"ADR;TYPE=HOME:Box 1;Suite 2;3 Main St\\nBack;Town;State;01234;Land",
                           "ADR:;;;;;;", "ADR:;;Short"});
  EXPECT_EQ(person.addresses, (std::vector<ABAddress>{{"Box 1\nSuite 2\n3 Main St\nBack", "Town",
                                                       "State", "01234", "Land", ""},
                                                      {"Short", "", "", "", "", ""}}));
}

TEST_F(VCardFieldsTest, ProfilesAreReadInAllTheirForms) {
  const std::vector<std::pair<std::string, ABSocialProfile>> cases = {
      {"X-SOCIALPROFILE;type=twitter;x-user=bird:http\\://twitter.com/bird",
       {"twitter", "bird", "", "http://twitter.com/bird"}},
      {"X-SOCIALPROFILE;type=pref;type=weibo;x-userid=77:x-apple:wei", {"weibo", "wei", "77", ""}},
      {"SOCIALPROFILE;SERVICE-TYPE=Mastodon;VALUE=text:@me", {"Mastodon", "@me", "", ""}},
      {"SOCIALPROFILE;SERVICE-TYPE=M;USERNAME=\"a^nb^'c^^\":https://m.example/",
       {"M", "a\nb\"c^", "", "https://m.example/"}},
  };
  for (const auto& [line, profile] : cases) {
    EXPECT_EQ(person("4.0", {line}).socialProfiles, (std::vector<ABSocialProfile>{profile}))
        << line;
  }
}

TEST_F(VCardFieldsTest, TimeStampsAreSecondsSince1970) {
  const std::vector<std::pair<std::string, std::optional<double>>> cases = {
      {"REV:1970-01-02T00:00:01Z", 86401.0},
      {"REV:19700102T000001Z", 86401.0},
      {"REV:1970-01-02", 86400.0},
      {"REV:1970-01-01T01:00:00+01:00", 0.0},
      {"REV:19700101T000000.5Z", 0.5},
      {"REV;VALUE=DATE-AND-OR-TIME:19691231T190000-0500", 0.0},
      {"REV:", std::nullopt},
  };
  for (const auto& [line, seconds] : cases) {
    EXPECT_EQ(person("3.0", {line}).modificationDate, seconds) << line;
  }
  const VCardReading reading = texts_.read(card("3.0", {"REV:2020-02-30"}));
  EXPECT_EQ(withoutFile(reading.notes.warnings(), texts_.file()),
            std::vector<std::string>{"3: REV is not a date and is left out"});
}

TEST_F(VCardFieldsTest, AlternativesAreNotTold) {
  const ABPerson person =
      this->person("4.0", {"N;ALTID=1;LANGUAGE=ja:A;;;;", "N;ALTID=1;LANGUAGE=en:B;;;;"});
  EXPECT_EQ(person.lastName, "A");
  const VCardReading reading = texts_.read(card("3.0", {"N:A;;;;", "N:B;;;;"}));
  EXPECT_EQ(withoutFile(reading.notes.warnings(), texts_.file()),
            std::vector<std::string>{"4: N comes a second time and is left out"});
}

}  // namespace
}  // namespace zephyl::linux_host
