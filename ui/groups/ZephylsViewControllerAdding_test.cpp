// Adding a conversation, several, or some people to the groups that are ticked.

#include <string>
#include <utility>
#include <vector>

#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Accessory = UITableViewCellAccessoryType;
using Members = std::vector<Member>;

class GroupListAddingTest : public test::GroupListTest {
 protected:
  void startSome(const std::string& version = "14.0") {
    start(version, {system(1, "All"), GroupBuilder(2, "A").members({std::int64_t{7}}),
                    GroupBuilder(3, "B"), locked(4, "C")});
  }
  template <class What>
  void presentFor(What what) {
    present(std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, std::move(what)));
  }
  void presentForChat() { presentFor(fake::chat("iMessage;-;ann", {fake::known(1)})); }
  static std::shared_ptr<ZPRecipient> person(std::int64_t contactId, const std::string& number) {
    auto made = std::make_shared<ZPRecipient>(CKEntity(fake::unknown(number), "Someone"));
    made->setContactId(contactId);
    return made;
  }
  void tick(std::int64_t row) { tapRow({0, row}); }
  [[nodiscard]] Accessory accessoryOf(std::int64_t row) { return cell({0, row})->accessoryType(); }
};

TEST_F(GroupListAddingTest, ATapTicksAndUnticksTheGroup) {
  startSome();
  presentForChat();
  tick(1);
  EXPECT_EQ(accessoryOf(1), Accessory::kCheckmark);
  EXPECT_EQ(accessoryOf(0), Accessory::kNone);
  ASSERT_EQ(screen_->selectedGroups().size(), 1U);
  EXPECT_EQ(screen_->selectedGroups().at(0)->title(), "B");
  tick(1);
  EXPECT_EQ(accessoryOf(1), Accessory::kNone);
  EXPECT_TRUE(screen_->selectedGroups().empty());
}

TEST_F(GroupListAddingTest, DoneIsEnabledWhileAGroupIsTicked) {
  startSome();
  presentForChat();
  tick(0);
  EXPECT_TRUE(right().isEnabled());
  tick(1);
  tick(0);
  EXPECT_TRUE(right().isEnabled());
  tick(1);
  EXPECT_FALSE(right().isEnabled());
}

TEST_F(GroupListAddingTest, ATickIsReadAsChecked) {
  startSome();
  presentForChat();
  EXPECT_FALSE(cell({0, 0})->accessibilityState().checked);
  tick(0);
  EXPECT_TRUE(cell({0, 0})->accessibilityState().checked);
}

TEST_F(GroupListAddingTest, RowsAreTickedByTheKeyboardAlone) {
  startSome();
  presentForChat();
  EXPECT_TRUE(window_->sendKey({UIKey::kDown, "", false, false}));
  EXPECT_TRUE(window_->sendKey({UIKey::kSpace, "", false, false}));
  settle();
  EXPECT_EQ(screen_->selectedGroups().size(), 1U);
}

TEST_F(GroupListAddingTest, TicksStayWhenTheListIsMadeAnew) {
  startSome();
  presentForChat();
  tick(1);
  store()->allZephyls()->append(
      {std::make_shared<Zephyl>(static_cast<Dictionary>(GroupBuilder(9, "AA")))});
  store()->updateUnreadMessageCountForZephyls();
  settle();
  EXPECT_EQ(titles(0), (Words{"A", "AA", "B", "C"}));
  EXPECT_EQ(accessoryOf(2), Accessory::kCheckmark);
  EXPECT_EQ(accessoryOf(1), Accessory::kNone);
}

// Else the change of the group would be undone by what is added.
TEST_F(GroupListAddingTest, ATickedGroupThatWasChangedMeanwhileIsTheChangedOne) {
  startSome();
  presentForChat();
  tick(0);
  const ZephylRef changed = stored(2)->copy();
  changed->setSubTitle("changed");
  store()->updateZephyl(changed, nullptr, nullptr);
  settle();
  press(right());
  EXPECT_EQ(stored(2)->subTitle(), "changed");
  EXPECT_EQ(membersOf(stored(2)), (Members{std::int64_t{7}, "iMessage;-;ann"}));
}

TEST_F(GroupListAddingTest, AConversationIsAddedByItsGuidToEveryTickedGroup) {
  for (const char* version : {"6.1", "8.3", "9.3", "11.4", "12.4", "13.3", "14.0"}) {
    startSome(version);
    presentForChat();
    tick(1);
    tick(0);
    press(right());
    EXPECT_EQ(membersOf(stored(2)), (Members{std::int64_t{7}, "iMessage;-;ann"})) << version;
    EXPECT_EQ(membersOf(stored(3)), (Members{"iMessage;-;ann"})) << version;
    EXPECT_TRUE(membersOf(stored(4)).empty()) << version;
    EXPECT_TRUE(isClosed()) << version;
  }
}

TEST_F(GroupListAddingTest, EachConversationOfAListIsAdded) {
  startSome();
  presentFor(CKConversationArray{fake::chat("x", {}), fake::chat("y", {})});
  tick(1);
  press(right());
  EXPECT_EQ(membersOf(stored(3)), (Members{"x", "y"}));
}

