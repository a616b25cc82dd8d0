// Opening the editor: what it makes of a group or of none, its title and buttons, and its header.

#include "ui/editor/ZephylViewController.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/CALayer.h"

#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using EditorOpening = EditorTest;
using Screen = ZephylViewController;

TEST_F(EditorOpening, TheGroupIsCopiedIn) {
  const auto family = group(GroupBuilder(7, "Family"));
  make(family);
  EXPECT_NE(editor_->zephyl(), family);
  EXPECT_TRUE(editor_->zephyl()->isEqual(*family));
  editor_->zephyl()->setTitle("Other");
  EXPECT_EQ(family->title(), "Family");
}

TEST_F(EditorOpening, WithoutAGroupANewOneIsMade) {
  createNew();
  EXPECT_TRUE(editor_->isNewGroup());
  EXPECT_GE(editor_->zephyl()->identifier(), 1);
  EXPECT_TRUE(editor_->zephyl()->isEnabled());
  EXPECT_TRUE(editor_->zephyl()->isPasswordProtected());
  EXPECT_FALSE(editor_->zephyl()->shouldHideConversationsInDefaultGroups());
  EXPECT_FALSE(editor_->zephyl()->isSystem());
}

TEST_F(EditorOpening, ANewGroupIsProtectedOnlyWhereFingersAreRead) {
  device_.authentication().setAvailable(false);
  createNew();
  device_.authentication().setAvailable(true);
  EXPECT_FALSE(editor_->zephyl()->isPasswordProtected());
}

TEST_F(EditorOpening, ANewGroupIsTitledSoAndHasSaveAndCancel) {
  createNew();
  EXPECT_EQ(editor_->title(), "New Group");
  EXPECT_EQ(bar().rightBarButtonItem()->systemItem(), UIBarButtonSystemItem::kSave);
  EXPECT_EQ(bar().leftBarButtonItem()->systemItem(), UIBarButtonSystemItem::kCancel);
}

TEST_F(EditorOpening, AnExistingGroupGivesTheTitleAndHasNoCancel) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_FALSE(editor_->isNewGroup());
  EXPECT_EQ(editor_->title(), "Family");
  EXPECT_EQ(bar().rightBarButtonItem()->systemItem(), UIBarButtonSystemItem::kSave);
  EXPECT_EQ(bar().leftBarButtonItem(), nullptr);
}

TEST_F(EditorOpening, AnExistingGroupCannotBeSavedBeforeAChange) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_FALSE(canSave());
  editor_->updateNavigationBarItems();
  EXPECT_TRUE(canSave());
}

TEST_F(EditorOpening, ANewGroupCannotBeSavedWithoutATitle) {
  createNew();
  EXPECT_FALSE(canSave());
}

TEST_F(EditorOpening, TheMaskedMessageInTheMakingIsTheGroups) {
  edit(GroupBuilder(7, "Family").with(keys::kMaskedMessage, "Later"));
  EXPECT_EQ(editor_->zephylTmpMaskedMessage(), "Later");
  edit(GroupBuilder(8, "Friends"));
  EXPECT_EQ(editor_->zephylTmpMaskedMessage(), kMaskedDefault);
}

TEST_F(EditorOpening, TheAddressBookIsOpened) {
  make(nullptr);
  EXPECT_EQ(editor_->addressBookRef(), nullptr);
  static_cast<void>(editor_->view());
  EXPECT_EQ(editor_->addressBookRef(), host().addressBook());
}

TEST_F(EditorOpening, TheMarkerColorIsNotOffered) {
  make(nullptr);
  editor_->setShouldDisplayMarkerColor(true);
  static_cast<void>(editor_->view());
  EXPECT_FALSE(editor_->shouldDisplayMarkerColor());
}

TEST_F(EditorOpening, TheTableIsGroupedOnItsOldBackgroundBeforeVersionThirteen) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(table().style(), UITableViewStyle::kGrouped);
  EXPECT_EQ(table().backgroundColor(),
            UIColor::colorWithRed(215.0 / 255, 217.0 / 255, 223.0 / 255, 1));
  device_.device().setSystemVersion("13.0");
  edit(group(GroupBuilder(8, "Friends")));
  EXPECT_EQ(table().backgroundColor(), UIColor::systemGroupedBackgroundColor());
}

TEST_F(EditorOpening, TheHeaderHoldsTheTitleField) {
  edit(GroupBuilder(7, "Family"));
  const auto& header = editor_->headerView();
  EXPECT_EQ(header->frame().height(), 44);
  EXPECT_EQ(editor_->headerView(), header);
  const auto title = field(Screen::kTitleTag);
  ASSERT_NE(title, nullptr);
  EXPECT_EQ(title->superview(), header.get());
  EXPECT_EQ(title->frame(), CGRectMake(30, 3.5, 390 - 50, 44));
  EXPECT_EQ(title->text(), "Family");
  EXPECT_EQ(title->placeholder(), "Title");
  EXPECT_EQ(title->returnKeyType(), UIReturnKeyType::kDone);
}

TEST_F(EditorOpening, TheHeaderIsMirroredWhereTheLanguageRunsTheOtherWay) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(field(Screen::kTitleTag)->frame(), CGRectMake(20, 3.5, 390 - 50, 44));
}

