// Alerts answered by keyboard.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/controllers/testing/AlertFixture.h"

namespace zephyl {
namespace {

class AlertKeysTest : public test::AlertFixture {};

TEST_F(AlertKeysTest, EscapeIsTheCancelAction) {
  const auto box = alert();
  add(*box, "Go");
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  show(box);
  EXPECT_TRUE(press(UIKey::kEscape));
  settle();
  EXPECT_EQ(answers_, std::vector<std::string>{"Cancel"});
}

TEST_F(AlertKeysTest, EscapeIsTheOnlyActionButNotOneOfSeveral) {
  const auto single = alert();
  add(*single, "OK");
  show(single);
  EXPECT_TRUE(press(UIKey::kEscape));
  settle();
  EXPECT_EQ(answers_, std::vector<std::string>{"OK"});
  const auto several = alert();
  add(*several, "1");
  add(*several, "2");
  show(several);
  EXPECT_FALSE(press(UIKey::kEscape));
  EXPECT_EQ(root_->presentedViewController(), several);
}

TEST_F(AlertKeysTest, ReturnIsThePreferredActionElseTheLastDefaultOne) {
  const auto box = alert();
  const auto first = add(*box, "1");
  add(*box, "2");
  add(*box, "Cancel", UIAlertActionStyle::kCancel);
  show(box);
  EXPECT_TRUE(press(UIKey::kReturn));
  settle();
  box->setPreferredAction(first);
  show(box);
  EXPECT_TRUE(press(UIKey::kReturn));
  settle();
  EXPECT_EQ(answers_, (std::vector<std::string>{"2", "1"}));
}

TEST_F(AlertKeysTest, KeysStayWithinTheBox) {
  const auto box = alert();
  add(*box, "1");
  add(*box, "2");
  show(box);
  std::vector<std::string> focused;
  for (const UIKey key : {UIKey::kTab, UIKey::kTab, UIKey::kTab, UIKey::kDown, UIKey::kUp}) {
    press(key);
    const auto* const view = dynamic_cast<UIView*>(window_->firstResponder());
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(view->isDescendantOfView(box->view().get()));
  }
  EXPECT_TRUE(press(UIKey::kSpace));
  settle();
  EXPECT_EQ(answers_.size(), 1U);
}

TEST_F(AlertKeysTest, ABusyBoxCannotBeSentAway) {
  const auto busy = alert("", "Deleting\n\n\n");
  show(busy);
  press(UIKey::kEscape);
  press(UIKey::kReturn);
  test::tap(*window_, {20, 700});
  settle();
  EXPECT_EQ(root_->presentedViewController(), busy);
  busy->dismissViewControllerAnimated(/*animated=*/true);
  settle();
  EXPECT_EQ(root_->presentedViewController(), nullptr);
}

}  // namespace
}  // namespace zephyl
