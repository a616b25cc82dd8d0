// What notices say, and what they must not.

#include "apps/springboard/Announcer.h"

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"

#include "hosts/fake/Device.h"
#include "model/ZPSettings.h"
#include "model/ZephylKeys.h"
#include "services/ZPUtils.h"
#include "store/ZephylsDataController.h"

namespace zephyl::app {
namespace {

using linux_host::DesktopNotice;
using linux_host::NewMessage;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr char kAnn[] = "+15550100";
constexpr char kBob[] = "+15550199";

CKConversationRef conversation(const std::string& guid, const std::string& name,
                               const std::vector<std::string>& addresses = {kAnn}) {
  CKConversation::Facts facts;
  facts.guid = guid;
  facts.name = name;
  facts.isGroupConversation = addresses.size() > 1;
  for (const std::string& address : addresses) {
    facts.handles.emplace_back(address);
    facts.handleNames.push_back(address == kAnn ? "Ann" : "Bob");
  }
  return std::make_shared<CKConversation>(std::move(facts));
}

NewMessage message(const std::string& guid, const std::optional<std::string>& text = "secret",
                   const std::string& sender = kAnn) {
  return {.rowID = 1, .chatGuid = guid, .sender = sender, .text = text, .date = {}};
}

// A group's dictionary that masks the conversation of that GUID.
Dictionary masking(std::int64_t identifier, const std::string& guid, const std::string& text) {
  return {{keys::kIdentifier, identifier},  {keys::kTitle, "Group " + std::to_string(identifier)},
          {keys::kEnabled, true},           {keys::kContacts, Array{guid}},
          {keys::kHidesOnLockScreen, true}, {keys::kMaskedMessage, text}};
}

Dictionary with(Dictionary dictionary, const char* key, const Value& value) {
  dictionary.set(key, value);
  return dictionary;
}

class AnnouncerTest : public ::testing::Test {
 protected:
  AnnouncerTest() {
    enable(true);
    list({conversation("SMS;-;ann", "Ann"), conversation("SMS;-;bob", "Bob", {kBob}),
          conversation("SMS;+;both", "Ann & Bob", {kAnn, kBob})});
  }

  void enable(bool enabled) {
    device_.files().put(ZPUtils::settingsFilePath(),
                        writeXmlPropertyList(Dictionary{{settings_keys::kEnabled, enabled}}));
  }
  void list(CKConversationArray conversations) {
    device_.conversationList().setConversations(std::move(conversations));
  }
  void storeGroups(const Array& groups) {
    device_.files().put(kGroupsFilePath, writeXmlPropertyList(Value(groups)));
  }

  std::vector<DesktopNotice> noticesOf(const std::vector<NewMessage>& messages) {
    notices_.clear();
    announcer_.announce(messages);
    return notices_;
  }
  // The only notice of a message in Ann's conversation.
  DesktopNotice noticeOfAnn() {
    const auto notices = noticesOf({message("SMS;-;ann")});
    EXPECT_THAT(notices, SizeIs(1));
    return notices.empty() ? DesktopNotice() : notices.front();
  }

  static DesktopNotice plain() { return {"SMS;-;ann", "Ann", "secret"}; }
  static DesktopNotice masked(const std::string& text) { return {"SMS;-;ann", "Messages", text}; }

