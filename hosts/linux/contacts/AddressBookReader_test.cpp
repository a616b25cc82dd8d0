// A phone's address book and its pictures.

#include "hosts/linux/contacts/AddressBookReader.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/ContactSamples.h"

namespace zephyl::linux_host {
namespace {

using Strings = std::vector<std::string>;
using Texts = std::vector<ABLabeledText>;

class AddressBookReaderTest : public ::testing::Test {
 protected:
  // The schema names a function of the phone's, which other programs do not have.
  void fill(std::string_view rows) { fillWith(kAddressBookTables, rows); }

  void fillWith(std::string_view tables, std::string_view rows) const {
    std::filesystem::remove(file_);
    TestDatabase(file_, tables).run(rows);
  }

  void fillImages(std::string_view rows) const {
    TestDatabase(images_, kAddressBookImagesTables).run(rows);
  }

  ABPerson only() const {
    AddressBookReading reading = readAddressBook(file_);
    EXPECT_EQ(reading.notes.errors(), Strings());
    EXPECT_EQ(reading.notes.warnings(), Strings());
    EXPECT_EQ(reading.entries.size(), 1U);
    return reading.entries.empty() ? ABPerson() : reading.entries.front().person;
  }

  TemporaryFolder folder_;
  std::string file_ = folder_.file("AddressBook.sqlitedb");
  std::string images_ = folder_.file("AddressBookImages.sqlitedb");
};

TEST_F(AddressBookReaderTest, PeopleComeByTheirRowsWithAllFields) {
  fill(R"(INSERT INTO ABPerson VALUES (9, 'Nina', NULL, NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL,
            NULL, 0, -1, NULL);
          INSERT INTO ABPerson VALUES (4, 'Alex', 'Doe', 'Quinn', 'Works', 0, 'Lexi', 'Dr.', 'Jr.',
            0, 86400, 'Fall', 0, -1, 'guid-4');)");
  const AddressBookReading reading = readAddressBook(file_);
  ASSERT_EQ(reading.entries.size(), 2U);
  const ABPerson& alex = reading.entries[0].person;
  EXPECT_EQ(reading.entries[0].rowID, 4);
  EXPECT_EQ(alex.firstName, "Alex");
  EXPECT_EQ(alex.middleName, "Quinn");
  EXPECT_EQ(alex.lastName, "Doe");
  EXPECT_EQ(alex.prefix, "Dr.");
  EXPECT_EQ(alex.suffix, "Jr.");
  EXPECT_EQ(alex.nickname, "Lexi");
  EXPECT_EQ(alex.organization, "Works");
  EXPECT_EQ(alex.compositeName, "Dr. Alex Quinn Doe Jr.");
  EXPECT_EQ(alex.creationDate, 978307200.0);
  EXPECT_EQ(alex.modificationDate, 978393600.0);
  EXPECT_EQ(alex.guid, "guid-4");
  EXPECT_EQ(alex.sourceFile, file_);
  EXPECT_EQ(reading.entries[1].rowID, 9);
  EXPECT_EQ(reading.entries[1].person.compositeName, "Nina");
  EXPECT_EQ(reading.entries[1].person.creationDate, std::nullopt);
  EXPECT_FALSE(reading.entries[1].person.thumbnailImage);
  EXPECT_TRUE(reading.notes.empty());
}

TEST_F(AddressBookReaderTest, ThePersonIsCalledByTheFirstNameThatIsThere) {
  struct Case {
    const char* values;
    std::optional<std::string> name;
  };
  const std::vector<Case> cases = {
      {"1, NULL, 'Doe', 'Works', 'Nick', 'Fall'", "Works"},
      {"1, NULL, 'Doe', NULL, 'Nick', 'Fall'", "Doe"},
      {"0, NULL, NULL, 'Works', 'Nick', 'Fall'", "Works"},
      {"0, '', '', NULL, 'Nick', 'Fall'", "Fall"},
      {"0, NULL, NULL, NULL, 'Nick', NULL", "Nick"},
      {"NULL, NULL, NULL, NULL, NULL, NULL", std::nullopt},
  };
  for (const Case& each : cases) {
    fill(std::string("INSERT INTO ABPerson (Kind, First, Last, Organization, Nickname, "
                     "CompositeNameFallback, guid) VALUES (") +
         each.values + ", NULL)");
    EXPECT_EQ(only().compositeName, each.name) << each.values;
  }
}

TEST_F(AddressBookReaderTest, ValuesComeInTheirOrderWithTheirLabels) {
  fill(R"(INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL);
          INSERT INTO ABMultiValueLabel VALUES ('_$!<Mobile>!$_'), ('Boat');
          INSERT INTO ABMultiValue VALUES (1, 1, 3, 2, 999, 'third', NULL), (2, 1, 3, 0, 1, 'first', NULL),
            (3, 1, 3, 1, 2, 'second', NULL), (4, 1, 4, 0, NULL, 'a@b.example', NULL),
            (5, 1, 3, 3, 1, NULL, NULL), (6, 1, 22, 0, 1, 'http://x', NULL), (7, 1, 3, 4, 1, 5550100, NULL);)");
  const ABPerson person = only();
  EXPECT_EQ(person.phones, (Texts{{"_$!<Mobile>!$_", "first"},
                                  {"Boat", "second"},
                                  {"", "third"},
                                  {"_$!<Mobile>!$_", "5550100"}}));
  EXPECT_EQ(person.emails, (Texts{{"", "a@b.example"}}));
}

TEST_F(AddressBookReaderTest, AddressesAndProfilesArePutTogetherFromTheirParts) {
  fill(R"(INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL);
          INSERT INTO ABMultiValueEntryKey VALUES ('Street'), ('City'), ('State'), ('ZIP'), ('Country'),
            ('CountryCode'), ('service'), ('username'), ('url'), ('identifier'), ('displayname');
          INSERT INTO ABMultiValue VALUES (1, 1, 5, 0, NULL, NULL, NULL), (2, 1, 5, 1, NULL, NULL, NULL),
            (3, 1, 46, 0, NULL, NULL, NULL), (4, 1, 5, 2, NULL, NULL, NULL), (5, 1, 13, 0, NULL, NULL, NULL);
          INSERT INTO ABMultiValueEntry VALUES (2, 2, 'Second'), (1, 1, 'Main St'), (1, 2, 'Town'),
            (1, 3, 'State'), (1, 4, '01234'), (1, 5, 'Land'), (1, 6, 'de'), (3, 7, 'twitter'),
            (3, 8, 'bird'), (3, 9, 'http://t'), (3, 10, '77'), (3, 11, 'Bird'), (5, 8, 'chat'),
            (1, 99, 'no such key'), (99, 1, 'no such value');)");
  const ABPerson person = only();
  EXPECT_EQ(person.addresses,
            (std::vector<ABAddress>{{"Main St", "Town", "State", "01234", "Land", "de"},
                                    {"", "Second", "", "", "", ""}}));
  EXPECT_EQ(person.socialProfiles,
            (std::vector<ABSocialProfile>{{"twitter", "bird", "77", "http://t"}}));
}

TEST_F(AddressBookReaderTest, MissingColumnsAndTablesLeaveTheirFieldsEmpty) {
  fillWith("CREATE TABLE ABPerson (First TEXT)", "INSERT INTO ABPerson VALUES ('A')");
  AddressBookReading reading = readAddressBook(file_);
  ASSERT_EQ(reading.entries.size(), 1U);
  EXPECT_EQ(reading.entries[0].person.compositeName, "A");
  EXPECT_EQ(reading.notes.warnings(),
            Strings{file_ + ": there is no column record_id in a table ABMultiValue: people are "
                            "without numbers"});
  fillWith(
      "CREATE TABLE abperson (rowid INTEGER PRIMARY KEY, FIRST TEXT);"
      "CREATE TABLE ABMultiValue (record_id, property, value)",
      "INSERT INTO ABPerson VALUES (1, 'A'); INSERT INTO ABMultiValue VALUES (1, 3, '1234567'), "
      "(1, 5, NULL)");
  EXPECT_EQ(only().phones, (Texts{{"", "1234567"}}));
}

TEST_F(AddressBookReaderTest, WhatBelongsToNobodyOrIsBrokenIsTold) {
  fill(R"(INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, CAST(x'41FF' AS TEXT), NULL);
          INSERT INTO ABMultiValue VALUES (1, 7, 3, 0, NULL, '1', NULL), (2, NULL, 3, 0, NULL, '2', NULL);)");
  const AddressBookReading reading = readAddressBook(file_);
  ASSERT_EQ(reading.entries.size(), 1U);
  EXPECT_EQ(reading.entries[0].person.firstName, "A\xEF\xBF\xBD");
  EXPECT_EQ(reading.notes.warnings(),
            (Strings{file_ + ": ABPerson row 1: a text has broken characters; they are replaced",
                     file_ + ": ABMultiValue: 2 rows belong to nobody and are left out"}));
}

TEST_F(AddressBookReaderTest, OtherDatabasesAreNamed) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"CREATE TABLE ZABCDRECORD (Z_PK)", "this is the address book of a Mac"},
      {"CREATE TABLE message (ROWID)", "not a phone's address book but a Messages database"},
      {"CREATE TABLE ABThumbnailImage (data)", "only the pictures of an address book"},
      {"CREATE TABLE other (a)", "there is no table ABPerson"},
      {"CREATE TABLE other (a); CREATE VIEW ABPerson AS SELECT 1 AS ROWID",
       "there is no table ABPerson"},
      {"CREATE TABLE ABPerson (First TEXT PRIMARY KEY) WITHOUT ROWID",
       "there is no table ABPerson"},
  };
  for (const auto& [tables, reason] : cases) {
    fillWith(tables, "");
    const AddressBookReading reading = readAddressBook(file_);
    ASSERT_EQ(reading.notes.errors().size(), 1U) << tables;
    EXPECT_NE(reading.notes.errors()[0].find(reason), std::string::npos)
        << reading.notes.errors()[0];
    EXPECT_EQ(reading.notes.errors()[0].find(file_ + ": "), 0U);
  }
  writeFile(file_, "no database at all, but long enough to be one");
  EXPECT_EQ(readAddressBook(file_).notes.errors().size(), 1U);
  EXPECT_EQ(readAddressBook(folder_.file("none")).notes.errors().size(), 1U);
}

