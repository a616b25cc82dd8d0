#include "platform/uikit/text/UILabel.h"

#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

// In a 10-point font: 5 points a character, 12 a line.
class UILabelTest : public ::testing::Test {
 protected:
  UILabelTest() {
    device_.uikit()->screen().setScale(2);
    label_->setFont(UIFont::systemFontOfSize(10));
  }

  fake::Device device_;
  std::shared_ptr<UILabel> label_ = std::make_shared<UILabel>(CGRectMake(0, 0, 60, 20));
};

TEST_F(UILabelTest, BeginsLikeThePlatforms) {
  const UILabel label;
  EXPECT_EQ(label.text(), "");
  EXPECT_EQ(label.font(), UIFont::systemFontOfSize(17));
  EXPECT_EQ(label.textColor(), UIColor::labelColor());
  EXPECT_EQ(label.textAlignment(), NSTextAlignment::kNatural);
  EXPECT_EQ(label.numberOfLines(), 1);
  EXPECT_EQ(label.lineBreakMode(), NSLineBreakMode::kTruncatingTail);
  EXPECT_FALSE(label.isUserInteractionEnabled());
  EXPECT_FALSE(label.isOpaque());
  EXPECT_STREQ(label.className(), "UILabel");
}

TEST_F(UILabelTest, APlainTextHasTheLabelsFontAndColor) {
  label_->setTextColor(UIColor::redColor());
  label_->setText("ab");
  EXPECT_EQ(label_->attributedText(),
            NSAttributedString("ab", {UIFont::systemFontOfSize(10), UIColor::redColor()}));
  label_->setFont(UIFont::boldSystemFontOfSize(12));
  label_->setTextColor(UIColor::blueColor());
  EXPECT_EQ(label_->attributedText(),
            NSAttributedString("ab", {UIFont::boldSystemFontOfSize(12), UIColor::blueColor()}));
}

TEST_F(UILabelTest, AnAttributedTextKeepsItsColorsWhenTheFontIsSet) {
  NSAttributedString text("a", {UIFont::systemFontOfSize(9), UIColor::redColor()});
  text.append(NSAttributedString("b", {UIFont::systemFontOfSize(9), UIColor::blueColor()}));
  label_->setAttributedText(text);
  EXPECT_EQ(label_->attributedText(), text);
  label_->setFont(UIFont::systemFontOfSize(20));
  ASSERT_EQ(label_->attributedText().runs().size(), 2U);
  EXPECT_EQ(label_->attributedText().runs()[1].attributes.color, UIColor::blueColor());
  EXPECT_EQ(label_->attributedText().runs()[1].attributes.font, UIFont::systemFontOfSize(20));
}

TEST_F(UILabelTest, BytesThatAreNoTextAreReplaced) {
  label_->setText("a\xFF");
  EXPECT_EQ(label_->text(), "a\xEF\xBF\xBD");
}

TEST_F(UILabelTest, ASingleLineNeedsItsWidthWhateverThereIs) {
  label_->setText("one two three");
  EXPECT_EQ(label_->sizeThatFits({35, 10}), (CGSize{65, 12}));
  label_->sizeToFit();
  EXPECT_EQ(label_->frame(), CGRectMake(0, 0, 65, 12));
}

TEST_F(UILabelTest, MoreLinesAreWrapped) {
  label_->setText("one two three");
  label_->setNumberOfLines(0);
  EXPECT_EQ(label_->sizeThatFits({35, 10}), (CGSize{35, 24}));
  EXPECT_EQ(label_->sizeThatFits({20, 0}), (CGSize{20, 48}));
  EXPECT_EQ(label_->sizeThatFits({0, 0}), (CGSize{65, 12}));
  label_->setNumberOfLines(2);
  EXPECT_EQ(label_->sizeThatFits({20, 0}).height, 24);
  label_->setNumberOfLines(-5);
  EXPECT_EQ(label_->numberOfLines(), 0);
}

TEST_F(UILabelTest, SizesAreWholePixels) {
  label_->setFont(UIFont::systemFontOfSize(11));
  label_->setText("a");
  EXPECT_EQ(label_->sizeThatFits({}), (CGSize{5.5, 13.5}));
  label_->setText("");
  EXPECT_EQ(label_->sizeThatFits({}), CGSize());
}

TEST_F(UILabelTest, TheTextRectangleStandsAtTheCornerOfTheBounds) {
  label_->setText("one two three");
  EXPECT_EQ(label_->textRectForBounds(CGRectMake(3, 4, 35, 50), 0), CGRectMake(3, 4, 35, 24));
  EXPECT_EQ(label_->textRectForBounds(CGRectMake(3, 4, 35, 50), 1), CGRectMake(3, 4, 35, 12));
  EXPECT_EQ(label_->textRectForBounds(CGRectMake(3, 4, 0, 50), 1), CGRectMake(3, 4, 0, 0));
}

TEST_F(UILabelTest, SizesThatAreNoNumbersAreNoWidth) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  label_->setText("one two");
  label_->setNumberOfLines(0);
  EXPECT_EQ(label_->sizeThatFits({kNaN, kNaN}), (CGSize{35, 12}));
  EXPECT_EQ(label_->sizeThatFits({-20, -20}), (CGSize{35, 12}));
}

TEST_F(UILabelTest, IsReadByItsText) {
  EXPECT_FALSE(label_->isAccessibilityElement());
  label_->setText("Work");
  EXPECT_TRUE(label_->isAccessibilityElement());
  EXPECT_EQ(label_->accessibilityRole(), UIAccessibilityRole::kStaticText);
  EXPECT_EQ(label_->accessibilityLabel(), "Work");
  EXPECT_EQ(label_->describe(), "Work");
  EXPECT_TRUE(label_->accessibilityState().enabled);
  label_->setEnabled(false);
  EXPECT_FALSE(label_->accessibilityState().enabled);
}

}  // namespace
}  // namespace zephyl
