#include "apps/zephyls/GroupsDocument.h"

#include <cstddef>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "apps/common/CommandError.h"
#include "model/ZephylKeys.h"

namespace zephyl::app {
namespace {

TransferredGroup sampleGroup() {
  TransferredGroup group;
  group.identifier = 7;
  group.properties = {{keys::kTitle, "Work „ü“"},
                      {keys::kCreatedDate, Date{600000000.25}},
                      {keys::kEnabled, true},
                      {"later", Array{Value(1.5), Value(Data{0, 255})}}};
  group.picture = Data{1, 2, 3, 4};
  group.members = {
      {MemberKind::kPerson, "", "Ann", {"+1555", "2"}, {"a@b.example"}, 12},
      {MemberKind::kPerson, "", "", {}, {}, 13},
      {MemberKind::kConversation, "iMessage;+;chat1", "Picnic"},
      {MemberKind::kAddress, "+15550100", ""},
  };
  group.otherElements = {Data{9}};
  return group;
}

std::string textOf(const std::vector<TransferredGroup>& groups) {
  return documentOf(groups, 0.0).dump(1);
}

// Why the document is refused; empty when it is not.
std::string refusal(const std::string& document) {
  try {
    static_cast<void>(groupsOfDocument(document, "FILE"));
    return "";
  } catch (const CommandError& error) {
    return error.what();
  }
}

// The sample with one value, by its way, in another's place.
std::string refusalWith(const std::string& way, const nlohmann::ordered_json& value) {
  auto document = documentOf({sampleGroup()}, 0.0);
  document[nlohmann::ordered_json::json_pointer(way)] = value;
  return refusal(document.dump());
}

// The same, of a document that is read.
TransferredGroup groupWith(const std::string& way, const nlohmann::ordered_json& value) {
  auto document = documentOf({sampleGroup()}, 0.0);
  document[nlohmann::ordered_json::json_pointer(way)] = value;
  return groupsOfDocument(document.dump(), "FILE").at(0);
}

TEST(GroupsDocumentTest, WhatIsWrittenIsReadAgain) {
  const TransferredGroup group = sampleGroup();
  const auto read = groupsOfDocument(textOf({group, group}), "FILE");
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[1].identifier, group.identifier);
  EXPECT_EQ(read[1].properties, group.properties);
  EXPECT_EQ(read[1].picture, group.picture);
  EXPECT_EQ(read[1].members, group.members);
  EXPECT_EQ(read[1].otherElements, group.otherElements);
  EXPECT_TRUE(groupsOfDocument(textOf({}), "FILE").empty());
}

TEST(GroupsDocumentTest, NoPartOfADocumentIsADocument) {
  const std::string whole = textOf({sampleGroup()});
  for (std::size_t length = 0; length < whole.size(); ++length) {
    EXPECT_NE(refusal(whole.substr(0, length)).find("FILE: no whole JSON document: at line "),
              std::string::npos)
        << length;
  }
}

TEST(GroupsDocumentTest, AnyByteMayBeWrong) {
  const std::string whole = textOf({sampleGroup()});
  int refused = 0;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const char byte : {'\0', '"', '{', '\xff', '9'}) {
      std::string damaged = whole;
      damaged[at] = byte;
      refused += refusal(damaged).empty() ? 0 : 1;
    }
  }
  EXPECT_GT(refused, 0);
}

TEST(GroupsDocumentTest, EachRefusalNamesThePlace) {
  EXPECT_EQ(refusalWith("/format", "other"),
            "FILE: no export of groups, as `zephyls groups export` writes it");
  EXPECT_EQ(refusalWith("/version", "1"), "FILE: version: is no whole number");
  EXPECT_EQ(refusalWith("/version", 2),
            "FILE: is of version 2, written by a newer zephyls; this one reads version 1");
  EXPECT_EQ(refusalWith("/groups", 5), "FILE: groups: is no list");
  EXPECT_EQ(refusalWith("/groups/0", 5), "FILE: groups[0]: is no object");
  EXPECT_EQ(refusalWith("/groups/0/title", ""), "FILE: groups[0].title: must not be empty");
  EXPECT_EQ(refusalWith("/groups/0/title", nullptr), "FILE: groups[0].title: is no text");
  EXPECT_EQ(refusalWith("/groups/0/enabled", 1),
            "FILE: groups[0].enabled: is neither true nor false");
  EXPECT_EQ(refusalWith("/groups/0/createdDate", "yesterday"),
            "FILE: groups[0].createdDate: is no time such as 2026-11-21T09:30:00Z");
  EXPECT_EQ(refusalWith("/groups/0/picture", "AB"), "FILE: groups[0].picture: is no base64");
  EXPECT_EQ(refusalWith("/groups/0/carried", "AAAA"),
            "FILE: groups[0].carried: is no property list with a dictionary");
  EXPECT_EQ(refusalWith("/groups/0/members/1/kind", "robot"),
            "FILE: groups[0].members[1].kind: is no kind of member: robot");
  EXPECT_EQ(refusalWith("/groups/0/members/0/phones/1", 5),
            "FILE: groups[0].members[0].phones[1]: is no text");
  EXPECT_EQ(refusalWith("/groups/0/members/0/id", 1.5),
            "FILE: groups[0].members[0].id: is no whole number");
}

