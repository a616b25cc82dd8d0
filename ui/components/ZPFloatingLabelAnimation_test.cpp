#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "ui/components/ZPFloatingLabeledTextField.h"

namespace zephyl {
namespace {

constexpr CGFloat kFloatingLine = 1.2 * 12;

class ZPFloatingLabelAnimationTest : public ::testing::Test {
 protected:
  ZPFloatingLabelAnimationTest() {
    window_->addSubview(field_);
    field_->setPlaceholder("Title");
    pass(1);
    field_->becomeFirstResponder();
    pass(1);
  }
  // Time passes with the screen laid out.
  void pass(double seconds) {
    window_->layoutWindow();
    device_.uikit()->displayLink().advance(seconds);
  }
  UILabel& label() { return *field_->floatingLabel(); }
  [[nodiscard]] CGFloat shownAlpha() { return label().layer()->presentation().opacity; }
  [[nodiscard]] CGFloat shownY() {
    const LayerState shown = label().layer()->presentation();
    return shown.position.y - shown.bounds.height() / 2;
  }
  fake::FakeTextInput& input() { return device_.uikit()->textInput(); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<ZPFloatingLabeledTextField> field_ =
      std::make_shared<ZPFloatingLabeledTextField>(CGRectMake(30, 3.5, 340, 44));
};

TEST_F(ZPFloatingLabelAnimationTest, AnEmptyFieldNeverShowsTheLabel) {
  EXPECT_EQ(shownAlpha(), 0);
  field_->resignFirstResponder();
  pass(0.1);
  EXPECT_EQ(shownAlpha(), 0);
  pass(1);
  EXPECT_EQ(shownAlpha(), 0);
  EXPECT_DOUBLE_EQ(label().frame().y(), kFloatingLine);
}

TEST_F(ZPFloatingLabelAnimationTest, TheFirstCharacterFadesTheLabelIn) {
  input().type("a");
  pass(0);
  EXPECT_EQ(label().alpha(), 1);
  EXPECT_EQ(shownAlpha(), 0);
  device_.uikit()->displayLink().advance(0.15);
  // It slows down: more than half of the way in half of the time.
  EXPECT_GT(shownAlpha(), 0.55);
  EXPECT_LT(shownAlpha(), 1);
  EXPECT_LT(shownY(), (kFloatingLine + 2) / 2);
  device_.uikit()->displayLink().advance(0.15);
  EXPECT_EQ(shownAlpha(), 1);
  EXPECT_NEAR(shownY(), 2, 1e-9);
  EXPECT_NEAR(label().frame().y(), 2, 1e-9);
}

TEST_F(ZPFloatingLabelAnimationTest, TheSecondCharacterAnimatesNothing) {
  input().type("a");
  pass(1);
  input().type("b");
  pass(0);
  EXPECT_EQ(shownAlpha(), 1);
  EXPECT_NEAR(shownY(), 2, 1e-9);
}

TEST_F(ZPFloatingLabelAnimationTest, TheLabelFadesOutAndThenGoesBack) {
  input().type("a");
  pass(1);
  input().deleteBackward();
  pass(0.15);
  // It speeds up: less than half of the way in half of the time.
  EXPECT_GT(shownAlpha(), 0.55);
  EXPECT_LT(shownAlpha(), 1);
  EXPECT_NEAR(shownY(), 2, 1e-9);
  pass(0.2);
  EXPECT_EQ(shownAlpha(), 0);
  EXPECT_DOUBLE_EQ(label().frame().y(), kFloatingLine);
}

TEST_F(ZPFloatingLabelAnimationTest, ALabelThatIsShownAgainMeanwhileStaysUp) {
  input().type("a");
  pass(1);
  input().deleteBackward();
  pass(0.15);
  const CGFloat before = shownAlpha();
  input().type("b");
  pass(0);
  EXPECT_NEAR(shownAlpha(), before, 1e-9);
  pass(1);
  EXPECT_EQ(shownAlpha(), 1);
  EXPECT_NEAR(label().frame().y(), 2, 1e-9);
}

TEST_F(ZPFloatingLabelAnimationTest, ThePaddingMovesTheHiddenLabel) {
  field_->setFloatingLabelYPadding(4);
  pass(1);
  EXPECT_DOUBLE_EQ(label().frame().y(), kFloatingLine + 4);
}

TEST_F(ZPFloatingLabelAnimationTest, ATextThatIsSetShowsTheLabelToo) {
  field_->resignFirstResponder();
  field_->setText("Work");
  pass(1);
  EXPECT_EQ(shownAlpha(), 1);
  field_->setText("");
  pass(1);
  EXPECT_EQ(shownAlpha(), 0);
}

TEST_F(ZPFloatingLabelAnimationTest, AShownLabelGoesUpAgainAfterANewPlaceholder) {
  input().type("a");
  pass(1);
  field_->setPlaceholder("Name");
  pass(1);
  EXPECT_EQ(shownAlpha(), 1);
  EXPECT_NEAR(shownY(), 2, 1e-9);
}

TEST_F(ZPFloatingLabelAnimationTest, AFieldThatGoesMeanwhileIsNotTouched) {
  const std::weak_ptr<UILabel> label = field_->floatingLabel();
  field_->setText("Work");
  pass(1);
  field_->setText("");
  pass(0.1);
  field_->removeFromSuperview();
  field_.reset();
  EXPECT_TRUE(label.expired());
  device_.uikit()->displayLink().advance(1);
}

TEST_F(ZPFloatingLabelAnimationTest, RightAlignedTheLabelEndsAtTheRightEdge) {
  field_->setTextAlignment(NSTextAlignment::kRight);
  field_->setText("Work");
  pass(1);
  EXPECT_NEAR(label().frame().maxX(), 340, 1e-9);
}

TEST_F(ZPFloatingLabelAnimationTest, ALayoutMeanwhileEndsNoFade) {
  const auto layoutAgain = [this] {
    field_->setNeedsLayout();
    pass(0.05);
  };
  input().type("a");
  pass(0.1);
  layoutAgain();
  EXPECT_GT(shownAlpha(), 0.5);
  EXPECT_LT(shownAlpha(), 1);
  EXPECT_GT(shownY(), 2);
  pass(1);
  input().deleteBackward();
  pass(0.1);
  layoutAgain();
  layoutAgain();
  EXPECT_GT(shownAlpha(), 0);
  EXPECT_LT(shownAlpha(), 1);
  EXPECT_NEAR(shownY(), 2, 1e-9);
  pass(0.2);
  EXPECT_EQ(shownAlpha(), 0);
  EXPECT_DOUBLE_EQ(shownY(), kFloatingLine);
}

}  // namespace
}  // namespace zephyl
