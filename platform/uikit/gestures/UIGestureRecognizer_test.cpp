#include "platform/uikit/gestures/UIGestureRecognizer.h"

#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UILongPressGestureRecognizer.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using State = UIGestureRecognizerState;

class UIGestureRecognizerTest : public ::testing::Test {
 protected:
  UIGestureRecognizerTest() { window_->addSubview(view_); }

  template <class Recognizer>
  std::shared_ptr<Recognizer> add() {
    auto recognizer = std::make_shared<Recognizer>([this](UIGestureRecognizer& gesture) {
      states_.push_back(gesture.state());
      touches_.push_back(gesture.numberOfTouches());
    });
    view_->addGestureRecognizer(recognizer);
    return recognizer;
  }
  void touch(UITouchPhase phase, CGPoint at, double time, int identifier = 0) {
    test::touch(*window_, phase, at, time, identifier);
  }

  fake::Device device_;
  std::vector<State> states_;
  std::vector<int> touches_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UIView> view_ = std::make_shared<UIView>(CGRectMake(20, 30, 300, 300));
};

TEST_F(UIGestureRecognizerTest, TapEndsWithOneTouchWhereItWas) {
  const auto tap = add<UITapGestureRecognizer>();
  touch(UITouchPhase::kBegan, {120, 130}, 0);
  EXPECT_THAT(states_, IsEmpty());
  touch(UITouchPhase::kEnded, {121, 131}, 0.1);
  EXPECT_THAT(states_, ElementsAre(State::kEnded));
  EXPECT_THAT(touches_, ElementsAre(1));
  EXPECT_EQ(tap->locationInView(view_.get()), (CGPoint{101, 101}));
  EXPECT_EQ(tap->locationInView(nullptr), (CGPoint{121, 131}));
}

TEST_F(UIGestureRecognizerTest, FingerThatStraysOrStaysMakesNoTap) {
  add<UITapGestureRecognizer>();
  touch(UITouchPhase::kBegan, {120, 130}, 0);
  touch(UITouchPhase::kMoved, {166, 130}, 0.1);
  touch(UITouchPhase::kEnded, {120, 130}, 0.2);
  touch(UITouchPhase::kBegan, {120, 130}, 1);
  touch(UITouchPhase::kEnded, {120, 130}, 1.8);
  touch(UITouchPhase::kBegan, {120, 130}, 2);
  touch(UITouchPhase::kCancelled, {120, 130}, 2.1);
  EXPECT_THAT(states_, IsEmpty());
  test::tap(*window_, {120, 130}, 3);
  EXPECT_THAT(states_, ElementsAre(State::kEnded));
}

TEST_F(UIGestureRecognizerTest, SecondFingerMakesNoTap) {
  add<UITapGestureRecognizer>();
  touch(UITouchPhase::kBegan, {120, 130}, 0, 1);
  touch(UITouchPhase::kBegan, {150, 130}, 0, 2);
  touch(UITouchPhase::kEnded, {120, 130}, 0, 1);
  touch(UITouchPhase::kEnded, {150, 130}, 0, 2);
  EXPECT_THAT(states_, IsEmpty());
}

TEST_F(UIGestureRecognizerTest, TwoTapsCountWhenTheyAreNearInTimeAndPlace) {
  add<UITapGestureRecognizer>()->setNumberOfTapsRequired(2);
  test::tap(*window_, {120, 130}, 0);
  test::tap(*window_, {120, 130}, 1);
  test::tap(*window_, {220, 130}, 1.2);
  EXPECT_THAT(states_, IsEmpty());
  test::tap(*window_, {221, 130}, 1.4);
  EXPECT_THAT(states_, ElementsAre(State::kEnded));
  test::tap(*window_, {221, 130}, 1.5);
  EXPECT_EQ(states_.size(), 1U);
}

TEST_F(UIGestureRecognizerTest, PanBeginsBeyondItsSlopWithoutAJump) {
  const auto pan = add<UIPanGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {110, 100}, 0.01);
  EXPECT_THAT(states_, IsEmpty());
  touch(UITouchPhase::kMoved, {111, 100}, 0.02);
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{0, 0}));
  touch(UITouchPhase::kMoved, {115, 108}, 0.03);
  EXPECT_EQ(pan->translationInView(view_.get()), (CGPoint{4, 8}));
  touch(UITouchPhase::kEnded, {115, 108}, 0.04);
  EXPECT_THAT(states_, ElementsAre(State::kBegan, State::kChanged, State::kEnded));
  EXPECT_THAT(touches_, ElementsAre(1, 1, 0));
}

TEST_F(UIGestureRecognizerTest, TranslationIsInTheSpaceOfTheViewAndCanBeSet) {
  const auto pan = add<UIPanGestureRecognizer>();
  view_->setTransform(CGAffineTransformMakeScale(2, 2));
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {150, 100}, 0);
  pan->setTranslation({5, 0}, view_.get());
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{10, 0}));
  touch(UITouchPhase::kMoved, {154, 100}, 0);
  EXPECT_EQ(pan->translationInView(view_.get()), (CGPoint{7, 0}));
}

