// Picking conversations for a group: marks, the set of what is ticked, and handing it over.

#include "ui/editor/ZPConversationSelectionViewController.h"

#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "platform/chatkit/ui/CKConversationListCell.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Conversations.h"
#include "hosts/fake/Device.h"
#include "model/TestGroups.h"
#include "model/Zephyl.h"

namespace zephyl::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Accessory = UITableViewCellAccessoryType;
using Picker = ZPConversationSelectionViewController;

class Receiver : public ZPConversationSelectionViewControllerDelegate {
 public:
  void didReturnWithSelectedConversation(Picker& /*picker*/,
                                         const std::set<std::string>& selected) override {
    returned.push_back(selected);
  }
  std::vector<std::set<std::string>> returned;
};

// A list whose rows are of a class of its own.
class HintCell : public CKConversationListCell {
 public:
  using CKConversationListCell::CKConversationListCell;
  [[nodiscard]] const char* className() const override { return "CKConversationListHintCell"; }
};
class HintPicker : public Picker {
 public:
  using Picker::Picker;

 protected:
  std::shared_ptr<CKConversationListCell> makeConversationCell() const override {
    return std::make_shared<HintCell>("CKConversationListHintCell");
  }
};

class ConversationPicker : public ::testing::Test {
 protected:
  ConversationPicker() {
    device_.conversationList().setConversations({robin_, sam_, team_});
    device_.conversationList().shouldShowAllConversations(true);
    window_->setRootViewController(opener_);
  }
  void open(const std::vector<Member>& selected, const ZephylRef& group = nullptr) {
    picker_ = std::make_shared<Picker>(selected, group);
    picker_->setConversationDelegate(receiver_);
    opener_->presentViewController(UINavigationController::initWithRootViewController(picker_),
                                   /*animated=*/false);
    settle();
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  void tapRow(std::int64_t row) {
    UITableView& table = *picker_->tableView();
    const CGRect rect = table.rectForRowAtIndexPath({0, row});
    tap(*window_, table.convertPointToView({150, rect.midY()}, nullptr));
    settle();
  }
  // A letter a row: x for a mark.
  std::string marks() {
    std::string text;
    for (std::int64_t row = 0; row < picker_->tableView()->numberOfRowsInSection(0); ++row) {
      const auto cell = picker_->tableView()->cellForRowAtIndexPath({0, row});
      text += cell != nullptr && cell->accessoryType() == Accessory::kCheckmark ? 'x' : '-';
    }
    return text;
  }
  UINavigationItem& bar() { return *picker_->navigationItem(); }
  bool canBeDone() { return bar().leftBarButtonItem()->isEnabled(); }
  bool isOpen() { return opener_->presentedViewController() != nullptr; }
  static ZephylRef group(Array members) {
    return std::make_shared<Zephyl>(
        static_cast<Dictionary>(GroupBuilder(7, "Family").members(std::move(members))));
  }

  fake::Device device_;
  const CKConversationRef robin_ = fake::chat("iMessage;-;robin", {fake::known(1)});
  const CKConversationRef sam_ = fake::chat("SMS;-;sam", {fake::known(2)});
  const CKConversationRef team_ = fake::chat("iMessage;+;team", {fake::known(1), fake::known(2)});
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> opener_ = std::make_shared<UIViewController>();
  std::shared_ptr<Receiver> receiver_ = std::make_shared<Receiver>();
  std::shared_ptr<Picker> picker_;
};

TEST_F(ConversationPicker, OnlyChatGuidsAreTickedAtFirst) {
  open({std::int64_t{12}, "12", "+15550100", "SMS;-;sam", "sms;-;gone", "iMessage;-;robin",
        "imessage;-;none"});
  EXPECT_THAT(picker_->selectedConversations(),
              ElementsAre("SMS;-;sam", "iMessage;-;robin", "sms;-;gone"));
  EXPECT_EQ(marks(), "xx-");
}

TEST_F(ConversationPicker, ItsTitleIsTheMessagesApps) {
  device_.files().put(
      "/System/Library/PrivateFrameworks/ChatKit.framework/en.lproj/ChatKit.strings",
      "\"APP_TITLE\" = \"Messages\";");
  open({});
  EXPECT_EQ(picker_->title(), "Messages");
  picker_->setTitle("Other");
  picker_->updateConversationList();
  EXPECT_EQ(picker_->title(), "Messages");
}

TEST_F(ConversationPicker, DoneIsOnTheLeftAndCancelOnTheRight) {
  open({});
  EXPECT_EQ(bar().leftBarButtonItem()->systemItem(), UIBarButtonSystemItem::kDone);
  EXPECT_EQ(bar().rightBarButtonItem()->systemItem(), UIBarButtonSystemItem::kCancel);
  const auto done = bar().leftBarButtonItem();
  picker_->updateNavigationItems();
  EXPECT_EQ(bar().leftBarButtonItem(), done);
}

TEST_F(ConversationPicker, ButtonsThatAreThereStay) {
  picker_ = std::make_shared<Picker>(std::vector<Member>{}, nullptr);
  const auto own = std::make_shared<UIBarButtonItem>(UIBarButtonSystemItem::kEdit,
                                                     std::weak_ptr<const void>(), nullptr);
  bar().setRightBarButtonItem(own);
  static_cast<void>(picker_->view());
  EXPECT_EQ(bar().rightBarButtonItem(), own);
  EXPECT_EQ(bar().leftBarButtonItem()->systemItem(), UIBarButtonSystemItem::kDone);
}

TEST_F(ConversationPicker, TicksAreToggledAndDoneNeedsOne) {
  open({});
  EXPECT_FALSE(canBeDone());
  tapRow(1);
  EXPECT_EQ(marks(), "-x-");
  EXPECT_THAT(picker_->selectedConversations(), ElementsAre("SMS;-;sam"));
  EXPECT_TRUE(canBeDone());
  EXPECT_EQ(picker_->tableView()->indexPathForSelectedRow(), std::nullopt);
  tapRow(1);
  EXPECT_EQ(marks(), "---");
  EXPECT_THAT(picker_->selectedConversations(), IsEmpty());
  EXPECT_FALSE(canBeDone());
}

TEST_F(ConversationPicker, AMemberThroughAPersonIsMarkedWithoutBeingTicked) {
  const auto family = group({1});
  device_.conversationList().setShows(
      [this](const ZephylRef&, const CKConversationRef& one) { return one == robin_; });
  family->loadAffiliatedConversations(/*inBackground=*/false);
  open({std::int64_t{1}}, family);
  EXPECT_EQ(marks(), "x--");
  EXPECT_THAT(picker_->selectedConversations(), IsEmpty());
  EXPECT_FALSE(canBeDone());
  tapRow(0);
  EXPECT_EQ(marks(), "---");
  EXPECT_THAT(picker_->selectedConversations(), IsEmpty());
  tapRow(0);
  EXPECT_THAT(picker_->selectedConversations(), ElementsAre("iMessage;-;robin"));
}

TEST_F(ConversationPicker, AMemberByItsGuidIsMarkedToo) {
  open({}, group({"SMS;-;sam"}));
  EXPECT_EQ(marks(), "-x-");
}

TEST_F(ConversationPicker, ARowOfAnotherClassIsNeverMarked) {
  const std::vector<Member> selected = {"iMessage;-;robin"};
  for (const bool hint : {false, true}) {
    picker_ = hint ? std::make_shared<HintPicker>(selected, nullptr)
                   : std::make_shared<Picker>(selected, nullptr);
    const auto cell = picker_->cellForRowAtIndexPath(*picker_->tableView(), {0, 0});
    EXPECT_EQ(cell->accessoryType(), hint ? Accessory::kNone : Accessory::kCheckmark);
  }
}

TEST_F(ConversationPicker, MarksAreShownOnTheCellsOfEveryRelease) {
  for (const std::string version : {"12.0", "13.0", "14.0"}) {
    device_.device().setSystemVersion(version);
    open({"SMS;-;sam"});
    EXPECT_STREQ(picker_->tableView()->cellForRowAtIndexPath({0, 0})->className(),
                 version >= "13" ? "CKConversationListStandardCell" : "CKConversationListCell");
    EXPECT_EQ(marks(), "-x-") << version;
    tapRow(0);
    EXPECT_EQ(marks(), "xx-") << version;
    opener_->dismissViewControllerAnimated(/*animated=*/false);
    settle();
  }
}

TEST_F(ConversationPicker, WithoutConversationsThereAreNoMarks) {
  open({"iMessage;-;robin"});
  device_.conversationList().setConversations({});
  picker_->updateConversationList();
  const auto cell = picker_->cellForRowAtIndexPath(*picker_->tableView(), {0, 0});
  EXPECT_EQ(cell->accessoryType(), Accessory::kNone);
}

TEST_F(ConversationPicker, WithoutConversationsATapTicksNothing) {
  open({"iMessage;-;robin"});
  const auto cell = picker_->tableView()->cellForRowAtIndexPath({0, 0});
  cell->setAccessoryType(Accessory::kCheckmark);
  device_.conversationList().setConversations({});
  picker_->CKConversationListController::updateConversationList();
  picker_->didSelectRowAtIndexPath(*picker_->tableView(), {0, 0});
  EXPECT_THAT(picker_->selectedConversations(), ElementsAre("iMessage;-;robin"));
}

TEST_F(ConversationPicker, DoneHandsOverWhatIsTickedAndCloses) {
  open({"SMS;-;sam"});
  tapRow(2);
  EXPECT_TRUE(bar().leftBarButtonItem()->performAction());
  settle();
  EXPECT_FALSE(isOpen());
  ASSERT_EQ(receiver_->returned.size(), 1U);
  EXPECT_THAT(receiver_->returned[0], ElementsAre("SMS;-;sam", "iMessage;+;team"));
}

TEST_F(ConversationPicker, CancelHandsOverNothing) {
  open({"SMS;-;sam"});
  EXPECT_TRUE(bar().rightBarButtonItem()->performAction());
  settle();
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(receiver_->returned.empty());
}

TEST_F(ConversationPicker, EscapeIsCancel) {
  open({"SMS;-;sam"});
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  settle();
  EXPECT_FALSE(isOpen());
  EXPECT_TRUE(receiver_->returned.empty());
  EXPECT_FALSE(device_.conversationList().isShowingAllConversations());
}

TEST_F(ConversationPicker, NotAllAreShownAnyMoreOnceItIsClosed) {
  for (const bool done : {true, false}) {
    device_.conversationList().shouldShowAllConversations(true);
    open({"SMS;-;sam"});
    done ? picker_->doneButtonAction() : picker_->cancelButtonAction();
    EXPECT_TRUE(device_.conversationList().isShowingAllConversations());
    settle();
    EXPECT_FALSE(device_.conversationList().isShowingAllConversations());
  }
}

TEST_F(ConversationPicker, WithoutADelegateDoneOnlyCloses) {
  open({"SMS;-;sam"});
  receiver_ = nullptr;
  picker_->doneButtonAction();
  settle();
  EXPECT_FALSE(isOpen());
}

TEST_F(ConversationPicker, EverybodyIsListedAndNoRowIsSwiped) {
  device_.conversationList().setConversations({robin_, fake::chat("SMS;-;x", {})});
  picker_ = std::make_shared<Picker>(std::vector<Member>{}, nullptr);
  picker_->setFiltersMessages(true);
  EXPECT_FALSE(picker_->_messageFilteringEnabled());
  static_cast<void>(picker_->view());
  EXPECT_EQ(picker_->activeConversations().size(), 2U);
  EXPECT_FALSE(picker_->canEditRowAtIndexPath(*picker_->tableView(), {0, 0}));
}

TEST_F(ConversationPicker, KeysAloneTickARow) {
  open({});
  EXPECT_TRUE(window_->sendKey({UIKey::kDown, "", false, false}));
  EXPECT_TRUE(window_->sendKey({UIKey::kSpace, " ", false, false}));
  settle();
  EXPECT_EQ(picker_->selectedConversations().size(), 1U);
}

}  // namespace
}  // namespace zephyl::test
