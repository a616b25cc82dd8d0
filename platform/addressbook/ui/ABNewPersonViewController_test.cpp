// The form for a new person.

#include "platform/addressbook/ui/ABNewPersonViewController.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UIAlertController.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Field = ABNewPersonViewController::Field;

class Listener : public ABNewPersonViewControllerDelegate {
 public:
  void didCompleteWithNewPerson(ABNewPersonViewController& /*screen*/,
                                const ABPersonRef& person) override {
    people.push_back(person);
  }
  std::vector<ABPersonRef> people;
};

class NewPersonTest : public ::testing::Test {
 protected:
  NewPersonTest() {
    screen_->setNewPersonViewDelegate(listener_);
    window_->setRootViewController(UINavigationController::initWithRootViewController(screen_));
    settle();
  }

  void settle() {
    device_.dispatch().runAll();
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  void enter(Field field, const std::string& text) {
    screen_->field(field)->textInputDidChange(text);
  }
  UIBarButtonItem& save() { return *screen_->navigationItem()->rightBarButtonItem(); }
  std::vector<ABPersonRef> stored() { return device_.people().copyArrayOfAllPeople(); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<Listener> listener_ = std::make_shared<Listener>();
  std::shared_ptr<ABNewPersonViewController> screen_ =
      std::make_shared<ABNewPersonViewController>();
};

TEST_F(NewPersonTest, ItHasATitleFiveFieldsSaveAndCancel) {
  EXPECT_EQ(screen_->title(), "New Contact");
  EXPECT_EQ(screen_->navigationItem()->leftBarButtonItem()->systemItem(),
            UIBarButtonSystemItem::kCancel);
  EXPECT_EQ(save().systemItem(), UIBarButtonSystemItem::kSave);
  const std::vector<std::string> names = {"First name", "Last name", "Company", "Phone", "Email"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto& field = screen_->field(static_cast<Field>(i));
    EXPECT_EQ(field->placeholder(), names[i]);
    EXPECT_NE(field->window(), nullptr);
    EXPECT_EQ(field->frame().x(), 16);
    EXPECT_GE(field->frame().height(), 44);
    EXPECT_GT(field->frame().width(), 300);
  }
  EXPECT_TRUE(screen_->field(Field::kFirstName)->isEditing());
}

TEST_F(NewPersonTest, WhatWasEnteredIsSavedWithoutSpaceAroundIt) {
  enter(Field::kFirstName, " Ann ");
  enter(Field::kLastName, "Reed");
  enter(Field::kCompany, "Works");
  enter(Field::kPhone, "+1 555 0100");
  enter(Field::kEmail, "ann@example.com ");
  EXPECT_TRUE(save().performAction());
  ASSERT_THAT(stored(), SizeIs(1));
  const ABPersonRef person = stored().front();
  EXPECT_EQ(person->firstName, "Ann");
  EXPECT_EQ(person->lastName, "Reed");
  EXPECT_EQ(person->organization, "Works");
  EXPECT_FALSE(person->isCompany);
  EXPECT_THAT(person->phones, ElementsAre(ABLabeledText{"_$!<Mobile>!$_", "+1 555 0100"}));
  EXPECT_THAT(person->emails, ElementsAre(ABLabeledText{"_$!<Home>!$_", "ann@example.com"}));
  EXPECT_THAT(listener_->people, ElementsAre(person));
}

TEST_F(NewPersonTest, ACompanyAloneIsACompany) {
  enter(Field::kCompany, "Works");
  screen_->saveAction();
  ASSERT_THAT(stored(), SizeIs(1));
  EXPECT_TRUE(stored().front()->isCompany);
  EXPECT_THAT(stored().front()->phones, IsEmpty());
  EXPECT_THAT(stored().front()->emails, IsEmpty());
}

TEST_F(NewPersonTest, NothingIsSavedWhileEverythingIsBlank) {
  EXPECT_FALSE(save().isEnabled());
  enter(Field::kPhone, "  ");
  EXPECT_FALSE(save().isEnabled());
  screen_->saveAction();
  EXPECT_THAT(stored(), IsEmpty());
  enter(Field::kPhone, "1");
  EXPECT_TRUE(save().isEnabled());
  enter(Field::kPhone, "");
  EXPECT_FALSE(save().isEnabled());
  EXPECT_THAT(listener_->people, IsEmpty());
}

TEST_F(NewPersonTest, CancelHandsOverNobody) {
  enter(Field::kFirstName, "Ann");
  EXPECT_TRUE(screen_->navigationItem()->leftBarButtonItem()->performAction());
  EXPECT_THAT(listener_->people, ElementsAre(nullptr));
  EXPECT_THAT(stored(), IsEmpty());
}

TEST_F(NewPersonTest, EscapeIsCancel) {
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_THAT(listener_->people, ElementsAre(nullptr));
}

TEST_F(NewPersonTest, AFailureIsToldAndTheScreenStays) {
  Dictionary info;
  info.set(kNSLocalizedDescriptionKey, "people.vcf: the disk is full");
  device_.people().failAdding(NSError("disk", 1, info));
  enter(Field::kFirstName, "Ann");
  screen_->saveAction();
  settle();
  const auto alert =
      std::dynamic_pointer_cast<UIAlertController>(screen_->presentedViewController());
  ASSERT_NE(alert, nullptr);
  EXPECT_EQ(alert->title(), "Unable to save the contact.");
  EXPECT_EQ(alert->message(), "people.vcf: the disk is full");
  EXPECT_THAT(listener_->people, IsEmpty());
  EXPECT_EQ(screen_->field(Field::kFirstName)->text(), "Ann");
}

TEST_F(NewPersonTest, ReturnGoesFromFieldToFieldAndEndsAtTheLast) {
  for (std::size_t i = 0; i + 1 < ABNewPersonViewController::kFieldCount; ++i) {
    screen_->field(static_cast<Field>(i))->textInputDidReturn();
    EXPECT_TRUE(screen_->field(static_cast<Field>(i + 1))->isEditing()) << i;
  }
  screen_->field(Field::kEmail)->textInputDidReturn();
  EXPECT_FALSE(screen_->field(Field::kEmail)->isEditing());
}

TEST_F(NewPersonTest, EndlessTextsAreSaved) {
  enter(Field::kLastName, std::string(10'000, 'x'));
  screen_->saveAction();
  ASSERT_THAT(stored(), SizeIs(1));
  EXPECT_EQ(stored().front()->lastName.size(), 10'000U);
}

}  // namespace
}  // namespace zephyl