TEST_F(AddressBookReaderTest, PicturesStayInTheirFileUntilTheyAreWanted) {
  fill(R"(INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL), (2, 'B', NULL),
            (3, 'C', NULL), (4, 'D', NULL);)");
  fillImages(R"(INSERT INTO ABThumbnailImage VALUES (1, 1, 5, 0, x'4C'), (2, 1, 0, 0, x'54'),
                  (3, 2, 5, 0, x'42'), (4, 4, 0, 0, x''), (5, 4, 1, 0, NULL);
                INSERT INTO ABFullSizeImage VALUES (1, 1, 0, 0, 0, x'46'), (2, 3, 0, 0, 0, x'43');)");
  const AddressBookReading reading = readAddressBook(file_);
  ASSERT_EQ(reading.entries.size(), 4U);
  const std::vector<std::pair<std::string, std::string>> expected = {
      {"T", "F"}, {"B", "B"}, {"C", "C"}, {"", ""}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(picture(reading.entries[i].person.thumbnailImage), expected[i].first) << i;
    EXPECT_EQ(picture(reading.entries[i].person.fullSizeImage), expected[i].second) << i;
  }
  EXPECT_FALSE(reading.entries[3].person.fullSizeImage);
  EXPECT_TRUE(reading.notes.empty());
}

