// Screens over screens: what is told in which order, and what cannot be.

#include <algorithm>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UIPresentationController.h"
#include "platform/uikit/controllers/testing/LoggingController.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::Log;
using test::screen;
using test::taken;

class PresentationTest : public ::testing::Test {
 protected:
  PresentationTest() {
    device_.device().setSystemVersion("12.4");
    window_->setRootViewController(root_);
    log_.clear();
  }

  std::shared_ptr<test::LoggingController> shown(const std::string& name, UIViewController& by) {
    auto controller = screen(name, log_);
    by.presentViewController(controller, /*animated=*/false);
    log_.clear();
    return controller;
  }
  UIViewController::Completion note(const std::string& text) {
    return [this, text] { log_.push_back(text); };
  }
  void settle() { device_.uikit()->displayLink().runUntilIdle(); }

  fake::Device device_;
  Log log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<test::LoggingController> root_ = screen("root", log_);
};

TEST_F(PresentationTest, AFullScreenTakesThePlaceOfTheOneBelow) {
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/true, note("done"));
  EXPECT_EQ(taken(log_), (Log{"up load", "root willDisappear*", "up willAppear*"}));
  EXPECT_EQ(root_->presentedViewController(), upper);
  EXPECT_EQ(upper->presentingViewController(), root_);
  EXPECT_NE(root_->view()->window(), nullptr);
  settle();
  EXPECT_EQ(taken(log_), (Log{"up didAppear*", "root didDisappear*", "done"}));
  EXPECT_EQ(root_->view()->window(), nullptr);
  EXPECT_EQ(upper->view()->convertRectToView(upper->view()->bounds(), nullptr),
            CGRectMake(0, 0, 390, 844));
}

TEST_F(PresentationTest, DismissingBringsTheOneBelowBack) {
  const auto upper = shown("up", *root_);
  upper->dismissViewControllerAnimated(/*animated=*/true, note("done"));
  EXPECT_EQ(taken(log_), (Log{"up willDisappear*", "root willAppear*"}));
  EXPECT_NE(root_->view()->window(), nullptr);
  settle();
  EXPECT_EQ(taken(log_), (Log{"root didAppear*", "up didDisappear*", "done"}));
  EXPECT_EQ(root_->presentedViewController(), nullptr);
  EXPECT_EQ(upper->presentingViewController(), nullptr);
  EXPECT_EQ(upper->view()->superview(), nullptr);
  EXPECT_EQ(window_->subviews().size(), 1U);
}

TEST_F(PresentationTest, WithoutAnimationItIsDoneWhenTheCallReturns) {
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/false, note("in"));
  upper->dismissViewControllerAnimated(/*animated=*/false, note("out"));
  EXPECT_EQ(log_, (Log{"up load", "root willDisappear", "up willAppear", "up didAppear",
                       "root didDisappear", "in", "up willDisappear", "root willAppear",
                       "root didAppear", "up didDisappear", "out"}));
}

TEST_F(PresentationTest, AScreenSlidesInFromBelow) {
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/true);
  EXPECT_EQ(upper->view()->layer()->presentation().transform.ty, 844);
  device_.uikit()->displayLink().advance(0.2);
  const CGFloat halfway = upper->view()->layer()->presentation().transform.ty;
  EXPECT_GT(halfway, 0);
  EXPECT_LT(halfway, 844);
  settle();
  EXPECT_EQ(upper->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(PresentationTest, FromVersionThirteenOnItIsACardAndTheOneBelowStays) {
  device_.device().setSystemVersion("13.0");
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/false);
  EXPECT_EQ(log_, (Log{"up load", "up willAppear", "up didAppear"}));
  EXPECT_EQ(upper->view()->frame(), CGRectMake(0, 57, 390, 787));
  EXPECT_EQ(upper->topLayoutGuide().length, 0);
  EXPECT_EQ(upper->view()->layer()->state().cornerRadius, 10);
  upper->dismissViewControllerAnimated(/*animated=*/false);
  EXPECT_EQ(upper->view()->layer()->state().cornerRadius, 0);
  EXPECT_FALSE(upper->view()->clipsToBounds());
}

