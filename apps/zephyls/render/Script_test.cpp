// What a script finds on a screen, and what its steps do.

#include "apps/zephyls/render/Script.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/controls/UIButton.h"
#include "platform/uikit/controls/UISwitch.h"
#include "platform/uikit/tables/UITableView.h"
#include "platform/uikit/testing/TableFixture.h"
#include "platform/uikit/text/UITextField.h"

#include "apps/common/CommandError.h"

namespace zephyl::app::render {
namespace {

using Kind = ScriptStep::Kind;

class ScriptTest : public zephyl::test::TableTest {
 protected:
  ScriptTest() { source_->rows = {{"Enable", "Family and friends", "Family"}}; }

  void run(const std::vector<ScriptStep>& steps) {
    layout();
    Script({*window_, [this] { return device_.uikit()->textInput().client(); },
            [this] { settle(); },
            [this](const UIKeyPress& press) {
              shortcuts_ += (press.shift ? "^" : "") + press.characters;
              return press.control;
            }})
        .run(steps);
  }
  // Why a script is refused; empty when it is not.
  std::string refusal(const std::vector<ScriptStep>& steps) {
    try {
      run(steps);
      return {};
    } catch (const CommandError& error) {
      EXPECT_EQ(error.status(), kWrongUsage);
      return error.what();
    }
  }
  std::shared_ptr<UITextField> addField() {
    auto field = std::make_shared<UITextField>(CGRectMake(0, 500, 320, 44));
    field->setPlaceholder("Title");
    window_->addSubview(field);
    return field;
  }

