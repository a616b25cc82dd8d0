// The members in the editor: what is shown of them, picking others, removing one.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "ui/editor/EditorTest.h"
#include "ui/editor/ZPConversationSelectionViewController.h"
#include "ui/people/ZLPeoplePickerViewController.h"

namespace zephyl::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using Entry = MemberEntry;

constexpr char kMissing[] = "com.vantor.Zephyls: Error => ";

class EditorMembers : public EditorTest {
 protected:
  EditorMembers() {
    device_.people().setPeople({person(1, "Robin Vale"), person(2, "Ada Oak"), person(3, "")});
    device_.conversationList().setConversations(
        {conversation("iMessage;-;team", "Team"), conversation("SMS;-;ada", "Ada")});
    // No group shows one that is not a member itself.
    device_.conversationList().setShows(
        [](const ZephylRef&, const CKConversationRef&) { return false; });
    device_.phoneFormatting().setFormat("*5550100", "* (555) 0100");
  }
  static ABPersonRef person(std::int32_t recordID, const std::string& name) {
    auto made = std::make_shared<ABPerson>();
    made->recordID = recordID;
    made->compositeName = name.empty() ? std::nullopt : std::optional(name);
    return made;
  }
  static CKConversationRef conversation(const std::string& guid, const std::string& name) {
    CKConversation::Facts facts;
    facts.guid = guid;
    facts.name = name;
    return std::make_shared<CKConversation>(std::move(facts));
  }
  void editMembers(Array members) {
    edit(group(GroupBuilder(7, "Family").members(std::move(members))));
  }
  std::vector<Member> members() {
    const auto set = editor_->zephyl()->contacts();
    return {set->begin(), set->end()};
  }
  static Entry contact(const std::string& name, Member id) { return {name, std::move(id)}; }
  void showConversations() {
    editor_->setCurrentSelectionSegment(1);
    table().reloadData();
    settle();
  }
  // What the log says of conversations that are missing.
  std::vector<std::string> missing() {
    std::vector<std::string> lines;
    for (const std::string& line : device_.systemLog().lines()) {
      if (line.starts_with(kMissing)) {
        lines.push_back(line);
      }
    }
    return lines;
  }
  void swipeAway(std::int64_t section, std::int64_t row) {
    editor_->commitEditingStyle(table(), UITableViewCellEditingStyle::kDelete, {section, row});
    settleAll();
  }
};

TEST_F(EditorMembers, AreListedByKindAndSortedByName) {
  editMembers({1, "iMessage;-;team", 2, "SMS;-;ada", "*5550100", "ada@example.com"});
  EXPECT_THAT(editor_->contacts(),
              ElementsAre(contact("* (555) 0100", "*5550100"), contact("Ada Oak", std::int64_t{2}),
                          contact("Robin Vale", std::int64_t{1}),
                          contact("ada@example.com", "ada@example.com")));
  EXPECT_THAT(editor_->conversations(),
              ElementsAre(contact("Ada", "SMS;-;ada"), contact("Team", "iMessage;-;team")));
}

TEST_F(EditorMembers, ANumberKeptAsTextIsARecordId) {
  editMembers({"2", "5550100", " 1 ", "+15550100"});
  EXPECT_THAT(editor_->contacts(), ElementsAre(contact("Ada Oak", std::int64_t{2}),
                                               contact("Robin Vale", std::int64_t{1})));
  EXPECT_EQ(members().size(), 4U);
}

// Kept: nobody has such a record id, so the number is not written back.
TEST_F(EditorMembers, ANumberKeptAsTextLeavesTheGroupWhenOtherMembersArePicked) {
  editMembers({1, "+15550100", "ada@example.com"});
  showConversations();
  editor_->addConversationsToZephyls({Member("SMS;-;ada")});
  EXPECT_THAT(members(), ElementsAre(Member(1), Member("ada@example.com"), Member("SMS;-;ada")));
}

