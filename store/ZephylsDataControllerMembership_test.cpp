#include <gtest/gtest.h>

#include "store/StoreTest.h"

namespace zephyl {
namespace {

using fake::chat;
using fake::groupChat;
using fake::known;
using fake::unknown;
using test::GroupBuilder;

class MembershipTest : public test::StoreTest {
 protected:
  static bool shows(const ZephylRef& group, const CKConversationRef& conversation) {
    return store()->isConversationMemberOfGroup(group, conversation, host().addressBook());
  }
  static bool holds(Array members, const CKConversationRef& conversation) {
    return shows(made(GroupBuilder(1, "Work").members(std::move(members))), conversation);
  }
  static bool systemShows(std::int64_t mode, const CKConversationRef& conversation) {
    return shows(made(GroupBuilder(1, "System").system(mode)), conversation);
  }
  void addFavorite(std::int64_t recordID) {
    ABFavoritesEntry entry;
    entry.abUid = recordID;
    device_.favorites().setEntries("CNFavorites", {entry});
  }
};

TEST_F(MembershipTest, AGroupWithoutMembersHoldsNothing) {
  const auto conversation = chat("iMessage;-;+15550100", {known(12)});
  EXPECT_FALSE(holds({}, conversation));
  EXPECT_FALSE(shows(std::make_shared<Zephyl>(), conversation));
}

TEST_F(MembershipTest, TheChatGuidDecidesFirst) {
  EXPECT_TRUE(holds({"iMessage;-;+15550100"}, chat("iMessage;-;+15550100", {known(12)})));
  EXPECT_TRUE(holds({"g"}, groupChat("g", {})));
  EXPECT_TRUE(holds({"o"}, chat("o", {})));
  EXPECT_FALSE(holds({"sms;-;+15550100"}, chat("SMS;-;+15550100", {known(12)})));
}

TEST_F(MembershipTest, AKnownHandleMatchesByRecordId) {
  EXPECT_TRUE(holds({12}, chat("a", {known(12)})));
  EXPECT_FALSE(holds({"12"}, chat("a", {known(12)})));
  EXPECT_FALSE(holds({13}, chat("a", {known(12)})));
}

TEST_F(MembershipTest, AKnownHandleNeverMatchesByNumber) {
  EXPECT_FALSE(holds({"+15550100"}, chat("a", {known(13, "+1 555-0100")})));
  EXPECT_FALSE(holds({"+15550100"}, chat("a", {known(0, "+15550100")})));
}

TEST_F(MembershipTest, AContactIdentifierMatchesWhereAHandleHasNoPerson) {
  const auto contact = IMHandle::withContact("+15550100", /*isContact=*/true, "ABC-1");
  const auto stranger = IMHandle::withContact("+15550100", /*isContact=*/false, "ABC-1");
  EXPECT_TRUE(holds({"ABC-1"}, chat("a", {contact})));
  EXPECT_FALSE(holds({"+15550100"}, chat("a", {contact})));
  EXPECT_FALSE(holds({"ABC-1"}, chat("a", {stranger})));
  EXPECT_TRUE(holds({"+15550100"}, chat("a", {stranger})));
}

TEST_F(MembershipTest, AnUnknownHandleMatchesByItsPlainNumber) {
  EXPECT_TRUE(holds({"+15550100"}, chat("a", {unknown("+1 (555)-0100")})));
  EXPECT_FALSE(holds({"+1 555 0100"}, chat("a", {unknown("+1 555 0100")})));
  EXPECT_FALSE(holds({-1}, chat("a", {unknown("+1 555 0100")})));
  EXPECT_FALSE(holds({"+15550100"}, chat("a", {})));
}

TEST_F(MembershipTest, AnyKnownParticipantOfAGroupConversationMatches) {
  const auto conversation = chat("g", {known(1), known(2), unknown("+15550100")});
  EXPECT_TRUE(holds({1}, conversation));
  EXPECT_TRUE(holds({2}, conversation));
  EXPECT_FALSE(holds({3}, conversation));
  EXPECT_FALSE(holds({3}, groupChat("g", {})));
}

// Kept: the rule takes the first handle's number whichever handle is examined.
TEST_F(MembershipTest, AnUnknownSecondHandleIsTestedWithTheFirstNumber) {
  const auto conversation = chat("g", {known(13, "+15550100"), unknown("+15550199")});
  EXPECT_TRUE(holds({"+15550100"}, conversation));
  EXPECT_FALSE(holds({"+15550199"}, conversation));
}

TEST_F(MembershipTest, AGroupThatIsNoSystemGroupIsMatchedByItsMembersWhateverItsMode) {
  const auto odd = made(GroupBuilder(1, "Odd").with(keys::kZephylSystemMode, 1).members({5}));
  EXPECT_FALSE(shows(odd, chat("a", {known(4)})));
  EXPECT_TRUE(shows(odd, chat("a", {known(5)})));
}

struct Shown {
  std::int64_t mode;
  bool knownOne, unknownOne, nobody, allKnown, mixed, empty;
};

TEST_F(MembershipTest, TheSystemGroupsSortByParticipants) {
  for (const Shown& row : {Shown{1, true, true, true, true, true, true},
                           {2, false, false, false, false, false, false},
                           {3, false, false, false, true, true, true},
                           {4, false, true, true, false, true, false},
                           {5, true, false, false, true, true, false},
                           {6, false, false, false, false, false, false},
                           {0, false, false, false, false, false, false}}) {
    EXPECT_EQ(systemShows(row.mode, chat("a", {known(1)})), row.knownOne) << row.mode;
    EXPECT_EQ(systemShows(row.mode, chat("a", {unknown("+1")})), row.unknownOne) << row.mode;
    EXPECT_EQ(systemShows(row.mode, chat("a", {})), row.nobody) << row.mode;
    EXPECT_EQ(systemShows(row.mode, chat("g", {known(1), known(2)})), row.allKnown) << row.mode;
    EXPECT_EQ(systemShows(row.mode, chat("g", {known(1), unknown("+1")})), row.mixed) << row.mode;
    EXPECT_EQ(systemShows(row.mode, groupChat("g", {})), row.empty) << row.mode;
  }
}

TEST_F(MembershipTest, FavoritesShowWhoIsAFavourite) {
  addFavorite(12);
  EXPECT_TRUE(systemShows(2, chat("a", {known(12)})));
  EXPECT_FALSE(systemShows(2, chat("a", {known(13)})));
  EXPECT_TRUE(systemShows(2, chat("g", {known(13), known(12)})));
}

TEST_F(MembershipTest, TheMembershipTellsWhatMatched) {
  const auto conversation = chat("g", {known(13, "+15550100"), known(14), unknown("+15550199")});
  const auto of = [&](Array members) {
    return store()->membershipOf(made(GroupBuilder(1, "A").members(std::move(members))),
                                 conversation, nullptr);
  };
  EXPECT_EQ(of({"g"}).rule, MembershipRule::kChatGuid);
  EXPECT_EQ(of({14}).rule, MembershipRule::kContact);
  EXPECT_EQ(of({14}).member, Member(std::int64_t{14}));
  EXPECT_EQ(of({14}).handle, 1U);
  EXPECT_EQ(of({"+15550100"}).rule, MembershipRule::kNumber);
  EXPECT_EQ(of({"+15550100"}).handle, 0U);
  EXPECT_EQ(of({15}).rule, MembershipRule::kNone);
}

class HidingTest : public MembershipTest {
 protected:
  HidingTest() { showByTheRules(); }

