// What the user does on the editor's form: switches, texts, the marker's colour, saving and
// closing.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/controls/UISegmentedControl.h"

#include "ui/components/HRColorPickerView.h"
#include "ui/components/ZPColorPickerViewController.h"
#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using Screen = ZephylViewController;

class EditorActions : public EditorTest {
 protected:
  Zephyl& edited() { return *editor_->zephyl(); }
  // Enough to save.
  void nameNewGroup() {
    createNew();
    typeInto(Screen::kTitleTag, "Friends");
    EXPECT_TRUE(canSave());
  }
  bool isShown() { return navigation_->topViewController() == editor_; }
  std::shared_ptr<UISegmentedControl> segments() {
    return std::dynamic_pointer_cast<UISegmentedControl>(table().headerViewForSection(4));
  }
  std::size_t stored() { return store()->allZephyls()->size(); }
};

TEST_F(EditorActions, SwitchesChangeTheCopyOnly) {
  const auto family = storedGroup(GroupBuilder(7, "Family"));
  edit(family);
  turn(1, 0);
  turn(1, 1);
  turn(2, 0);
  EXPECT_FALSE(edited().isEnabled());
  EXPECT_TRUE(edited().isPasswordProtected());
  EXPECT_TRUE(edited().shouldHideConversationsInDefaultGroups());
  EXPECT_TRUE(family->isEnabled());
  EXPECT_FALSE(family->isPasswordProtected());
  EXPECT_FALSE(family->shouldHideConversationsInDefaultGroups());
  EXPECT_FALSE(device_.authentication().isWaiting());
}

TEST_F(EditorActions, AnySwitchLetsAnExistingGroupBeSaved) {
  for (const NSIndexPath& path :
       {NSIndexPath{1, 0}, NSIndexPath{1, 1}, NSIndexPath{2, 0}, NSIndexPath{3, 0}}) {
    edit(group(GroupBuilder(7, "Family")));
    EXPECT_FALSE(canSave());
    turn(path.section, path.row);
    EXPECT_TRUE(canSave());
  }
}

TEST_F(EditorActions, MaskingAddsTheMessageAndItsTextBelow) {
  edit(GroupBuilder(7, "Family").with(keys::kMaskedMessage, "Later"));
  turn(3, 0);
  EXPECT_TRUE(edited().shouldHideConversationsOnLockScreen());
  EXPECT_EQ(table().numberOfRowsInSection(3), 2);
  ASSERT_NE(field(Screen::kMaskedMessageTag), nullptr);
  EXPECT_TRUE(footerLabel(3)->text().ends_with("Masked Message: 'Later'"));
  turn(3, 0);
  EXPECT_EQ(table().numberOfRowsInSection(3), 1);
  EXPECT_EQ(field(Screen::kMaskedMessageTag), nullptr);
  EXPECT_TRUE(footerLabel(3)->text().ends_with("Notification Center."));
}

TEST_F(EditorActions, KeysStayOnTheSwitchThatAddsARow) {
  edit(GroupBuilder(7, "Family"));
  ASSERT_TRUE(switchOf(3, 0)->becomeFirstResponder());
  EXPECT_TRUE(window_->sendKey({UIKey::kSpace, " ", false, false}));
  settle();
  EXPECT_TRUE(edited().shouldHideConversationsOnLockScreen());
  EXPECT_TRUE(switchOf(3, 0)->isFirstResponder());
}

TEST_F(EditorActions, TypingChangesTheTitle) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "Friends");
  EXPECT_EQ(edited().title(), "Friends");
  EXPECT_TRUE(canSave());
  EXPECT_EQ(editor_->title(), "Family");
}

TEST_F(EditorActions, ATitleCannotBeSavedEmpty) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "");
  EXPECT_FALSE(canSave());
  turn(1, 0);
  EXPECT_FALSE(canSave());
}

