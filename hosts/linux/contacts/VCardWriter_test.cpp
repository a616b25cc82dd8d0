// Writing vCards, and reading them again.

#include "hosts/linux/contacts/VCardWriter.h"

#include <filesystem>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/Utf8.h"

#include "hosts/contract/TemporaryFolder.h"
#include "hosts/linux/contacts/VCardReader.h"

namespace zephyl::linux_host {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class VCardWriterTest : public ::testing::Test {
 protected:
  static ABPerson named(const std::string& first, const std::string& last) {
    ABPerson person;
    person.firstName = first;
    person.lastName = last;
    person.guid = newGuid();
    return person;
  }
  VCardReading read() const { return readVCards(file_); }
  // Written into a file of its own and read again.
  ABPerson readBack(const ABPerson& person) const {
    EXPECT_EQ(appendVCard(file_, person), std::nullopt);
    const VCardReading reading = read();
    EXPECT_THAT(reading.notes.errors(), IsEmpty());
    EXPECT_THAT(reading.notes.warnings(), IsEmpty());
    return reading.entries.empty() ? ABPerson() : reading.entries.back().person;
  }

  contract::TemporaryFolder folder_;
  std::filesystem::path file_ = folder_.path() + "/people.vcf";
};

TEST_F(VCardWriterTest, APersonComesBackWhole) {
  ABPerson person = named("Ann; Mary", "O'Reed, Jr\\");
  person.middleName = "M";
  person.organization = "Reed; Reed & Co";
  person.phones = {{"_$!<Mobile>!$_", "+1 555 0100"}, {"", "555"}};
  person.emails = {{"_$!<Home>!$_", "ann@example.com"}};
  const ABPerson back = readBack(person);
  EXPECT_EQ(back.firstName, person.firstName);
  EXPECT_EQ(back.middleName, "M");
  EXPECT_EQ(back.lastName, person.lastName);
  EXPECT_EQ(back.organization, person.organization);
  EXPECT_EQ(back.guid, person.guid);
  EXPECT_EQ(back.phones, person.phones);
  EXPECT_EQ(back.emails, person.emails);
  EXPECT_EQ(back.compositeName, "Ann; Mary M O'Reed, Jr\\");
  EXPECT_FALSE(back.isCompany);
}

TEST_F(VCardWriterTest, ACompanyIsOne) {
  ABPerson person;
  person.organization = "Works";
  person.isCompany = true;
  const ABPerson back = readBack(person);
  EXPECT_TRUE(back.isCompany);
  EXPECT_EQ(back.compositeName, "Works");
}

TEST_F(VCardWriterTest, NoLineIsLongAndNoCharacterParted) {
  std::string name(70, 'x');
  for (int i = 0; i < 3'000; ++i) {
    name += "\u00e9\u65e5\U0001f600";
  }
  const ABPerson person = named(name, "");
  std::istringstream lines(vCardText(person));
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 76U);
    EXPECT_EQ(findInvalidUtf8(line), std::string::npos);
  }
  EXPECT_EQ(readBack(person).firstName, name);
}

TEST_F(VCardWriterTest, WhatIsNoTextIsMended) {
  EXPECT_EQ(readBack(named("A\xff", "B\x01\r")).firstName, "A\ufffd");
  EXPECT_EQ(read().entries.back().person.lastName, "B");
}

TEST_F(VCardWriterTest, PeopleAreAddedBehindThoseThereWere) {
  EXPECT_EQ(appendVCard(file_, named("Ann", "")), std::nullopt);
  folder_.put("/people.vcf", folder_.read("/people.vcf") + "NOTE:cut");
  EXPECT_EQ(appendVCard(file_, named("Bob", "")), std::nullopt);
  ASSERT_THAT(read().entries, SizeIs(2));
  EXPECT_EQ(read().entries[0].person.firstName, "Ann");
  EXPECT_EQ(read().entries[1].person.firstName, "Bob");
}

TEST_F(VCardWriterTest, TheFileIsForTheUserAlone) {
  EXPECT_EQ(appendVCard(file_, named("Ann", "")), std::nullopt);
  EXPECT_EQ(std::filesystem::status(file_).permissions(),
            std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(VCardWriterTest, AFailureNamesTheFileAndChangesNothing) {
  const std::filesystem::path nowhere = folder_.path() + "/missing/people.vcf";
  const auto failure = appendVCard(nowhere, named("Ann", ""));
  ASSERT_TRUE(failure);
  EXPECT_TRUE(failure->starts_with(nowhere.string() + ": ")) << *failure;
  EXPECT_THAT(folder_.namesIn(""), IsEmpty());
}

TEST_F(VCardWriterTest, GuidsAreNeverTheSame) {
  EXPECT_NE(newGuid(), newGuid());
  EXPECT_THAT(newGuid(), SizeIs(36));
}

}  // namespace
}  // namespace zephyl::linux_host
