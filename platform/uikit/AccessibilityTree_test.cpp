#include "platform/uikit/AccessibilityTree.h"

#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class Element : public UIView {
 public:
  Element(UIAccessibilityRole role, const std::string& label) : role_(role) {
    setAccessibilityLabel(label);
  }
  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override { return role_; }

 private:
  UIAccessibilityRole role_;
};

class Modal : public UIView {
 public:
  [[nodiscard]] bool accessibilityViewIsModal() const override { return true; }
};

using Role = UIAccessibilityRole;

class AccessibilityTreeTest : public ::testing::Test {
 protected:
  static test::Tree<Element> element(Role role, const std::string& label) {
    return test::tree<Element>(role, label);
  }

  fake::Device device_;
};

TEST_F(AccessibilityTreeTest, ARowIsReadAsOneAndItsSwitchOnItsOwn) {
  const auto table =
      element(Role::kTable, "groups")
          .with(element(Role::kRow, "Work")
                    .with(element(Role::kStaticText, "Work"),
                          test::tree<UIView>().with(element(Role::kSwitch, "Enable")
                                                        .with(element(Role::kImage, "thumb")))));
  EXPECT_EQ(accessibilityDescription(*table.view()),
            "table \"groups\"\n"
            "  row \"Work\"\n"
            "    switch \"Enable\"\n");
}

TEST_F(AccessibilityTreeTest, AnAlertHasItsTextsAsElements) {
  const auto alert = element(Role::kAlert, "Error")
                         .with(element(Role::kStaticText, "No disk"), element(Role::kButton, "OK"));
  EXPECT_EQ(accessibilityDescription(*alert.view()),
            "alert \"Error\"\n"
            "  staticText \"No disk\"\n"
            "  button \"OK\"\n");
}

TEST_F(AccessibilityTreeTest, NothingOutsideAModalViewIsReached) {
  const auto root = test::tree<UIView>().with(
      element(Role::kButton, "below"), test::tree<Modal>().with(element(Role::kButton, "inside")),
      test::tree<Modal>().set([](UIView& view) { view.setHidden(true); }));
  EXPECT_EQ(accessibilityDescription(*root.view()), "button \"inside\"\n");
}

TEST_F(AccessibilityTreeTest, WhatIsNearlyClearIsNotThere) {
  const auto root = test::tree<UIView>().with(
      element(Role::kButton, "clear").set([](UIView& view) { view.setAlpha(0.01); }));
  EXPECT_TRUE(accessibilityElementsIn(*root.view()).empty());
}

TEST_F(AccessibilityTreeTest, TheContainerIsTheNearestElementAbove) {
  const auto button = element(Role::kButton, "b");
  const auto row = element(Role::kRow, "r").with(test::tree<UIView>().with(button));
  EXPECT_EQ(accessibilityContainerOf(*button.view()), row.view().get());
  EXPECT_EQ(accessibilityContainerOf(*row.view()), nullptr);
}

}  // namespace
}  // namespace zephyl