TEST_F(UIGestureRecognizerTest, VelocityIsThatOfTheLastTenthOfASecond) {
  const auto pan = add<UIPanGestureRecognizer>();
  CGPoint velocity;
  pan->shouldBegin = [&](UIGestureRecognizer&) { return true; };
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {120, 100}, 0.05);
  touch(UITouchPhase::kMoved, {160, 100}, 0.10);
  velocity = pan->velocityInView(nullptr);
  EXPECT_NEAR(velocity.x, 600, 1e-6);
  touch(UITouchPhase::kMoved, {160, 120}, 0.5);
  EXPECT_EQ(pan->velocityInView(nullptr), (CGPoint{0, 0}));
}

TEST_F(UIGestureRecognizerTest, SecondFingerMovesThePanByHalfAndMakesItJumpByNothing) {
  const auto pan = add<UIPanGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0, 1);
  touch(UITouchPhase::kMoved, {120, 100}, 0, 1);
  touch(UITouchPhase::kBegan, {200, 200}, 0, 2);
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{0, 0}));
  EXPECT_EQ(pan->locationInView(nullptr), (CGPoint{160, 150}));
  touch(UITouchPhase::kMoved, {210, 200}, 0, 2);
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{5, 0}));
  touch(UITouchPhase::kEnded, {120, 100}, 0, 1);
  touch(UITouchPhase::kMoved, {220, 200}, 0, 2);
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{15, 0}));
  EXPECT_EQ(pan->state(), State::kChanged);
}

TEST_F(UIGestureRecognizerTest, PanAtFortyFiveDegreesIsVertical) {
  add<UIPanGestureRecognizer>()->setAllowedDirections(kPanHorizontally);
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {120, 120}, 0);
  touch(UITouchPhase::kMoved, {300, 120}, 0);
  EXPECT_THAT(states_, IsEmpty());
}

TEST_F(UIGestureRecognizerTest, LostFingerCancelsThePanAndTheNextStartsAnew) {
  const auto pan = add<UIPanGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {120, 100}, 0);
  touch(UITouchPhase::kCancelled, {120, 100}, 0);
  EXPECT_THAT(states_, ElementsAre(State::kBegan, State::kCancelled));
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {105, 100}, 0);
  EXPECT_EQ(states_.size(), 2U);
}

TEST_F(UIGestureRecognizerTest, LongPressBeginsAfterHalfASecondOfRest) {
  add<UILongPressGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {105, 100}, 0);
  device_.dispatch().advance(0.49);
  EXPECT_THAT(states_, IsEmpty());
  device_.dispatch().advance(0.02);
  touch(UITouchPhase::kMoved, {150, 100}, 0);
  touch(UITouchPhase::kEnded, {150, 100}, 0);
  EXPECT_THAT(states_, ElementsAre(State::kBegan, State::kChanged, State::kEnded));
}

TEST_F(UIGestureRecognizerTest, LongPressThatMovesOrLeavesBeforeIsNone) {
  add<UILongPressGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {111, 100}, 0);
  device_.dispatch().advance(0.3);
  touch(UITouchPhase::kEnded, {111, 100}, 0);
  // The timer of the first press must not serve the second.
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  device_.dispatch().advance(0.3);
  EXPECT_THAT(states_, IsEmpty());
  touch(UITouchPhase::kEnded, {100, 100}, 0);
  device_.dispatch().advance(1);
  EXPECT_THAT(states_, IsEmpty());
}

TEST_F(UIGestureRecognizerTest, LongPressMayEndBeforeItsTimer) {
  add<UILongPressGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  window_ = nullptr;
  view_ = nullptr;
  device_.dispatch().advance(1);
  EXPECT_THAT(states_, IsEmpty());
}

TEST_F(UIGestureRecognizerTest, ScreenMayRefuseAGesture) {
  const auto tap = add<UITapGestureRecognizer>();
  tap->shouldBegin = [](UIGestureRecognizer&) { return false; };
  test::tap(*window_, {100, 100});
  EXPECT_THAT(states_, IsEmpty());
  EXPECT_EQ(tap->state(), State::kPossible);
}

TEST_F(UIGestureRecognizerTest, SwitchedOffItIsCancelledAndSeesNothing) {
  const auto pan = add<UIPanGestureRecognizer>();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {120, 100}, 0);
  pan->setEnabled(false);
  touch(UITouchPhase::kMoved, {140, 100}, 0);
  touch(UITouchPhase::kEnded, {140, 100}, 0);
  EXPECT_THAT(states_, ElementsAre(State::kBegan, State::kCancelled));
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {140, 100}, 0);
  EXPECT_EQ(states_.size(), 2U);
}

TEST_F(UIGestureRecognizerTest, PlacesThatAreNoNumbersDoNoHarm) {
  const auto pan = add<UIPanGestureRecognizer>();
  const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
  touch(UITouchPhase::kBegan, {100, 100}, 0);
  touch(UITouchPhase::kMoved, {nan, 100}, nan);
  touch(UITouchPhase::kMoved, {50, 100}, nan);
  EXPECT_EQ(pan->translationInView(nullptr), (CGPoint{50, 0}));
  EXPECT_EQ(pan->velocityInView(nullptr), (CGPoint{0, 0}));
}

}  // namespace
}  // namespace zephyl
