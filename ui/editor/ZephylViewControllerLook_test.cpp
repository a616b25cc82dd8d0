// How the form looks on each release and in both directions of writing: fonts, lines under fields,
// colours and places.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/controls/UISegmentedControl.h"

#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using Screen = ZephylViewController;

class EditorLooks : public EditorTest {
 protected:
  static GroupBuilder masking() {
    return GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true);
  }
  // The only layer of the view that is no subview's.
  static std::shared_ptr<CALayer> lineIn(const UIView& view) {
    std::shared_ptr<CALayer> line;
    for (const auto& layer : view.layer()->sublayers()) {
      bool isView = false;
      for (const auto& subview : view.subviews()) {
        isView = isView || subview->layer() == layer;
      }
      if (!isView) {
        EXPECT_EQ(line, nullptr);
        line = layer;
      }
    }
    return line;
  }
  void expectLineUnder(std::int64_t tag, const UIColor& color) {
    const auto above = field(tag);
    ASSERT_NE(above, nullptr);
    const auto line = lineIn(*above->superview());
    ASSERT_NE(line, nullptr);
    const CGRect frame = above->frame();
    EXPECT_EQ(line->frame(), CGRectMake(frame.x(), frame.maxY() - 1, 390, 1));
    EXPECT_EQ(line->state().borderWidth, 1);
    EXPECT_EQ(line->state().borderColor, color.colorWithAlphaComponent(0.6));
    EXPECT_TRUE(above->layer()->masksToBounds());
  }
  void writeFromTheRight() {
    device_.uikit()->screen().setUserInterfaceLayoutDirection(
        UIUserInterfaceLayoutDirection::kRightToLeft);
  }
};

TEST_F(EditorLooks, TheTitleIsInTwoSizes) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(field(Screen::kTitleTag)->font(), UIFont::systemFontOfSize(15));
  EXPECT_EQ(field(Screen::kTitleTag)->floatingLabelFont(), UIFont::systemFontOfSize(11));
}

TEST_F(EditorLooks, ALightGrayLineIsUnderBothFieldsBeforeVersionThirteen) {
  for (const char* version : {"6.0", "9.0", "11.4"}) {
    device_.device().setSystemVersion(version);
    edit(group(masking()));
    expectLineUnder(Screen::kTitleTag, UIColor::lightGrayColor());
    expectLineUnder(Screen::kMaskedMessageTag, UIColor::lightGrayColor());
  }
}

TEST_F(EditorLooks, TheLineIsTheSystemsGrayFromVersionThirteen) {
  for (const char* version : {"13.0", "14.0"}) {
    device_.device().setSystemVersion(version);
    edit(group(masking()));
    expectLineUnder(Screen::kTitleTag, UIColor::systemGrayColor());
    expectLineUnder(Screen::kMaskedMessageTag, UIColor::systemGrayColor());
  }
}

TEST_F(EditorLooks, TheHeaderIsAsWideAsTheScreen) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(editor_->headerView()->frame(), CGRectMake(0, 0, 390, 44));
}

TEST_F(EditorLooks, TheSegmentsAreOnTheSystemsBackgroundFromVersionThirteen) {
  const auto segments = [this] { return editor_->viewForHeaderInSection(table(), 4); };
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(segments()->backgroundColor(), UIColor::whiteColor());
  device_.device().setSystemVersion("13.0");
  EXPECT_EQ(segments()->backgroundColor(), UIColor::systemBackgroundColor());
}

TEST_F(EditorLooks, FromTheRightTheMaskedMessageBeginsThere) {
  writeFromTheRight();
  edit(masking());
  EXPECT_EQ(field(Screen::kMaskedMessageTag)->frame(), CGRectMake(0, 0, 375, 44));
  EXPECT_EQ(lineIn(*field(Screen::kMaskedMessageTag)->superview())->frame(),
            CGRectMake(-15, 43, 390, 1));
}

TEST_F(EditorLooks, FromTheRightTheSwatchLiesAtTheOtherEnd) {
  writeFromTheRight();
  edit(GroupBuilder(7, "Family"));
  UITableViewCell row(UITableViewCellStyle::kValue1, "defaultCell");
  row.setFrame(CGRectMake(0, 0, 400, 44));
  editor_->configureTableCell(row, {1, 2});
  row.layoutIfNeeded();
  // The chevron is beside the content.
  ASSERT_GT(row.contentView()->frame().x(), 0);
  const auto swatch = row.contentView()->viewWithTag(Screen::kMarkerColorTag);
  EXPECT_EQ(swatch->convertRectToView(swatch->bounds(), &row), CGRectMake(-25, 10, 70, 24));
}

TEST_F(EditorLooks, FromTheRightTheFootersAreAlignedThere) {
  writeFromTheRight();
  edit(GroupBuilder(7, "Family"));
  for (const std::int64_t section : {2, 3}) {
    EXPECT_EQ(footerLabel(section)->textAlignment(), NSTextAlignment::kRight);
    EXPECT_EQ(footerLabel(section)->frame().x(), 10);
    EXPECT_EQ(footerLabel(section)->frame().width(), 370);
  }
}

// Kept: rows of the form can be tapped while the table is edited.
TEST_F(EditorLooks, ARowCanBeTappedWhileTheTableIsEdited) {
  edit(GroupBuilder(7, "Family"));
  table().setEditing(true, /*animated=*/false);
  settle();
  tapRow(4, 0);
  EXPECT_NE(navigation_->presentedViewController(), nullptr);
}

}  // namespace
}  // namespace zephyl::test
