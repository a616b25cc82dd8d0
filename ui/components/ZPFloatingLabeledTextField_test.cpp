#include "ui/components/ZPFloatingLabeledTextField.h"

#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/foundation/Value.h"
#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

// A line of the label's first font is 20.4 points high, of the floating label's 14.4.
constexpr CGFloat kFirstLine = 1.2 * 17;
constexpr CGFloat kFloatingLine = 1.2 * 12;

class ZPFloatingLabeledTextFieldTest : public ::testing::Test {
 protected:
  ZPFloatingLabeledTextFieldTest() {
    device_.uikit()->screen().setScale(2);
    window_->addSubview(field_);
  }
  UILabel& label() { return *field_->floatingLabel(); }
  void layout() { window_->layoutWindow(); }
  void mirror() {
    device_.uikit()->screen().setUserInterfaceLayoutDirection(
        UIUserInterfaceLayoutDirection::kRightToLeft);
  }
  // The label's x once it was placed for the alignment.
  CGFloat x(NSTextAlignment alignment) {
    field_->setTextAlignment(alignment);
    field_->setLabelOriginForTextAlignment();
    return label().frame().x();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<ZPFloatingLabeledTextField> field_ =
      std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(30, 3.5, 340, 44));
};

TEST_F(ZPFloatingLabeledTextFieldTest, BeginsWithAnInvisibleLabel) {
  EXPECT_EQ(label().alpha(), 0);
  EXPECT_EQ(label().superview(), field_.get());
  EXPECT_EQ(label().text(), "");
  EXPECT_EQ(field_->floatingLabelYPadding(), std::nullopt);
  EXPECT_EQ(field_->floatingLabelFont(), UIFont::boldSystemFontOfSize(12));
  EXPECT_EQ(field_->floatingLabelTextColor(), UIColor::grayColor());
  EXPECT_EQ(field_->floatingLabelActiveTextColor(), std::nullopt);
  EXPECT_STREQ(field_->className(), "ZPFloatingLabeledTextField");
}

TEST_F(ZPFloatingLabeledTextFieldTest, APlaceholderSizesAndPlacesTheLabel) {
  field_->setPlaceholder("Title");
  EXPECT_EQ(field_->placeholder(), "Title");
  EXPECT_EQ(label().text(), "Title");
  EXPECT_EQ(label().frame(), CGRectMake(0, kFirstLine, 42.5, 20.5));
  field_->setFloatingLabelYPadding(4);
  field_->setPlaceholder("Name");
  EXPECT_EQ(label().frame(), CGRectMake(0, kFirstLine + 4, 34, 20.5));
}

TEST_F(ZPFloatingLabeledTextFieldTest, APlaceholderIsPlacedByTheAlignment) {
  field_->setTextAlignment(NSTextAlignment::kRight);
  field_->setPlaceholder("Name");
  EXPECT_EQ(label().frame().maxX(), 340);
  field_->setTextAlignment(NSTextAlignment::kCenter);
  field_->setPlaceholder("Title");
  EXPECT_EQ(label().frame().midX(), 170);
}

TEST_F(ZPFloatingLabeledTextFieldTest, TheLabelStandsWhereTheTextDoes) {
  field_->setPlaceholder("Name");
  EXPECT_EQ(x(NSTextAlignment::kLeft), 0);
  EXPECT_EQ(x(NSTextAlignment::kCenter), 153);
  EXPECT_EQ(x(NSTextAlignment::kRight), 306);
  EXPECT_EQ(x(NSTextAlignment::kNatural), 0);
  mirror();
  EXPECT_EQ(x(NSTextAlignment::kNatural), 306);
  EXPECT_EQ(x(NSTextAlignment::kLeft), 0);
  EXPECT_EQ(label().frame().y(), kFirstLine);
}

TEST_F(ZPFloatingLabeledTextFieldTest, TheLabelGetsItsFontAtLayout) {
  EXPECT_EQ(label().font(), UIFont::systemFontOfSize(17));
  layout();
  EXPECT_EQ(label().font(), UIFont::boldSystemFontOfSize(12));
  field_->setFloatingLabelFont(UIFont::systemFontOfSize(11));
  layout();
  EXPECT_EQ(label().font(), UIFont::systemFontOfSize(11));
  field_->setFloatingLabelFont(std::nullopt);
  layout();
  EXPECT_EQ(label().font(), UIFont::systemFontOfSize(11));
}

