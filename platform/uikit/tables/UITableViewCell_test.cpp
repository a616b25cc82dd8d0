#include "platform/uikit/tables/UITableViewCell.h"

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controls/UISwitch.h"
#include "platform/uikit/tables/TableAccessoryView.h"
#include "platform/uikit/tables/TableEditControl.h"
#include "platform/uikit/testing/TreeBuilder.h"
#include "platform/uikit/text/UIImageView.h"
#include "platform/uikit/text/UILabel.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class UITableViewCellTest : public ::testing::Test {
 protected:
  // A row of 320 by 44 points in a window, laid out.
  std::shared_ptr<UITableViewCell> show(UITableViewCellStyle style, const std::string& text,
                                        const std::string& detail = {}) {
    auto cell = std::make_shared<UITableViewCell>(style);
    cell->textLabel()->setText(text);
    if (cell->detailTextLabel() != nullptr) {
      cell->detailTextLabel()->setText(detail);
    }
    window_->addSubview(cell);
    window_->layoutWindow();
    return cell;
  }
  void rightToLeft() {
    device_.uikit()->screen().setUserInterfaceLayoutDirection(
        UIUserInterfaceLayoutDirection::kRightToLeft);
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
};

TEST_F(UITableViewCellTest, ItsTextBeginsAtTheMarginAndIsAsHighAsTheRow) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 288, 44));
  EXPECT_EQ(cell->textLabel()->font().pointSize(), 17);
  EXPECT_EQ(cell->detailTextLabel(), nullptr);
  cell->setFrame(CGRectMake(0, 0, 414, 44));
  window_->layoutWindow();
  EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(20, 0, 374, 44));
}

TEST_F(UITableViewCellTest, AValueStandsOnTheTrailingSide) {
  const auto cell = show(UITableViewCellStyle::kValue1, "Work", "On");
  const CGRect value = cell->detailTextLabel()->frame();
  EXPECT_NEAR(value.width(), 17, 0.5);
  EXPECT_EQ(value.maxX(), 304);
  EXPECT_LE(cell->textLabel()->frame().maxX(), value.x() - 6);
}

TEST_F(UITableViewCellTest, ATextThatNeedsTheRoomLeavesTheValueTheRest) {
  const auto cell = show(UITableViewCellStyle::kValue1, std::string(100, 'w'), "On");
  EXPECT_EQ(cell->textLabel()->frame().width(), 282);
  EXPECT_EQ(cell->detailTextLabel()->frame().width(), 0);
}

TEST_F(UITableViewCellTest, ASubtitleStandsUnderTheTextAndBothInTheMiddle) {
  const auto cell = show(UITableViewCellStyle::kSubtitle, "Work", "Colleagues");
  const CGRect text = cell->textLabel()->frame();
  const CGRect detail = cell->detailTextLabel()->frame();
  EXPECT_EQ(cell->detailTextLabel()->font().pointSize(), 12);
  EXPECT_NEAR(detail.y(), text.maxY(), 1e-6);
  EXPECT_NEAR(text.y(), 44 - detail.maxY(), 0.5);
  cell->detailTextLabel()->setText("");
  window_->layoutWindow();
  EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 288, 44));
}

TEST_F(UITableViewCellTest, APictureGoesBeforeTheTextNoHigherThanTheRow) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  auto bitmap = std::make_shared<CGBitmap>(CGBitmap{40, 88, {}});
  bitmap->pixels.resize(static_cast<std::size_t>(40 * 88));
  cell->imageView()->setImage(std::make_shared<UIImage>(CGBitmapRef(bitmap), 1.0));
  window_->layoutWindow();
  EXPECT_EQ(cell->imageView()->frame(), CGRectMake(16, 0, 20, 44));
  EXPECT_EQ(cell->textLabel()->frame().x(), 51);
}

TEST_F(UITableViewCellTest, AnAccessoryTakesItsRoomFromTheContent) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  auto& sign = *test::viewOf<TableAccessoryView>(*cell);
  EXPECT_TRUE(sign.isHidden());
  cell->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  window_->layoutWindow();
  EXPECT_FALSE(sign.isHidden());
  EXPECT_EQ(sign.frame().maxX(), 304);
  EXPECT_EQ(cell->contentView()->frame(), CGRectMake(0, 0, 286, 44));
  EXPECT_EQ(cell->textLabel()->frame(), CGRectMake(16, 0, 270, 44));
}

