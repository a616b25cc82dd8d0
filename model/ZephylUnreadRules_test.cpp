// Which unread conversations count in which group, also when the group's conversations were
// replaced between the moment they were taken and the walk over them.

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"

namespace zephyl {
namespace {

using fake::known;
using fake::unknown;
using test::GroupBuilder;

CKConversationRef unreadConversation(const std::string& guid, bool isGroup,
                                     std::vector<IMHandle> handles) {
  CKConversation::Facts facts;
  facts.guid = guid;
  facts.isGroupConversation = isGroup;
  facts.hasUnreadMessages = true;
  facts.handles = std::move(handles);
  return std::make_shared<CKConversation>(std::move(facts));
}

CKConversationRef one(std::vector<IMHandle> handles) {
  return unreadConversation("one", /*isGroup=*/false, std::move(handles));
}

CKConversationRef several(std::vector<IMHandle> handles) {
  return unreadConversation("several", /*isGroup=*/true, std::move(handles));
}

struct Case {
  std::int64_t mode;
  Array members;
  CKConversationRef conversation;
  std::int64_t count;
};

std::string named(const Case& each) {
  std::string name = "mode " + std::to_string(each.mode) + ", " + each.conversation->guid() + " of";
  for (const IMHandle& handle : each.conversation->handles()) {
    name += " " + std::to_string(handle.personRecordID()) + handle.displayID();
  }
  for (const Value& member : each.members) {
    name += ", member " + (member.ifString() != nullptr ? *member.ifString()
                                                        : std::to_string(member.integerValue()));
  }
  return name;
}

class UnreadRulesTest : public ::testing::Test {
 protected:
  static ZephylRef group(const Case& each) {
    auto made = std::make_shared<Zephyl>(
        Dictionary(GroupBuilder(1, "Group").system(each.mode).members(each.members)));
    made->setConversations(
        std::make_shared<const ConversationSet>(CKConversationArray{each.conversation}));
    return made;
  }
  static void expectCount(const ZephylRef& group, const Case& each) {
    const bool counted = each.count > 0;
    EXPECT_EQ(group->unreadCount(), each.count) << named(each);
    EXPECT_EQ(*group->unreadConversations(),
              counted ? std::set<std::string>{each.conversation->guid()} : std::set<std::string>())
        << named(each);
  }

  fake::Device device_;
};

TEST_F(UnreadRulesTest, WhatTheGroupShowsCountsWhoeverItsMembersAre) {
  for (const std::int64_t mode : {0, 1, 2, 5, 6}) {
    for (const auto& conversation :
         {one({known(12)}), one({unknown("+1")}), one({}), several({known(12), unknown("+1")})}) {
      const Case each{mode, {99}, conversation, 1};
      expectCount(group(each), each);
    }
  }
}

// The walk over the handles is what asks, so without handles nobody asks.
TEST_F(UnreadRulesTest, AGroupConversationWithoutHandlesCountsOnlyInTheGroupsThatLookAtNone) {
  for (const Case& each :
       {Case{0, {}, several({}), 0}, Case{0, {"several"}, several({}), 0},
        Case{2, {"several"}, several({}), 0}, Case{5, {"several"}, several({}), 0},
        Case{1, {}, several({}), 1}, Case{3, {}, several({}), 1}, Case{4, {}, several({}), 0}}) {
    expectCount(group(each), each);
  }
}

TEST_F(UnreadRulesTest, UnknownCountsAOneToOneConversationWithoutHandles) {
  const Case each{ZephylSystemModeUnknown, {}, one({}), 1};
  expectCount(group(each), each);
}

TEST_F(UnreadRulesTest, UnknownLooksOnlyAtTheFirstHandleOfAOneToOneConversation) {
  for (const Case& each : {Case{4, {}, one({known(12), unknown("+1")}), 0},
                           Case{4, {}, one({unknown("+1"), unknown("+2")}), 1}}) {
    expectCount(group(each), each);
  }
}

TEST_F(UnreadRulesTest, TheModeDecidesInAGroupThatIsNoSystemGroupToo) {
  for (const Case& each :
       {Case{4, {12}, one({known(12)}), 0}, Case{4, {12}, one({unknown("+1")}), 1},
        Case{4, {12}, several({unknown("+1"), known(12), unknown("+2")}), 2},
        Case{3, {12}, one({known(12)}), 0}, Case{3, {}, several({known(13)}), 1}}) {
    const auto odd = group(each);
    odd->setSystem(false);
    expectCount(odd, each);
  }
}

// From version 12 on the store asks for its groups by message, and a recount that asks for the
// store first of all comes to that between taking the conversations and walking them.
class ReplacedConversationsTest : public UnreadRulesTest {
 protected:
  ReplacedConversationsTest() { device_.device().setSystemVersion("13.3"); }

