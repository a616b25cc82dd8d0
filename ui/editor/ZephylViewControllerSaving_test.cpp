// What stays after a group could not be saved: the store keeps what it was given, and the form
// goes on with a copy.

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "ui/editor/EditorTest.h"

namespace zephyl::test {
namespace {

using Screen = ZephylViewController;

class EditorSaving : public EditorTest {
 protected:
  void failSaves(bool fail) { device_.files().failWriting(kGroupsFile, fail); }
  void saveInVain() {
    failSaves(true);
    save();
    settleAll();
    failSaves(false);
  }
  void makeFriends() {
    createNew();
    typeInto(Screen::kTitleTag, "Friends");
  }
  std::string titles() {
    std::string text;
    for (const ZephylRef& group : *store()->allZephyls()->snapshot()) {
      text += group->title() + " ";
    }
    return text;
  }
  // In the groups file, as the next process reads it.
  std::string titlesInFile() {
    device_.restartProcess();
    return titles();
  }
  [[nodiscard]] bool isNewShown() const { return list_->presentedViewController() != nullptr; }
  [[nodiscard]] bool isShown() const { return navigation_->topViewController() == editor_; }
};

TEST_F(EditorSaving, WhatIsTypedAfterAFailedSaveOfANewGroupIsNotInTheStore) {
  makeFriends();
  saveInVain();
  ASSERT_TRUE(isNewShown());
  EXPECT_EQ(titles(), "Friends ");
  typeInto(Screen::kTitleTag, "Fri");
  EXPECT_EQ(titles(), "Friends ");
  EXPECT_EQ(editor_->zephyl()->title(), "Fri");
}

TEST_F(EditorSaving, ANewGroupCanBeSavedAfterAFailedSave) {
  makeFriends();
  saveInVain();
  typeInto(Screen::kTitleTag, "Old friends");
  save();
  settleAll();
  EXPECT_FALSE(isNewShown());
  EXPECT_EQ(titles(), "Old friends ");
  EXPECT_EQ(titlesInFile(), "Old friends ");
}

TEST_F(EditorSaving, ANewGroupCanBeSavedAfterSeveralFailedSaves) {
  makeFriends();
  saveInVain();
  saveInVain();
  typeInto(Screen::kTitleTag, "Fri");
  EXPECT_EQ(titles(), "Friends ");
  save();
  settleAll();
  EXPECT_FALSE(isNewShown());
  EXPECT_EQ(titlesInFile(), "Fri ");
}

TEST_F(EditorSaving, ANewGroupThatLeftTheStoreMeanwhileIsAddedAgain) {
  makeFriends();
  saveInVain();
  store()->deleteZephyl(editor_->zephyl(), nullptr, nullptr);
  save();
  settleAll();
  EXPECT_TRUE(isNewShown());
  save();
  settleAll();
  EXPECT_FALSE(isNewShown());
  EXPECT_EQ(titlesInFile(), "Friends ");
}

// Kept: the store takes a group before it is written, and does not give it back.
TEST_F(EditorSaving, CancelAfterAFailedSaveLeavesTheNewGroupInTheStore) {
  makeFriends();
  saveInVain();
  EXPECT_TRUE(editor_->navigationItem()->leftBarButtonItem()->performAction());
  settleAll();
  EXPECT_FALSE(isNewShown());
  EXPECT_EQ(titles(), "Friends ");
  EXPECT_EQ(titlesInFile(), "");
}

TEST_F(EditorSaving, ANewGroupNeverTakesThePlaceOfAnotherWithItsIdentifier) {
  makeFriends();
  storedGroup(GroupBuilder(editor_->zephyl()->identifier(), "Family"));
  save();
  save();
  settleAll();
  EXPECT_TRUE(isNewShown());
  EXPECT_EQ(titles(), "Family ");
}

TEST_F(EditorSaving, BackDropsWhatWasChangedAfterAFailedSave) {
  edit(GroupBuilder(7, "Family"));
  typeInto(Screen::kTitleTag, "Friends");
  saveInVain();
  ASSERT_TRUE(isShown());
  typeInto(Screen::kTitleTag, "Foes");
  turn(1, 0);
  editor_->cancelButtonAction();
  settleAll();
  EXPECT_FALSE(isShown());
  EXPECT_EQ(titles(), "Friends ");
  EXPECT_TRUE(store()->allZephyls()->snapshot()->front()->isEnabled());
}

TEST_F(EditorSaving, APictureSetAfterAFailedSaveIsTheFormsAlone) {
  edit(GroupBuilder(7, "Family").with(keys::kHeaderImagePath, "7.png"));
  turn(1, 0);
  // On its way while the group is saved.
  editor_->updateProfileImage(nullptr);
  failSaves(true);
  save();
  settleAll();
  failSaves(false);
  EXPECT_EQ(editor_->zephyl()->headerImagePath(), "");
  EXPECT_EQ(store()->allZephyls()->snapshot()->front()->headerImagePath(), "7.png");
}

}  // namespace
}  // namespace zephyl::test
