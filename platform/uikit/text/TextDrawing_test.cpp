#include "platform/uikit/text/TextDrawing.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TextDrawingTest : public ::testing::Test {
 protected:
  // 5 points a character, 12 a line.
  static NSAttributedString text(const std::string& string) {
    return {string, {UIFont::systemFontOfSize(10), UIColor::redColor()}};
  }

  fake::Device device_;
  fake::RecordingContext context_;
};

TEST_F(TextDrawingTest, ATextIsMeasuredOnOneLine) {
  EXPECT_EQ(sizeOfText(text("one two three")), (CGSize{65, 12}));
  EXPECT_EQ(sizeOfText("ab", UIFont::systemFontOfSize(20)), (CGSize{20, 24}));
  EXPECT_EQ(sizeOfText(text("")), CGSize());
}

TEST_F(TextDrawingTest, ABoundingRectangleIsAroundWrappedLines) {
  EXPECT_EQ(boundingRectWithSize(text("one two three"), {35, 999}), CGRectMake(0, 0, 35, 24));
  EXPECT_EQ(boundingRectWithSize(text(""), {35, 999}), CGRect());
  EXPECT_EQ(
      boundingRectWithSize(text("ab"), {std::numeric_limits<CGFloat>::quiet_NaN(), -1}).size.width,
      5);
}

TEST_F(TextDrawingTest, ATextIsDrawnAlignedInItsRectangle) {
  TextStyle style;
  style.alignment = NSTextAlignment::kCenter;
  style.maximumLines = 1;
  drawText(context_, text("ab"), CGRectMake(10, 20, 30, 40), style);
  EXPECT_THAT(context_.commands(), ElementsAre("text \"ab\" (20 20 10 12) 10 #ff0000ff"));
}

TEST_F(TextDrawingTest, NothingIsDrawnWithoutTextOrRoom) {
  drawText(context_, text(""), CGRectMake(10, 20, 30, 40));
  drawText(context_, text("a"), CGRectMake(10, 20, 0, 40));
  EXPECT_THAT(context_.commands(), IsEmpty());
}

TEST_F(TextDrawingTest, PixelsAreThoseOfTheScreen) {
  device_.uikit()->screen().setScale(2);
  EXPECT_EQ(ceiledToPixel(1.1), 1.5);
  EXPECT_EQ(ceiledToPixel(1.5 + 1e-9), 1.5);
  EXPECT_EQ(roundedToPixel(1.2), 1);
  EXPECT_EQ(roundedToPixel(-1.3), -1.5);
  EXPECT_EQ(ceiledToPixel(std::numeric_limits<CGFloat>::infinity()), 0);
}

}  // namespace
}  // namespace zephyl