  void expectCountOfReplaced(const Case& each) {
    device_.restartProcess();
    const auto counting = group(each);
    bool replaced = false;
    device_.messagingCenter().setAnswer("com.vantor.zephyls.groups.get", [&](const Dictionary*) {
      replaced = true;
      counting->setConversations(
          std::make_shared<const ConversationSet>(CKConversationArray{one({known(77)})}));
      return std::optional<Dictionary>();
    });
    counting->loadUnreadCount();
    EXPECT_TRUE(replaced);
    EXPECT_EQ(counting->unreadConversations()->contains(each.conversation->guid()), each.count > 0)
        << named(each);
    EXPECT_EQ(counting->unreadConversations()->size(), each.count > 0 ? 1U : 0U) << named(each);
  }
};

TEST_F(ReplacedConversationsTest, AOneToOneConversationCountsByItsFirstContactOrItsGuid) {
  const auto contact = IMHandle::withContact("+15550100", /*isContact=*/true, "ABC-1");
  const auto stranger = IMHandle::withContact("+15550100", /*isContact=*/false, "ABC-1");
  for (const std::int64_t mode : {0, 2, 5}) {
    for (const Case& each :
         {Case{mode, {12}, one({known(12)}), 1}, Case{mode, {13}, one({known(12)}), 0},
          Case{mode, {"12"}, one({known(12)}), 0}, Case{mode, {}, one({known(12)}), 0},
          Case{mode, {12}, one({known(13), known(12)}), 0},
          Case{mode, {"one"}, one({known(12)}), 1}, Case{mode, {"one"}, one({}), 1},
          Case{mode, {12}, one({}), 0}, Case{mode, {"+15550100"}, one({unknown("+15550100")}), 0},
          Case{mode, {"ABC-1"}, one({contact}), 1}, Case{mode, {"ABC-1"}, one({stranger}), 0}}) {
      expectCountOfReplaced(each);
    }
  }
}

TEST_F(ReplacedConversationsTest, AGroupConversationCountsByAnyContactOrItsGuid) {
  for (const std::int64_t mode : {0, 2, 5}) {
    for (const Case& each : {Case{mode, {12}, several({known(12), known(13)}), 1},
                             Case{mode, {13}, several({known(12), unknown("+1"), known(13)}), 1},
                             Case{mode, {14}, several({known(12), known(13)}), 0},
                             Case{mode, {"+1"}, several({unknown("+1"), known(13)}), 0},
                             Case{mode, {"several"}, several({known(12), known(13)}), 1},
                             Case{mode, {"several"}, several({}), 0}}) {
      expectCountOfReplaced(each);
    }
  }
}

TEST_F(ReplacedConversationsTest, AllCountsByTheGuidAndByNoContact) {
  for (const Case& each :
       {Case{1, {12}, one({known(12)}), 0}, Case{1, {"one"}, one({known(12)}), 1},
        Case{1, {12}, several({known(12)}), 0}, Case{1, {"several"}, several({}), 1}}) {
    expectCountOfReplaced(each);
  }
}

TEST_F(ReplacedConversationsTest, AllGroupsAndUnknownNeverLookAtTheConversationsAgain) {
  for (const Case& each : {Case{3, {}, several({known(12)}), 1}, Case{3, {12}, one({known(12)}), 0},
                           Case{4, {}, one({unknown("+1")}), 1}, Case{4, {}, one({known(1)}), 0}}) {
    expectCountOfReplaced(each);
  }
}

}  // namespace
}  // namespace zephyl