TEST_F(GroupListAddingTest, PeopleAreAddedByRecordIdElseByTheirPlainNumber) {
  startSome();
  presentFor(ZPRecipientArray{person(12, "+1 (555) 1"), person(0, "+1 (555) 2"),
                              person(-1, "+1 (555) 3"), person(1, "x")});
  tick(1);
  press(right());
  EXPECT_EQ(membersOf(stored(3)), (Members{std::int64_t{12}, "+15552", "+15553", std::int64_t{1}}));
}

TEST_F(GroupListAddingTest, TheConversationGoesBeforePeopleAndTheseBeforeAList) {
  startSome();
  const CKConversationArray list = {fake::chat("listed", {})};
  const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, list);
  screen->setRecipients(ZPRecipientArray{person(12, "x")});
  present(screen);
  tick(1);
  press(right());
  EXPECT_EQ(membersOf(stored(3)), (Members{std::int64_t{12}}));
  const auto other = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain, list);
  other->setRecipients(ZPRecipientArray{person(12, "x")});
  other->setConversation(fake::chat("one", {}));
  present(other);
  tick(1);
  press(right());
  EXPECT_EQ(membersOf(stored(3)), (Members{std::int64_t{12}, "one"}));
}

TEST_F(GroupListAddingTest, AGroupThatNeverHadMembersGetsThem) {
  startSome();
  presentForChat();
  stored(3)->setContacts(nullptr);
  tick(1);
  press(right());
  EXPECT_EQ(membersOf(stored(3)), (Members{"iMessage;-;ann"}));
}

TEST_F(GroupListAddingTest, ABusyBoxIsShownWhileTheWorkGoesOn) {
  startSome();
  presentForChat();
  tick(0);
  EXPECT_TRUE(right().performAction());
  EXPECT_EQ(alert(), nullptr);
  EXPECT_TRUE(device_.dispatch().runOneGlobal());
  EXPECT_EQ(alert(), nullptr) << "it is queued";
  EXPECT_EQ(membersOf(stored(2)).size(), 2U) << "the work does not wait for it";
  device_.dispatch().runMain();
  ASSERT_NE(alert(), nullptr);
  EXPECT_EQ(alert()->message(), "Updating\nPlease wait...\n\n\n");
  settle();
  EXPECT_TRUE(isClosed());
}

TEST_F(GroupListAddingTest, TheActionRunsOnceTheScreenHasClosed) {
  startSome();
  presentForChat();
  int runs = 0;
  screen_->setDismissAction([&] {
    ++runs;
    EXPECT_TRUE(isClosed());
  });
  tick(0);
  tick(1);
  press(right());
  EXPECT_EQ(runs, 1);
}

TEST_F(GroupListAddingTest, AFailureIsToldAndTheScreenStaysOpen) {
  startSome();
  presentForChat();
  int runs = 0;
  screen_->setDismissAction([&] { ++runs; });
  tick(0);
  tick(1);
  failSaves();
  press(right());
  EXPECT_EQ(alertText(), "Error: Unable to save groups to disk.");
  answerAlert();
  EXPECT_EQ(alert(), nullptr);
  EXPECT_FALSE(isClosed());
  EXPECT_EQ(runs, 0);
}

TEST_F(GroupListAddingTest, AGroupThatWasDeletedMeanwhileIsToldOfTheOthersAreKept) {
  startSome();
  presentForChat();
  tick(0);
  tick(1);
  store()->allZephyls()->removeAt(1);
  press(right());
  EXPECT_EQ(alertText(), "Error: Unable to update group.");
  EXPECT_EQ(membersOf(stored(3)), (Members{"iMessage;-;ann"}));
  EXPECT_FALSE(isClosed());
}

TEST_F(GroupListAddingTest, AProtectedGroupAsksForTheFingerWithoutNamingIt) {
  startSome();
  presentForChat();
  tick(2);
  tick(0);
  press(right());
  EXPECT_EQ(device_.authentication().reason(),
            "Few groups are protected. Please authenticate uisng your finger print.");
  EXPECT_EQ(membersOf(stored(2)).size(), 1U);
  answerFinger(/*success=*/true);
  EXPECT_EQ(membersOf(stored(4)), (Members{"iMessage;-;ann"}));
  EXPECT_EQ(membersOf(stored(2)).size(), 2U);
  EXPECT_TRUE(isClosed());
}

TEST_F(GroupListAddingTest, ACancelledCheckAddsNothingAndKeepsTheTicks) {
  startSome();
  presentForChat();
  tick(2);
  press(right());
  const NSError error("com.apple.LocalAuthentication", -4);
  answerFinger(/*success=*/false, &error);
  EXPECT_EQ(alert(), nullptr);
  EXPECT_TRUE(membersOf(stored(4)).empty());
  EXPECT_EQ(accessoryOf(2), Accessory::kCheckmark);
  EXPECT_FALSE(isClosed());
}

TEST_F(GroupListAddingTest, WithoutBiometricsNobodyIsAsked) {
  startSome();
  device_.authentication().setAvailable(false);
  presentForChat();
  tick(2);
  press(right());
  EXPECT_EQ(membersOf(stored(4)), (Members{"iMessage;-;ann"}));
}

TEST_F(GroupListAddingTest, AScreenThatIsClosedWhileItAddsIsLetGo) {
  startSome();
  presentForChat();
  tick(0);
  EXPECT_TRUE(right().performAction());
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  below_->dismissViewControllerAnimated(/*animated=*/false);
  animate();
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  settle();
  EXPECT_EQ(membersOf(stored(2)).size(), 2U);
}

}  // namespace
}  // namespace zephyl