TEST_F(UITableViewCellTest, AViewOfTheScreensGoesBeforeTheAccessorySign) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Enable");
  const auto toggle = std::make_shared<UISwitch>();
  cell->setAccessoryType(UITableViewCellAccessoryType::kCheckmark);
  cell->setAccessoryView(toggle);
  window_->layoutWindow();
  EXPECT_EQ(toggle->frame().maxX(), 304);
  EXPECT_EQ(cell->contentView()->frame().maxX(), 245);
  EXPECT_TRUE(test::viewOf<TableAccessoryView>(*cell)->isHidden());
  cell->setAccessoryView(nullptr);
  EXPECT_EQ(toggle->superview(), nullptr);
}

TEST_F(UITableViewCellTest, AControlInTheRowIsNamedAsTheRow) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Enable");
  const auto toggle = std::make_shared<UISwitch>();
  cell->setAccessoryView(toggle);
  window_->layoutWindow();
  EXPECT_EQ(toggle->accessibilityLabel(), "Enable");
  cell->textLabel()->setText("Mask");
  window_->layoutWindow();
  EXPECT_EQ(toggle->accessibilityLabel(), "Mask");
  const auto named = std::make_shared<UISwitch>();
  named->setAccessibilityLabel("Own");
  cell->setAccessoryView(named);
  window_->layoutWindow();
  EXPECT_EQ(named->accessibilityLabel(), "Own");
}

TEST_F(UITableViewCellTest, EverythingIsMirroredInRightToLeftLanguages) {
  rightToLeft();
  const auto cell = show(UITableViewCellStyle::kValue1, "Work", "On");
  cell->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  window_->layoutWindow();
  EXPECT_EQ(test::viewOf<TableAccessoryView>(*cell)->frame().x(), 16);
  EXPECT_EQ(cell->contentView()->frame(), CGRectMake(34, 0, 286, 44));
  EXPECT_EQ(cell->textLabel()->frame().maxX(), 270);
  EXPECT_EQ(cell->detailTextLabel()->frame().x(), 0);
}

TEST_F(UITableViewCellTest, TextsTakenOutOfTheContentComeBackWhenTheyHaveSomethingToShow) {
  const auto cell = show(UITableViewCellStyle::kValue1, "Work");
  while (!cell->contentView()->subviews().empty()) {
    cell->contentView()->subviews().front()->removeFromSuperview();
  }
  cell->textLabel()->setText("Add Contacts");
  window_->layoutWindow();
  EXPECT_EQ(cell->textLabel()->superview(), cell->contentView().get());
  EXPECT_EQ(cell->detailTextLabel()->superview(), nullptr);
}

TEST_F(UITableViewCellTest, AHighlightClearsTheBackgroundsInTheRowAndPutsThemBack) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  const auto strip = std::make_shared<UIView>();
  const auto inner = std::make_shared<UIView>();
  const auto control = std::make_shared<UIControl>();
  strip->setBackgroundColor(UIColor::redColor());
  inner->setBackgroundColor(UIColor::greenColor());
  control->setBackgroundColor(UIColor::blueColor());
  strip->addSubview(inner);
  cell->addSubview(strip);
  cell->contentView()->addSubview(control);
  cell->setHighlighted(true, false);
  EXPECT_EQ(strip->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(inner->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(control->backgroundColor(), UIColor::blueColor());
  // Highlighted and selected at once: only the end of both is the end.
  cell->setSelected(true, false);
  cell->setHighlighted(false, false);
  EXPECT_EQ(strip->backgroundColor(), UIColor::clearColor());
  strip->setBackgroundColor(UIColor::blackColor());
  cell->setSelected(false, false);
  EXPECT_EQ(strip->backgroundColor(), UIColor::blackColor());
  EXPECT_EQ(inner->backgroundColor(), UIColor::greenColor());
}

TEST_F(UITableViewCellTest, ABackgroundThatIsSetDuringASelectionStays) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  const auto cleared = std::make_shared<UIView>();
  const auto untouched = std::make_shared<UIView>();
  cell->contentView()->addSubview(cleared);
  cell->contentView()->addSubview(untouched);
  cleared->setBackgroundColor(UIColor::redColor());
  untouched->setBackgroundColor(UIColor::redColor());
  cell->setSelected(true, false);
  // Filled anew with what has no colour: the value that it holds already.
  cleared->setBackgroundColor(UIColor::clearColor());
  cell->setSelected(false, false);
  EXPECT_EQ(cleared->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(untouched->backgroundColor(), UIColor::redColor());
  // Nothing is left over from one selection for the next.
  cell->setSelected(true, false);
  cell->setSelected(false, false);
  EXPECT_EQ(cleared->backgroundColor(), UIColor::clearColor());
  EXPECT_EQ(untouched->backgroundColor(), UIColor::redColor());
}

TEST_F(UITableViewCellTest, ARowThatShowsNoSelectionKeepsItsBackgrounds) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  cell->contentView()->setBackgroundColor(UIColor::redColor());
  cell->setSelectionStyle(UITableViewCellSelectionStyle::kNone);
  cell->setSelected(true, false);
  EXPECT_TRUE(cell->isSelected());
  EXPECT_EQ(cell->contentView()->backgroundColor(), UIColor::redColor());
  cell->setSelectionStyle(UITableViewCellSelectionStyle::kDefault);
  EXPECT_EQ(cell->contentView()->backgroundColor(), UIColor::clearColor());
}

