// The rows of the editor: how many there are, what they show, and that they can be used again.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/controls/UISegmentedControl.h"

#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using EditorRows = EditorTest;
using Screen = ZephylViewController;

TEST_F(EditorRows, ThereAreFiveSections) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(table().numberOfSections(), 5);
  EXPECT_EQ(rows(0), 1);
  EXPECT_EQ(rows(2), 1);
}

TEST_F(EditorRows, TheFlagsDependOnFingersAndTheMarkersColor) {
  edit(GroupBuilder(7, "Family"));
  for (const bool reads : {true, false}) {
    device_.authentication().setAvailable(reads);
    editor_->setShouldDisplayMarkerColor(false);
    EXPECT_EQ(rows(1), reads ? 2 : 1);
    editor_->setShouldDisplayMarkerColor(true);
    EXPECT_EQ(rows(1), reads ? 3 : 2);
  }
}

TEST_F(EditorRows, SwitchesShowTheGroup) {
  for (const bool on : {true, false}) {
    edit(group(GroupBuilder(7, "Family")
                   .with(keys::kEnabled, on)
                   .with(keys::kPasswordProtected, on)
                   .with(keys::kHidesInDefaultGroups, on)
                   .with(keys::kHidesOnLockScreen, on)));
    EXPECT_EQ(switchOf(1, 0)->isOn(), on);
    EXPECT_EQ(switchOf(1, 1)->isOn(), on);
    EXPECT_EQ(switchOf(2, 0)->isOn(), on);
    EXPECT_EQ(switchOf(3, 0)->isOn(), on);
  }
}

TEST_F(EditorRows, SwitchesBearTheirTagsAndTexts) {
  edit(GroupBuilder(7, "Family"));
  struct Case {
    NSIndexPath path;
    std::string text;
    std::int64_t tag;
    int lines;
  };
  for (const Case& each :
       {Case{{1, 0}, "Enable", 4321, 1}, Case{{1, 1}, "Password protected", 4322, 1},
        Case{{2, 0}, "Hide Conversations in Default Groups", 5321, 0},
        Case{{3, 0}, "Mask on Lock Screen", 6321, 0}}) {
    const auto row = cell(each.path.section, each.path.row);
    EXPECT_EQ(row->textLabel()->text(), each.text);
    EXPECT_EQ(row->textLabel()->numberOfLines(), each.lines) << each.text;
    EXPECT_EQ(row->accessoryView()->tag(), each.tag);
    EXPECT_EQ(row->selectionStyle(), UITableViewCellSelectionStyle::kNone);
    EXPECT_EQ(row->reuseIdentifier(), "defaultCell");
    EXPECT_EQ(row->style(), UITableViewCellStyle::kValue1);
  }
}

TEST_F(EditorRows, TheTitleStandsInTheFirstRow) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(editor_->headerView()->superview(), cell(0, 0)->contentView().get());
  EXPECT_EQ(cell(0, 0)->selectionStyle(), UITableViewCellSelectionStyle::kNone);
  EXPECT_EQ(table().rectForRowAtIndexPath({0, 0}).height(), 44);
}

TEST_F(EditorRows, EveryRowIsFortyFourHigh) {
  edit(GroupBuilder(7, "Family"));
  for (std::int64_t section = 0; section < 5; ++section) {
    EXPECT_EQ(editor_->heightForRowAtIndexPath(table(), {section, 0}), 44);
  }
  editor_->headerView()->setFrame(CGRectMake(0, 0, 390, 100));
  EXPECT_EQ(editor_->heightForRowAtIndexPath(table(), {0, 0}), 100);
}

TEST_F(EditorRows, TheMarkersRowShowsItsColorAndThatItLeadsOn) {
  edit(GroupBuilder(7, "Family").with(keys::kMarkerCode, "ff0000ff"));
  editor_->setShouldDisplayMarkerColor(true);
  table().reloadData();
  settle();
  EXPECT_EQ(textOf(1, 2), "Marker Color");
  EXPECT_EQ(cell(1, 2)->accessoryView(), nullptr);
  EXPECT_EQ(cell(1, 2)->accessoryType(), UITableViewCellAccessoryType::kDisclosureIndicator);
  const auto swatch = tagged<UIView>(Screen::kMarkerColorTag);
  ASSERT_NE(swatch, nullptr);
  EXPECT_EQ(swatch->backgroundColor(), UIColor::__zpColorWithHexString("ff0000ff"));
  EXPECT_EQ(swatch->frame().size, (CGSize{70, 24}));
  EXPECT_EQ(swatch->frame().y(), 10);
}

TEST_F(EditorRows, TheSwatchLiesAtTheRowsEnd) {
  edit(GroupBuilder(7, "Family"));
  UITableViewCell row(UITableViewCellStyle::kValue1, "defaultCell");
  row.setFrame(CGRectMake(0, 0, 400, 44));
  editor_->configureTableCell(row, {1, 2});
  const auto swatch = row.contentView()->viewWithTag(Screen::kMarkerColorTag);
  EXPECT_EQ(swatch->frame(), CGRectMake(355, 10, 70, 24));
  editor_->configureTableCell(row, {1, 2});
  EXPECT_EQ(row.contentView()->viewWithTag(Screen::kMarkerColorTag), swatch);
}

TEST_F(EditorRows, WithoutAMarkerTheSwatchIsClear) {
  edit(GroupBuilder(7, "Family"));
  editor_->setShouldDisplayMarkerColor(true);
  table().reloadData();
  settle();
  EXPECT_EQ(tagged<UIView>(Screen::kMarkerColorTag)->backgroundColor(), UIColor::clearColor());
}

