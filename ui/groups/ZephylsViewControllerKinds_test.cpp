// Which cells the list of groups makes, and which screens it opens, in its modes and on each
// release.

#include <memory>
#include <string>

#include "ui/editor/ZephylViewController.h"
#include "ui/groups/GroupListTest.h"
#include "ui/groups/ZephylsTableViewCell.h"

namespace zephyl {
namespace {

using test::GroupBuilder;

class GroupListKindsTest : public test::GroupListTest {
 protected:
  void startSome(const std::string& version = "14.0") {
    start(version, {system(1, "All"), GroupBuilder(2, "Work")});
  }
  std::shared_ptr<UITableViewCell> madeCell() {
    return screen_->cellForRowAtIndexPath(*std::make_shared<UITableView>(), {1, 0});
  }
};

TEST_F(GroupListKindsTest, RowsAreCellsToManageInEveryMode) {
  startSome();
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeManage, ZephylsModeAddToGroups}) {
    present(mode);
    const auto made = madeCell();
    EXPECT_NE(std::dynamic_pointer_cast<ZephylsManageTableViewCell>(made), nullptr);
    EXPECT_EQ(made->style(), UITableViewCellStyle::kDefault);
    EXPECT_EQ(made->reuseIdentifier(), "defaultCell");
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListKindsTest, TilesAreMadeOnlyWhileBrowsing) {
  startSome();
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeManage}) {
    present(mode);
    EXPECT_FALSE(screen_->shouldShowAsGrid());
    screen_->setShouldShowAsGrid(true);
    const auto made = madeCell();
    const bool isTile = std::dynamic_pointer_cast<ZephylsTableViewCell>(made) != nullptr;
    EXPECT_EQ(isTile, mode == ZephylsModeBrowse);
    EXPECT_EQ(made->style(),
              isTile ? UITableViewCellStyle::kValue1 : UITableViewCellStyle::kDefault);
    EXPECT_EQ(made->reuseIdentifier(), "defaultCell");
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListKindsTest, MarkingSeveralRowsIsAllowedByTheTableOnlyWhileBrowsing) {
  startSome();
  for (const auto mode : {ZephylsModeBrowse, ZephylsModeManage, ZephylsModeAddToGroups}) {
    present(mode);
    EXPECT_EQ(table().allowsMultipleSelectionDuringEditing(), mode == ZephylsModeBrowse);
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(GroupListKindsTest, EditorsAreGroupedTables) {
  startSome();
  present(ZephylsModeManage);
  screen_->addGroupAction();
  settle();
  const auto navigation = screen_->navigationController();
  const auto added =
      std::dynamic_pointer_cast<UINavigationController>(navigation->presentedViewController());
  ASSERT_NE(added, nullptr);
  const auto fresh = std::dynamic_pointer_cast<ZephylViewController>(added->topViewController());
  ASSERT_NE(fresh, nullptr);
  EXPECT_EQ(fresh->tableView()->style(), UITableViewStyle::kGrouped);
  added->dismissViewControllerAnimated(/*animated=*/false);
  settle();
  tapRow({1, 0});
  const auto opened =
      std::dynamic_pointer_cast<ZephylViewController>(navigation->topViewController());
  ASSERT_NE(opened, nullptr);
  EXPECT_EQ(opened->tableView()->style(), UITableViewStyle::kGrouped);
}

TEST_F(GroupListKindsTest, APushedListToBrowseKeepsCancelFromVersionThirteen) {
  for (const char* version : {"12.0", "13.0", "14.0"}) {
    startSome(version);
    const auto screen = std::make_shared<ZephylsViewController>(UITableViewStyle::kPlain);
    screen->setIsViewPushed(true);
    present(screen);
    EXPECT_EQ(left().systemItem(), std::string(version) == "12.0" ? UIBarButtonSystemItem::kAdd
                                                                  : UIBarButtonSystemItem::kCancel)
        << version;
    below_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

}  // namespace
}  // namespace zephyl