TEST_F(PresentationTest, TheStyleGoesBeforeTheVersion) {
  device_.device().setSystemVersion("14.4");
  const auto upper = screen("up", log_);
  upper->setModalPresentationStyle(UIModalPresentationStyle::kFullScreen);
  root_->presentViewController(upper, /*animated=*/false);
  EXPECT_EQ(upper->view()->frame(), CGRectMake(0, 0, 390, 844));
}

TEST_F(PresentationTest, TheOutermostContainerPresents) {
  const auto inner = screen("inner", log_);
  const auto navigation = UINavigationController::initWithRootViewController(inner);
  window_->setRootViewController(navigation);
  const auto upper = shown("up", *inner);
  EXPECT_EQ(upper->presentingViewController(), navigation);
  EXPECT_EQ(inner->presentedViewController(), upper);
}

TEST_F(PresentationTest, AScreenThatPresentsAlreadyRefusesAnother) {
  const auto first = shown("first", *root_);
  const auto second = screen("second", log_);
  root_->presentViewController(second, /*animated=*/false, note("never"));
  EXPECT_TRUE(log_.empty());
  EXPECT_EQ(root_->presentedViewController(), first);
  EXPECT_EQ(second->presentingViewController(), nullptr);
  EXPECT_EQ(device_.systemLog().lines().size(), 1U);
}

TEST_F(PresentationTest, WhatIsShownElsewhereIsNotPresented) {
  const auto child = screen("child", log_);

  const auto navigation = UINavigationController::initWithRootViewController(child);
  root_->presentViewController(child, /*animated=*/false);
  root_->presentViewController(root_, /*animated=*/false);
  root_->presentViewController(nullptr, /*animated=*/false);
  EXPECT_EQ(root_->presentedViewController(), nullptr);
}

TEST_F(PresentationTest, AScreenOutsideTheWindowPresentsNothing) {
  const auto outside = screen("outside", log_);
  outside->presentViewController(screen("up", log_), /*animated=*/true, note("never"));
  settle();
  EXPECT_TRUE(log_.empty());
  EXPECT_EQ(outside->presentedViewController(), nullptr);
}

TEST_F(PresentationTest, DismissingNothingCompletesAtOnce) {
  root_->dismissViewControllerAnimated(/*animated=*/true, note("done"));
  EXPECT_EQ(log_, Log{"done"});
}

TEST_F(PresentationTest, PresentingWhileTheOneBeforeGoesComesAfterwards) {
  const auto first = shown("first", *root_);
  first->dismissViewControllerAnimated(/*animated=*/true, note("gone"));
  const auto second = screen("second", log_);
  root_->presentViewController(second, /*animated=*/true, note("in"));
  EXPECT_EQ(root_->presentedViewController(), first);
  settle();
  EXPECT_EQ(root_->presentedViewController(), second);
  EXPECT_EQ(log_.back(), "in");
  EXPECT_LT(std::find(log_.begin(), log_.end(), "gone"),
            std::find(log_.begin(), log_.end(), "second load"));
}

TEST_F(PresentationTest, AScreenPresentedByACompletionOfTheDismissalIsShown) {
  const auto first = shown("first", *root_);
  const auto second = screen("second", log_);
  first->dismissViewControllerAnimated(
      /*animated=*/true, [&] { root_->presentViewController(second, /*animated=*/true); });
  settle();
  EXPECT_EQ(root_->presentedViewController(), second);
}

TEST_F(PresentationTest, DismissingWhatStillComesWaitsForIt) {
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/true, note("in"));
  upper->dismissViewControllerAnimated(/*animated=*/true, note("out 1"));
  root_->dismissViewControllerAnimated(/*animated=*/true, note("out 2"));
  settle();
  EXPECT_EQ(log_, (Log{"up load", "root willDisappear*", "up willAppear*", "up didAppear*",
                       "root didDisappear*", "in", "up willDisappear*", "root willAppear*",
                       "root didAppear*", "up didDisappear*", "out 1", "out 2"}));
}

TEST_F(PresentationTest, DismissingTwiceIsOneDismissalWithBothCompletions) {
  const auto upper = shown("up", *root_);
  upper->dismissViewControllerAnimated(/*animated=*/true, note("1"));
  upper->dismissViewControllerAnimated(/*animated=*/false, note("2"));
  settle();
  EXPECT_EQ(log_, (Log{"up willDisappear*", "root willAppear*", "root didAppear*",
                       "up didDisappear*", "1", "2"}));
}