TEST_F(EditorMembers, RecordIdsHaveThirtyTwoBits) {
  editMembers({});
  const std::int64_t beyond = (std::int64_t{1} << 32U) + 2;
  EXPECT_EQ(editor_->nameForPerson(beyond), "Ada Oak");
  EXPECT_EQ(editor_->nameForPerson("4294967298"), std::nullopt);
  EXPECT_EQ(editor_->nameForPerson("2"), "Ada Oak");
  EXPECT_EQ(editor_->recordRefFromRecordId(std::int64_t{1})->recordID, 1);
  EXPECT_EQ(editor_->recordRefFromRecordId(std::int64_t{99}), nullptr);
}

TEST_F(EditorMembers, PeopleWithoutANameOrARecordAreLeftOutAndStayMembers) {
  editMembers({1, 3, 99});
  EXPECT_THAT(editor_->contacts(), ElementsAre(contact("Robin Vale", std::int64_t{1})));
  EXPECT_EQ(members().size(), 3U);
}

TEST_F(EditorMembers, NumbersBelowOneAreShownAsTheyAre) {
  editMembers({0, -5});
  EXPECT_THAT(editor_->contacts(),
              ElementsAre(contact("-5", std::int64_t{-5}), contact("0", std::int64_t{0})));
}

TEST_F(EditorMembers, AMissingConversationIsLoggedAndLeftOut) {
  editMembers({"iMessage;-;gone", "SMS;-;ada"});
  EXPECT_THAT(editor_->conversations(), ElementsAre(contact("Ada", "SMS;-;ada")));
  EXPECT_THAT(missing(),
              ElementsAre("com.vantor.Zephyls: Error => -[ZephylViewController "
                          "filterContactsAndConversations:], [Line 132], Unable to get the "
                          "conversation for id 'iMessage;-;gone'"));
  EXPECT_EQ(members().size(), 2U);
}

TEST_F(EditorMembers, ANewGroupHasNone) {
  createNew();
  EXPECT_THAT(editor_->contacts(), IsEmpty());
  editor_->filterContactsAndConversations(nullptr);
  EXPECT_THAT(editor_->conversations(), IsEmpty());
}

TEST_F(EditorMembers, HaveARowEachInTheirSegment) {
  editMembers({1, 2, "SMS;-;ada"});
  EXPECT_EQ(rows(4), 3);
  EXPECT_EQ(textOf(4, 1), "Ada Oak");
  EXPECT_EQ(textOf(4, 2), "Robin Vale");
  EXPECT_EQ(cell(4, 1)->selectionStyle(), UITableViewCellSelectionStyle::kNone);
  showConversations();
  EXPECT_EQ(rows(4), 2);
  EXPECT_EQ(textOf(4, 1), "Ada");
}

TEST_F(EditorMembers, PickedPeopleTakeThePlaceOfAllContacts) {
  editMembers({1, 99, "+15550100", "SMS;-;ada"});
  editor_->addContactsToZephyls(
      {Member(2), Member("1"), Member(3), Member("+15550100"), Member("SMS;-;ada"), Member(0)});
  settle();
  EXPECT_THAT(editor_->contacts(), ElementsAre(contact("Ada Oak", std::int64_t{2}),
                                               contact("Robin Vale", std::int64_t{1})));
  EXPECT_THAT(members(), ElementsAre(Member(2), Member(1), Member("SMS;-;ada")));
  EXPECT_EQ(textOf(4, 1), "Ada Oak");
  EXPECT_TRUE(canSave());
}

TEST_F(EditorMembers, PickedConversationsTakeThePlaceOfConversationsOnly) {
  editMembers({1, "SMS;-;ada", "ada@example.com"});
  showConversations();
  editor_->addConversationsToZephyls(
      {Member("iMessage;-;team"), Member("iMessage;-;gone"), Member(2), Member("3")});
  settle();
  EXPECT_THAT(editor_->conversations(), ElementsAre(contact("Team", "iMessage;-;team")));
  EXPECT_THAT(members(), UnorderedElementsAre(Member(1), Member("ada@example.com"),
                                              Member("iMessage;-;team")));
  EXPECT_EQ(textOf(4, 1), "Team");
  EXPECT_THAT(missing(), ElementsAre("com.vantor.Zephyls: Error => -[ZephylViewController "
                                     "addConversationsToZephyls:], [Line 337], Unable to get the "
                                     "conversation for id 'iMessage;-;gone'"));
  EXPECT_TRUE(canSave());
}

