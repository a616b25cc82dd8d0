#include "hosts/linux/sources/ConversationFacts.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/linux/contacts/PhoneFormatter.h"
#include "hosts/linux/sources/LinuxAddressBook.h"
#include "hosts/linux/sources/LinuxFavorites.h"

namespace zephyl::linux_host {
namespace {

ABPersonRef person(std::int32_t recordID, const std::string& name, const std::string& phone) {
  auto made = std::make_shared<ABPerson>();
  made->recordID = recordID;
  if (!name.empty()) {
    made->compositeName = name;
  }
  made->phones = {{"", phone}};
  return made;
}

class ConversationFactsTest : public ::testing::Test {
 protected:
  // The one conversation with these participants.
  CKConversationRef conversation(std::vector<std::string> handles,
                                 const std::string& displayName = "") {
    ConversationRecord record;
    record.guid = "iMessage;+;chat1";
    record.rawGuid = "any;+;chat1";
    record.chatIdentifier = "+15555550177";
    record.displayName = displayName;
    record.isGroup = handles.size() > 1;
    record.hasUnread = true;
    record.handles = std::move(handles);
    record.lastDate = 1.5e9;
    record.lastText = "Hi";
    return conversationsOf({record}, people_, formatter_).front();
  }

  const HandleMatcher people_{
      {person(12, "Ann Larkspur", "(555) 555-0101"), person(13, "", "+1 555 555 0102")}, "US"};
  PhoneFormatter formatter_{"US"};
};

TEST_F(ConversationFactsTest, WhatTheDatabaseSaysStays) {
  const auto made = conversation({"+15555550101", "+15555550109"}, "Picnic");
  EXPECT_EQ(made->guid(), "iMessage;+;chat1");
  EXPECT_EQ(made->facts().rawGuid, "any;+;chat1");
  EXPECT_TRUE(made->isGroupConversation());
  EXPECT_TRUE(made->hasUnreadMessages());
  EXPECT_EQ(made->facts().lastDate, 1.5e9);
  EXPECT_EQ(made->facts().lastText, "Hi");
  EXPECT_EQ(made->facts().name, "Picnic");
}

TEST_F(ConversationFactsTest, AKnownHandleAnswersWithThePersonAndAnUnknownOneWithNothing) {
  const auto made = conversation({"+15555550101", "+15555550109"});
  ASSERT_EQ(made->handles().size(), 2U);
  EXPECT_EQ(made->handles()[0].displayID(), "+15555550101");
  EXPECT_TRUE(made->handles()[0].respondsToPerson());
  EXPECT_EQ(made->handles()[0].personRecordID(), 12);
  EXPECT_FALSE(made->handles()[1].respondsToPerson());
  EXPECT_FALSE(made->handles()[1].respondsToIsContact());
}

TEST_F(ConversationFactsTest, ParticipantsBearTheNameOfTheirPersonElseTheirAddress) {
  const auto recipients =
      conversation({"x@example.com", "+15555550101", "+15555550102", "22000"})->recipients();
  ASSERT_EQ(recipients.size(), 4U);
  EXPECT_EQ(recipients[0].fullName(), "x@example.com");
  EXPECT_EQ(recipients[0].handle().displayID(), "x@example.com");
  EXPECT_EQ(recipients[1].fullName(), "Ann Larkspur");
  EXPECT_EQ(recipients[1].handle().personRecordID(), 12);
  EXPECT_EQ(recipients[2].fullName(), "+1 (555) 555-0102");
  EXPECT_EQ(recipients[2].handle().personRecordID(), 13);
  EXPECT_EQ(recipients[3].fullName(), "22000");
  EXPECT_FALSE(recipients[3].handle().respondsToPerson());
}

struct Named {
  std::vector<std::string> handles;
  const char* name;
};

TEST_F(ConversationFactsTest, AConversationWithoutANameBearsThoseOfItsParticipants) {
  for (const Named& one : {Named{{"+15555550101"}, "Ann Larkspur"},
                           {{"+15555550102"}, "+1 (555) 555-0102"},
                           {{"x@example.com", "+15555550101"}, "x@example.com & Ann Larkspur"},
                           {{"a@example.com", "b@example.com", "+15555550101"},
                            "a@example.com, b@example.com & Ann Larkspur"},
                           {{}, "+1 (555) 555-0177"}}) {
    EXPECT_EQ(conversation(one.handles)->facts().name, one.name);
  }
}

TEST(LinuxAddressBookTest, PeopleAreFoundByRecordIdAndListedInOrder) {
  LinuxAddressBook book({person(5, "B", ""), person(3, "A", "")});
  EXPECT_EQ(book.copyArrayOfAllPeople().front()->recordID, 5);
  EXPECT_EQ(book.personWithRecordID(3)->compositeName, "A");
  EXPECT_EQ(book.personWithRecordID(4), nullptr);
}

TEST(LinuxFavoritesTest, TheFileIsReadAnewUnderTheNamesOfTheReleases) {
  int reads = 0;
  LinuxFavorites favorites([&] {
    ++reads;
    return std::vector<ABFavoritesEntry>(1);
  });
  EXPECT_EQ(favorites.entries("CNFavorites")->size(), 1U);
  EXPECT_TRUE(favorites.entries("ABFavoritesListManager"));
  EXPECT_FALSE(favorites.entries("Other"));
  EXPECT_EQ(reads, 2);
}

}  // namespace
}  // namespace zephyl::linux_host