  fake::Device device_;
  std::vector<DesktopNotice> notices_;
  std::function<void()> readConversations_ = [] {};
  Announcer announcer_{[this] { readConversations_(); },
                       [this](DesktopNotice notice) { notices_.push_back(std::move(notice)); }};
};

TEST_F(AnnouncerTest, WithoutGroupsItGivesNameAndText) {
  EXPECT_EQ(noticeOfAnn(), plain());
}

TEST_F(AnnouncerTest, InAGroupConversationItNamesTheSender) {
  EXPECT_THAT(noticesOf({message("SMS;+;both", "hi", kBob)}),
              ElementsAre(DesktopNotice{"SMS;+;both", "Ann & Bob", "Bob: hi"}));
  EXPECT_THAT(noticesOf({message("SMS;+;both", "hi", "+1")}),
              ElementsAre(DesktopNotice{"SMS;+;both", "Ann & Bob", "+1: hi"}));
  EXPECT_THAT(noticesOf({message("SMS;+;both", "hi", "")}),
              ElementsAre(DesktopNotice{"SMS;+;both", "Ann & Bob", "hi"}));
}

TEST_F(AnnouncerTest, AMessageWithoutAWordIsDescribed) {
  EXPECT_EQ(noticesOf({message("SMS;-;ann", "")}).at(0).body, "Attachment");
  EXPECT_EQ(noticesOf({message("SMS;-;ann", std::nullopt)}).at(0).body, "New message");
}

TEST_F(AnnouncerTest, MessagesOfOneConversationShareANotice) {
  EXPECT_THAT(noticesOf({message("SMS;-;ann", "1"), message("SMS;-;bob", "2", kBob),
                         message("SMS;-;ann", "3")}),
              ElementsAre(DesktopNotice{"SMS;-;ann", "Ann", "1\n3"},
                          DesktopNotice{"SMS;-;bob", "Bob", "2"}));
}

TEST_F(AnnouncerTest, AMaskedTextStandsInThePlaceOfNameAndText) {
  storeGroups({masking(1, "SMS;-;ann", "A word from work")});
  EXPECT_THAT(
      noticesOf({message("SMS;-;ann"), message("SMS;-;ann"), message("SMS;-;bob", "hi", kBob)}),
      ElementsAre(masked("A word from work"), DesktopNotice{"SMS;-;bob", "Bob", "hi"}));
}

TEST_F(AnnouncerTest, AGroupHoldsAConversationByItsNumbersToo) {
  storeGroups({masking(1, kAnn, "masked")});
  EXPECT_EQ(noticeOfAnn(), masked("masked"));
}

TEST_F(AnnouncerTest, WithoutATextOfItsOwnTheGroupHasTheDefault) {
  const Dictionary group = masking(1, "SMS;-;ann", "");
  storeGroups({group});
  const std::string text = std::make_shared<Zephyl>(group)->maskedMessage();
  EXPECT_THAT(text, HasSubstr("protected by Zephyls"));
  EXPECT_EQ(noticeOfAnn(), masked(text));
}

TEST_F(AnnouncerTest, OnlyEnabledUserGroupsWithTheSwitchOnMask) {
  const Dictionary group = masking(1, "SMS;-;ann", "masked");
  storeGroups({with(group, keys::kEnabled, false)});
  EXPECT_EQ(noticeOfAnn(), plain());
  storeGroups({with(group, keys::kHidesOnLockScreen, false)});
  EXPECT_EQ(noticeOfAnn(), plain());
  storeGroups({with(with(group, keys::kSystem, true), keys::kZephylSystemMode, 1)});
  EXPECT_EQ(noticeOfAnn(), plain());
  storeGroups({with(group, keys::kContacts, Array{"SMS;-;bob"})});
  EXPECT_EQ(noticeOfAnn(), plain());
  storeGroups({group});
  EXPECT_EQ(noticeOfAnn(), masked("masked"));
}

TEST_F(AnnouncerTest, TheFirstGroupInStoreOrderMasks) {
  const Dictionary first = masking(9, "SMS;-;ann", "first");
  const Dictionary second = masking(2, "SMS;-;ann", "second");
  storeGroups({first, second});
  EXPECT_EQ(noticeOfAnn(), masked("first"));
  storeGroups({with(first, keys::kHidesOnLockScreen, false), second});
  EXPECT_EQ(noticeOfAnn(), masked("second"));
  storeGroups({second, first});
  EXPECT_EQ(noticeOfAnn(), masked("second"));
}

TEST_F(AnnouncerTest, WhatOthersSavedMeanwhileCounts) {
  EXPECT_EQ(noticeOfAnn(), plain());
  storeGroups({masking(1, "SMS;-;ann", "masked")});
  EXPECT_EQ(noticeOfAnn(), masked("masked"));
  storeGroups({masking(1, "SMS;-;ann", "other")});
  EXPECT_EQ(noticeOfAnn(), masked("other"));
  storeGroups({});
  EXPECT_EQ(noticeOfAnn(), plain());
}

TEST_F(AnnouncerTest, WhenTheGroupsCannotBeReadNothingIsGivenAway) {
  storeGroups({masking(1, "SMS;-;ann", "masked")});
  EXPECT_EQ(noticeOfAnn(), masked("masked"));
  device_.files().put(kGroupsFilePath, "<plist><array><di");
  EXPECT_EQ(noticeOfAnn(), masked("New message"));
  device_.files().failReading(kGroupsFilePath);
  EXPECT_EQ(noticeOfAnn(), masked("New message"));
  device_.files().failReading(kGroupsFilePath, false);
  storeGroups({masking(1, "SMS;-;ann", "masked")});
  EXPECT_EQ(noticeOfAnn(), masked("masked"));
}

TEST_F(AnnouncerTest, IsQuietWhileTheExtensionIsOff) {
  enable(false);
  EXPECT_THAT(noticesOf({message("SMS;-;ann")}), IsEmpty());
  enable(true);
  EXPECT_EQ(noticeOfAnn(), plain());
  enable(false);
  EXPECT_THAT(noticesOf({message("SMS;-;ann")}), IsEmpty());
  device_.files().removeFile(ZPUtils::settingsFilePath());
  EXPECT_THAT(noticesOf({message("SMS;-;ann")}), IsEmpty());
}

TEST_F(AnnouncerTest, AConversationThatIsNewIsFound) {
  storeGroups({masking(1, "SMS;-;new", "masked")});
  readConversations_ = [&] { list({conversation("SMS;-;new", "New")}); };
  EXPECT_THAT(noticesOf({message("SMS;-;new")}),
              ElementsAre(DesktopNotice{"SMS;-;new", "Messages", "masked"}));
}

TEST_F(AnnouncerTest, AMaskedPersonWhoJoinsAKnownConversationMasksIt) {
  storeGroups({masking(1, kAnn, "masked")});
  list({conversation("SMS;+;team", "Team", {kBob})});
  EXPECT_EQ(noticesOf({message("SMS;+;team")}).at(0).title, "Team");
  readConversations_ = [&] { list({conversation("SMS;+;team", "Team", {kAnn, kBob})}); };
  EXPECT_THAT(noticesOf({message("SMS;+;team")}),
              ElementsAre(DesktopNotice{"SMS;+;team", "Messages", "masked"}));
}

TEST_F(AnnouncerTest, OfAConversationThatIsNowhereNothingIsGivenAway) {
  EXPECT_THAT(noticesOf({message("SMS;-;gone"), message("SMS;-;ann")}),
              ElementsAre(DesktopNotice{"SMS;-;gone", "Messages", "New message"}, plain()));
}

TEST_F(AnnouncerTest, WhenTheConversationsCannotBeReadNothingIsGivenAway) {
  readConversations_ = [] { throw std::runtime_error("sms.db: gone"); };
  EXPECT_EQ(noticeOfAnn(), masked("New message"));
  EXPECT_THAT(device_.systemLog().lines(), ElementsAre("sms.db: gone"));
  readConversations_ = [] {};
  EXPECT_EQ(noticeOfAnn(), plain());
}

TEST_F(AnnouncerTest, ABurstIsSummedUp) {
  std::vector<NewMessage> burst(Announcer::kMostMessages, message("SMS;-;ann", "x"));
  EXPECT_EQ(noticesOf(burst).at(0).title, "Ann");
  burst.push_back(message("SMS;-;bob"));
  EXPECT_THAT(noticesOf(burst),
              ElementsAre(DesktopNotice{"new messages", "Messages",
                                        "21 new messages in 2 conversations\nAnn, Bob"}));
  storeGroups({masking(1, "SMS;-;bob", "masked")});
  EXPECT_THAT(noticesOf(burst), ElementsAre(DesktopNotice{"new messages", "Messages",
                                                          "21 new messages in 2 conversations"}));
  device_.files().put(kGroupsFilePath, "rubbish");
  EXPECT_EQ(noticesOf(burst).at(0).body, "21 new messages in 2 conversations");
  burst.pop_back();
  burst.push_back(message("SMS;-;ann"));
  EXPECT_EQ(noticesOf(burst).at(0).body, "21 new messages in 1 conversation");
}

TEST_F(AnnouncerTest, ASummaryNamesAFewAndNoneWhenOneIsUnknown) {
  CKConversationArray conversations;
  std::vector<NewMessage> burst(Announcer::kMostMessages - 3, message("0"));
  for (int index = 0; index < 5; ++index) {
    const std::string name = std::to_string(index);
    conversations.push_back(conversation(name, name));
    burst.push_back(message(name));
  }
  list(conversations);
  EXPECT_EQ(noticesOf(burst).at(0).body, "22 new messages in 5 conversations\n0, 1, 2, 3, …");
  burst.push_back(message("unknown"));
  EXPECT_EQ(noticesOf(burst).at(0).body, "23 new messages in 6 conversations");
}

TEST_F(AnnouncerTest, NoTextReachesTheLog) {
  storeGroups({masking(1, "SMS;-;bob", "masked")});
  noticesOf({message("SMS;-;ann"), message("SMS;-;bob"), message("SMS;-;gone")});
  EXPECT_THAT(device_.systemLog().lines(), IsEmpty());
}

}  // namespace
}  // namespace zephyl::app
