#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// In a 10-point font: 5 points a character, 12 a line, its baseline 9.5 points down.
class UILabelDrawingTest : public ::testing::Test {
 protected:
  UILabelDrawingTest() {
    device_.uikit()->screen().setScale(2);
    window_->addSubview(label_);
    label_->setFont(UIFont::systemFontOfSize(10));
    label_->setTextColor(UIColor::redColor());
  }
  std::vector<std::string> drawn() {
    fake::RecordingContext context;
    label_->layer()->render(context);
    return context.commands();
  }
  // Whether `change` made the label be drawn anew.
  template <class Change>
  bool damages(const Change& change) {
    (void)window_->takeDamage();
    change();
    return !window_->takeDamage().empty();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UILabel> label_ = std::make_shared<UILabel>(CGRectMake(10, 20, 60, 20));
};

TEST_F(UILabelDrawingTest, TheTextIsInTheMiddleOfTheHeight) {
  label_->setText("ab");
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 24 10 12) 10 #ff0000ff"));
  label_->setTextAlignment(NSTextAlignment::kRight);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (60 24 10 12) 10 #ff0000ff"));
}

TEST_F(UILabelDrawingTest, TheLeadingSideFollowsTheLanguage) {
  label_->setText("ab");
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 24 10 12) 10 #ff0000ff"));
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (60 24 10 12) 10 #ff0000ff"));
}

TEST_F(UILabelDrawingTest, WhatDoesNotFitIsShortened) {
  label_->setText("one two three four");
  EXPECT_THAT(drawn(), ElementsAre("text \"one two thr\xE2\x80\xA6\" (10 24 60 12) 10 #ff0000ff"));
}

TEST_F(UILabelDrawingTest, NoLineStandsOutOfTheHeight) {
  label_->setText("one two three four");
  label_->setNumberOfLines(0);
  label_->setFrame(CGRectMake(10, 20, 35, 30));
  EXPECT_THAT(drawn(),
              ElementsAre("text \"one two\nthree \xE2\x80\xA6\" (10 23 35 24) 10 #ff0000ff"));
}

TEST_F(UILabelDrawingTest, ALineThatIsTooHighIsCutAtTheEdges) {
  label_->setText("ab");
  label_->setFrame(CGRectMake(10, 20, 60, 8));
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 18 10 12) 10 #ff0000ff clip (10 20 60 8)"));
}

TEST_F(UILabelDrawingTest, ALabelWithoutTextOrRoomDrawsNothing) {
  EXPECT_THAT(drawn(), IsEmpty());
  label_->setText("ab");
  label_->setFrame(CGRectMake(10, 20, 0, 20));
  EXPECT_THAT(drawn(), IsEmpty());
}

TEST_F(UILabelDrawingTest, ALineIsShrunkToTheSmallestFactor) {
  label_->setText("abcdefghijklmnop");  // 80 points
  label_->setAdjustsFontSizeToFitWidth(true);
  label_->setMinimumScaleFactor(0.5);
  EXPECT_THAT(drawn(), ElementsAre("text \"abcdefghijklmnop\" (10 26.5 60 9) 7.5 #ff0000ff"));
  label_->setMinimumScaleFactor(0.8);
  EXPECT_THAT(drawn(),
              ElementsAre("text \"abcdefghijklmn\xE2\x80\xA6\" (10 26 60 9.6) 8 #ff0000ff"));
  label_->setMinimumScaleFactor(0);
  EXPECT_THAT(drawn(), ElementsAre("text \"abcdefghijk\xE2\x80\xA6\" (10 24 60 12) 10 #ff0000ff"));
}

TEST_F(UILabelDrawingTest, AShrunkLineStandsWhereItsAdjustmentSays) {
  label_->setText("abcdefghijklmnopqrstuvwx");  // 120 points
  label_->setAdjustsFontSizeToFitWidth(true);
  label_->setMinimumScaleFactor(0.5);
  const auto top = [&](UIBaselineAdjustment adjustment) {
    label_->setBaselineAdjustment(adjustment);
    fake::RecordingContext context;
    label_->layer()->render(context);
    return context.drawn().at(0).rect.y();
  };
  EXPECT_EQ(top(UIBaselineAdjustment::kAlignCenters), 27);
  EXPECT_EQ(top(UIBaselineAdjustment::kNone), 24);
  EXPECT_EQ(top(UIBaselineAdjustment::kAlignBaselines), 29);
}

TEST_F(UILabelDrawingTest, ADisabledLabelIsDimmed) {
  label_->setText("ab");
  label_->setEnabled(false);
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (10 24 10 12) 10 #ff000070"));
  EXPECT_EQ(label_->textColor(), UIColor::redColor());
}

TEST_F(UILabelDrawingTest, EachChangeIsDrawnAndWhatChangesNothingIsNot) {
  label_->setText("ab");
  EXPECT_FALSE(damages([&] { label_->setText("ab"); }));
  EXPECT_FALSE(damages([&] { label_->setFont(UIFont::systemFontOfSize(10)); }));
  EXPECT_FALSE(damages([&] { label_->setNumberOfLines(1); }));
  EXPECT_TRUE(damages([&] { label_->setText("cd"); }));
  EXPECT_TRUE(damages([&] { label_->setTextColor(UIColor::blueColor()); }));
  EXPECT_TRUE(damages([&] { label_->setTextAlignment(NSTextAlignment::kCenter); }));
  EXPECT_TRUE(damages([&] { label_->setEnabled(false); }));
  EXPECT_THAT(drawn(), ElementsAre("text \"cd\" (35 24 10 12) 10 #0000ff70"));
}

TEST_F(UILabelDrawingTest, AVeryLongTextIsShortenedToo) {
  label_->setText(std::string(100'000, 'x'));
  EXPECT_THAT(drawn(), ElementsAre("text \"xxxxxxxxxxx\xE2\x80\xA6\" (10 24 60 12) 10 #ff0000ff"));
}

}  // namespace
}  // namespace zephyl
