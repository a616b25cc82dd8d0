// Several sources of contacts together: their files, their order and their record ids.

#include "hosts/linux/contacts/ContactSources.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;
using Ids = std::vector<std::pair<std::string, std::int32_t>>;

class ContactSourcesTest : public ::testing::Test {
 protected:
  std::string put(const std::string& below, const std::string& text) const {
    std::string file = folder_.file("in/" + below);
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    writeFile(file, text);
    return file;
  }

  // People by "ROWID:NAME".
  std::string putBook(const std::string& below,
                      const std::vector<std::pair<int, std::string>>& people) const {
    std::string file = put(below, "");
    TestDatabase book(file, kAddressBookTables);
    for (const auto& [row, name] : people) {
      book.run("INSERT INTO ABPerson (ROWID, First, guid) VALUES (" + std::to_string(row) + ", '" +
               name + "', NULL)");
    }
    return file;
  }

  Ids read(const Strings& sources) {
    RecordIDs ids(folder_.file("ids"));
    reading_ = readContacts(sources, ids);
    Ids seen;
    for (const ABPersonRef& person : reading_.people) {
      seen.emplace_back(person->compositeName.value_or("-"), person->recordID);
    }
    return seen;
  }

  TemporaryFolder folder_;
  std::string in_ = folder_.file("in");
  ContactsReading reading_;
};

TEST_F(ContactSourcesTest, TheFirstAddressBookComesFirstAndKeepsItsRows) {
  const std::string cards = put("a.vcf", card("3.0", {"N:Card;;;;", "UID:1"}));
  const std::string first = putBook("b.sqlitedb", {{7, "Seven"}, {3, "Three"}});
  const std::string second = putBook("c.sqlitedb", {{3, "Other"}});
  EXPECT_EQ(read({cards, first, second}),
            (Ids{{"Three", 3}, {"Seven", 7}, {"Card", 1000001}, {"Other", 1000002}}));
  EXPECT_EQ(read({second, first, cards}),
            (Ids{{"Other", 3}, {"Three", 1000003}, {"Seven", 1000004}, {"Card", 1000001}}));
  EXPECT_EQ(reading_.errors, Strings());
  EXPECT_EQ(reading_.warnings, Strings());
}

TEST_F(ContactSourcesTest, IdsFollowThePersonAndNotThePlace) {
  const std::string a = card("3.0", {"N:A;;;;", "UID:1"});
  const std::string b = card("3.0", {"N:B;;;;", "TEL:1"});
  const std::string file = put("a.vcf", a + b);
  EXPECT_EQ(read({file}), (Ids{{"A", 1000001}, {"B", 1000002}}));
  put("a.vcf", card("3.0", {"N:C;;;;"}) + b + card("3.0", {"N:A2;;;;", "UID:1"}));
  EXPECT_EQ(read({file}), (Ids{{"C", 1000003}, {"B", 1000002}, {"A2", 1000001}}));
  put("a.vcf", b);
  EXPECT_EQ(read({file}), (Ids{{"B", 1000002}}));
  put("a.vcf", a + card("3.0", {"N:D;;;;"}));
  EXPECT_EQ(read({file}), (Ids{{"A", 1000001}, {"D", 1000004}}));
}

TEST_F(ContactSourcesTest, ThePersonWhoComesTwiceHasTwoLastingIds) {
  const std::string a = card("3.0", {"N:A;;;;", "UID:1"});
  const std::string b = card("3.0", {"N:B;;;;"});
  const std::string file = put("a.vcf", a + b + a + b + a);
  const Ids expected = {
      {"A", 1000001}, {"B", 1000002}, {"A", 1000003}, {"B", 1000004}, {"A", 1000005}};
  EXPECT_EQ(read({file}), expected);
  EXPECT_EQ(read({file}), expected);
}

TEST_F(ContactSourcesTest, ASourceReadBehindTheOthersGivesTheIdsThatAllTogetherGive) {
  const std::string a = card("3.0", {"N:A;;;;", "UID:1"});
  const std::string first = put("a.vcf", a);
  const std::string last = put("b.vcf", card("3.0", {"N:B;;;;", "UID:1"}));
  EXPECT_EQ(read({first}), (Ids{{"A", 1000001}}));
  RecordIDs ids(folder_.file("ids"));
  const ContactsReading behind = readContactsBehind(reading_.people, last, ids);
  ASSERT_EQ(behind.people.size(), 1U);
  EXPECT_EQ(behind.people[0]->recordID, 1000002);
  EXPECT_EQ(read({first, last}), (Ids{{"A", 1000001}, {"B", 1000002}}));
  EXPECT_EQ(readContactsBehind({}, in_ + "/none", ids).errors,
            Strings{in_ + "/none: there is no such file or folder"});
}

