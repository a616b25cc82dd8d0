// Choosing participants of a conversation, and going on to the groups with them or with all of it.

#include "ui/editor/ZPSelectRecipientsTableViewController.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/PropertyList.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "ui/groups/ZephylsViewController.h"

namespace zephyl {
namespace {

using Accessory = UITableViewCellAccessoryType;
using Words = std::vector<std::string>;

class RecipientsTest : public ::testing::Test {
 protected:
  RecipientsTest() {
    window_->setRootViewController(below_);
    device_.files().put("/var/mobile/Library/Preferences/com.vantor.zephyls-profiles.plist",
                        writeXmlPropertyList(Value(Array{test::GroupBuilder(1, "Work")})));
  }

  static CKConversationRef chatWith(std::size_t count) {
    CKConversation::Facts facts;
    facts.guid = "iMessage;+;chat";
    for (std::size_t number = 1; number <= count; ++number) {
      facts.handles.push_back(
          fake::known(static_cast<std::int32_t>(number), "+1555010" + std::to_string(number)));
      facts.handleNames.push_back("Person " + std::to_string(number));
    }
    return std::make_shared<CKConversation>(std::move(facts));
  }
  void present(const CKConversationRef& conversation) {
    screen_ = std::make_shared<ZPSelectRecipientsTableViewController>(UITableViewStyle::kPlain,
                                                                      conversation);
    navigation_ = UINavigationController::initWithRootViewController(screen_);
    below_->presentViewController(navigation_, /*animated=*/false);
    settle();
  }
  void settle() {
    for (int round = 0; round < 3; ++round) {
      device_.dispatch().runAll();
      window_->layoutWindow();
      device_.uikit()->displayLink().runUntilIdle();
      window_->layoutWindow();
    }
  }
  UITableView& table() { return *screen_->tableView(); }
  UIBarButtonItem& next() { return *screen_->navigationItem()->rightBarButtonItem(); }
  std::shared_ptr<UITableViewCell> cell(std::int64_t row, std::int64_t section = 0) {
    return table().cellForRowAtIndexPath({section, row});
  }
  void tapRow(std::int64_t row) {
    const CGRect rect = table().rectForRowAtIndexPath({0, row});
    test::tap(*window_, table().convertPointToView({rect.midX(), rect.midY()}, nullptr));
    settle();
  }
  std::vector<UIButton*> buttons() { return test::viewsOf<UIButton>(*cell(0, 1)); }
  // The list of groups that was pushed; null for none.
  std::shared_ptr<ZephylsViewController> pushed() {
    return std::dynamic_pointer_cast<ZephylsViewController>(navigation_->topViewController());
  }
  Words handedOn() {
    Words names;
    for (const auto& recipient : pushed()->recipients().value_or(ZPRecipientArray())) {
      names.push_back(recipient->name());
    }
    return names;
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> below_ = std::make_shared<UIViewController>();
  std::shared_ptr<ZPSelectRecipientsTableViewController> screen_;
  std::shared_ptr<UINavigationController> navigation_;
};

TEST_F(RecipientsTest, TheBarHasCancelAndADisabledNext) {
  present(chatWith(3));
  EXPECT_EQ(screen_->title(), "Select Recipients");
  EXPECT_EQ(screen_->navigationItem()->leftBarButtonItem()->systemItem(),
            UIBarButtonSystemItem::kCancel);
  EXPECT_EQ(next().title(), "Next");
  EXPECT_EQ(next().style(), UIBarButtonItemStyle::kDone);
  EXPECT_FALSE(next().isEnabled());
}

TEST_F(RecipientsTest, ThereIsARowForEachParticipantInOrder) {
  device_.phoneFormatting().setFormat("+15550102", "(555) 0102");
  present(chatWith(3));
  EXPECT_EQ(table().numberOfSections(), 2);
  EXPECT_EQ(table().numberOfRowsInSection(0), 3);
  EXPECT_EQ(table().numberOfRowsInSection(1), 1);
  EXPECT_EQ(table().rowHeight(), 44);
  EXPECT_EQ(cell(1)->textLabel()->text(), "Person 2");
  EXPECT_EQ(cell(1)->detailTextLabel()->text(), "(555) 0102");
  EXPECT_EQ(cell(1)->accessoryType(), Accessory::kNone);
}

TEST_F(RecipientsTest, NextIsEnabledWhileSomebodyIsTicked) {
  present(chatWith(3));
  tapRow(1);
  EXPECT_TRUE(next().isEnabled());
  EXPECT_EQ(cell(1)->accessoryType(), Accessory::kCheckmark);
  EXPECT_TRUE(cell(1)->accessibilityState().checked);
  EXPECT_TRUE(table().indexPathsForSelectedRows().empty());
  tapRow(2);
  tapRow(1);
  EXPECT_TRUE(next().isEnabled());
  EXPECT_EQ(cell(1)->accessoryType(), Accessory::kNone);
  tapRow(2);
  EXPECT_FALSE(next().isEnabled());
}

TEST_F(RecipientsTest, NextHandsOnTheTickedInTheConversationsOrder) {
  present(chatWith(4));
  tapRow(3);
  tapRow(0);
  EXPECT_TRUE(next().performAction());
  settle();
  ASSERT_NE(pushed(), nullptr);
  EXPECT_EQ(handedOn(), (Words{"Person 1", "Person 4"}));
  EXPECT_EQ(pushed()->zephylsMode(), ZephylsModeAddToGroups);
  EXPECT_TRUE(pushed()->isViewPushed());
  EXPECT_EQ(pushed()->conversation(), nullptr);
  EXPECT_EQ(pushed()->tableView()->style(), UITableViewStyle::kPlain);
}

TEST_F(RecipientsTest, TheButtonHandsOnTheConversationWhateverIsTicked) {
  const auto chat = chatWith(2);
  present(chat);
  tapRow(0);
  ASSERT_EQ(buttons().size(), 1U);
  EXPECT_EQ(buttons().at(0)->currentTitle(), "Add to Groups");
  EXPECT_EQ(buttons().at(0)->titleFont(), UIFont::systemFontOfSize(20));
  test::tap(*window_, *buttons().at(0));
  settle();
  ASSERT_NE(pushed(), nullptr);
  EXPECT_EQ(pushed()->conversation(), chat);
  EXPECT_EQ(pushed()->recipients(), std::nullopt);
  EXPECT_TRUE(pushed()->isViewPushed());
}

TEST_F(RecipientsTest, ATapBesideTheButtonDoesNothing) {
  present(chatWith(2));
  screen_->didSelectRowAtIndexPath(table(), {1, 0});
  settle();
  EXPECT_EQ(pushed(), nullptr);
  EXPECT_FALSE(next().isEnabled());
}

// The row is 320 points wide while it is made.
TEST_F(RecipientsTest, TheButtonIsWiderThanTheNewRow) {
  present(chatWith(1));
  EXPECT_EQ(buttons().at(0)->frame(), CGRectMake(0, 0, 370, 44));
  EXPECT_EQ(buttons().at(0)->superview(), cell(0, 1).get());
}

TEST_F(RecipientsTest, EachTimeItsRowIsShownOneMoreButtonLiesInIt) {
  present(chatWith(0));
  table().reloadData();
  settle();
  EXPECT_EQ(buttons().size(), 2U);
  test::tap(*window_, *buttons().at(1));
  settle();
  EXPECT_NE(pushed(), nullptr);
}

TEST_F(RecipientsTest, RowsOfParticipantsAreNeverUsedAgain) {
  present(chatWith(3));
  const auto before = cell(0);
  table().reloadData();
  settle();
  EXPECT_NE(cell(0), before);
}

TEST_F(RecipientsTest, TheRowWithTheButtonMayComeBackAsAParticipant) {
  present(chatWith(1));
  const auto row = cell(0, 1);
  table().reloadData();
  settle();
  EXPECT_EQ(cell(0), row);
  EXPECT_EQ(cell(0)->textLabel()->text(), "Person 1");
  EXPECT_EQ(test::viewsOf<UIButton>(*cell(0)).size(), 1U);
}

TEST_F(RecipientsTest, TicksStayWhenRowsAreShownAnew) {
  present(chatWith(60));
  tapRow(0);
  table().scrollToRowAtIndexPath({0, 59}, UITableViewScrollPosition::kBottom, /*animated=*/false);
  settle();
  table().scrollToRowAtIndexPath({0, 0}, UITableViewScrollPosition::kTop, /*animated=*/false);
  settle();
  EXPECT_EQ(cell(0)->accessoryType(), Accessory::kCheckmark);
}

TEST_F(RecipientsTest, CancelClosesTheScreen) {
  present(chatWith(2));
  EXPECT_TRUE(screen_->navigationItem()->leftBarButtonItem()->performAction());
  settle();
  EXPECT_EQ(below_->presentedViewController(), nullptr);
}

TEST_F(RecipientsTest, TheGroupsAreChangedAndBothScreensClose) {
  present(chatWith(2));
  tapRow(1);
  EXPECT_TRUE(next().performAction());
  settle();
  const auto groups = pushed();
  ASSERT_NE(groups, nullptr);
  groups->didSelectRowAtIndexPath(*groups->tableView(), {0, 0});
  EXPECT_TRUE(groups->navigationItem()->rightBarButtonItem()->performAction());
  settle();
  EXPECT_EQ(below_->presentedViewController(), nullptr);
  EXPECT_TRUE(groups->selectedGroups().at(0)->contacts()->contains(std::int64_t{2}));
}

TEST_F(RecipientsTest, WithoutParticipantsOnlyTheButtonIsThere) {
  present(fake::chat("SMS;-;nobody", {}));
  EXPECT_EQ(table().numberOfRowsInSection(0), 0);
  EXPECT_EQ(buttons().size(), 1U);
}

}  // namespace
}  // namespace zephyl