TEST_F(PresentationTest, DismissingALowerScreenTakesAllAboveItAlong) {
  const auto first = shown("first", *root_);
  const auto second = shown("second", *first);
  root_->dismissViewControllerAnimated(/*animated=*/true, note("done"));
  settle();
  EXPECT_EQ(log_.back(), "done");
  EXPECT_EQ(root_->presentedViewController(), nullptr);
  EXPECT_EQ(first->presentedViewController(), nullptr);
  EXPECT_EQ(window_->subviews(), std::vector<std::shared_ptr<UIView>>{root_->view()});
  EXPECT_FALSE(first->hasAppeared());
  EXPECT_FALSE(second->hasAppeared());
  EXPECT_TRUE(root_->hasAppeared());
}

TEST_F(PresentationTest, TouchesDuringATransitionReachNothing) {
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/true);
  UIView* const hit = window_->hitTest({100, 100});
  EXPECT_NE(hit, root_->view().get());
  EXPECT_NE(hit, upper->view().get());
  settle();
  EXPECT_EQ(window_->hitTest({100, 100}), upper->view().get());
}

TEST_F(PresentationTest, TheWindowResizedTheScreensFollow) {
  const auto upper = shown("up", *root_);
  window_->setFrame(CGRectMake(0, 0, 600, 400));
  window_->layoutWindow();
  EXPECT_EQ(upper->view()->frame(), CGRectMake(0, 0, 600, 400));
  upper->dismissViewControllerAnimated(/*animated=*/false);
  EXPECT_EQ(root_->view()->frame(), CGRectMake(0, 0, 600, 400));
}

TEST_F(PresentationTest, ReducedMotionEndsLaterAllTheSame) {
  device_.uikit()->screen().setPrefersReducedMotion(true);
  root_->presentViewController(screen("up", log_), /*animated=*/true, note("in"));
  EXPECT_NE(log_.back(), "in");
  settle();
  EXPECT_EQ(log_.back(), "in");
}

TEST_F(PresentationTest, APresenterThatGoesDuringTheTransitionTakesThePresentedAlong) {
  std::weak_ptr<UIViewController> weak;
  {
    const auto upper = std::make_shared<UIViewController>();
    weak = upper;
    root_->presentViewController(upper, /*animated=*/true);
  }
  window_->setRootViewController(nullptr);
  root_ = nullptr;
  settle();
  EXPECT_TRUE(weak.expired());
  EXPECT_TRUE(window_->subviews().empty());
}

TEST_F(PresentationTest, AWindowThatGoesDuringTheTransitionIsNoTrouble) {
  root_->presentViewController(screen("up", log_), /*animated=*/true, note("in"));
  window_ = nullptr;
  settle();
  EXPECT_EQ(log_.back(), "in");
}

class TypedView : public UIView {
 public:
  [[nodiscard]] bool canBecomeFirstResponder() const override { return true; }
};

TEST_F(PresentationTest, WhatWasTypedIntoRestsMeanwhile) {
  const auto field = std::make_shared<TypedView>();
  root_->view()->addSubview(field);
  field->becomeFirstResponder();
  const auto upper = screen("up", log_);
  root_->presentViewController(upper, /*animated=*/false);
  EXPECT_EQ(window_->firstResponder(), nullptr);
  upper->dismissViewControllerAnimated(/*animated=*/false);
  EXPECT_EQ(window_->firstResponder(), field.get());
}

TEST_F(PresentationTest, KeysGoToTheTopmostScreenOnly) {
  const auto inner = screen("inner", log_);
  const auto navigation = UINavigationController::initWithRootViewController(inner);
  navigation->pushViewController(screen("second", log_), /*animated=*/false);
  window_->setRootViewController(navigation);
  const auto upper = shown("up", *inner);
  EXPECT_FALSE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_EQ(navigation->viewControllers().size(), 2U);
  EXPECT_EQ(inner->presentedViewController(), upper);
}

}  // namespace
}  // namespace zephyl
