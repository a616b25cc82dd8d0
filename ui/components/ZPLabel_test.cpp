#include "ui/components/ZPLabel.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// In a 10-point font: 5 points a character, 12 a line.
class ZPLabelTest : public ::testing::Test {
 protected:
  ZPLabelTest() {
    label_->setFont(UIFont::systemFontOfSize(10));
    label_->setText("one two three");
  }
  std::vector<std::string> drawn() {
    fake::RecordingContext context;
    label_->layer()->render(context);
    return context.commands();
  }

  fake::Device device_;
  std::shared_ptr<ZPLabel> label_ = std::make_shared<ZPLabel>(CGRectMake(20, 0, 75, 12));
};

TEST_F(ZPLabelTest, TextKeepsAwayFromBothEdges) {
  EXPECT_THAT(drawn(), ElementsAre("text \"one two three\" (25 0 65 12) 10 #000000ff"));
  label_->setTextAlignment(NSTextAlignment::kRight);
  label_->setText("ab");
  EXPECT_THAT(drawn(), ElementsAre("text \"ab\" (80 0 10 12) 10 #000000ff"));
}

TEST_F(ZPLabelTest, TextIsShortenedToTheNarrowerRectangle) {
  label_->setFrame(CGRectMake(20, 0, 74, 12));
  EXPECT_THAT(drawn(), ElementsAre("text \"one two thr\xE2\x80\xA6\" (25 0 60 12) 10 #000000ff"));
  label_->setFrame(CGRectMake(20, 0, 9, 12));
  EXPECT_THAT(drawn(), IsEmpty());
}

// Kept: bounds and lines do not count.
TEST_F(ZPLabelTest, TheTextRectangleIsThatOfAWideAreaAndFivePointsOnEitherSide) {
  EXPECT_EQ(label_->textRectForBounds(CGRectMake(7, 8, 20, 5), 1), CGRectMake(-5, 0, 75, 12));
  label_->setText(std::string(250, 'x'));
  EXPECT_EQ(label_->textRectForBounds({}, 1), CGRectMake(-5, 0, 199 * 5 + 10, 24));
  label_->setText("");
  EXPECT_EQ(label_->textRectForBounds({}, 1), CGRectMake(-5, 0, 10, 0));
}

TEST_F(ZPLabelTest, IsAsLargeAsItsTextWithTheEdges) {
  label_->sizeToFit();
  EXPECT_EQ(label_->frame(), CGRectMake(20, 0, 75, 12));
  EXPECT_STREQ(label_->className(), "ZPLabel");
}

}  // namespace
}  // namespace zephyl