  std::string shortcuts_;
};

TEST_F(ScriptTest, WhatIsCalledExactlySoIsTappedFirst) {
  run({{Kind::kTap, "Family"}});
  EXPECT_EQ(rules_->log, "select 0.2 ");
}

TEST_F(ScriptTest, ElseTheFirstThatHoldsTheText) {
  run({{Kind::kTap, "Fam"}});
  EXPECT_EQ(rules_->log, "select 0.1 ");
}

TEST_F(ScriptTest, AControlThatIsCalledAsItsRowIsMeant) {
  layout();
  const auto control = std::make_shared<UISwitch>();
  cell(0)->setAccessoryView(control);
  run({{Kind::kTap, "Enable"}});
  EXPECT_TRUE(control->isOn());
  EXPECT_EQ(rules_->log, "");
}

TEST_F(ScriptTest, StepsAreDoneInTheirOrder) {
  EXPECT_TRUE(table_->becomeFirstResponder());
  run({{Kind::kTap, "Enable"}, {Kind::kKey, "Down"}, {Kind::kKey, "Down"}, {Kind::kKey, "Return"}});
  EXPECT_EQ(rules_->log, "select 0.0 deselect 0.0 select 0.1 ");
}

TEST_F(ScriptTest, ASwipeUncoversWhatDeletesTheRow) {
  source_->canEdit = [](const NSIndexPath&) { return true; };
  run({{Kind::kSwipe, "Family"}, {Kind::kTap, "Delete"}});
  EXPECT_EQ(source_->log, "delete 0.2 ");
}

TEST_F(ScriptTest, WhatCannotBeSwipedAsideIsRefused) {
  EXPECT_EQ(refusal({{Kind::kSwipe, "Family"}}), "\"Family\" cannot be swiped aside");
  addField();
  EXPECT_EQ(refusal({{Kind::kSwipe, "Title"}}), "\"Title\" cannot be swiped aside");
}

TEST_F(ScriptTest, TheEndsOfATableAreReachedByKeys) {
  EXPECT_TRUE(table_->becomeFirstResponder());
  run({{Kind::kTap, "Family and friends"},
       {Kind::kKey, "Down"},
       {Kind::kKey, "End"},
       {Kind::kKey, "Return"},
       {Kind::kKey, "Home"},
       {Kind::kKey, "Return"}});
  EXPECT_EQ(rules_->log, "select 0.1 deselect 0.1 select 0.2 deselect 0.2 select 0.0 ");
}

TEST_F(ScriptTest, TextIsTypedIntoWhatWasTapped) {
  const auto field = addField();
  run({{Kind::kTap, "Title"}, {Kind::kType, "Mar"}, {Kind::kType, "ie"}});
  EXPECT_EQ(field->text(), "Marie");
}

TEST_F(ScriptTest, KeysOfATextMoveMarkAndDelete) {
  struct Case {
    std::vector<ScriptStep> steps;
    const char* text;
  };
  const std::vector<Case> cases = {
      {{{Kind::kKey, "Space"}, {Kind::kType, "d"}}, "ab\U0001F44D\U0001F3FDc d"},
      {{{Kind::kKey, "Ctrl+A"}, {Kind::kType, "x"}, {Kind::kType, "y"}}, "xy"},
      {{{Kind::kKey, "Home"}, {Kind::kType, "x"}, {Kind::kKey, "End"}, {Kind::kType, "y"}},
       "xab\U0001F44D\U0001F3FDcy"},
      {{{Kind::kKey, "Left"},
        {Kind::kKey, "Left"},
        {Kind::kType, "x"},
        {Kind::kKey, "Right"},
        {Kind::kType, "y"}},
       "abx\U0001F44D\U0001F3FDyc"},
      {{{Kind::kKey, "Left"}, {Kind::kKey, "Backspace"}}, "abc"},
      {{{Kind::kKey, "Home"}, {Kind::kKey, "Backspace"}, {Kind::kKey, "Delete"}},
       "b\U0001F44D\U0001F3FDc"},
      {{{Kind::kKey, "Shift+Home"}, {Kind::kKey, "Right"}, {Kind::kKey, "Backspace"}},
       "ab\U0001F44D\U0001F3FD"},
      {{{Kind::kKey, "Shift+Left"}, {Kind::kKey, "Shift+Left"}, {Kind::kKey, "Backspace"}}, "ab"},
      {{{Kind::kKey, "Ctrl+A"}, {Kind::kKey, "Left"}, {Kind::kType, "x"}},
       "xab\U0001F44D\U0001F3FDc"},
  };
  const auto field = addField();
  for (const Case& one : cases) {
    field->setText("ab\U0001F44D\U0001F3FDc");
    std::vector<ScriptStep> steps = {{Kind::kTap, "Title"}};
    steps.insert(steps.end(), one.steps.begin(), one.steps.end());
    run(steps);
    EXPECT_EQ(field->text(), one.text);
  }
}

TEST_F(ScriptTest, KeysThatEndTypingGoToTheField) {
  const auto field = addField();
  bool ended = false;
  field->addAction([&](UIControl&) { ended = true; }, kEditingDidEndOnExit);
  run({{Kind::kTap, "Title"}, {Kind::kKey, "Return"}});
  EXPECT_TRUE(ended);
}

TEST_F(ScriptTest, WhatIsNotThereIsNamedWithWhatIs) {
  EXPECT_EQ(refusal({{Kind::kTap, "Work"}}),
            "nothing on the screen is called \"Work\"; there is: \"Enable\" "
            "\"Family and friends\" \"Family\"");
}

TEST_F(ScriptTest, WhatLiesOutsideTheWindowIsNotThere) {
  const auto button = UIButton::buttonWithType(UIButtonType::kSystem);
  button->setFrame(CGRectMake(0, 900, 100, 44));
  button->setTitle("Far");
  window_->addSubview(button);
  EXPECT_NE(refusal({{Kind::kTap, "Far"}}), "");
}

TEST_F(ScriptTest, TypingIntoNothingIsRefused) {
  EXPECT_EQ(refusal({{Kind::kType, "abc"}}),
            "cannot type \"abc\": nothing is typed into; tap a field first");
}

TEST_F(ScriptTest, KeysOfTheProgramComeBeforeThoseOfTheScreenButForTyping) {
  EXPECT_TRUE(table_->becomeFirstResponder());
  run({{Kind::kKey, "Ctrl+Z"}, {Kind::kKey, "Ctrl+Shift+Z"}});
  EXPECT_EQ(shortcuts_, "Z^Z");
  addField();
  run({{Kind::kTap, "Title"}, {Kind::kKey, "Ctrl+Z"}});
  EXPECT_EQ(shortcuts_, "Z^Z");
}

TEST_F(ScriptTest, AKeyThatThereIsNotIsNamedWithThoseThatThereAre) {
  const std::string why = refusal({{Kind::kKey, "F1"}});
  EXPECT_NE(why.find("there is no key \"F1\"; there are: Up Down"), std::string::npos) << why;
}

TEST_F(ScriptTest, WhatWasDoneBeforeAStepThatIsRefusedStays) {
  EXPECT_NE(refusal({{Kind::kTap, "Enable"}, {Kind::kTap, "Work"}}), "");
  EXPECT_EQ(rules_->log, "select 0.0 ");
}

}  // namespace
}  // namespace zephyl::app::render