TEST_F(UITableViewCellTest, ReuseEndsHighlightAndSelection) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  cell->setHighlighted(true, false);
  cell->setSelected(true, false);
  cell->prepareForReuse();
  EXPECT_FALSE(cell->isHighlighted());
  EXPECT_FALSE(cell->isSelected());
  EXPECT_EQ(cell->textLabel()->text(), "Work");
}

TEST_F(UITableViewCellTest, EditingMovesTheContentAsideForAControl) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  TableCellSurroundings around;
  around.canEdit = true;
  around.editingStyle = UITableViewCellEditingStyle::kDelete;
  cell->setAccessoryType(UITableViewCellAccessoryType::kDisclosureIndicator);
  cell->setSurroundings(around);
  cell->setEditing(true, false);
  window_->layoutWindow();
  EXPECT_EQ(cell->contentView()->frame(), CGRectMake(38, 0, 282, 44));
  EXPECT_EQ(test::viewOf<TableEditControl>(*cell)->describe(), "minus");
  EXPECT_TRUE(test::viewOf<TableAccessoryView>(*cell)->isHidden());
  around.canEdit = false;
  cell->setSurroundings(around);
  window_->layoutWindow();
  EXPECT_EQ(cell->contentView()->frame().x(), 0);
}

TEST_F(UITableViewCellTest, AValueKeepsItsMarginWhileTheContentIsAside) {
  const auto cell = show(UITableViewCellStyle::kValue1, "Work", "On");
  TableCellSurroundings around;
  around.canEdit = true;
  around.editingStyle = UITableViewCellEditingStyle::kDelete;
  cell->setSurroundings(around);
  cell->setEditing(true, false);
  window_->layoutWindow();
  EXPECT_EQ(cell->contentView()->frame().x() + cell->detailTextLabel()->frame().maxX(), 304);
}

TEST_F(UITableViewCellTest, AScreenReaderHearsTheTextsAndTheState) {
  const auto cell = show(UITableViewCellStyle::kSubtitle, "Work", "Colleagues");
  TableCellSurroundings around;
  around.position = 3;
  around.count = 12;
  cell->setSurroundings(around);
  cell->setAccessoryType(UITableViewCellAccessoryType::kCheckmark);
  cell->setSelected(true, false);
  EXPECT_EQ(accessibilityDescription(*window_),
            "row \"Work, Colleagues\" value \"3 of 12\" selected checked\n");
  cell->setUserInteractionEnabled(false);
  EXPECT_FALSE(cell->accessibilityState().enabled);
  EXPECT_FALSE(cell->accessibilityActivate());
}

TEST_F(UITableViewCellTest, AColourOfItsOwnGoesBeforeTheTables) {
  const auto cell = show(UITableViewCellStyle::kDefault, "Work");
  TableCellSurroundings around;
  around.background = UIColor::whiteColor();
  cell->setSurroundings(around);
  EXPECT_EQ(cell->backgroundColor(), UIColor::whiteColor());
  cell->setBackgroundColor(UIColor::redColor());
  around.background = UIColor::blackColor();
  cell->setSurroundings(around);
  EXPECT_EQ(cell->backgroundColor(), UIColor::redColor());
}

TEST_F(UITableViewCellTest, LongAndBrokenTextsStayInTheRow) {
  const auto cell = show(UITableViewCellStyle::kSubtitle, std::string(100000, 'x'), "\xff\xfe");
  EXPECT_EQ(cell->textLabel()->frame().width(), 288);
  EXPECT_GE(cell->detailTextLabel()->frame().y(), 0);
  cell->setFrame(CGRectMake(0, 0, 10, 3));
  window_->layoutWindow();
  EXPECT_GE(cell->textLabel()->frame().width(), 0);
}

}  // namespace
}  // namespace zephyl