TEST_F(ZPFloatingLabeledTextFieldTest, TheTextIsLowerByTheLabelAndThePadding) {
  layout();
  const CGRect bounds = CGRectMake(0, 0, 340, 44);
  field_->setFloatingLabelYPadding(4);
  constexpr CGFloat kDown = kFloatingLine + 4;
  EXPECT_EQ(field_->textRectForBounds(bounds), CGRectMake(0, kDown, 340, 44 - kDown));
  EXPECT_EQ(field_->editingRectForBounds(bounds), CGRectMake(0, kDown, 340, 44 - kDown));
  EXPECT_EQ(field_->clearButtonRectForBounds(bounds),
            CGRectOffset(CGRectMake(321, 12.5, 19, 19), 0, kDown / 2));
  field_->setFloatingLabelYPadding(std::nullopt);
  EXPECT_EQ(field_->textRectForBounds(bounds).y(), kFloatingLine);
  field_->setFloatingLabelYPadding(std::numeric_limits<CGFloat>::quiet_NaN());
  EXPECT_EQ(field_->textRectForBounds(bounds).y(), kFloatingLine);
}

TEST_F(ZPFloatingLabeledTextFieldTest, TheLabelHasTheTintWhileTheFieldIsTypedInto) {
  field_->setTintColor(UIColor::redColor());
  layout();
  EXPECT_EQ(label().textColor(), UIColor::grayColor());
  field_->becomeFirstResponder();
  layout();
  EXPECT_EQ(label().textColor(), UIColor::redColor());
  field_->setTintColor(UIColor::greenColor());
  layout();
  EXPECT_EQ(label().textColor(), UIColor::greenColor());
  field_->setFloatingLabelActiveTextColor(UIColor::blueColor());
  layout();
  EXPECT_EQ(label().textColor(), UIColor::blueColor());
  field_->resignFirstResponder();
  field_->setFloatingLabelTextColor(UIColor::blackColor());
  layout();
  EXPECT_EQ(label().textColor(), UIColor::blackColor());
}

// Kept: the label keeps the width of the font that it had when it got its text, and its own text
// begins at its left, so that only a placeholder set after the first layout is flush.
TEST_F(ZPFloatingLabeledTextFieldTest, WhatIsSeenOfALabelIsFlushFromTheFirstLayoutOn) {
  const auto seen = [this](NSTextAlignment alignment, const char* placeholder) {
    field_->setTextAlignment(alignment);
    field_->setPlaceholder(placeholder);
    field_->setText("Work");
    layout();
    device_.uikit()->displayLink().runUntilIdle();
    fake::RecordingContext context;
    label().layer()->render(context);
    return context.commands();
  };
  using Commands = std::vector<std::string>;
  EXPECT_EQ(seen(NSTextAlignment::kRight, "Name"),
            (Commands{"text \"Name\" (306 5 24 14.4) 12 bold #808080ff"}));
  EXPECT_EQ(seen(NSTextAlignment::kRight, "Title"),
            (Commands{"text \"Title\" (310 2 30 14.4) 12 bold #808080ff"}));
  EXPECT_EQ(seen(NSTextAlignment::kCenter, "Name"),
            (Commands{"text \"Name\" (158 2 24 14.4) 12 bold #808080ff"}));
}

TEST_F(ZPFloatingLabeledTextFieldTest, AnArchivedFieldGivesItsLabelThePlaceholder) {
  const ZPFloatingLabeledTextField field(
      Dictionary{{"UIPlaceholder", "Title"}, {"UIText", "Work"}});
  EXPECT_EQ(field.placeholder(), "Title");
  EXPECT_EQ(field.text(), "Work");
  EXPECT_EQ(field.floatingLabel()->text(), "Title");
  EXPECT_EQ(field.floatingLabelFont(), UIFont::boldSystemFontOfSize(12));
  const ZPFloatingLabeledTextField broken(Dictionary{{"UIPlaceholder", 5}});
  EXPECT_EQ(broken.placeholder(), "");
}

}  // namespace
}  // namespace zephyl