TEST_F(EditorMembers, ConversationsArePickedFromAllOfThem) {
  editMembers({1, "SMS;-;ada"});
  showConversations();
  tapRow(4, 0);
  const auto shown =
      std::dynamic_pointer_cast<UINavigationController>(navigation_->presentedViewController());
  ASSERT_NE(shown, nullptr);
  const auto picker =
      std::dynamic_pointer_cast<ZPConversationSelectionViewController>(shown->topViewController());
  ASSERT_NE(picker, nullptr);
  EXPECT_THAT(picker->selectedConversations(), ElementsAre("SMS;-;ada"));
  EXPECT_EQ(picker->group(), editor_->zephyl());
  EXPECT_TRUE(device_.conversationList().isShowingAllConversations());
  picker->didSelectRowAtIndexPath(*picker->tableView(), {0, 0});
  picker->doneButtonAction();
  settle();
  EXPECT_EQ(navigation_->presentedViewController(), nullptr);
  EXPECT_THAT(editor_->conversations(),
              ElementsAre(contact("Ada", "SMS;-;ada"), contact("Team", "iMessage;-;team")));
  EXPECT_FALSE(device_.conversationList().isShowingAllConversations());
}

TEST_F(EditorMembers, PeopleArePickedFromTheAddressBook) {
  editMembers({1, "+15550100", "SMS;-;ada"});
  EXPECT_EQ(editor_->contactsPicker(), nullptr);
  tapRow(4, 0);
  settleAll();
  const auto picker = editor_->contactsPicker();
  ASSERT_NE(picker, nullptr);
  const auto shown =
      std::dynamic_pointer_cast<UINavigationController>(navigation_->presentedViewController());
  ASSERT_NE(shown, nullptr);
  EXPECT_EQ(shown->topViewController(), picker);
  EXPECT_EQ(picker->filedMask(), 65535U);
  EXPECT_EQ(picker->numberOfSelectedPeople(), -1);
  EXPECT_FALSE(picker->allowAddPeople());
  EXPECT_EQ(picker->selectedPeople()->size(), 3U);
  picker->selectedPeople()->add(std::int64_t{2});
  picker->doneButtonAction(nullptr);
  settleAll();
  EXPECT_EQ(navigation_->presentedViewController(), nullptr);
  EXPECT_THAT(members(), ElementsAre(Member(2), Member(1), Member("SMS;-;ada")));
  EXPECT_EQ(textOf(4, 1), "Ada Oak");
  EXPECT_TRUE(canSave());
}

TEST_F(EditorMembers, CancellingThePickerChangesNothing) {
  editMembers({"SMS;-;ada"});
  showConversations();
  tapRow(4, 0);
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  settle();
  EXPECT_EQ(navigation_->presentedViewController(), nullptr);
  EXPECT_EQ(members().size(), 1U);
  EXPECT_FALSE(canSave());
}

TEST_F(EditorMembers, RowsFromTheFirstMemberOnCanBeDeleted) {
  editMembers({1});
  for (std::int64_t section = 0; section < 5; ++section) {
    for (std::int64_t row = 0; row < 3; ++row) {
      const bool can = section >= 3 && row > 0;
      EXPECT_EQ(editor_->canEditRowAtIndexPath(table(), {section, row}), can);
      EXPECT_EQ(editor_->editingStyleForRowAtIndexPath(table(), {section, row}),
                can ? UITableViewCellEditingStyle::kDelete : UITableViewCellEditingStyle::kNone);
    }
  }
}

TEST_F(EditorMembers, DeletingTakesTheMemberOutOfTheGroup) {
  editMembers({1, 2, "SMS;-;ada"});
  swipeAway(4, 1);
  EXPECT_THAT(members(), ElementsAre(Member(1), Member("SMS;-;ada")));
  EXPECT_EQ(table().numberOfRowsInSection(4), 2);
  EXPECT_EQ(textOf(4, 1), "Robin Vale");
  EXPECT_TRUE(canSave());
  showConversations();
  swipeAway(4, 1);
  EXPECT_THAT(members(), ElementsAre(Member(1)));
  EXPECT_EQ(table().numberOfRowsInSection(4), 1);
}