TEST_F(AddressBookReaderTest, ChangedPicturesAreReadAfresh) {
  fill("INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL)");
  fillImages("INSERT INTO ABFullSizeImage VALUES (1, 1, 0, 0, 0, x'41')");
  const ABPerson person = only();
  EXPECT_EQ(picture(person.fullSizeImage), "A");
  TestDatabase(images_).run("UPDATE ABFullSizeImage SET data = x'424242'");
  EXPECT_EQ(picture(person.fullSizeImage), "BBB");
  std::filesystem::remove(images_);
  EXPECT_EQ(picture(person.fullSizeImage), "");
}

TEST_F(AddressBookReaderTest, UnreadablePicturesAreAnErrorAndThePeopleAreThere) {
  fill("INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL)");
  writeFile(images_, "no database");
  const AddressBookReading reading = readAddressBook(file_);
  EXPECT_EQ(reading.entries.size(), 1U);
  ASSERT_EQ(reading.notes.errors().size(), 1U);
  EXPECT_EQ(reading.notes.errors()[0].find(images_ + ": "), 0U);
}

TEST_F(AddressBookReaderTest, WhatIsStillInTheLogIsReadAndNothingIsTouched) {
  TestDatabase writer(file_, "PRAGMA journal_mode = WAL");
  writer.run(kAddressBookTables);
  writer.run("INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'Logged', NULL)");
  const auto before = folder_.contents();
  EXPECT_EQ(only().firstName, "Logged");
  EXPECT_EQ(folder_.contents(), before);
}

TEST_F(AddressBookReaderTest, AFileMayEndOrBeDamagedAnywhere) {
  // Small pages make a small file.
  fillWith("PRAGMA page_size = 512;" + std::string(kAddressBookTables),
           R"(INSERT INTO ABPerson (ROWID, First, guid) VALUES (1, 'A', NULL), (2, 'B', NULL);
          INSERT INTO ABMultiValueLabel VALUES ('Boat');
          INSERT INTO ABMultiValue VALUES (1, 1, 3, 0, 1, '1', NULL), (2, 2, 5, 0, 1, NULL, NULL);
          INSERT INTO ABMultiValueEntryKey VALUES ('City');
          INSERT INTO ABMultiValueEntry VALUES (2, 1, 'Town');)");
  const std::string whole = readFile(file_);
  for (std::size_t end = 0; end < whole.size(); ++end) {
    writeFile(file_, whole.substr(0, end));
    EXPECT_EQ(readAddressBook(file_).notes.errors().size(), 1U) << end;
  }
  for (std::size_t at = 0; at < whole.size(); at += at < 200 ? 1 : 7) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(~damaged[at]);
    writeFile(file_, damaged);
    const AddressBookReading reading = readAddressBook(file_);
    EXPECT_LE(reading.entries.size(), 1000U) << at;
  }
}

}  // namespace
}  // namespace zephyl::linux_host
