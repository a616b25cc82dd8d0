#include "platform/uikit/UIViewAnimation.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UIViewAnimationTest : public ::testing::Test {
 protected:
  UIViewAnimationTest() {
    window_->addSubview(view_);
    (void)window_->takeDamage();
  }

  // Moves the view to `x` over a second, linearly.
  void moveTo(CGFloat x, unsigned options = 0, double delay = 0) {
    const std::string name = "to " + std::to_string(static_cast<int>(x));
    animateWithDuration(
        1, delay, kAnimationCurveLinear | options,
        [&] {
          view_->setCenter({x, 5});
        },
        told(name));
  }
  AnimationCompletion told(const std::string& name) {
    return [this, name](bool finished) { log_.push_back(name + (finished ? "" : " cut")); };
  }
  [[nodiscard]] CGFloat shown() const { return view_->layer()->presentation().position.x; }
  fake::FakeDisplayLink& link() { return device_.uikit()->displayLink(); }

  fake::Device device_;
  std::vector<std::string> log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 300, 100));
  std::shared_ptr<UIView> view_ = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
};

TEST_F(UIViewAnimationTest, TheViewHasTheNewValueAndTheScreenFollows) {
  moveTo(105);
  EXPECT_EQ(view_->center().x, 105);
  EXPECT_EQ(shown(), 5);
  link().advance(0.5);
  EXPECT_NEAR(shown(), 55, 1e-6);
  EXPECT_THAT(log_, IsEmpty());
  link().advance(0.5);
  EXPECT_EQ(shown(), 105);
  EXPECT_THAT(log_, ElementsAre("to 105"));
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIViewAnimationTest, EveryValueIsAnimated) {
  animateWithDuration(1, 0, kAnimationCurveLinear, [&] {
    view_->setFrame(CGRectMake(0, 0, 30, 10));
    view_->setTransform(CGAffineTransformMakeScale(3, 3));
    view_->setAlpha(0.5);
    view_->setBackgroundColor(UIColor::blackColor());
    view_->layer()->setCornerRadius(4);
    view_->layer()->setBorderWidth(2);
    view_->layer()->setBorderColor(UIColor::whiteColor());
  });
  link().advance(0.5);
  const LayerState now = view_->layer()->presentation();
  EXPECT_NEAR(now.bounds.width(), 20, 1e-6);
  EXPECT_NEAR(now.position.x, 10, 1e-6);
  EXPECT_NEAR(now.transform.a, 2, 1e-6);
  EXPECT_NEAR(now.opacity, 0.75, 1e-6);
  EXPECT_NEAR(now.backgroundColor.channels().alpha, 0.5, 1e-6);
  EXPECT_NEAR(now.cornerRadius, 2, 1e-6);
  EXPECT_NEAR(now.borderWidth, 1, 1e-6);
  EXPECT_NEAR(now.borderColor.channels().red, 0.5, 1e-6);
}

TEST_F(UIViewAnimationTest, NothingMovesBeforeTheDelay) {
  moveTo(105, 0, 0.5);
  (void)window_->takeDamage();
  link().advance(0.4);
  EXPECT_EQ(shown(), 5);
  EXPECT_TRUE(window_->takeDamage().empty());
  link().advance(0.6);
  EXPECT_NEAR(shown(), 55, 1e-6);
  link().advance(0.5);
  EXPECT_THAT(log_, ElementsAre("to 105"));
}

TEST_F(UIViewAnimationTest, ChangesOutsideAreNotAnimated) {
  view_->setCenter({50, 5});
  EXPECT_EQ(shown(), 50);
  EXPECT_FALSE(link().isFrameRequested());
  animateWithDuration(
      1, [&] { performWithoutAnimation([&] {
                 view_->setCenter({70, 5});
               }); }, told("empty"));
  EXPECT_EQ(shown(), 70);
  EXPECT_THAT(log_, IsEmpty());
  link().runFrame();
  EXPECT_THAT(log_, ElementsAre("empty"));
}

TEST_F(UIViewAnimationTest, WithoutTimeOrMotionChangesShowAtOnce) {
  animateWithDuration(
      0,
      [&] {
        view_->setCenter({50, 5});
      },
      told("no time"));
  EXPECT_EQ(shown(), 50);
  device_.uikit()->screen().setPrefersReducedMotion(true);
  moveTo(105);
  EXPECT_EQ(shown(), 105);
  EXPECT_THAT(log_, IsEmpty());
  link().runFrame();
  EXPECT_THAT(log_, ElementsAre("no time", "to 105"));
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIViewAnimationTest, ANewAnimationCutsTheOldOneShort) {
  moveTo(105);
  link().advance(0.5);
  moveTo(5);
  // From the view's value; from what is seen only when asked to.
  EXPECT_EQ(shown(), 105);
  link().runFrame();
  EXPECT_THAT(log_, ElementsAre("to 105 cut"));
  link().advance(1);
  EXPECT_THAT(log_, ElementsAre("to 105 cut", "to 5"));
}

TEST_F(UIViewAnimationTest, AValueThatIsSetTwiceIsAnimatedOnce) {
  animateWithDuration(
      1, 0, kAnimationCurveLinear,
      [&] {
        view_->setCenter({205, 5});
        view_->setCenter({105, 5});
      },
      told("twice"));
  link().advance(0.5);
  EXPECT_NEAR(shown(), 55, 1e-6);
  link().advance(0.5);
  EXPECT_THAT(log_, ElementsAre("twice"));
}