TEST_F(EditorActions, AFieldTaggedSoChangesTheSubtitle) {
  edit(GroupBuilder(7, "Family"));
  UITextField subtitle;
  subtitle.setTag(Screen::kSubTitleTag);
  subtitle.setText("Close ones");
  editor_->editingChanged(subtitle);
  EXPECT_EQ(edited().subTitle(), "Close ones");
  EXPECT_EQ(edited().title(), "Family");
}

TEST_F(EditorActions, TypingChangesTheMaskedMessageAndReturnShowsItBelow) {
  edit(GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true));
  typeInto(Screen::kMaskedMessageTag, "Later");
  EXPECT_EQ(edited().maskedMessage(), "Later");
  EXPECT_EQ(editor_->zephylTmpMaskedMessage(), "Later");
  EXPECT_FALSE(footerLabel(3)->text().ends_with("'Later'"));
  EXPECT_TRUE(device_.uikit()->textInput().pressReturn());
  settle();
  EXPECT_TRUE(footerLabel(3)->text().ends_with("'Later'"));
  EXPECT_FALSE(field(Screen::kMaskedMessageTag)->isFirstResponder());
}

TEST_F(EditorActions, AnEmptyMaskedMessageCannotBeSavedEvenUnmasked) {
  edit(GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true));
  typeInto(Screen::kMaskedMessageTag, "");
  EXPECT_FALSE(canSave());
  EXPECT_EQ(edited().maskedMessage(), kMaskedDefault);
  turn(3, 0);
  EXPECT_FALSE(canSave());
}

TEST_F(EditorActions, ReturnEndsTypingTheTitle) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "Friends");
  const auto title = field(Screen::kTitleTag);
  EXPECT_TRUE(editor_->textFieldShouldReturn(*title));
  EXPECT_FALSE(title->isFirstResponder());
}

TEST_F(EditorActions, TheSegmentSaysWhichMembersAreShown) {
  edit(GroupBuilder(7, "Family"));
  ASSERT_NE(segments(), nullptr);
  ASSERT_TRUE(segments()->becomeFirstResponder());
  EXPECT_TRUE(window_->sendKey({UIKey::kRight, "", false, false}));
  settle();
  EXPECT_EQ(editor_->currentSelectionSegment(), 1);
  EXPECT_EQ(textOf(4, 0), "Add Conversations");
  EXPECT_EQ(segments()->selectedSegmentIndex(), 1);
  EXPECT_TRUE(segments()->isFirstResponder());
  EXPECT_FALSE(canSave());
}

TEST_F(EditorActions, ASegmentReloadsItsSectionOnly) {
  edit(GroupBuilder(7, "Family"));
  const auto enable = cell(1, 0);
  tap(*window_, segments()->convertPointToView({300, 17}, nullptr));
  settle();
  EXPECT_EQ(textOf(4, 0), "Add Conversations");
  EXPECT_EQ(cell(1, 0), enable);
}

TEST_F(EditorActions, TheMarkersRowOpensTheColorPicker) {
  edit(GroupBuilder(7, "Family").with(keys::kMarkerCode, "00ff00ff"));
  editor_->setShouldDisplayMarkerColor(true);
  table().reloadData();
  settle();
  tapRow(1, 2);
  const auto picker =
      std::dynamic_pointer_cast<ZPColorPickerViewController>(navigation_->topViewController());
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->title(), "Marker Color");
  EXPECT_EQ(picker->color(), UIColor::__zpColorWithHexString("00ff00ff"));
  EXPECT_EQ(table().indexPathForSelectedRow(), std::nullopt);
  picker->colorPickerView()->setColor(UIColor::blueColor());
  EXPECT_FALSE(canSave());
  picker->doneAction(nullptr);
  settle();
  EXPECT_EQ(edited().markerCode(), "0000ffff");
  EXPECT_EQ(tagged<UIView>(Screen::kMarkerColorTag)->backgroundColor(),
            UIColor::__zpColorWithHexString("0000ffff"));
  EXPECT_TRUE(canSave());
}

