#include "platform/uikit/UIWindow.h"

#include <functional>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/gestures/UITapGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Field : public UIView {
 public:
  explicit Field(const CGRect& frame = CGRectMake(0, 0, 10, 10)) : UIView(frame) {}
  [[nodiscard]] bool canBecomeFirstResponder() const override { return true; }
  bool resignFirstResponder() override {
    ++resigned;
    if (atResign) {
      atResign();
    }
    return !stubborn && UIView::resignFirstResponder();
  }
  bool pressesBegan(const UIKeyPress& press) override {
    keys.push_back(press.characters);
    return press.characters == "x" || UIView::pressesBegan(press);
  }

  bool stubborn = false;
  int resigned = 0;
  std::function<void()> atResign;
  std::vector<std::string> keys;
};

class UIWindowTest : public ::testing::Test {
 protected:
  UIWindowTest() {
    window_->addSubview(first_);
    window_->addSubview(second_);
    (void)window_->takeDamage();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 100, 100));
  std::shared_ptr<Field> first_ = std::make_shared<Field>();
  std::shared_ptr<Field> second_ = std::make_shared<Field>(CGRectMake(50, 0, 10, 10));
};

TEST_F(UIWindowTest, OneViewAtMostIsFirstResponder) {
  EXPECT_TRUE(first_->becomeFirstResponder());
  EXPECT_TRUE(first_->becomeFirstResponder());
  EXPECT_TRUE(first_->isFirstResponder());
  EXPECT_TRUE(second_->becomeFirstResponder());
  EXPECT_EQ(first_->resigned, 1);
  EXPECT_FALSE(first_->isFirstResponder());
  EXPECT_EQ(window_->firstResponder(), second_.get());
  EXPECT_TRUE(second_->resignFirstResponder());
  EXPECT_EQ(window_->firstResponder(), nullptr);
}

TEST_F(UIWindowTest, WhoMayNotIsNotFirstResponder) {
  EXPECT_FALSE(window_->becomeFirstResponder());
  EXPECT_FALSE(std::make_shared<Field>()->becomeFirstResponder());
  first_->stubborn = true;
  EXPECT_TRUE(first_->becomeFirstResponder());
  EXPECT_FALSE(second_->becomeFirstResponder());
  EXPECT_TRUE(first_->isFirstResponder());
}

TEST_F(UIWindowTest, AViewThatLeavesResignsWhetherItWantsOrNot) {
  first_->addSubview(second_);
  second_->stubborn = true;
  second_->becomeFirstResponder();
  first_->removeFromSuperview();
  EXPECT_EQ(second_->resigned, 1);
  EXPECT_EQ(window_->firstResponder(), nullptr);
  EXPECT_FALSE(second_->isFirstResponder());
}

TEST_F(UIWindowTest, ResigningMayTakeTheNextOneAway) {
  first_->becomeFirstResponder();
  first_->atResign = [this] { second_->removeFromSuperview(); };
  EXPECT_FALSE(second_->becomeFirstResponder());
  EXPECT_EQ(window_->firstResponder(), nullptr);
}

TEST_F(UIWindowTest, AFirstResponderThatDiesIsForgotten) {
  first_->becomeFirstResponder();
  first_->atResign = [this] { first_->removeFromSuperview(), first_.reset(); };
  EXPECT_TRUE(window_->endEditing());
  EXPECT_EQ(window_->firstResponder(), nullptr);
  second_->becomeFirstResponder();
  window_.reset();
  EXPECT_EQ(second_->resigned, 1);
}

TEST_F(UIWindowTest, EndEditingResignsWhatIsInTheView) {
  EXPECT_FALSE(window_->endEditing());
  first_->becomeFirstResponder();
  EXPECT_FALSE(second_->endEditing());
  EXPECT_TRUE(first_->isFirstResponder());
  first_->stubborn = true;
  EXPECT_FALSE(window_->endEditing());
  first_->stubborn = false;
  EXPECT_TRUE(window_->endEditing());
}

TEST_F(UIWindowTest, KeysGoToTheFirstResponderAndThenOn) {
  EXPECT_FALSE(window_->sendKey({UIKey::kCharacter, "x"}));
  first_->addSubview(second_);
  second_->becomeFirstResponder();
  EXPECT_TRUE(window_->sendKey({UIKey::kCharacter, "x"}));
  EXPECT_FALSE(window_->sendKey({UIKey::kCharacter, "y"}));
  EXPECT_THAT(second_->keys, ElementsAre("x", "y"));
  EXPECT_THAT(first_->keys, ElementsAre("y"));
}