TEST_F(UIViewAnimationTest, BeginsFromTheCurrentStateWhenAskedTo) {
  moveTo(105);
  link().advance(0.5);
  moveTo(5, kAnimationBeginFromCurrentState);
  EXPECT_NEAR(shown(), 55, 1e-6);
  link().advance(0.5);
  EXPECT_NEAR(shown(), 30, 1e-6);
}

TEST_F(UIViewAnimationTest, AChangeWithoutAnimationGivesARunningOneANewAim) {
  moveTo(105);
  link().advance(0.5);
  view_->setCenter({205, 5});
  EXPECT_NEAR(shown(), 105, 1e-6);
  link().advance(0.5);
  EXPECT_EQ(shown(), 205);
  EXPECT_THAT(log_, ElementsAre("to 105"));
}

TEST_F(UIViewAnimationTest, CompletionsRunInTheOrderOfTheirEnds) {
  animateWithDuration(
      0.3, [&] { view_->setAlpha(0.5); }, told("late"));
  animateWithDuration(
      0.2, [&] { view_->setBackgroundColor(UIColor::redColor()); }, told("early"));
  animateWithDuration(0.1, nullptr, told("empty"));
  EXPECT_THAT(log_, IsEmpty());
  // One long frame in which all end.
  link().advance(0.0001);
  EXPECT_THAT(log_, ElementsAre("empty"));
  link().advance(0.5);
  EXPECT_THAT(log_, ElementsAre("empty", "early", "late"));
}

TEST_F(UIViewAnimationTest, ALayerThatLeavesEndsItsAnimations) {
  const auto inner = std::make_shared<UIView>(CGRectMake(0, 0, 1, 1));
  view_->addSubview(inner);
  animateWithDuration(
      1, [&] { inner->setAlpha(0); }, told("inner"));
  link().advance(0.5);
  view_->removeFromSuperview();
  EXPECT_EQ(inner->layer()->presentation().opacity, 0);
  link().runFrame();
  EXPECT_THAT(log_, ElementsAre("inner cut"));
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIViewAnimationTest, ReorderingEndsNoAnimation) {
  moveTo(105);
  window_->addSubview(std::make_shared<UIView>());
  window_->bringSubviewToFront(view_);
  link().advance(1);
  EXPECT_THAT(log_, ElementsAre("to 105"));
}

TEST_F(UIViewAnimationTest, ADestroyedViewEndsItsAnimations) {
  auto alone = std::make_shared<UIView>();
  animateWithDuration(
      1, [&] { alone->setAlpha(0); }, told("alone"));
  alone.reset();
  link().runFrame();
  EXPECT_THAT(log_, ElementsAre("alone cut"));
}

TEST_F(UIViewAnimationTest, ACompletionMayAnimateOrDestroy) {
  const std::weak_ptr<UIView> weak = view_;
  animateWithDuration(
      0.5, [&] { view_->setAlpha(0.5); },
      [&](bool) {
        moveTo(55);
        animateWithDuration(
            0.5, [&] { view_->setAlpha(0); },
            [&](bool) {
              view_->removeFromSuperview();
              view_.reset();
            });
      });
  link().advance(0.5);
  EXPECT_FALSE(weak.expired());
  link().advance(0.5);
  EXPECT_TRUE(weak.expired());
  link().advance(1);
  EXPECT_THAT(log_, ElementsAre("to 55 cut"));
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIViewAnimationTest, OnlyTheOldAndTheNewPlaceAreDrawn) {
  moveTo(105);
  (void)window_->takeDamage();
  link().advance(0.5);
  const Damage damage = window_->takeDamage();
  CGRect whole;
  for (const CGRect& rect : damage.rects) {
    whole = CGRectUnion(whole, rect);
  }
  EXPECT_EQ(whole.x(), 0);
  EXPECT_NEAR(whole.maxX(), 60, 1);
  EXPECT_TRUE(window_->takeDamage().empty());
  link().runFrame();
  CGFloat area = 0;
  for (const CGRect& rect : window_->takeDamage().rects) {
    area += rect.width() * rect.height();
  }
  EXPECT_GT(area, 0);
  EXPECT_LT(area, 2 * 12 * 11);
}

TEST_F(UIViewAnimationTest, AllCanBeEndedAtOnce) {
  moveTo(105);
  animateWithDuration(
      1, 5, 0, [&] { view_->setAlpha(0.5); },
      [&](bool finished) {
        log_.push_back(finished ? "late" : "late cut");
        moveTo(5);
      });
  (void)window_->takeDamage();
  finishAllAnimations();
  EXPECT_THAT(log_, ElementsAre("to 105", "late"));
  EXPECT_FALSE(window_->takeDamage().empty());
  // What a completion began goes on.
  EXPECT_EQ(shown(), 105);
  link().advance(1);
  EXPECT_THAT(log_, ElementsAre("to 105", "late", "to 5"));
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIViewAnimationTest, AnotherDeviceKnowsNothingOfOldAnimations) {
  moveTo(105);
  device_.restartProcess();
  EXPECT_EQ(shown(), 105);
  moveTo(5);
  link().advance(0.5);
  EXPECT_NEAR(shown(), 55, 1e-6);
  link().advance(0.5);
  EXPECT_THAT(log_, ElementsAre("to 5"));
}

}  // namespace
}  // namespace zephyl
