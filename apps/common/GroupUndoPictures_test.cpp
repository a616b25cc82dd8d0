// Pictures that are overwritten under their name, and come back.

#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/common/GroupUndo.h"
#include "apps/common/RememberedPictures.h"
#include "store/EditingTest.h"

namespace zephyl::app {
namespace {

using test::GroupBuilder;

constexpr char kPicture[] = "/var/mobile/Library/Preferences/Zephyls/7.png";

class GroupUndoPicturesTest : public test::EditingTest {
 protected:
  static GroupBuilder withPicture(const std::string& name = "7.png") {
    return GroupBuilder(7, "Family").with(keys::kHeaderImagePath, name);
  }
  void begin(const GroupBuilder& group, const std::string& picture = "old") {
    startWith({group});
    device_.files().put(kPicture, picture);
    undo_.emplace([this](const GroupStep& step) { told_.push_back(step); });
  }
  // As the editor does: the file first, the group when it is saved.
  void replace(const std::string& picture) {
    device_.files().put(kPicture, picture);
    saveWithName("7.png");
  }
  static void saveWithName(const std::string& name) {
    const auto group = store()->allZephyls()->snapshot()->front()->copy();
    group->setHeaderImagePath(name);
    store()->updateZephyl(group, nullptr, nullptr);
  }
  std::string picture() { return device_.files().contentsAtPath(kPicture).value_or("none"); }
  std::size_t told() {
    device_.dispatch().runAll();
    return told_.size();
  }

  std::vector<GroupStep> told_;
  std::optional<GroupUndo> undo_;
};

TEST_F(GroupUndoPicturesTest, APictureThatWasReplacedComesBackAndGoesAgain) {
  begin(withPicture());
  replace("new");
  EXPECT_EQ(told(), 1U);
  EXPECT_FALSE(undo_->undo().error);
  EXPECT_EQ(picture(), "old");
  EXPECT_FALSE(undo_->redo().error);
  EXPECT_EQ(picture(), "new");
  undo_->undo();
  EXPECT_EQ(picture(), "old");
}

TEST_F(GroupUndoPicturesTest, EachOfSeveralComesBackInTurn) {
  begin(withPicture());
  replace("new");
  replace("newest");
  undo_->undo();
  EXPECT_EQ(picture(), "new");
  undo_->undo();
  EXPECT_EQ(picture(), "old");
}

TEST_F(GroupUndoPicturesTest, APictureThatWasTakenAwayAndThenReplacedComesBack) {
  begin(withPicture());
  saveWithName("");
  replace("new");
  undo_->undo();
  undo_->undo();
  EXPECT_EQ(store()->allZephyls()->snapshot()->front()->headerImagePath(), "7.png");
  EXPECT_EQ(picture(), "old");
}

TEST_F(GroupUndoPicturesTest, ASaveThatLeavesThePictureIsNoStep) {
  begin(withPicture());
  saveWithName("7.png");
  EXPECT_EQ(told(), 0U);
  EXPECT_FALSE(undo_->undoable());
}

TEST_F(GroupUndoPicturesTest, AFileThatBecameAnotherSinceStays) {
  begin(withPicture());
  replace("new");
  device_.files().put(kPicture, "somebody's");
  undo_->undo();
  EXPECT_EQ(picture(), "somebody's");
}

TEST_F(GroupUndoPicturesTest, APictureThatCannotBeWrittenIsToldAndCanBeTriedAgain) {
  begin(withPicture());
  replace("new");
  device_.files().failWriting(kPicture);
  EXPECT_TRUE(undo_->undo().error);
  EXPECT_EQ(picture(), "new");
  device_.files().failWriting(kPicture, /*fails=*/false);
  EXPECT_FALSE(undo_->undo().error);
  EXPECT_EQ(picture(), "old");
}

TEST_F(GroupUndoPicturesTest, AFileThatIsNotNamedAfterTheGroupIsLeftAlone) {
  const std::string other = "/var/mobile/Library/Preferences/Zephyls/../own.png";
  begin(withPicture("../own.png"));
  device_.files().put(other, "own");
  saveWithName("../own.png");
  EXPECT_EQ(told(), 0U);
  EXPECT_EQ(device_.files().readsOf(kPicture), 0);
}

TEST_F(GroupUndoPicturesTest, WhatThereIsNoRoomForIsNotRemembered) {
  startWith({withPicture()});
  device_.files().put(kPicture, "12345");
  const Dictionary group = store()->allZephyls()->snapshot()->front()->dictionaryRepresentation();
  RememberedPictures four(4);
  four.startFrom({group});
  device_.files().put(kPicture, "new");
  EXPECT_EQ(four.lookAgain(group).before, nullptr);
  RememberedPictures five(5);
  device_.files().put(kPicture, "12345");
  five.startFrom({group});
  device_.files().put(kPicture, "new");
  EXPECT_EQ(*five.lookAgain(group).before, "12345");
}

}  // namespace
}  // namespace zephyl::app
