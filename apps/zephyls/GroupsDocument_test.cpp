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