TEST_F(EditorActions, TheColorPickerKeepsNoEditor) {
  edit(GroupBuilder(7, "Family"));
  editor_->didSelectRowAtIndexPath(table(), {1, 2});
  settle();
  const auto picker =
      std::dynamic_pointer_cast<ZPColorPickerViewController>(navigation_->topViewController());
  const ZPColorPickerViewController::ResultCallback callback = picker->resultCallback();
  navigation_->popToRootViewControllerAnimated(/*animated=*/false);
  const std::weak_ptr<UIViewController> weak = editor_;
  editor_ = nullptr;
  settle();
  EXPECT_TRUE(weak.expired());
  callback(UIColor::redColor());
}

TEST_F(EditorActions, OtherRowsDoNothing) {
  edit(GroupBuilder(7, "Family"));
  for (const NSIndexPath& path : {NSIndexPath{0, 0}, NSIndexPath{1, 0}, NSIndexPath{1, 1},
                                  NSIndexPath{2, 0}, NSIndexPath{3, 0}}) {
    editor_->didSelectRowAtIndexPath(table(), path);
    settle();
    EXPECT_TRUE(isShown());
    EXPECT_EQ(alert(), nullptr);
  }
}

TEST_F(EditorActions, SavingANewGroupAddsItAndCloses) {
  nameNewGroup();
  const std::size_t before = stored();
  save();
  EXPECT_EQ(stored(), before + 1);
  EXPECT_NE(store()->activeZephylByName("Friends"), nullptr);
  EXPECT_EQ(list_->presentedViewController(), nullptr);
}

TEST_F(EditorActions, SavingAnExistingGroupPutsTheCopyInItsPlaceAndGoesBack) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "Friends");
  const std::size_t before = stored();
  save();
  EXPECT_EQ(stored(), before);
  EXPECT_EQ(store()->activeZephylByName("Friends"), editor_->zephyl());
  EXPECT_FALSE(isShown());
}

TEST_F(EditorActions, AFailedSaveSaysNothingAndKeepsTheScreen) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "Friends");
  device_.files().failWriting(kGroupsFile);
  save();
  settleAll();
  EXPECT_TRUE(isShown());
  EXPECT_EQ(alert(), nullptr);
  EXPECT_EQ(field(Screen::kTitleTag)->text(), "Friends");
  device_.files().failWriting(kGroupsFile, false);
  save();
  EXPECT_FALSE(isShown());
}

TEST_F(EditorActions, AGroupThatIsNotStoredIsNotUpdated) {
  edit(group(GroupBuilder(7, "Family")));
  turn(1, 0);
  save();
  EXPECT_TRUE(isShown());
  EXPECT_EQ(alert(), nullptr);
}

TEST_F(EditorActions, CancelDismissesANewGroup) {
  nameNewGroup();
  const std::size_t before = stored();
  EXPECT_TRUE(bar().leftBarButtonItem()->performAction());
  settle();
  EXPECT_EQ(list_->presentedViewController(), nullptr);
  EXPECT_EQ(stored(), before);
}

TEST_F(EditorActions, GoingBackLosesTheEdits) {
  const auto family = storedGroup(GroupBuilder(7, "Family"));
  edit(family);
  typeInto(Screen::kTitleTag, "Friends");
  navigation_->popViewControllerAnimated(/*animated=*/true);
  settle();
  EXPECT_EQ(family->title(), "Family");
  EXPECT_EQ(store()->activeZephylByName("Friends"), nullptr);
}

TEST_F(EditorActions, TextsOfAnyLengthAndBytesAreUsable) {
  edit(GroupBuilder(7, "Family").with(keys::kHidesOnLockScreen, true));
  typeInto(Screen::kTitleTag, std::string(100'000, 'w'));
  EXPECT_EQ(edited().title().size(), 100'000U);
  typeInto(Screen::kMaskedMessageTag, "\xff\xfe");
  EXPECT_TRUE(device_.uikit()->textInput().pressReturn());
  settle();
  EXPECT_TRUE(canSave());
}

}  // namespace
}  // namespace zephyl::test