  const CKConversationRef secret_ = chat("s", {known(12)});
  const CKConversationRef other_ = chat("o", {known(13)});
};

TEST_F(HidingTest, WithoutAHidingGroupTheDefaultGroupsShowEverything) {
  device_.conversationList().setConversations({secret_, other_});
  putGroups({GroupBuilder(1, "Plain").members({12})});
  EXPECT_TRUE(systemShows(1, secret_));
}

TEST_F(HidingTest, AnEnabledHidingGroupHidesItsConversationsFromTheDefaultGroups) {
  device_.conversationList().setConversations({secret_, other_});
  putGroups({GroupBuilder(1, "Secret").members({12}).hiding()});
  addFavorite(12);
  for (const int mode : {1, 2, 5}) {
    EXPECT_FALSE(systemShows(mode, secret_)) << mode;
  }
  EXPECT_TRUE(systemShows(1, other_));
  EXPECT_TRUE(shows(store()->allZephyls()->snapshot()->front(), secret_));
}

TEST_F(HidingTest, EveryDefaultGroupLeavesOutAHiddenGroupConversation) {
  const auto hidden = chat("h", {known(12), unknown("+15550199")});
  const auto shown = chat("v", {known(13), unknown("+15550199")});
  device_.conversationList().setConversations({hidden, shown});
  putGroups({GroupBuilder(1, "Secret").members({12}).hiding()});
  ABFavoritesEntry one;
  one.abUid = 12;
  ABFavoritesEntry two;
  two.abUid = 13;
  device_.favorites().setEntries("CNFavorites", {one, two});
  for (const int mode : {1, 2, 3, 4, 5}) {
    EXPECT_FALSE(systemShows(mode, hidden)) << mode;
    EXPECT_TRUE(systemShows(mode, shown)) << mode;
  }
}

TEST_F(HidingTest, UnknownLeavesOutAHiddenStranger) {
  const auto hidden = chat("h", {unknown("+1 555 0101")});
  const auto shown = chat("v", {unknown("+1 555 0102")});
  device_.conversationList().setConversations({hidden, shown});
  putGroups({GroupBuilder(1, "Secret").members({"+15550101"}).hiding()});
  EXPECT_FALSE(systemShows(4, hidden));
  EXPECT_TRUE(systemShows(4, shown));
}

TEST_F(HidingTest, AGuidMemberHidesBeforeTheConversationsWereLoaded) {
  putGroups({GroupBuilder(1, "Secret").members({"s"}).hiding()});
  EXPECT_FALSE(store()->shouldShowConversationForDefaultGroups(secret_, nullptr));
  EXPECT_TRUE(store()->shouldShowConversationForDefaultGroups(other_, nullptr));
}

TEST_F(HidingTest, MissingConversationsAreLoadedOnTheCallingThread) {
  device_.conversationList().setConversations({secret_});
  putGroups({GroupBuilder(1, "Secret").members({12}).hiding()});
  const auto group = store()->allZephyls()->snapshot()->front();
  EXPECT_EQ(group->conversations(), nullptr);
  EXPECT_FALSE(store()->shouldShowConversationForDefaultGroups(secret_, nullptr));
  EXPECT_NE(group->conversations(), nullptr);
}

TEST_F(HidingTest, DisabledSystemAndPlainGroupsHideNothing) {
  device_.conversationList().setConversations({secret_});
  putGroups({GroupBuilder(1, "Off").members({12}).hiding().disabled(),
             GroupBuilder(2, "All").system(1).hiding(), GroupBuilder(3, "Plain").members({12}),
             GroupBuilder(4, "Raises").members({99}).hiding()});
  ASSERT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
  EXPECT_TRUE(systemShows(1, secret_));
}

TEST_F(HidingTest, TheFlagStaysButAGroupThatNoLongerHidesDoesNotHide) {
  device_.conversationList().setConversations({secret_});
  putGroups({GroupBuilder(1, "Secret").members({12}).hiding()});
  EXPECT_FALSE(systemShows(1, secret_));
  store()->allZephyls()->snapshot()->front()->setEnabled(false);
  EXPECT_TRUE(store()->isAnyOfGroupHasHideConversationsEnabled());
  EXPECT_TRUE(systemShows(1, secret_));
}

TEST_F(HidingTest, TheMembershipNamesTheGroupThatHides) {
  device_.conversationList().setConversations({secret_});
  putGroups({GroupBuilder(1, "Secret").members({12}).hiding(), GroupBuilder(2, "All").system(1)});
  const auto groups = *store()->allZephyls()->snapshot();
  const Membership hidden = store()->membershipOf(groups[1], secret_, nullptr);
  EXPECT_EQ(hidden.rule, MembershipRule::kEverything);
  EXPECT_EQ(hidden.hiddenBy, groups[0]);
  EXPECT_FALSE(hidden.isShown());
}

TEST_F(HidingTest, OneGroupIsAskedByItsMembersAlone) {
  const auto asked = [](const ZephylRef& group, std::int64_t contact,
                        const std::vector<std::string>& guids) {
    return store()->isMemberOfAnyHiddenGroup(group, contact, guids);
  };
  const auto group = made(GroupBuilder(1, "A").members({12, "s", 0, -4}).disabled());
  EXPECT_TRUE(asked(group, 12, {}));
  EXPECT_TRUE(asked(group, -1, {"x", "s"}));
  EXPECT_FALSE(asked(group, 13, {"x"}));
  EXPECT_FALSE(asked(group, 0, {}));
  EXPECT_FALSE(asked(group, -4, {}));
  EXPECT_FALSE(asked(std::make_shared<Zephyl>(), 12, {"s"}));
}

TEST_F(HidingTest, TheHidingGroupOfAContactIsTheFirstInStoreOrder) {
  putGroups({GroupBuilder(1, "Plain").members({12}),
             GroupBuilder(2, "Off").members({12}).hiding().disabled(),
             GroupBuilder(3, "First").members({12}).hiding(),
             GroupBuilder(4, "Second").members({12, "s"}).hiding(),
             GroupBuilder(5, "System").system(1).members({12}).hiding()});
  EXPECT_EQ(store()->isPartOfAnyZephyl(12, {})->identifier(), 3);
  EXPECT_EQ(store()->isPartOfAnyZephyl(0, {"s"})->identifier(), 4);
  EXPECT_EQ(store()->isPartOfAnyZephyl(0, {}), nullptr);
  EXPECT_EQ(store()->isPartOfAnyZephyl(99, {"x"}), nullptr);
}

TEST_F(HidingTest, OnlyHidingGroupsAreAssociatedWithAConversation) {
  putGroups({GroupBuilder(1, "Plain").members({12}), GroupBuilder(2, "B").members({"s"}).hiding(),
             GroupBuilder(3, "A").members({12}).hiding(),
             GroupBuilder(4, "Off").members({12}).hiding().disabled(),
             GroupBuilder(5, "Others").members({13}).hiding()});
  EXPECT_EQ(titles(store()->zephylsAssociatedWithConversation(secret_, nullptr)),
            (Titles{"B", "A"}));
  EXPECT_TRUE(store()->zephylsAssociatedWithConversation(chat("x", {known(99)}), nullptr).empty());
}

TEST_F(HidingTest, AForcedReloadRebuildsEveryEnabledUserGroup) {
  putGroups({GroupBuilder(1, "A").members({12}), GroupBuilder(2, "B").members({13}),
             GroupBuilder(3, "Off").members({12}).disabled(), GroupBuilder(4, "All").system(1)});
  const auto groups = *store()->allZephyls()->snapshot();
  device_.conversationList().setConversations({secret_, other_});
  store()->forceReloadConversationsForUserGroups();
  EXPECT_EQ(groups[0]->conversations()->conversations(), CKConversationArray{secret_});
  EXPECT_EQ(groups[1]->conversations()->conversations(), CKConversationArray{other_});
  EXPECT_EQ(groups[2]->conversations(), nullptr);
  EXPECT_EQ(groups[3]->conversations(), nullptr);
}

}  // namespace
}  // namespace zephyl
