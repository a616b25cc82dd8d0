// What rows draw at their sides: chevrons, check marks, and the circles of editing.

#include <gtest/gtest.h>

#include "platform/uikit/tables/TableAccessoryView.h"
#include "platform/uikit/tables/TableDeleteButton.h"
#include "platform/uikit/tables/TableEditControl.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

class TableSignsTest : public ::testing::Test {
 protected:
  static std::vector<fake::RecordingContext::Command> drawn(UIView& view) {
    fake::RecordingContext context;
    view.drawRect(context, view.bounds());
    return context.drawn();
  }

  fake::Device device_;
};

TEST_F(TableSignsTest, TheChevronIsGreyAndTheCheckMarkTinted) {
  TableAccessoryView sign;
  EXPECT_TRUE(drawn(sign).empty());
  sign.setType(UITableViewCellAccessoryType::kDisclosureIndicator);
  ASSERT_EQ(drawn(sign).size(), 1U);
  const std::string grey = drawn(sign)[0].detail;
  EXPECT_EQ(sign.sizeThatFits({}), (CGSize{8, 13}));
  sign.setType(UITableViewCellAccessoryType::kCheckmark);
  EXPECT_NE(drawn(sign)[0].detail, grey);
  const std::string blue = drawn(sign)[0].detail;
  sign.setTintColor(UIColor::redColor());
  EXPECT_NE(drawn(sign)[0].detail, blue);
}

TEST_F(TableSignsTest, TheChevronPointsToTheTrailingSide) {
  TableAccessoryView sign;
  sign.setType(UITableViewCellAccessoryType::kDisclosureIndicator);
  const CGRect right = drawn(sign)[0].rect;
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  EXPECT_NE(drawn(sign)[0].rect, right);
}

TEST_F(TableSignsTest, AnEditControlDrawsWhatItDoes) {
  TableEditControl control;
  control.setFrame(CGRectMake(0, 0, 34, 44));
  control.setEditingStyle(UITableViewCellEditingStyle::kDelete);
  const auto minus = drawn(control);
  ASSERT_EQ(minus.size(), 2U);
  EXPECT_EQ(minus[0].name, "ellipse");
  EXPECT_EQ(minus[0].rect, CGRectMake(6, 11, 22, 22));
  control.setEditingStyle(UITableViewCellEditingStyle::kInsert);
  EXPECT_EQ(drawn(control).size(), 3U);
  control.setEditingStyle(UITableViewCellEditingStyle::kMultiSelect);
  EXPECT_EQ(drawn(control)[0].name, "stroke");
  EXPECT_FALSE(control.isUserInteractionEnabled());
  EXPECT_FALSE(control.isAccessibilityElement());
  control.setSelected(true);
  EXPECT_EQ(drawn(control)[0].name, "ellipse");
}

TEST_F(TableSignsTest, TheDeleteButtonIsAsWideAsItsTitleNeedsWithinReason) {
  TableDeleteButton button;
  button.setFrame(CGRectMake(0, 0, 74, 44));
  button.setTitle("X");
  EXPECT_EQ(button.preferredWidth(), 74);
  button.setTitle("Delete it now");
  EXPECT_NEAR(button.preferredWidth(), 13 * 8.5 + 30, 1);
  button.setTitle(std::string(100000, 'x'));
  EXPECT_EQ(button.preferredWidth(), 200);
  EXPECT_EQ(button.accessibilityRole(), UIAccessibilityRole::kButton);
}

}  // namespace
}  // namespace zephyl
