// What is told of edits of the store, and how they are taken back.

#include "apps/common/GroupUndo.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Host.h"
#include "platform/foundation/Dispatch.h"

#include "store/EditingTest.h"

namespace zephyl::app {
namespace {

using test::GroupBuilder;
using Members = std::vector<Member>;

class GroupUndoTest : public test::EditingTest {
 protected:
  void begin(const Array& groups) {
    startWith(groups);
    undo_.emplace([this](const GroupStep& step) { told_.push_back(step); });
  }
  // The copy of a stored group, as the editor has it.
  static ZephylRef copyOf(std::int64_t identifier) {
    for (const ZephylRef& group : *store()->allZephyls()->snapshot()) {
      if (group->identifier() == identifier) {
        return group->copy();
      }
    }
    ADD_FAILURE() << "no group " << identifier;
    return made({});
  }
  static void setMembers(std::int64_t identifier, const Array& members) {
    const auto group = copyOf(identifier);
    group->setContacts(std::make_shared<const MemberSet>(members));
    store()->updateZephyl(group, nullptr, nullptr);
  }
  static void rename(std::int64_t identifier, const std::string& title) {
    const auto group = copyOf(identifier);
    group->setTitle(title);
    store()->updateZephyl(group, nullptr, nullptr);
  }
  static Members membersOf(std::int64_t identifier) {
    const auto members = copyOf(identifier)->contacts();
    return {members->begin(), members->end()};
  }
  std::vector<GroupStep>& told() {
    device_.dispatch().runAll();
    return told_;
  }

