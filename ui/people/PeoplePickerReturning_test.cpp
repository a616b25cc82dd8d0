// The people picker: who is ticked at first, what it hands back, and adding a person.

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/addressbook/ui/ABNewPersonViewController.h"

#include "ui/people/PeopleTest.h"

namespace zephyl {
namespace {

using test::PersonBuilder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class PeoplePickerReturningTest : public test::PeopleTest {
 protected:
  PeoplePickerReturningTest() {
    device_.people().setPeople({PersonBuilder(1, "Ann"), PersonBuilder(2, "Bob")});
  }
  void press(const UIBarButtonItemRef& button) {
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->performAction());
    settle();
  }
  std::shared_ptr<ABNewPersonViewController> form() {
    const auto navigation =
        std::dynamic_pointer_cast<UINavigationController>(picker_->presentedViewController());
    return navigation == nullptr ? nullptr
                                 : std::dynamic_pointer_cast<ABNewPersonViewController>(
                                       navigation->topViewController());
  }
};

TEST_F(PeoplePickerReturningTest, ThoseSelectedAreTickedAtFirst) {
  present(MemberSet{std::int64_t{2}, std::string("+15550100"), std::string("iMessage;+;chat1")});
  EXPECT_FALSE(isTicked("Ann"));
  EXPECT_TRUE(isTicked("Bob"));
  EXPECT_EQ(picker_->selectedPeople()->size(), 3U);
}

TEST_F(PeoplePickerReturningTest, NobodySelectedIsNobodyTicked) {
  present(MemberSet());
  EXPECT_TRUE(picker_->selectedPeople()->empty());
}

TEST_F(PeoplePickerReturningTest, DoneDismissesAndHandsOverACopy) {
  present(MemberSet{std::int64_t{2}, std::string("+15550100")});
  tapRow("Ann");
  press(bar().leftBarButtonItem());
  ASSERT_THAT(listener_->returned, SizeIs(1));
  EXPECT_TRUE(listener_->returned[0].contains(std::int64_t{1}));
  EXPECT_TRUE(listener_->returned[0].contains(std::int64_t{2}));
  EXPECT_TRUE(listener_->returned[0].contains(std::string("+15550100")));
  EXPECT_EQ(root_->presentedViewController(), nullptr);
  picker_->selectedPeople()->add(std::int64_t{9});
  EXPECT_EQ(listener_->returned[0].size(), 3U);
}

TEST_F(PeoplePickerReturningTest, GoingBackHandsOverToo) {
  const auto navigation =
      UINavigationController::initWithRootViewController(std::make_shared<UIViewController>());
  window_->setRootViewController(navigation);
  picker_ = std::make_shared<ZLPeoplePickerViewController>();
  picker_->setDelegate(listener_);
  picker_->setNumberOfSelectedPeople(-1);
  picker_->setFiledMask(APContactFieldAll);
  navigation->pushViewController(picker_, /*animated=*/false);
  settle();
  EXPECT_THAT(listener_->returned, IsEmpty());
  tapRow("Bob");
  navigation->popViewControllerAnimated(/*animated=*/false);
  settle();
  ASSERT_THAT(listener_->returned, SizeIs(1));
  EXPECT_THAT(numbers(listener_->returned[0]), ElementsAre(2));
}

TEST_F(PeoplePickerReturningTest, AnotherParentThanItsOwnIsHandedOverToo) {
  present();
  UIViewController other;
  picker_->didMoveToParentViewController(picker_->parentViewController().get());
  EXPECT_THAT(listener_->returned, IsEmpty());
  picker_->didMoveToParentViewController(&other);
  EXPECT_THAT(listener_->returned, SizeIs(1));
}

TEST_F(PeoplePickerReturningTest, MovingIntoAnotherContainerHandsOverOnce) {
  const auto first = std::make_shared<UIViewController>();
  const auto second = std::make_shared<UIViewController>();
  picker_ = std::make_shared<ZLPeoplePickerViewController>();
  picker_->setDelegate(listener_);
  first->addChildViewController(picker_);
  picker_->didMoveToParentViewController(first.get());
  EXPECT_THAT(listener_->returned, IsEmpty());
  second->addChildViewController(picker_);
  picker_->didMoveToParentViewController(second.get());
  EXPECT_EQ(picker_->parentViewController(), second);
  EXPECT_THAT(listener_->returned, SizeIs(1));
}

TEST_F(PeoplePickerReturningTest, WithoutADelegateDoneOnlyDismisses) {
  present();
  listener_ = nullptr;
  press(bar().leftBarButtonItem());
  EXPECT_EQ(root_->presentedViewController(), nullptr);
}

TEST_F(PeoplePickerReturningTest, ItGoesWhenItIsDismissed) {
  present();
  press(bar().leftBarButtonItem());
  const std::weak_ptr<UIViewController> weak = picker_;
  picker_ = nullptr;
  settle();
  EXPECT_TRUE(weak.expired());
  device_.people().announceExternalChange();
  settle();
}

TEST_F(PeoplePickerReturningTest, ALoadThatEndsWhenItIsGoneStillTellsItsEnd) {
  present();
  bool ended = false;
  picker_->reloadData([&](bool success) { ended = success; });
  root_->dismissViewControllerAnimated(/*animated=*/false);
  picker_ = nullptr;
  settle();
  EXPECT_TRUE(ended);
}

TEST_F(PeoplePickerReturningTest, AddShowsAFormAndTheNewPersonIsListedAndHandedOver) {
  present();
  press(bar().rightBarButtonItem());
  ASSERT_NE(form(), nullptr);
  form()->field(ABNewPersonViewController::Field::kFirstName)->setText("Cid");
  form()->field(ABNewPersonViewController::Field::kFirstName)->textInputDidChange("Cid R");
  press(form()->navigationItem()->rightBarButtonItem());
  EXPECT_EQ(form(), nullptr);
  ASSERT_THAT(listener_->newPeople, SizeIs(1));
  EXPECT_EQ(listener_->newPeople[0]->firstName, "Cid R");
  EXPECT_EQ(shown(), "A:Ann B:Bob C:Cid R");
  EXPECT_NE(root_->presentedViewController(), nullptr);
}

TEST_F(PeoplePickerReturningTest, AFormThatIsTakenBackHandsOverNobody) {
  present();
  press(bar().rightBarButtonItem());
  ASSERT_NE(form(), nullptr);
  press(form()->navigationItem()->leftBarButtonItem());
  EXPECT_EQ(form(), nullptr);
  EXPECT_THAT(listener_->newPeople, ElementsAre(nullptr));
  EXPECT_EQ(shown(), "A:Ann B:Bob");
}

}  // namespace
}  // namespace zephyl