TEST(GroupsDocumentTest, ValuesOutOfRangeAreRefused) {
  EXPECT_EQ(refusalWith("/exported", 5), "FILE: exported: is no text");
  EXPECT_EQ(refusalWith("/groups/0/identifier", 0),
            "FILE: groups[0].identifier: must be 1 or more");
  EXPECT_EQ(refusalWith("/groups/0/identifier", "7"),
            "FILE: groups[0].identifier: is no whole number");
  EXPECT_EQ(refusalWith("/groups/0/subTitle", 5), "FILE: groups[0].subTitle: is no text");
  EXPECT_EQ(refusalWith("/groups/0/maskedMessage", 0), "FILE: groups[0].maskedMessage: is no text");
  EXPECT_EQ(refusalWith("/groups/0/members", nullptr), "FILE: groups[0].members: is no list");
  EXPECT_EQ(refusalWith("/groups/0/members/0/id", -1),
            "FILE: groups[0].members[0].id: must be 0 or more");
  EXPECT_EQ(refusalWith("/groups/0/members/0/name", 5),
            "FILE: groups[0].members[0].name: is no text");
}

TEST(GroupsDocumentTest, AColourIsHexadecimalDigits) {
  for (const char* code : {"not a colour", "12345", "11223344 ", "1122334g"}) {
    EXPECT_EQ(refusalWith("/groups/0/markerCode", code),
              std::string("FILE: groups[0].markerCode: is no colour such as ff8000, #ff8000 or "
                          "ff8000c0: \"") +
                  code + "\"");
  }
  EXPECT_EQ(refusalWith("/groups/0/markerCode", 5), "FILE: groups[0].markerCode: is no text");
  EXPECT_EQ(refusalWith("/groups/0/markerCode", ""), "");
  EXPECT_EQ(groupWith("/groups/0/markerCode", "#FF8000").properties[keys::kMarkerCode],
            Value("ff8000ff"));
}

TEST(GroupsDocumentTest, AGroupIsEnabledUnlessItSaysOtherwise) {
  EXPECT_EQ(groupWith("/groups/0/enabled", nullptr).properties[keys::kEnabled], Value(true));
  auto document = documentOf({sampleGroup()}, 0.0);
  document["groups"][0].erase("enabled");
  EXPECT_EQ(groupsOfDocument(document.dump(), "FILE").at(0).properties[keys::kEnabled],
            Value(true));
  EXPECT_EQ(groupWith("/groups/0/enabled", false).properties[keys::kEnabled], Value(false));
}

TEST(GroupsDocumentTest, ConversationsAndAddressesAreWhatTheySay) {
  EXPECT_EQ(refusalWith("/groups/0/members/2/guid", ""),
            "FILE: groups[0].members[2].guid: must not be empty");
  EXPECT_EQ(refusalWith("/groups/0/members/2/guid", "+15550100"),
            "FILE: groups[0].members[2].guid: is no GUID of a conversation: +15550100");
  EXPECT_EQ(refusalWith("/groups/0/members/3/address", ""),
            "FILE: groups[0].members[3].address: must not be empty");
  EXPECT_EQ(refusalWith("/groups/0/members/3/address", " (-)"),
            "FILE: groups[0].members[3].address: is no address:  (-)");
  EXPECT_EQ(refusalWith("/groups/0/members/3/address", "SMS;-;+15550100"),
            "FILE: groups[0].members[3].address: is no address: SMS;-;+15550100");
}

TEST(GroupsDocumentTest, DeepNestingIsRefused) {
  EXPECT_NE(refusal(std::string(1'000'000, '[')).find("too deep"), std::string::npos);
}

// What is the device's own cannot be carried in.
TEST(GroupsDocumentTest, KnownKeysAreNotCarried) {
  TransferredGroup group = sampleGroup();
  group.properties.set(keys::kSystem, true);
  group.properties.set(keys::kIdentifier, 1);
  const auto read = groupsOfDocument(textOf({group}), "FILE");
  EXPECT_EQ(read.at(0).properties, sampleGroup().properties);
}

}  // namespace
}  // namespace zephyl::app
