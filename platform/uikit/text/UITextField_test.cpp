#include "platform/uikit/text/UITextField.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// In a 10-point font: 5 points a character, 12 a line.
class UITextFieldTest : public ::testing::Test {
 protected:
  UITextFieldTest() {
    device_.uikit()->screen().setScale(2);
    field_->setFont(UIFont::systemFontOfSize(10));
    field_->setTextColor(UIColor::redColor());
    window_->addSubview(field_);
  }
  std::vector<std::string> drawn() {
    window_->layoutWindow();
    fake::RecordingContext context;
    field_->layer()->render(context);
    return context.commands();
  }
  void mirror() {
    device_.uikit()->screen().setUserInterfaceLayoutDirection(
        UIUserInterfaceLayoutDirection::kRightToLeft);
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UITextField> field_ = std::make_shared<UITextField>(CGRectMake(10, 20, 100, 44));
};

TEST_F(UITextFieldTest, BeginsLikeThePlatforms) {
  const UITextField field;
  EXPECT_EQ(field.text(), "");
  EXPECT_EQ(field.placeholder(), "");
  EXPECT_EQ(field.font(), UIFont::systemFontOfSize(17));
  EXPECT_EQ(field.textColor(), UIColor::labelColor());
  EXPECT_EQ(field.textAlignment(), NSTextAlignment::kNatural);
  EXPECT_EQ(field.borderStyle(), UITextBorderStyle::kNone);
  EXPECT_EQ(field.clearButtonMode(), UITextFieldViewMode::kNever);
  EXPECT_EQ(field.contentVerticalAlignment(), UIControlContentVerticalAlignment::kCenter);
  EXPECT_FALSE(field.isEditing());
  EXPECT_STREQ(field.className(), "UITextField");
}

TEST_F(UITextFieldTest, TheTextIsInTheMiddleOfTheHeight) {
  field_->setText("ab");
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 36 10 12) 10 #ff0000ff"));
  field_->setTextAlignment(NSTextAlignment::kRight);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (100 36 10 12) 10 #ff0000ff"));
  field_->setContentVerticalAlignment(UIControlContentVerticalAlignment::kBottom);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (100 52 10 12) 10 #ff0000ff"));
  field_->setContentVerticalAlignment(UIControlContentVerticalAlignment::kTop);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (100 20 10 12) 10 #ff0000ff"));
}

TEST_F(UITextFieldTest, ThePlaceholderStandsForAnEmptyText) {
  EXPECT_THAT(drawn(), IsEmpty());
  field_->setPlaceholder("Title");
  EXPECT_THAT(drawn(), ElementsAre("text \"Title\" (10 36 25 12) 10 #3c3c434d"));
  field_->setText("ab");
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 36 10 12) 10 #ff0000ff"));
}

