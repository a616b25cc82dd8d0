#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UITextField.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Delegate : public UITextFieldDelegate {
 public:
  bool textFieldShouldBeginEditing(UITextField& /*field*/) override { return tell("begin?"); }
  void textFieldDidBeginEditing(UITextField& /*field*/) override { tell("began"); }
  bool textFieldShouldEndEditing(UITextField& /*field*/) override { return tell("end?"); }
  void textFieldDidEndEditing(UITextField& /*field*/) override { tell("ended"); }
  bool textFieldShouldClear(UITextField& /*field*/) override { return tell("clear?"); }
  bool textFieldShouldReturn(UITextField& field) override {
    if (resigns) {
      field.resignFirstResponder();
    }
    return tell("return?");
  }

  std::vector<std::string> calls;
  std::string refused;
  bool resigns = false;

 private:
  bool tell(const std::string& call) {
    calls.push_back(call);
    return call != refused;
  }
};

class UITextFieldEditingTest : public ::testing::Test {
 protected:
  UITextFieldEditingTest() {
    field_->setFont(UIFont::systemFontOfSize(10));
    field_->setDelegate(delegate_);
    const std::pair<unsigned, const char*> events[] = {{kEditingDidBegin, "DidBegin"},
                                                       {kEditingChanged, "Changed"},
                                                       {kEditingDidEnd, "DidEnd"},
                                                       {kEditingDidEndOnExit, "DidEndOnExit"}};
    for (const auto& [event, name] : events) {
      field_->addTarget(
          delegate_,
          [this, text = std::string(name)](UIControl&) { delegate_->calls.push_back(text); },
          event);
    }
    window_->addSubview(field_);
    window_->layoutWindow();
  }
  fake::FakeTextInput& input() { return device_.uikit()->textInput(); }
  std::vector<std::string>& calls() { return delegate_->calls; }
  std::vector<std::string> texts() {
    fake::RecordingContext context;
    window_->layer()->render(context);
    return context.texts();
  }
  void press(UIKey key, const std::string& characters = {}) { window_->sendKey({key, characters}); }

  fake::Device device_;
  std::shared_ptr<Delegate> delegate_ = std::make_shared<Delegate>();
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UITextField> field_ = std::make_shared<UITextField>(CGRectMake(10, 20, 100, 44));
};

TEST_F(UITextFieldEditingTest, ATapBeginsEditing) {
  test::tap(*window_, *field_);
  EXPECT_TRUE(field_->isEditing());
  EXPECT_TRUE(field_->isFirstResponder());
  EXPECT_EQ(input().client(), field_.get());
  EXPECT_THAT(calls(), ElementsAre("begin?", "began", "DidBegin"));
}

TEST_F(UITextFieldEditingTest, ResigningEndsEditing) {
  field_->becomeFirstResponder();
  calls().clear();
  EXPECT_TRUE(field_->resignFirstResponder());
  EXPECT_FALSE(field_->isEditing());
  EXPECT_EQ(input().client(), nullptr);
  EXPECT_THAT(calls(), ElementsAre("end?", "ended", "DidEnd"));
  EXPECT_TRUE(field_->resignFirstResponder());
  EXPECT_EQ(calls().size(), 3U);
}

TEST_F(UITextFieldEditingTest, TheDelegateMayRefuse) {
  delegate_->refused = "begin?";
  EXPECT_FALSE(field_->becomeFirstResponder());
  EXPECT_FALSE(field_->isEditing());
  EXPECT_EQ(input().client(), nullptr);
  delegate_->refused = "end?";
  EXPECT_TRUE(field_->becomeFirstResponder());
  EXPECT_FALSE(field_->resignFirstResponder());
  EXPECT_TRUE(field_->isEditing());
  EXPECT_TRUE(field_->isFirstResponder());
}

TEST_F(UITextFieldEditingTest, AFieldThatIsDisabledOrInNoWindowIsNotTypedInto) {
  field_->setEnabled(false);
  EXPECT_FALSE(field_->becomeFirstResponder());
  const auto other = std::make_shared<UITextField>();
  EXPECT_FALSE(other->becomeFirstResponder());
  EXPECT_EQ(input().begun(), 0);
}

TEST_F(UITextFieldEditingTest, DisablingEndsEditing) {
  field_->becomeFirstResponder();
  field_->setEnabled(false);
  EXPECT_FALSE(field_->isEditing());
  EXPECT_FALSE(field_->isFirstResponder());
}

TEST_F(UITextFieldEditingTest, WhatIsTypedIsTold) {
  field_->becomeFirstResponder();
  calls().clear();
  input().type("ab");
  EXPECT_EQ(field_->text(), "ab");
  EXPECT_THAT(calls(), ElementsAre("Changed", "Changed"));
  EXPECT_EQ(input().updated(), 0);
  EXPECT_THAT(texts(), ElementsAre("ab"));
}

TEST_F(UITextFieldEditingTest, APastedLineBreakBecomesASpaceInTheHostToo) {
  field_->becomeFirstResponder();
  input().replace("a\nb");
  EXPECT_EQ(field_->text(), "a b");
  EXPECT_EQ(input().updated(), 1);
}