TEST_F(EditorOpening, TheHeadersColorFollowsTheRelease) {
  edit(GroupBuilder(7, "Family"));
  EXPECT_EQ(editor_->headerView()->backgroundColor(), UIColor::whiteColor());
  device_.device().setSystemVersion("13.0");
  edit(group(GroupBuilder(8, "Friends")));
  EXPECT_EQ(editor_->headerView()->backgroundColor(), UIColor::systemBackgroundColor());
}

TEST_F(EditorOpening, ATextFieldIsStyledWhole) {
  edit(GroupBuilder(7, "Family"));
  const auto root = std::make_shared<UIView>(CGRectMake(0, 0, 300, 60));
  const auto styled = std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(20, 4, 200, 40));
  styled->setBorderStyle(UITextBorderStyle::kRoundedRect);
  root->addSubview(styled);
  editor_->setPropertiesToTextField(*styled, "Words", UIFont::systemFontOfSize(14),
                                    UIFont::systemFontOfSize(10), /*shouldAddBottomLine=*/false);
  EXPECT_EQ(styled->placeholder(), "Words");
  EXPECT_EQ(styled->borderStyle(), UITextBorderStyle::kNone);
  EXPECT_EQ(styled->autocorrectionType(), UITextAutocorrectionType::kDefault);
  EXPECT_EQ(styled->keyboardType(), UIKeyboardType::kDefault);
  EXPECT_EQ(styled->returnKeyType(), UIReturnKeyType::kNext);
  EXPECT_EQ(styled->clearButtonMode(), UITextFieldViewMode::kWhileEditing);
  EXPECT_EQ(styled->contentVerticalAlignment(), UIControlContentVerticalAlignment::kCenter);
  EXPECT_EQ(styled->font(), UIFont::systemFontOfSize(14));
  EXPECT_EQ(styled->floatingLabelFont(), UIFont::systemFontOfSize(10));
  EXPECT_EQ(styled->floatingLabelTextColor(), UIColor::grayColor());
  EXPECT_FALSE(styled->layer()->masksToBounds());
}

TEST_F(EditorOpening, ABottomLineLiesBelowTheFieldInTheLayerAround) {
  edit(GroupBuilder(7, "Family"));
  const auto root = std::make_shared<UIView>(CGRectMake(0, 0, 300, 60));
  const auto styled = std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(20, 4, 200, 40));
  root->addSubview(styled);
  const std::size_t before = root->layer()->sublayers().size();
  editor_->setPropertiesToTextField(*styled, "Words", UIFont::systemFontOfSize(14),
                                    UIFont::systemFontOfSize(10), /*shouldAddBottomLine=*/true);
  ASSERT_EQ(root->layer()->sublayers().size(), before + 1);
  const auto& line = root->layer()->sublayers().back();
  EXPECT_EQ(line->frame(), CGRectMake(20, 43, 390, 1));
  EXPECT_EQ(line->state().borderWidth, 1);
  EXPECT_EQ(line->state().borderColor, UIColor::lightGrayColor().colorWithAlphaComponent(0.6));
  EXPECT_TRUE(styled->layer()->masksToBounds());
}

TEST_F(EditorOpening, FromVersionThirteenFieldsAreInTheSystemsGray) {
  device_.device().setSystemVersion("13.0");
  edit(group(GroupBuilder(7, "Family")));
  EXPECT_EQ(field(Screen::kTitleTag)->floatingLabelTextColor(), UIColor::systemGrayColor());
  EXPECT_EQ(editor_->headerView()->layer()->sublayers().back()->state().borderColor,
            UIColor::systemGrayColor().colorWithAlphaComponent(0.6));
}

TEST_F(EditorOpening, ANewGroupsTitleIsTypedIntoHalfASecondLater) {
  createNew();
  device_.dispatch().advance(0.4);
  EXPECT_FALSE(field(Screen::kTitleTag)->isFirstResponder());
  device_.dispatch().advance(0.2);
  EXPECT_TRUE(field(Screen::kTitleTag)->isFirstResponder());
}

TEST_F(EditorOpening, AnExistingGroupsTitleIsNot) {
  edit(GroupBuilder(7, "Family"));
  device_.dispatch().advance(1);
  EXPECT_FALSE(field(Screen::kTitleTag)->isFirstResponder());
}

TEST_F(EditorOpening, AScreenThatGoesBeforeThatIsNotKept) {
  createNew();
  editor_->cancelButtonAction();
  settle();
  const std::weak_ptr<UIViewController> weak = editor_;
  editor_ = nullptr;
  EXPECT_TRUE(weak.expired());
  device_.dispatch().advance(1);
}

TEST_F(EditorOpening, EveryTextIsLookedUp) {
  device_.files().put(
      "/System/Library/PreferenceBundles/ZephylsSettings.bundle/de.lproj/Localizable.strings",
      "\"New Group\" = \"Neue Gruppe\"; \"Title\" = \"Titel\";");
  device_.processInfo().setPreferredLanguages({"de"});
  createNew();
  EXPECT_EQ(editor_->title(), "Neue Gruppe");
  EXPECT_EQ(field(Screen::kTitleTag)->placeholder(), "Titel");
}

}  // namespace
}  // namespace zephyl::test
