#include "platform/uikit/TreeDump.h"

#include <gtest/gtest.h>

#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class Said : public UIView {
 public:
  explicit Said(std::string text) : UIView(CGRectMake(1, 2, 30, 4.5)), text_(std::move(text)) {}
  [[nodiscard]] std::string describe() const override { return text_; }
  [[nodiscard]] bool isAccessibilityElement() const override { return true; }
  [[nodiscard]] UIAccessibilityRole accessibilityRole() const override {
    return UIAccessibilityRole::kSwitch;
  }
  [[nodiscard]] std::string accessibilityValue() const override { return "1"; }
  [[nodiscard]] UIAccessibilityState accessibilityState() const override {
    return {.enabled = false, .checked = true};
  }
  [[nodiscard]] const char* className() const override { return "Said"; }

 protected:
  [[nodiscard]] std::string derivedAccessibilityLabel() const override { return text_; }

 private:
  std::string text_;
};

class TreeDumpTest : public ::testing::Test {
 protected:
  fake::Device device_;
};

TEST_F(TreeDumpTest, SaysWhatDiffersFromAPlainView) {
  const auto root =
      test::tree<UIView>(CGRectMake(0, 0, 100, 50))
          .with(test::tree<UIView>(CGRectMake(0, 0, 5, 5)).tag(7).set([](UIView& view) {
            view.setHidden(true);
            view.setAlpha(0.5);
            view.setBackgroundColor(UIColor::colorWithRed(1, 0, 0.5, 1));
            view.setTransform(CGAffineTransformMakeTranslation(3, 4));
          }));
  EXPECT_EQ(recursiveDescription(*root.view()),
            "UIView (0 0; 100 50)\n"
            "  UIView #7 (3 4; 5 5) transform 1 0 0 1 3 4 hidden alpha 0.5 #ff0080ff\n");
}

TEST_F(TreeDumpTest, SaysWhatAViewShowsAndWhatAScreenReaderIsTold) {
  EXPECT_EQ(recursiveDescription(Said("a \"b\"\nc")),
            "Said (1 2; 30 4.5) \"a \\\"b\\\"\\nc\" "
            "[switch \"a \\\"b\\\"\\nc\" value \"1\" disabled checked]\n");
}

TEST_F(TreeDumpTest, ReadsElementsInTheOrderOfTheTreeAndNoHiddenOnes) {
  const auto root = test::tree<UIView>().with(
      test::tree<UIView>().with(test::tree<Said>("first")),
      test::tree<Said>("hidden").set([](UIView& view) { view.setHidden(true); }),
      test::tree<Said>("last"));
  EXPECT_EQ(accessibilityDescription(*root.view()),
            "switch \"first\" value \"1\" disabled checked\n"
            "switch \"last\" value \"1\" disabled checked\n");
}

TEST_F(TreeDumpTest, ALongTextIsCutBetweenCharacters) {
  std::string text(199, 'x');
  text += "\u00e4\u00e4";
  const std::string line = recursiveDescription(Said(text));
  EXPECT_NE(line.find("\"" + std::string(199, 'x') + "...\""), std::string::npos) << line;
}

}  // namespace
}  // namespace zephyl