TEST_F(UIWindowTest, TheTopmostViewThatCanBeTouchedIsHit) {
  const auto above = std::make_shared<UIView>(CGRectMake(0, 0, 100, 100));
  window_->addSubview(above);
  EXPECT_EQ(window_->hitTest({5, 5}), above.get());
  above->setAlpha(0.01);
  EXPECT_EQ(window_->hitTest({5, 5}), first_.get());
  above->setAlpha(1);
  above->setHidden(true);
  EXPECT_EQ(window_->hitTest({5, 5}), first_.get());
  above->setHidden(false);
  above->setUserInteractionEnabled(false);
  EXPECT_EQ(window_->hitTest({5, 5}), first_.get());
  EXPECT_EQ(window_->hitTest({30, 5}), window_.get());
  EXPECT_EQ(window_->hitTest({100, 5}), nullptr);
}

TEST_F(UIWindowTest, TouchesFindTurnedAndScrolledViews) {
  const auto inner = std::make_shared<UIView>(CGRectMake(0, 100, 10, 10));
  const auto scrolled = test::tree<UIView>(CGRectMake(20, 20, 20, 20)).with(inner).view();
  scrolled->setBounds(CGRectMake(0, 100, 20, 20));
  window_->addSubview(scrolled);
  EXPECT_EQ(window_->hitTest({25, 25}), inner.get());
  scrolled->setTransform(CGAffineTransformMakeScale(2, 2));
  EXPECT_EQ(window_->hitTest({11, 11}), inner.get());
  scrolled->setTransform(CGAffineTransformMakeScale(0, 1));
  EXPECT_EQ(window_->hitTest({5, 105}), nullptr);
  scrolled->setBounds(CGRectMake(20, 20, 20, 20));
  EXPECT_EQ(window_->hitTest({30, 30}), window_.get());
}

TEST_F(UIWindowTest, ATouchMayDestroyTheWindow) {
  const std::weak_ptr<UIWindow> weak = window_;
  const auto tap =
      std::make_shared<UITapGestureRecognizer>([this](UIGestureRecognizer&) { window_.reset(); });
  first_->addGestureRecognizer(tap);
  test::tap(*window_, {5, 5});
  EXPECT_TRUE(weak.expired());
  EXPECT_EQ(first_->superview(), nullptr);
}

TEST_F(UIWindowTest, ARecognizerBelongsToOneView) {
  const auto tap = std::make_shared<UITapGestureRecognizer>([](UIGestureRecognizer&) {});
  first_->addGestureRecognizer(tap);
  second_->addGestureRecognizer(tap);
  EXPECT_THAT(first_->gestureRecognizers(), IsEmpty());
  EXPECT_EQ(tap->view(), second_.get());
  second_->removeGestureRecognizer(tap);
  EXPECT_EQ(tap->view(), nullptr);
  first_->addGestureRecognizer(tap);
  window_.reset();
  first_.reset();
  EXPECT_EQ(tap->view(), nullptr);
}

TEST_F(UIWindowTest, ANewWindowIsDamagedWhole) {
  UIWindow window(CGRectMake(0, 0, 30, 30));
  EXPECT_THAT(window.takeDamage().rects, ElementsAre(CGRectMake(0, 0, 30, 30)));
  EXPECT_TRUE(window.takeDamage().empty());
}

TEST_F(UIWindowTest, DamageIsToldOnceUntilItIsTaken) {
  int told = 0;
  window_->setDamageHandler([&] { ++told; });
  first_->setNeedsDisplay();
  second_->setNeedsDisplay();
  EXPECT_EQ(told, 1);
  EXPECT_THAT(window_->takeDamage().rects,
              ElementsAre(CGRectMake(0, 0, 10, 10), CGRectMake(50, 0, 10, 10)));
  EXPECT_TRUE(window_->takeDamage().empty());
  first_->setNeedsDisplayInRect(CGRectMake(0, 0, 1, 1));
  EXPECT_EQ(told, 2);
}

TEST_F(UIWindowTest, AResizedWindowIsDamagedWhole) {
  window_->setFrame(CGRectMake(0, 0, 120, 50));
  EXPECT_THAT(window_->takeDamage().rects, ElementsAre(CGRectMake(0, 0, 120, 50)));
}

}  // namespace
}  // namespace zephyl
