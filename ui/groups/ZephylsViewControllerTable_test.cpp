// The rows of the list of groups, and what a tap on one does.

#include <string>
#include <vector>

#include "model/ZPLocalizedText.h"
#include "ui/editor/ZephylViewController.h"
#include "ui/groups/GroupListTest.h"

namespace zephyl {
namespace {

using test::GroupBuilder;
using Accessory = UITableViewCellAccessoryType;

class GroupListTableTest : public test::GroupListTest {
 protected:
  // "All" stands alone in the first section, the others in the second.
  void startSome() {
    start("14.0", {system(1, "All"), GroupBuilder(2, "Active").active(), GroupBuilder(3, "Work"),
                   locked(4, "Zoo")});
  }
  // From now on `log_` has what the delegate is told.
  void listen() {
    delegate_->zp__didSelectGroup = [this](const ZephylRef& group) {
      log_.push_back("select " + group->title());
    };
    delegate_->zp__closeSidePanelController = [this] { log_.push_back("close"); };
  }
  [[nodiscard]] bool asksForFinger() { return device_.authentication().isWaiting(); }

  Words log_;
};

TEST_F(GroupListTableTest, RowsToBrowseOrAddToHaveNoAccessoryAndCanBeTapped) {
  startSome();
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeAddToGroups}) {
    present(mode);
    const auto row = cell({0, 0});
    EXPECT_EQ(row->accessoryType(), Accessory::kNone);
    EXPECT_TRUE(row->isUserInteractionEnabled());
    EXPECT_EQ(row->selectionStyle(), UITableViewCellSelectionStyle::kDefault);
    EXPECT_TRUE(row->textLabel()->isEnabled());
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListTableTest, ManagingOnlyUserGroupsLeadSomewhere) {
  startSome();
  present(ZephylsModeManage);
  EXPECT_EQ(cell({0, 0})->accessoryType(), Accessory::kNone);
  EXPECT_FALSE(cell({0, 0})->isUserInteractionEnabled());
  EXPECT_EQ(cell({0, 0})->selectionStyle(), UITableViewCellSelectionStyle::kNone);
  EXPECT_EQ(cell({1, 0})->accessoryType(), Accessory::kDisclosureIndicator);
  EXPECT_TRUE(cell({1, 0})->isUserInteractionEnabled());
  EXPECT_EQ(cell({1, 0})->selectionStyle(), UITableViewCellSelectionStyle::kDefault);
}

TEST_F(GroupListTableTest, OnlyBrowsingChecksTheActiveGroup) {
  startSome();
  present(ZephylsModeBrowse);
  EXPECT_EQ(label(*cell({1, 0}), ZephylsManageTableViewCell::kCheckTag), "✓");
  EXPECT_EQ(label(*cell({1, 1}), ZephylsManageTableViewCell::kCheckTag), "");
  below_->dismissViewControllerAnimated(/*animated=*/false);
  present(ZephylsModeManage);
  EXPECT_NE(label(*cell({1, 0}), ZephylsManageTableViewCell::kCheckTag), "✓");
}

TEST_F(GroupListTableTest, ATappedRowDoesNotStaySelected) {
  startSome();
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeManage, ZephylsModeAddToGroups}) {
    present(mode);
    tapRow({0, 0});
    EXPECT_TRUE(table().indexPathsForSelectedRows().empty());
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListTableTest, BrowsingHandsTheGroupOverAtOnce) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  touchRow({1, 1});
  EXPECT_EQ(log_, Words{"select Work"});
}

TEST_F(GroupListTableTest, TheActiveGroupOnlyClosesThePanel) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 0});
  EXPECT_EQ(log_, Words{"close"});
  delegate_->zp__closeSidePanelController = nullptr;
  tapRow({1, 0});
  EXPECT_EQ(log_, Words{"close"});
}

TEST_F(GroupListTableTest, AProtectedGroupIsHandedOverOnceTheOwnerWasRecognized) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 2});
  EXPECT_TRUE(log_.empty());
  EXPECT_EQ(device_.authentication().reason(),
            "Group 'Zoo' is protected. Please authenticate uisng your finger print.");
  device_.authentication().answer(/*success=*/true);
  // The answer came on a thread of the service's.
  EXPECT_TRUE(log_.empty());
  settle();
  EXPECT_EQ(log_, Words{"select Zoo"});
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(GroupListTableTest, AProtectedSystemGroupIsHandedOverAtOnce) {
  start("14.0", {system(1, "All").with(keys::kPasswordProtected, true)});
  listen();
  present(ZephylsModeBrowse);
  touchRow({0, 0});
  EXPECT_EQ(log_, Words{"select All"});
  EXPECT_FALSE(asksForFinger());
}