TEST_F(UITextFieldEditingTest, SettingTheTextTellsTheHostAndNoTarget) {
  field_->becomeFirstResponder();
  calls().clear();
  field_->setText("new");
  EXPECT_EQ(input().updated(), 1);
  EXPECT_THAT(calls(), IsEmpty());
  field_->setText("new");
  EXPECT_EQ(input().updated(), 1);
  field_->setFont(UIFont::systemFontOfSize(12));
  field_->setFrame(CGRectMake(10, 20, 200, 50));
  window_->layoutWindow();
  EXPECT_EQ(input().updated(), 3);
}

TEST_F(UITextFieldEditingTest, ReturnAsksTheDelegateAndEditingGoesOn) {
  field_->becomeFirstResponder();
  calls().clear();
  input().pressReturn();
  EXPECT_THAT(calls(), ElementsAre("return?", "DidEndOnExit"));
  EXPECT_TRUE(field_->isEditing());
  delegate_->refused = "return?";
  calls().clear();
  input().pressReturn();
  EXPECT_THAT(calls(), ElementsAre("return?"));
}

TEST_F(UITextFieldEditingTest, TheDelegateMayResignOnReturn) {
  delegate_->resigns = true;
  field_->becomeFirstResponder();
  input().pressReturn();
  EXPECT_FALSE(field_->isEditing());
}

TEST_F(UITextFieldEditingTest, TheClearButtonEmptiesTheField) {
  field_->setText("ab");
  field_->setClearButtonMode(UITextFieldViewMode::kAlways);
  window_->layoutWindow();
  test::tap(*window_, *field_->subviews().front());
  EXPECT_EQ(field_->text(), "");
  EXPECT_TRUE(field_->isEditing());
  EXPECT_THAT(calls(), ElementsAre("clear?", "Changed", "begin?", "began", "DidBegin"));
}

TEST_F(UITextFieldEditingTest, TheDelegateMayKeepTheText) {
  delegate_->refused = "clear?";
  field_->setText("ab");
  field_->setClearButtonMode(UITextFieldViewMode::kAlways);
  window_->layoutWindow();
  test::tap(*window_, *field_->subviews().front());
  EXPECT_EQ(field_->text(), "ab");
}

TEST_F(UITextFieldEditingTest, TabGoesToTheNextField) {
  const auto next = std::make_shared<UITextField>(CGRectMake(10, 80, 100, 44));
  window_->addSubview(next);
  field_->becomeFirstResponder();
  input().tab();
  EXPECT_TRUE(next->isEditing());
  EXPECT_FALSE(field_->isEditing());
  EXPECT_EQ(input().client(), next.get());
  input().tab(/*forwards=*/false);
  EXPECT_TRUE(field_->isEditing());
}

TEST_F(UITextFieldEditingTest, WithoutAHostThatTypesKeysAreAppended) {
  press(UIKey::kSpace, " ");
  EXPECT_TRUE(field_->text().empty());
  field_->becomeFirstResponder();
  press(UIKey::kCharacter, "a");
  press(UIKey::kCharacter, "\xC3\xA9");
  press(UIKey::kSpace, " ");
  EXPECT_EQ(field_->text(), "a\xC3\xA9 ");
  press(UIKey::kBackspace);
  press(UIKey::kBackspace);
  EXPECT_EQ(field_->text(), "a");
  press(UIKey::kBackspace);
  press(UIKey::kBackspace);
  EXPECT_EQ(field_->text(), "");
  calls().clear();
  press(UIKey::kReturn);
  EXPECT_THAT(calls(), ElementsAre("return?", "DidEndOnExit"));
}

TEST_F(UITextFieldEditingTest, AHostThatDrawsTheTextHasItToItself) {
  input().setDrawsText(true);
  field_->setText("ab");
  EXPECT_THAT(texts(), ElementsAre("ab"));
  field_->becomeFirstResponder();
  EXPECT_THAT(texts(), IsEmpty());
  press(UIKey::kCharacter, "c");
  EXPECT_EQ(field_->text(), "ab");
  field_->resignFirstResponder();
  EXPECT_THAT(texts(), ElementsAre("ab"));
}

TEST_F(UITextFieldEditingTest, WhatWasTypedLastStaysInView) {
  field_->setText("abcdefghijklmnopqrstuvwxyz");
  field_->becomeFirstResponder();
  EXPECT_THAT(texts(), ElementsAre("\xE2\x80\xA6hijklmnopqrstuvwxyz"));
}

TEST_F(UITextFieldEditingTest, AFieldThatLeavesItsWindowIsTypedIntoNoMore) {
  delegate_->refused = "end?";
  field_->becomeFirstResponder();
  field_->removeFromSuperview();
  EXPECT_FALSE(field_->isEditing());
  EXPECT_EQ(input().client(), nullptr);
  EXPECT_EQ(calls().back(), "DidEnd");
}

TEST_F(UITextFieldEditingTest, AFieldThatGoesIsTypedIntoNoMore) {
  field_->becomeFirstResponder();
  window_.reset();
  field_.reset();
  EXPECT_EQ(input().client(), nullptr);
}

TEST_F(UITextFieldEditingTest, ATargetMayTakeTheFieldAway) {
  field_->addTarget(
      delegate_,
      [this](UIControl& sender) {
        sender.removeFromSuperview();
        field_.reset();
      },
      kEditingChanged);
  field_->becomeFirstResponder();
  input().type("ab");
  EXPECT_EQ(field_, nullptr);
  EXPECT_EQ(input().client(), nullptr);
}

}  // namespace
}  // namespace zephyl