TEST_F(ContactSourcesTest, RowsThatAreNoRecordIdsGetOthers) {
  const std::string book =
      putBook("b.sqlitedb", {{-1, "Minus"}, {0, "Zero"}, {1000001, "High"}, {5, "Five"}});
  const std::string cards = put("a.vcf", card("3.0", {"N:Card;;;;"}));
  EXPECT_EQ(read({cards}), (Ids{{"Card", 1000001}}));
  EXPECT_EQ(read({book, cards}), (Ids{{"Minus", 1000002},
                                      {"Zero", 1000003},
                                      {"Five", 5},
                                      {"High", 1000001},
                                      {"Card", 1000004}}));
}

TEST_F(ContactSourcesTest, FoldersAreSearchedInTheOrderOfTheirPaths) {
  put("b/2.VCF", card("3.0", {"N:Two;;;;"}));
  put("b/1.vcard", card("3.0", {"N:One;;;;"}));
  put("c.vcf", card("3.0", {"N:Three;;;;"}));
  put("note.txt", "no contacts");
  put("b/deep/er/0.vcf", card("3.0", {"N:Deep;;;;"}));
  putBook("z/AddressBook.sqlitedb", {{1, "Row"}});
  put("z/AddressBookImages.sqlitedb", "");
  std::filesystem::remove(folder_.file("in/z/AddressBookImages.sqlitedb"));
  const TestDatabase images(folder_.file("in/z/AddressBookImages.sqlitedb"),
                            kAddressBookImagesTables);
  EXPECT_EQ(
      read({in_}),
      (Ids{{"Row", 1}, {"One", 1000001}, {"Two", 1000002}, {"Deep", 1000003}, {"Three", 1000004}}));
  EXPECT_EQ(reading_.errors, Strings());
  EXPECT_EQ(reading_.warnings, Strings());
}

TEST_F(ContactSourcesTest, ADatabaseOfAnyNameIsToldByItsFirstBytes) {
  const std::string book = putBook("31bb7ba8914766d4ba40d6dfb6113c8b614be442", {{4, "Four"}});
  EXPECT_EQ(read({book}), (Ids{{"Four", 4}}));
}

TEST_F(ContactSourcesTest, WhatCannotBeReadIsAnErrorAndTheRestIsThere) {
  const std::string cards = put("a.vcf", card("3.0", {"N:Card;;;;", "no property"}));
  const std::string broken = put("b.sqlitedb", "no database");
  const std::string none = folder_.file("none.vcf");
  EXPECT_EQ(read({none, broken, cards, "/dev/null"}), (Ids{{"Card", 1000001}}));
  ASSERT_EQ(reading_.errors.size(), 3U);
  EXPECT_EQ(reading_.errors[0], none + ": there is no such file or folder");
  EXPECT_EQ(reading_.errors[1].find(broken + ": "), 0U);
  EXPECT_EQ(reading_.errors[2], "/dev/null: this is not a regular file");
  EXPECT_EQ(reading_.warnings, Strings{cards + ":4: the line is not a property and is left out"});
}

TEST_F(ContactSourcesTest, EmptyFoldersAndLinksToFoldersAreTold) {
  std::filesystem::create_directories(in_ + "/a");
  std::filesystem::create_directory_symlink(in_, in_ + "/loop");
  EXPECT_EQ(read({in_}), Ids());
  EXPECT_EQ(reading_.warnings, (Strings{in_ + "/loop: the link to a folder is not followed",
                                        in_ + ": there are no contacts in this folder"}));
}

TEST_F(ContactSourcesTest, TroubleWithTheRecordIdsIsToldWithTheRest) {
  writeFile(folder_.file("ids"), "damaged");
  const std::string cards = put("a.vcf", card("3.0", {"N:Card;;;;"}));
  EXPECT_EQ(read({cards}).size(), 1U);
  ASSERT_EQ(reading_.errors.size(), 1U);
  EXPECT_NE(reading_.errors[0].find("ids.damaged-1"), std::string::npos);
}

}  // namespace
}  // namespace zephyl::linux_host