TEST_F(GroupListTableTest, WithoutTheDelegatesMethodNobodyIsAskedForTheFinger) {
  startSome();
  present(ZephylsModeBrowse);
  tapRow({1, 2});
  EXPECT_FALSE(asksForFinger());
}

TEST_F(GroupListTableTest, WithoutBiometricsNothingIsProtected) {
  startSome();
  listen();
  device_.authentication().setAvailable(false);
  present(ZephylsModeBrowse);
  touchRow({1, 2});
  EXPECT_EQ(log_, Words{"select Zoo"});
}

TEST_F(GroupListTableTest, AnOpenSessionPassesWithoutTheFinger) {
  start("14.0", {system(1, "All"), locked(4, "Zoo")},
        {{settings_keys::kRememberSession, true}, {settings_keys::kSessionTime, 5.0}});
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 0});
  answerFinger(/*success=*/true);
  tapRow({1, 0});
  EXPECT_FALSE(asksForFinger());
  EXPECT_EQ(log_, (Words{"select Zoo", "select Zoo"}));
}

TEST_F(GroupListTableTest, ACancelledCheckShowsNothingAndChangesNothing) {
  for (const std::int64_t code : {-2, -4}) {
    startSome();
    listen();
    present(ZephylsModeBrowse);
    tapRow({1, 2});
    const NSError error("com.apple.LocalAuthentication", code);
    answerFinger(/*success=*/false, &error);
    EXPECT_EQ(alert(), nullptr);
    EXPECT_TRUE(log_.empty());
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListTableTest, AnErrorOfTheCheckIsTold) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 2});
  const NSError error("any", -8, {{kNSLocalizedDescriptionKey, "Locked out."}});
  answerFinger(/*success=*/false, &error);
  EXPECT_EQ(alertText(), "Error: Unable to verify your identity. Error: 'Locked out.'");
  EXPECT_TRUE(log_.empty());
}

TEST_F(GroupListTableTest, AnErrorGoesBeforeSuccess) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 2});
  const NSError error("any", -8, {{kNSLocalizedDescriptionKey, "Odd."}});
  answerFinger(/*success=*/true, &error);
  EXPECT_EQ(alertText(), "Error: Unable to verify your identity. Error: 'Odd.'");
  EXPECT_TRUE(log_.empty());
}

TEST_F(GroupListTableTest, AFailureWithoutAnErrorIsTold) {
  startSome();
  present(ZephylsModeManage);
  tapRow({1, 2});
  answerFinger(/*success=*/false);
  EXPECT_EQ(alertText(), "Error: Unable to verify your identity.");
}

TEST_F(GroupListTableTest, ManagingOpensTheEditor) {
  startSome();
  present(ZephylsModeManage);
  tapRow({1, 1});
  const auto editor = std::dynamic_pointer_cast<ZephylViewController>(
      screen_->navigationController()->topViewController());
  ASSERT_NE(editor, nullptr);
  EXPECT_EQ(editor->zephyl()->title(), "Work");
  EXPECT_FALSE(editor->isNewGroup());
}

TEST_F(GroupListTableTest, ManagingAProtectedGroupAsksForTheFingerFirst) {
  startSome();
  present(ZephylsModeManage);
  tapRow({1, 2});
  EXPECT_EQ(screen_->navigationController()->topViewController(), screen_);
  EXPECT_EQ(device_.authentication().reason(),
            "Group 'Zoo' is protected. Please authenticate uisng your finger print.");
  answerFinger(/*success=*/true);
  EXPECT_NE(screen_->navigationController()->topViewController(), screen_);
}

TEST_F(GroupListTableTest, ManagingASystemGroupDoesNothing) {
  startSome();
  present(ZephylsModeManage);
  tapRow({0, 0});
  screen_->didSelectRowAtIndexPath(table(), {0, 0});
  settle();
  EXPECT_EQ(screen_->navigationController()->topViewController(), screen_);
}

TEST_F(GroupListTableTest, AListThatIsClosedDuringACheckDoesNothing) {
  startSome();
  listen();
  present(ZephylsModeBrowse);
  tapRow({1, 2});
  const std::weak_ptr<ZephylsViewController> gone = screen_;
  below_->dismissViewControllerAnimated(/*animated=*/false);
  settle();
  screen_ = nullptr;
  EXPECT_TRUE(gone.expired());
  device_.authentication().answer(/*success=*/true);
  settle();
  EXPECT_TRUE(log_.empty());
}

}  // namespace
}  // namespace zephyl