// Kept: rows are told by their numbers alone.
TEST_F(EditorRows, WithoutFingersTheSecondOfTwoFlagsIsStillThePasswords) {
  device_.authentication().setAvailable(false);
  edit(GroupBuilder(7, "Family"));
  editor_->setShouldDisplayMarkerColor(true);
  table().reloadData();
  settle();
  EXPECT_EQ(rows(1), 2);
  EXPECT_EQ(textOf(1, 1), "Password protected");
}

TEST_F(EditorRows, TheMaskedMessageIsARowOnlyWhileMessagesAreMasked) {
  edit(GroupBuilder(7, "Family").with(keys::kMaskedMessage, "Later"));
  EXPECT_EQ(rows(3), 1);
  EXPECT_EQ(field(Screen::kMaskedMessageTag), nullptr);
  editor_->zephyl()->setShouldHideConversationsOnLockScreen(true);
  table().reloadData();
  settle();
  EXPECT_EQ(rows(3), 2);
  const auto message = field(Screen::kMaskedMessageTag);
  ASSERT_NE(message, nullptr);
  EXPECT_EQ(message->text(), "Later");
  EXPECT_EQ(message->placeholder(), "Masked Message");
  EXPECT_EQ(message->returnKeyType(), UIReturnKeyType::kDone);
  EXPECT_EQ(message->font(), UIFont::systemFontOfSize(15));
  EXPECT_EQ(message->floatingLabelFont(), UIFont::systemFontOfSize(11));
  EXPECT_EQ(message->frame(), CGRectMake(15, 0, 375, 44));
  EXPECT_EQ(cell(3, 1)->accessoryView(), nullptr);
  EXPECT_EQ(message->superview(), cell(3, 1)->contentView().get());
}

TEST_F(EditorRows, ARowThatWasTheMaskedMessagesLosesTheField) {
  edit(GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true));
  const auto row = cell(3, 1);
  editor_->configureTableCell(*row, {3, 0});
  EXPECT_EQ(row->viewWithTag(Screen::kMaskedMessageTag), nullptr);
  EXPECT_EQ(row->textLabel()->text(), "Mask on Lock Screen");
}

TEST_F(EditorRows, ARowThatIsUsedAgainKeepsNothingOfTheOthers) {
  edit(GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true));
  const auto row = cell(0, 0);
  for (const NSIndexPath& path : {NSIndexPath{1, 0}, NSIndexPath{3, 1}, NSIndexPath{2, 0},
                                  NSIndexPath{1, 2}, NSIndexPath{1, 1}}) {
    editor_->configureTableCell(*row, path);
    const bool isMessage = path == NSIndexPath{3, 1};
    const bool isMarker = path == NSIndexPath{1, 2};
    EXPECT_EQ(row->viewWithTag(Screen::kTitleTag), nullptr);
    EXPECT_EQ(row->viewWithTag(Screen::kMaskedMessageTag) != nullptr, isMessage);
    EXPECT_EQ(row->viewWithTag(Screen::kMarkerColorTag) != nullptr, isMarker);
    EXPECT_EQ(row->accessoryView() == nullptr, isMessage || isMarker);
    // The field's line too.
    EXPECT_EQ(row->contentView()->layer()->sublayers().size(),
              row->contentView()->subviews().size() + (isMessage ? 1 : 0));
  }
}

TEST_F(EditorRows, TheMembersBeginWithAWayToAddSome) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(rows(4), 1);
  EXPECT_EQ(textOf(4, 0), "Add Contacts");
  EXPECT_EQ(cell(4, 0)->selectionStyle(), UITableViewCellSelectionStyle::kDefault);
  EXPECT_EQ(cell(4, 0)->accessoryView(), nullptr);
  EXPECT_EQ(cell(4, 0)->backgroundColor(), UIColor::whiteColor());
  editor_->setCurrentSelectionSegment(1);
  table().reloadData();
  settle();
  EXPECT_EQ(textOf(4, 0), "Add Conversations");
}

TEST_F(EditorRows, MembersAreOnTheSystemsBackgroundFromVersionThirteen) {
  device_.device().setSystemVersion("13.0");
  edit(group(GroupBuilder(7, "Family")));
  EXPECT_EQ(cell(4, 0)->backgroundColor(), UIColor::systemBackgroundColor());
}

TEST_F(EditorRows, OnlyTheMembersHaveAHeader) {
  edit(GroupBuilder(7, "Family"));
  for (std::int64_t section = 0; section < 4; ++section) {
    EXPECT_EQ(editor_->heightForHeaderInSection(table(), section), 0);
    EXPECT_EQ(editor_->viewForHeaderInSection(table(), section), nullptr);
  }
  EXPECT_EQ(editor_->heightForHeaderInSection(table(), 4), 34);
  const auto segments =
      std::dynamic_pointer_cast<UISegmentedControl>(editor_->viewForHeaderInSection(table(), 4));
  ASSERT_NE(segments, nullptr);
  EXPECT_EQ(segments->frame(), CGRectMake(0, 5, 390, 34));
  EXPECT_EQ(segments->tag(), 4322);
  EXPECT_EQ(segments->numberOfSegments(), 2);
  EXPECT_EQ(segments->titleForSegmentAtIndex(0), "Contacts");
  EXPECT_EQ(segments->titleForSegmentAtIndex(1), "Conversations");
  EXPECT_EQ(segments->selectedSegmentIndex(), 0);
  EXPECT_EQ(segments->backgroundColor(), UIColor::whiteColor());
}

}  // namespace
}  // namespace zephyl::test
