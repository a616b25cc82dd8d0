#include "platform/uikit/tables/UITableViewController.h"

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/tables/UIRefreshControl.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class Screen : public UITableViewController {
 public:
  using UITableViewController::UITableViewController;

  std::int64_t numberOfRowsInSection(UITableView& /*tableView*/,
                                     std::int64_t /*section*/) override {
    return 40;
  }
  std::shared_ptr<UITableViewCell> cellForRowAtIndexPath(UITableView& tableView,
                                                         const NSIndexPath& path) override {
    auto cell = tableView.dequeueReusableCellWithIdentifier("cell");
    if (cell == nullptr) {
      cell = std::make_shared<UITableViewCell>(UITableViewCellStyle::kDefault, "cell");
    }
    cell->textLabel()->setText(std::to_string(path.row));
    return cell;
  }
  void didSelectRowAtIndexPath(UITableView& /*tableView*/, const NSIndexPath& path) override {
    log += std::to_string(path.row) + " ";
  }

  std::string log;
};

class UITableViewControllerTest : public ::testing::Test {
 protected:
  void show() {
    window_->setRootViewController(screen_);
    window_->layoutWindow();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<Screen> screen_ = std::make_shared<Screen>(UITableViewStyle::kGrouped);
};

TEST_F(UITableViewControllerTest, ItsViewIsATableThatItFills) {
  EXPECT_EQ(screen_->view(), screen_->tableView());
  EXPECT_EQ(screen_->tableView()->style(), UITableViewStyle::kGrouped);
  show();
  EXPECT_EQ(screen_->tableView()->frame(), CGRectMake(0, 0, 390, 844));
  ASSERT_NE(screen_->tableView()->cellForRowAtIndexPath({0, 2}), nullptr);
  EXPECT_EQ(screen_->tableView()->cellForRowAtIndexPath({0, 2})->textLabel()->text(), "2");
}

TEST_F(UITableViewControllerTest, RowsBeginBelowWhatCoversTheTop) {
  show();
  EXPECT_EQ(screen_->tableView()->contentOffset().y, -47);
  EXPECT_EQ(screen_->tableView()->adjustedContentInset().bottom, 34);
  const auto stack = UINavigationController::initWithRootViewController(std::make_shared<Screen>());
  const auto top = std::static_pointer_cast<Screen>(stack->topViewController());
  window_->setRootViewController(stack);
  window_->layoutWindow();
  EXPECT_EQ(top->tableView()->contentOffset().y, -91);
}

TEST_F(UITableViewControllerTest, AppearingClearsTheSelectionUnlessToldOtherwise) {
  show();
  const auto table = screen_->tableView();
  table->selectRowAtIndexPath({0, 1}, false, UITableViewScrollPosition::kNone);
  screen_->viewWillAppear(false);
  EXPECT_FALSE(table->indexPathForSelectedRow());
  screen_->setClearsSelectionOnViewWillAppear(false);
  table->selectRowAtIndexPath({0, 1}, false, UITableViewScrollPosition::kNone);
  screen_->viewWillAppear(false);
  EXPECT_TRUE(table->indexPathForSelectedRow());
}

TEST_F(UITableViewControllerTest, KeysThatNobodyUsesAreTheTables) {
  show();
  EXPECT_TRUE(window_->sendKey({UIKey::kDown, "", false, false}));
  EXPECT_TRUE(window_->sendKey({UIKey::kDown, "", false, false}));
  EXPECT_TRUE(window_->sendKey({UIKey::kReturn, "", false, false}));
  EXPECT_EQ(screen_->log, "1 ");
  EXPECT_FALSE(window_->sendKey({UIKey::kEscape, "", false, false}));
}

TEST_F(UITableViewControllerTest, EditingIsTheTables) {
  show();
  screen_->setEditing(true, false);
  EXPECT_TRUE(screen_->tableView()->isEditing());
  EXPECT_TRUE(screen_->isEditing());
}

TEST_F(UITableViewControllerTest, WhatIsTypedIntoComesIntoSightAndStaysWhenItsRowLeaves) {
  show();
  const auto table = screen_->tableView();
  const auto field = std::make_shared<UITextField>(CGRectMake(16, 0, 200, 44));
  const auto row = table->cellForRowAtIndexPath({0, 16});
  ASSERT_NE(row, nullptr);
  row->contentView()->addSubview(field);
  EXPECT_TRUE(field->becomeFirstResponder());
  table->setNeedsLayout();
  window_->layoutWindow();
  device_.uikit()->displayLink().runUntilIdle();
  window_->layoutWindow();
  const CGRect place = field->convertRectToView(field->bounds(), nullptr);
  EXPECT_LE(place.maxY(), 844 - 34);
  table->setContentOffset({0, 1100});
  window_->layoutWindow();
  EXPECT_TRUE(field->isFirstResponder());
  EXPECT_EQ(table->cellForRowAtIndexPath({0, 16}), row);
}

TEST_F(UITableViewControllerTest, TheRefreshControlIsTheTables) {
  const auto control = std::make_shared<UIRefreshControl>();
  screen_->setRefreshControl(control);
  EXPECT_EQ(screen_->refreshControl(), control);
  EXPECT_EQ(control->superview(), screen_->tableView().get());
}

TEST_F(UITableViewControllerTest, NothingKeepsTheScreenAlive) {
  show();
  window_->setRootViewController(nullptr);
  const std::weak_ptr<Screen> watched = screen_;
  const auto table = screen_->tableView();
  screen_.reset();
  EXPECT_TRUE(watched.expired());
  window_->addSubview(table);
  table->reloadData();
  window_->layoutWindow();
  EXPECT_EQ(table->numberOfRowsInSection(0), 0);
}

}  // namespace
}  // namespace zephyl
