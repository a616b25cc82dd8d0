// What the screens take away beside what the user meant, told and taken back: whole stories.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "apps/common/GroupStepText.h"
#include "apps/common/GroupUndo.h"
#include "ui/editor/EditorTest.h"

namespace zephyl::app {
namespace {

using test::GroupBuilder;
using Members = std::vector<Member>;

class GroupUndoScreensTest : public test::EditorTest {
 protected:
  void begin(const GroupBuilder& group) {
    device_.device().setSystemVersion("11.4");
    const ZephylRef stored = storedGroup(group);
    undo_.emplace([this](const GroupStep& step) {
      for (const std::string& line : lossesOf(step, nameOf)) {
        told_.push_back(line);
      }
    });
    edit(stored);
  }
  static std::string nameOf(const Member& member) {
    const auto* const number = std::get_if<std::int64_t>(&member);
    return number != nullptr ? "P" + std::to_string(*number) : std::get<std::string>(member);
  }
  static Members members() {
    const auto stored = store()->allZephyls()->snapshot()->front()->contacts();
    return {stored->begin(), stored->end()};
  }
  std::vector<std::string> toldAfterSave() {
    save();
    settleAll();
    return told_;
  }

  std::optional<GroupUndo> undo_;
  std::vector<std::string> told_;
};

// The picker of people knows nothing of members that are numbers.
TEST_F(GroupUndoScreensTest, NumbersThatTheContactsPickerDropsAreToldAndComeBack) {
  begin(GroupBuilder(7, "Family").members({"+15550100", "ann@example.com", "SMS;-;+1"}));
  editor_->addContactsToZephyls({});
  editor_->setContactsAndConversationsToZephyls();
  EXPECT_EQ(toldAfterSave(),
            (std::vector<std::string>{
                "No longer in the group 'Family': +15550100, ann@example.com, SMS;-;+1."}));
  EXPECT_EQ(members(), Members());
  undo_->undo();
  EXPECT_EQ(members(), (Members{"+15550100", "ann@example.com", "SMS;-;+1"}));
}

// A number that is kept as text is taken for a record that is gone.
TEST_F(GroupUndoScreensTest, MembersThatTheEditorDoesNotShowAreToldWhenTheyGo) {
  begin(GroupBuilder(7, "Family").members({"15550100", "ann@example.com"}));
  ASSERT_EQ(editor_->contacts().size(), 1U);
  editor_->setContactsAndConversationsToZephyls();
  EXPECT_EQ(toldAfterSave(),
            (std::vector<std::string>{"No longer in the group 'Family': 15550100."}));
  undo_->undo();
  EXPECT_EQ(members(), (Members{"15550100", "ann@example.com"}));
}

// Whichever section the row is of.
TEST_F(GroupUndoScreensTest, TheMemberThatTheMaskedRowRemovesIsToldAndComesBack) {
  begin(GroupBuilder(7, "Family")
            .members({"ann@example.com", "bob@example.com"})
            .with(keys::kHidesOnLockScreen, true));
  editor_->commitEditingStyle(table(), UITableViewCellEditingStyle::kDelete, {3, 1});
  EXPECT_EQ(toldAfterSave(),
            (std::vector<std::string>{"No longer in the group 'Family': ann@example.com."}));
  undo_->undo();
  EXPECT_EQ(members(), (Members{"ann@example.com", "bob@example.com"}));
}

TEST_F(GroupUndoScreensTest, WhatIsNotSavedIsNotTold) {
  begin(GroupBuilder(7, "Family").members({"+15550100"}));
  editor_->addContactsToZephyls({});
  settleAll();
  EXPECT_TRUE(told_.empty());
  device_.files().failWriting(kGroupsFile);
  EXPECT_TRUE(toldAfterSave().empty());
}

}  // namespace
}  // namespace zephyl::app