  std::vector<GroupStep> told_;
  std::optional<GroupUndo> undo_;
};

TEST_F(GroupUndoTest, WhoLeftIsToldOnceTheSaveIsDone) {
  begin({GroupBuilder(7, "Family").members({1, "+15550100"})});
  setMembers(7, {1});
  EXPECT_TRUE(told_.empty());
  ASSERT_EQ(told().size(), 1U);
  EXPECT_EQ(told()[0].at(0).left(), (Members{"+15550100"}));
}

TEST_F(GroupUndoTest, MembersThatLeftComeBack) {
  begin({GroupBuilder(7, "Family").members({1, "+15550100"})});
  setMembers(7, {1});
  const auto outcome = undo_->undo();
  EXPECT_FALSE(outcome.error);
  EXPECT_EQ(outcome.step.at(0).joined(), (Members{"+15550100"}));
  EXPECT_EQ(membersOf(7), (Members{1, "+15550100"}));
  const Value stored = (*this->stored().at(0).ifDictionary())[keys::kContacts];
  EXPECT_EQ(*stored.ifArray(), (Array{1, "+15550100"}));
}

TEST_F(GroupUndoTest, SeveralStepsAreTakenBackTheLastFirst) {
  begin({GroupBuilder(7, "a").members({1}), GroupBuilder(8, "b")});
  rename(7, "A");
  setMembers(7, {1, 2});
  store()->deleteZephyl(copyOf(8), nullptr, nullptr);
  undo_->undo();
  EXPECT_EQ(listed(), (Titles{"A", "b"}));
  undo_->undo();
  EXPECT_EQ(membersOf(7), Members{1});
  undo_->undo();
  EXPECT_EQ(listed(), (Titles{"a", "b"}));
  EXPECT_FALSE(undo_->undoable());
  EXPECT_TRUE(undo_->undo().step.empty());
  EXPECT_EQ(storedTitles(), (Titles{"a", "b"}));
}

TEST_F(GroupUndoTest, DeletedGroupsComeBackTogetherWithAllTheyHad) {
  begin({GroupBuilder(7, "a")
             .members({1, "x"})
             .with("unknown", "kept")
             .with(keys::kCreatedDate, Date{5}),
         GroupBuilder(8, "b"), GroupBuilder(9, "c")});
  store()->deleteZephyls({copyOf(7), copyOf(9)}, nullptr, nullptr);
  ASSERT_EQ(listed(), Titles{"b"});
  EXPECT_EQ(undo_->undo().step.size(), 2U);
  EXPECT_EQ(listed(), (Titles{"b", "a", "c"}));
  const Dictionary back = *stored().at(1).ifDictionary();
  EXPECT_EQ(back["unknown"], Value("kept"));
  EXPECT_EQ(membersOf(7), (Members{1, "x"}));
  EXPECT_EQ(back[keys::kCreatedDate], Value(Date{5}));
}

TEST_F(GroupUndoTest, ANewGroupGoesAgain) {
  begin({GroupBuilder(7, "a")});
  store()->addZephyl(made(GroupBuilder(8, "b")), nullptr, nullptr);
  undo_->undo();
  EXPECT_EQ(storedTitles(), Titles{"a"});
}

TEST_F(GroupUndoTest, WhatWasTakenBackIsMadeAgain) {
  begin({GroupBuilder(7, "a").members({1, 2})});
  setMembers(7, {1});
  rename(7, "b");
  undo_->undo();
  undo_->undo();
  undo_->redo();
  EXPECT_EQ(membersOf(7), Members{1});
  EXPECT_EQ(listed(), Titles{"a"});
  undo_->redo();
  EXPECT_EQ(listed(), Titles{"b"});
  EXPECT_FALSE(undo_->redoable());
  undo_->undo();
  EXPECT_EQ(listed(), Titles{"a"});
}

TEST_F(GroupUndoTest, AnotherChangeEndsWhatCanBeMadeAgain) {
  begin({GroupBuilder(7, "a")});
  rename(7, "b");
  undo_->undo();
  rename(7, "c");
  EXPECT_FALSE(undo_->redoable());
  EXPECT_TRUE(undo_->undoable());
}

TEST_F(GroupUndoTest, TakingBackIsNotTold) {
  begin({GroupBuilder(7, "a")});
  rename(7, "b");
  undo_->undo();
  EXPECT_EQ(told().size(), 1U);
}

TEST_F(GroupUndoTest, ASaveThatChangesNothingIsNoStep) {
  begin({GroupBuilder(7, "a")});
  store()->updateZephyl(copyOf(7), nullptr, nullptr);
  EXPECT_TRUE(told().empty());
  EXPECT_FALSE(undo_->undoable());
}

// Such groups bear another time of their making each time they are looked at.
TEST_F(GroupUndoTest, GroupsThatWereNeverWrittenAreNotChangedByTime) {
  begin({GroupBuilder(7, "a"), GroupBuilder(8, "b")});
  device_.clock().set(kNow + 60);
  rename(7, "A");
  device_.clock().set(kNow + 120);
  ASSERT_EQ(told().size(), 1U);
  EXPECT_EQ(told()[0].size(), 1U);
  EXPECT_EQ(undo_->undo().step.size(), 1U);
}

TEST_F(GroupUndoTest, WhatOthersDidIsNoStepOnceItIsKnown) {
  begin({GroupBuilder(7, "a").members({1, 2})});
  putGroups({GroupBuilder(7, "a").members({1})});
  store()->reloadAllZephyls();
  undo_->startFromStore();
  rename(7, "b");
  ASSERT_EQ(told().size(), 1U);
  EXPECT_TRUE(told()[0].at(0).left().empty());
  undo_->undo();
  EXPECT_EQ(membersOf(7), Members{1});
}

TEST_F(GroupUndoTest, AGroupThatOthersDeletedStaysSo) {
  begin({GroupBuilder(7, "a"), GroupBuilder(8, "b")});
  rename(7, "A");
  putGroups({GroupBuilder(8, "b")});
  store()->reloadAllZephyls();
  undo_->startFromStore();
  const auto outcome = undo_->undo();
  EXPECT_FALSE(outcome.error);
  EXPECT_TRUE(outcome.step.empty());
  EXPECT_EQ(listed(), Titles{"b"});
  EXPECT_FALSE(undo_->undoable());
}

TEST_F(GroupUndoTest, ADeletedGroupIsNotSelectedBesideAnother) {
  begin({GroupBuilder(7, "a").active(), GroupBuilder(8, "b")});
  store()->deleteZephyl(copyOf(7), nullptr, nullptr);
  store()->allZephyls()->snapshot()->front()->setActive(true);
  undo_->undo();
  EXPECT_EQ(store()->currentActiveZephyl()->identifier(), 8);
  EXPECT_FALSE(copyOf(7)->isActive());
}

TEST_F(GroupUndoTest, AStepThatCannotBeSavedIsToldAndCanBeTriedAgain) {
  begin({GroupBuilder(7, "a"), GroupBuilder(8, "b")});
  store()->deleteZephyl(copyOf(7), nullptr, nullptr);
  device_.files().failWriting(kGroupsFile);
  const auto outcome = undo_->undo();
  ASSERT_TRUE(outcome.error);
  EXPECT_EQ(outcome.error->localizedDescription(), "Unable to save groups to disk.");
  EXPECT_EQ(storedTitles(), Titles{"b"});
  device_.files().failWriting(kGroupsFile, /*fails=*/false);
  EXPECT_FALSE(undo_->undo().error);
  EXPECT_EQ(storedTitles(), (Titles{"b", "a"}));
  EXPECT_FALSE(undo_->undoable());
}

TEST_F(GroupUndoTest, OnlyTheLastStepsAreKept) {
  begin({GroupBuilder(7, "0")});
  for (std::size_t step = 1; step <= GroupUndo::kMostSteps + 2; ++step) {
    rename(7, std::to_string(step));
  }
  while (undo_->undoable()) {
    undo_->undo();
  }
  EXPECT_EQ(listed(), Titles{"2"});
}

TEST_F(GroupUndoTest, EditsOfAnotherThreadAreToldOnTheMainQueue) {
  begin({GroupBuilder(7, "a")});
  host().dispatch().globalAsync(QueuePriority::kDefault, [] { rename(7, "b"); });
  EXPECT_EQ(told().size(), 1U);
  EXPECT_EQ(undo_->undo().step.size(), 1U);
}

TEST_F(GroupUndoTest, NothingIsToldOnceItIsGone) {
  begin({GroupBuilder(7, "a")});
  rename(7, "b");
  undo_.reset();
  EXPECT_TRUE(told().empty());
  rename(7, "c");
  EXPECT_TRUE(told().empty());
}

}  // namespace
}  // namespace zephyl::app
