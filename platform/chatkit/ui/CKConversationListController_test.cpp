// The list of conversations: what it lists, and what its rows show.

#include "platform/chatkit/ui/CKConversationListController.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>

#include "platform/chatkit/CKConversationList.h"
#include "platform/chatkit/ui/CKAvatarView.h"
#include "platform/chatkit/ui/CKConversationListCell.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;

class ConversationList : public ::testing::Test {
 protected:
  static CKConversationRef conversation(const std::string& name, const std::string& text,
                                        std::vector<IMHandle> handles, bool unread = false) {
    CKConversation::Facts facts;
    facts.guid = "iMessage;-;" + name;
    facts.name = name;
    facts.hasUnreadMessages = unread;
    facts.handles = std::move(handles);
    facts.lastText = text;
    facts.lastDate = 1'000'000'000.0;
    return std::make_shared<CKConversation>(std::move(facts));
  }
  void show() {
    device_.conversationList().setConversations({robin_, stranger_});
    window_->setRootViewController(list_);
    settle();
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  std::shared_ptr<CKConversationListCell> row(std::int64_t number) {
    return std::dynamic_pointer_cast<CKConversationListCell>(
        list_->tableView()->cellForRowAtIndexPath({0, number}));
  }

  fake::Device device_;
  const CKConversationRef robin_ =
      conversation("Robin Vale", "See you", {fake::known(1)}, /*unread=*/true);
  const CKConversationRef stranger_ = conversation("+15550199", "", {fake::unknown("+15550199")});
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<CKConversationListController> list_ =
      std::make_shared<CKConversationListController>();
};

TEST_F(ConversationList, ListsWhatTheSharedListDoes) {
  show();
  EXPECT_THAT(list_->activeConversations(), ElementsAre(robin_, stranger_));
  EXPECT_EQ(list_->tableView()->numberOfRowsInSection(0), 2);
}

TEST_F(ConversationList, ARowShowsNameTextTimeAndThatItIsUnread) {
  show();
  ASSERT_NE(row(0), nullptr);
  EXPECT_EQ(row(0)->fromLabel()->text(), "Robin Vale");
  EXPECT_EQ(row(0)->summaryLabel()->text(), "See you");
  EXPECT_FALSE(row(0)->dateLabel()->text().empty());
  EXPECT_FALSE(row(0)->unreadIndicator()->isHidden());
  EXPECT_EQ(row(0)->avatarView()->initials(), "RV");
  EXPECT_TRUE(row(1)->unreadIndicator()->isHidden());
  EXPECT_EQ(row(0)->frame().height(), 76);
}

TEST_F(ConversationList, ARowIsSpokenInWords) {
  show();
  EXPECT_EQ(row(0)->accessibilityLabel(),
            "Unread, Robin Vale, See you, " + row(0)->dateLabel()->text());
  EXPECT_EQ(row(1)->accessibilityLabel(), "+15550199, " + row(1)->dateLabel()->text());
}

TEST_F(ConversationList, RowsAreOfTheReleasesClass) {
  show();
  EXPECT_STREQ(row(0)->className(), "CKConversationListCell");
  device_.device().setSystemVersion("13.0");
  list_ = std::make_shared<CKConversationListController>();
  show();
  EXPECT_STREQ(row(0)->className(), "CKConversationListStandardCell");
}

TEST_F(ConversationList, TextsAreBesideThePictureAndMirrored) {
  show();
  EXPECT_EQ(row(0)->avatarView()->frame(), CGRectMake(26, 16, 45, 45));
  EXPECT_EQ(row(0)->fromLabel()->frame().x(), 83);
  EXPECT_EQ(row(0)->unreadIndicator()->frame().x(), 9);
  const CGFloat width = row(0)->contentView()->bounds().width();
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  list_ = std::make_shared<CKConversationListController>();
  show();
  EXPECT_EQ(row(0)->avatarView()->frame().maxX(), width - 26);
  EXPECT_EQ(row(0)->fromLabel()->frame().maxX(), width - 83);
}

TEST_F(ConversationList, OtherConversationsAreShownWhenTheyComeIn) {
  show();
  device_.conversationList().setConversations({stranger_});
  NSNotificationCenter::defaultCenter()->postNotificationName(
      kCKConversationListChangedNotification);
  settle();
  EXPECT_THAT(list_->activeConversations(), ElementsAre(stranger_));
  EXPECT_EQ(row(0)->fromLabel()->text(), "+15550199");
  list_ = nullptr;
  window_->setRootViewController(nullptr);
  NSNotificationCenter::defaultCenter()->postNotificationName(
      kCKConversationListChangedNotification);
}

TEST_F(ConversationList, AsksAnewWhenItAppearsAgain) {
  show();
  device_.conversationList().setConversations({stranger_});
  list_->viewWillAppear(/*animated=*/false);
  EXPECT_THAT(list_->activeConversations(), ElementsAre(stranger_));
}

TEST_F(ConversationList, FilteringLeavesOutThoseWithNobodyKnown) {
  list_->setFiltersMessages(true);
  show();
  EXPECT_THAT(list_->activeConversations(), ElementsAre(robin_));
}

TEST_F(ConversationList, OnlyRowsThatAreSeenExist) {
  device_.conversationList().setConversations(CKConversationArray(20'000, robin_));
  window_->setRootViewController(list_);
  settle();
  EXPECT_EQ(list_->tableView()->numberOfRowsInSection(0), 20'000);
  EXPECT_NE(row(0), nullptr);
  EXPECT_EQ(row(19'999), nullptr);
}

TEST_F(ConversationList, TextsOfAnyLengthAndBytesAreUsable) {
  device_.conversationList().setConversations(
      {conversation(std::string(100'000, 'w'), std::string(100'000, 'm'), {}),
       conversation("\xff\xfe", "\xff", {fake::unknown("")}), conversation("", "", {})});
  window_->setRootViewController(list_);
  settle();
  EXPECT_LE(row(0)->fromLabel()->frame().maxX(), 390);
  EXPECT_LE(row(0)->summaryLabel()->frame().maxY(), 76);
}

}  // namespace
}  // namespace zephyl