// A record id kept as text is shown by its number, and so is not found in the group.
TEST_F(EditorMembers, DeletingAMemberKeptAsTextTakesOnlyItsRow) {
  editMembers({"1"});
  swipeAway(4, 1);
  EXPECT_THAT(editor_->contacts(), IsEmpty());
  EXPECT_THAT(members(), ElementsAre(Member("1")));
}

TEST_F(EditorMembers, AnotherStyleDeletesNothing) {
  editMembers({1});
  editor_->commitEditingStyle(table(), UITableViewCellEditingStyle::kInsert, {4, 1});
  EXPECT_EQ(members().size(), 1U);
}

TEST_F(EditorMembers, ARowThatThereIsNotFailsWithAnEmptyAlert) {
  editMembers({1});
  swipeAway(4, 5);
  EXPECT_EQ(members().size(), 1U);
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->title(), "Error");
  EXPECT_EQ(alert()->message(), "");
  EXPECT_FALSE(canSave());
}

TEST_F(EditorMembers, EitherCallbackMayBeMissing) {
  editMembers({1});
  editor_->deleteContactOrConvoFromZephyl(5, nullptr, nullptr);
  editor_->deleteContactOrConvoFromZephyl(-1, nullptr, nullptr);
  EXPECT_EQ(members().size(), 1U);
  editor_->deleteContactOrConvoFromZephyl(0, nullptr, nullptr);
  EXPECT_THAT(members(), IsEmpty());
}

// Kept: the row's number counts, whatever the section.
TEST_F(EditorMembers, DeletingTheMaskedMessageRemovesTheFirstMember) {
  edit(group(GroupBuilder(7, "Family").members({1, 2}).with(keys::kHidesOnLockScreen, true)));
  swipeAway(3, 1);
  EXPECT_THAT(members(), ElementsAre(Member(1)));
  EXPECT_EQ(table().numberOfRowsInSection(3), 2);
  EXPECT_EQ(table().numberOfRowsInSection(4), 2);
  EXPECT_EQ(textOf(4, 1), "Robin Vale");
}

TEST_F(EditorMembers, AMemberIsSwipedAwayByHand) {
  editMembers({1, 2});
  table().scrollToRowAtIndexPath({4, 1}, UITableViewScrollPosition::kMiddle, /*animated=*/false);
  settle();
  const CGRect row = table().rectForRowAtIndexPath({4, 1});
  const CGPoint from = table().convertPointToView({300, row.midY()}, nullptr);
  touch(*window_, UITouchPhase::kBegan, from, 1);
  for (int step = 1; step <= 10; ++step) {
    touch(*window_, UITouchPhase::kMoved, {from.x - 12.0 * step, from.y}, 1 + step / 60.0);
  }
  touch(*window_, UITouchPhase::kEnded, {from.x - 120, from.y}, 2);
  settle();
  EXPECT_EQ(table().indexPathForSwipedRow(), (NSIndexPath{4, 1}));
  tap(*window_, {375, from.y}, 3);
  settle();
  EXPECT_THAT(members(), ElementsAre(Member(1)));
}

TEST_F(EditorMembers, ManyAreUsableAndOnlySeenRowsExist) {
  Array many;
  for (int number = 0; number < 5000; ++number) {
    many.emplace_back("friend" + std::to_string(number) + "@example.com");
  }
  editMembers(std::move(many));
  EXPECT_EQ(rows(4), 5001);
  table().scrollToRowAtIndexPath({4, 5000}, UITableViewScrollPosition::kBottom,
                                 /*animated=*/false);
  settle();
  EXPECT_EQ(textOf(4, 5000), "friend9@example.com");
  table().scrollToRowAtIndexPath({0, 0}, UITableViewScrollPosition::kTop, /*animated=*/false);
  settle();
  EXPECT_EQ(editor_->headerView()->superview(), cell(0, 0)->contentView().get());
  EXPECT_EQ(cell(0, 0)->textLabel()->text(), "");
  EXPECT_EQ(textOf(1, 0), "Enable");
}

}  // namespace
}  // namespace zephyl::test