TEST_F(UITextFieldTest, ALongTextIsShortened) {
  field_->setText(std::string(100'000, 'x'));
  EXPECT_THAT(drawn(), ElementsAre("text \"xxxxxxxxxxxxxxxxxxx\xE2\x80\xA6\" (10 36 100 12) 10 "
                                   "#ff0000ff"));
}

TEST_F(UITextFieldTest, TextIsOneLineOfCharacters) {
  field_->setText("a\nb\r\xFF");
  EXPECT_EQ(field_->text(), "a b \xEF\xBF\xBD");
  field_->setPlaceholder("a\nb");
  EXPECT_EQ(field_->placeholder(), "a b");
}

TEST_F(UITextFieldTest, ABorderInsetsTheText) {
  const CGRect bounds = CGRectMake(0, 0, 100, 44);
  EXPECT_EQ(field_->textRectForBounds(bounds), bounds);
  EXPECT_EQ(field_->editingRectForBounds(bounds), bounds);
  field_->setBorderStyle(UITextBorderStyle::kRoundedRect);
  EXPECT_EQ(field_->textRectForBounds(bounds), CGRectMake(7, 2, 86, 40));
  EXPECT_THAT(drawn(), ElementsAre("fill (10 20 100 44) r=5 #ffffffff",
                                   "stroke (10 20 100 44) r=5 w=0.5 #c7c7ccff"));
}

TEST_F(UITextFieldTest, TheClearButtonTakesRoomOnTheTrailingSide) {
  const CGRect bounds = CGRectMake(0, 0, 100, 44);
  field_->setClearButtonMode(UITextFieldViewMode::kAlways);
  EXPECT_EQ(field_->textRectForBounds(bounds), bounds);
  field_->setText("ab");
  EXPECT_EQ(field_->textRectForBounds(bounds), CGRectMake(0, 0, 81, 44));
  EXPECT_EQ(field_->clearButtonRectForBounds(bounds), CGRectMake(81, 12.5, 19, 19));
  field_->setBorderStyle(UITextBorderStyle::kRoundedRect);
  EXPECT_EQ(field_->textRectForBounds(bounds), CGRectMake(7, 2, 69, 40));
  EXPECT_EQ(field_->clearButtonRectForBounds(bounds), CGRectMake(76, 12.5, 19, 19));
  mirror();
  EXPECT_EQ(field_->textRectForBounds(bounds), CGRectMake(24, 2, 69, 40));
  EXPECT_EQ(field_->clearButtonRectForBounds(bounds), CGRectMake(5, 12.5, 19, 19));
}

TEST_F(UITextFieldTest, TheClearButtonIsShownWhenItsModeSays) {
  const auto shown = [&] {
    window_->layoutWindow();
    return !field_->subviews().front()->isHidden();
  };
  field_->setText("ab");
  EXPECT_FALSE(shown());
  field_->setClearButtonMode(UITextFieldViewMode::kWhileEditing);
  EXPECT_FALSE(shown());
  field_->becomeFirstResponder();
  EXPECT_TRUE(shown());
  field_->setClearButtonMode(UITextFieldViewMode::kUnlessEditing);
  EXPECT_FALSE(shown());
  field_->resignFirstResponder();
  EXPECT_TRUE(shown());
  field_->setText("");
  EXPECT_FALSE(shown());
}

TEST_F(UITextFieldTest, TheLeadingSideFollowsTheLanguage) {
  field_->setText("ab");
  mirror();
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (100 36 10 12) 10 #ff0000ff"));
}

TEST_F(UITextFieldTest, NeedsTheSizeOfItsText) {
  field_->setPlaceholder("Title");
  EXPECT_EQ(field_->sizeThatFits({}), (CGSize{25, 12}));
  field_->setText("ab");
  EXPECT_EQ(field_->sizeThatFits({}), (CGSize{10, 12}));
  field_->setBorderStyle(UITextBorderStyle::kRoundedRect);
  EXPECT_EQ(field_->sizeThatFits({}), (CGSize{24, 34}));
}

TEST_F(UITextFieldTest, BoundsThatAreTooSmallLeaveNoRoom) {
  field_->setBorderStyle(UITextBorderStyle::kRoundedRect);
  field_->setClearButtonMode(UITextFieldViewMode::kAlways);
  field_->setText("ab");
  EXPECT_EQ(field_->textRectForBounds({}).size, CGSize());
  field_->setFrame(CGRectMake(0, 0, std::numeric_limits<CGFloat>::quiet_NaN(), 0));
  EXPECT_THAT(drawn(), ::testing::Not(::testing::Contains(::testing::HasSubstr("\"ab\""))));
}

TEST_F(UITextFieldTest, IsReadAsAFieldNamedByItsPlaceholder) {
  field_->setPlaceholder("Title");
  EXPECT_EQ(accessibilityDescription(*field_), "textField \"Title\"\n");
  field_->setText("Work");
  field_->setClearButtonMode(UITextFieldViewMode::kAlways);
  window_->layoutWindow();
  EXPECT_EQ(accessibilityDescription(*field_),
            "textField \"Title\" value \"Work\"\n  button \"Clear text\"\n");
  field_->becomeFirstResponder();
  EXPECT_TRUE(field_->accessibilityState().focused);
  EXPECT_EQ(field_->describe(), "Work");
}

TEST_F(UITextFieldTest, WhatChangesNothingIsNotDrawnAnew) {
  field_->setText("ab");
  field_->setPlaceholder("c");
  window_->layoutWindow();
  (void)window_->takeDamage();
  field_->setText("ab");
  field_->setPlaceholder("c");
  field_->setFont(UIFont::systemFontOfSize(10));
  field_->setBorderStyle(UITextBorderStyle::kNone);
  EXPECT_TRUE(window_->takeDamage().empty());
  field_->setText("abc");
  EXPECT_FALSE(window_->takeDamage().empty());
}

}  // namespace
}  // namespace zephyl
