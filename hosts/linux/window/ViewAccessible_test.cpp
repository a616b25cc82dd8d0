#include "hosts/linux/window/ViewAccessible.h"

#include "platform/uikit/controls/UIControl.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/linux/window/WindowTest.h"

namespace zephyl::linux_host {
namespace {

class Named : public UIControl {
 public:
  Named(UIAccessibilityRole role, const std::string& label, const CGRect& frame = {})
      : UIControl(frame), role_(role) {
    setAccessibilityLabel(label);
  }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override { return role_; }
  [[nodiscard]] std::string accessibilityValue() const override { return value; }
  void accessibilityIncrement() override { ++steps; }
  void accessibilityDecrement() override { --steps; }

  std::string value;
  int steps = 0;

 private:
  UIAccessibilityRole role_;
};

using Role = UIAccessibilityRole;

class ViewAccessibleTest : public WindowTest {
 protected:
  std::shared_ptr<Named> add(Role role, const std::string& label, const CGRect& frame = {}) {
    auto view = std::make_shared<Named>(role, label, frame);
    window_->addSubview(view);
    return view;
  }

  QAccessibleInterface& root() { return *QAccessible::queryAccessibleInterface(phone_.get()); }
};

TEST_F(ViewAccessibleTest, TheWindowsElementsAreTheWidgetsChildren) {
  add(Role::kButton, "Save");
  const auto row = add(Role::kRow, "Enable");
  row->addSubview(std::make_shared<Named>(Role::kSwitch, "Enable"));
  show();
  ASSERT_EQ(root().childCount(), 2);
  EXPECT_EQ(root().child(0)->text(QAccessible::Name), QStringLiteral("Save"));
  EXPECT_EQ(root().child(0)->role(), QAccessible::Button);
  ASSERT_EQ(root().child(1)->childCount(), 1);
  EXPECT_EQ(root().child(1)->child(0)->role(), QAccessible::CheckBox);
  EXPECT_EQ(root().child(1)->child(0)->parent(), root().child(1));
  EXPECT_EQ(root().child(1)->parent(), &root());
  EXPECT_EQ(root().indexOfChild(root().child(1)), 1);
}

TEST_F(ViewAccessibleTest, TellsWhereAnElementIsAndWhatLiesAtAPlace) {
  add(Role::kButton, "Save", CGRectMake(20, 30, 60, 40));
  show();
  const QRect rect = root().child(0)->rect();
  EXPECT_EQ(rect, QRect(phone_->mapToGlobal(QPoint(20, 30)), QSize(60, 40)));
  EXPECT_EQ(root().childAt(rect.center().x(), rect.center().y()), root().child(0));
  EXPECT_EQ(root().childAt(rect.right() + 5, rect.bottom() + 5), nullptr);
}

TEST_F(ViewAccessibleTest, PressingTapsAndSlidersStep) {
  int taps = 0;
  add(Role::kButton, "Save")->addAction([&taps](UIControl& /*sender*/) { ++taps; }, kTouchUpInside);
  const auto slider = add(Role::kSlider, "Brightness");
  show();
  root().child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(taps, 1);
  QAccessibleActionInterface* const steps = root().child(1)->actionInterface();
  EXPECT_EQ(steps->actionNames().size(), 2);
  steps->doAction(QAccessibleActionInterface::increaseAction());
  steps->doAction(QAccessibleActionInterface::increaseAction());
  steps->doAction(QAccessibleActionInterface::decreaseAction());
  EXPECT_EQ(slider->steps, 1);
}

TEST_F(ViewAccessibleTest, WhatIsNotEnabledSaysSoAndDoesNothing) {
  int taps = 0;
  const auto button = add(Role::kButton, "Save");
  button->addAction([&taps](UIControl& /*sender*/) { ++taps; }, kTouchUpInside);
  button->setEnabled(false);
  show();
  EXPECT_TRUE(root().child(0)->state().disabled);
  EXPECT_TRUE(root().child(0)->actionInterface()->actionNames().isEmpty());
  root().child(0)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(taps, 0);
}

TEST_F(ViewAccessibleTest, AnElementWhoseViewIsGoneIsInvalidAndThenForgotten) {
  auto button = add(Role::kButton, "Save");
  show();
  QAccessibleInterface* const element = root().child(0);
  const QAccessible::Id id = QAccessible::uniqueId(element);
  button->removeFromSuperview();
  const std::weak_ptr<Named> gone = button;
  button.reset();
  ASSERT_TRUE(gone.expired());
  EXPECT_FALSE(element->isValid());
  EXPECT_TRUE(element->text(QAccessible::Name).isEmpty());
  phone_->accessible().announceChanges();
  EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}

}  // namespace
}  // namespace zephyl::linux_host
