// The stack of screens: what is on it, what is told, how it is seen to change.

#include "platform/uikit/controllers/UINavigationController.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationBar.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controllers/testing/LoggingController.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::Log;
using test::screen;
using test::taken;
using Controllers = UINavigationController::Controllers;

class NavigationTest : public ::testing::Test {
 protected:
  NavigationTest() {
    navigation_ = UINavigationController::initWithRootViewController(first_);
    window_->setRootViewController(navigation_);
    window_->layoutWindow();
    log_.clear();
  }

  void settle() { device_.uikit()->displayLink().runUntilIdle(); }
  void push(const std::shared_ptr<UIViewController>& controller) {
    navigation_->pushViewController(controller, /*animated=*/false);
    log_.clear();
  }

  fake::Device device_;
  Log log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<test::LoggingController> first_ = screen("1", log_);
  std::shared_ptr<test::LoggingController> second_ = screen("2", log_);
  std::shared_ptr<UINavigationController> navigation_;
};

TEST_F(NavigationTest, TheRootIsShownBelowTheBar) {
  EXPECT_EQ(navigation_->topViewController(), first_);
  EXPECT_EQ(first_->navigationController(), navigation_);
  EXPECT_EQ(first_->view()->superview(), navigation_->view().get());
  EXPECT_EQ(navigation_->view()->subviews().back(), navigation_->navigationBar());
  EXPECT_EQ(navigation_->navigationBar()->frame(), CGRectMake(0, 47, 390, 44));
  EXPECT_TRUE(first_->hasAppeared());
}

TEST_F(NavigationTest, PushingTellsBothScreensInOrder) {
  navigation_->pushViewController(second_, /*animated=*/true);
  EXPECT_EQ(taken(log_), (Log{"2 willJoin", "1 willDisappear*", "2 load", "2 willAppear*"}));
  EXPECT_TRUE(navigation_->isInTransition());
  settle();
  EXPECT_EQ(taken(log_), (Log{"1 didDisappear*", "2 didAppear*", "2 didJoin"}));
  EXPECT_FALSE(navigation_->isInTransition());
  EXPECT_EQ(navigation_->viewControllers(), (Controllers{first_, second_}));
  EXPECT_EQ(first_->view()->superview(), nullptr);
  EXPECT_EQ(second_->view()->frame(), CGRectMake(0, 0, 390, 844));
}

TEST_F(NavigationTest, PoppingTellsBothScreensInOrder) {
  push(second_);
  EXPECT_EQ(navigation_->popViewControllerAnimated(/*animated=*/true), second_);
  EXPECT_EQ(taken(log_), (Log{"2 willLeave", "2 willDisappear*", "1 willAppear*"}));
  EXPECT_EQ(second_->navigationController(), navigation_);
  settle();
  EXPECT_EQ(taken(log_), (Log{"2 didDisappear*", "1 didAppear*", "2 didLeave", "1 didJoin"}));
  EXPECT_EQ(second_->navigationController(), nullptr);
  EXPECT_EQ(second_->view()->superview(), nullptr);
}

TEST_F(NavigationTest, WithoutAnimationItIsDoneWhenTheCallReturns) {
  navigation_->pushViewController(second_, /*animated=*/false);
  EXPECT_TRUE(second_->hasAppeared());
  navigation_->popViewControllerAnimated(/*animated=*/false);
  EXPECT_TRUE(first_->hasAppeared());
  EXPECT_EQ(second_->parentViewController(), nullptr);
}

TEST_F(NavigationTest, TheRootIsNeverPopped) {
  EXPECT_EQ(navigation_->popViewControllerAnimated(/*animated=*/true), nullptr);
  EXPECT_TRUE(navigation_->popToRootViewControllerAnimated(/*animated=*/true).empty());
  EXPECT_TRUE(log_.empty());
}

TEST_F(NavigationTest, PoppingToTheRootTakesAllAboveItAway) {
  const auto third = screen("3", log_);
  push(second_);
  push(third);
  EXPECT_EQ(navigation_->popToRootViewControllerAnimated(/*animated=*/false),
            (Controllers{second_, third}));
  EXPECT_EQ(navigation_->viewControllers(), Controllers{first_});
  EXPECT_EQ(second_->parentViewController(), nullptr);
  EXPECT_FALSE(third->hasAppeared());
}

TEST_F(NavigationTest, WhatIsOnTheStackIsNotPushedAgain) {
  navigation_->pushViewController(first_, /*animated=*/true);
  navigation_->pushViewController(nullptr, /*animated=*/true);
  EXPECT_EQ(navigation_->viewControllers(), Controllers{first_});
  EXPECT_TRUE(log_.empty());
}

TEST_F(NavigationTest, APushedScreenComesFromTheTrailingSide) {
  navigation_->pushViewController(second_, /*animated=*/true);
  EXPECT_EQ(second_->view()->layer()->presentation().transform.tx, 390);
  settle();
  EXPECT_EQ(second_->view()->transform(), CGAffineTransformIdentity);
  EXPECT_EQ(first_->view()->transform(), CGAffineTransformIdentity);
  EXPECT_TRUE(first_->view()->subviews().empty());
}

TEST_F(NavigationTest, RightToLeftItComesFromTheLeft) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  navigation_->pushViewController(second_, /*animated=*/true);
  EXPECT_EQ(second_->view()->layer()->presentation().transform.tx, -390);
}

TEST_F(NavigationTest, AChangeEndsTheOneThatRuns) {
  const auto third = screen("3", log_);
  navigation_->pushViewController(second_, /*animated=*/true);
  navigation_->pushViewController(third, /*animated=*/true);
  navigation_->popViewControllerAnimated(/*animated=*/true);
  settle();
  EXPECT_EQ(navigation_->topViewController(), second_);
  EXPECT_TRUE(second_->hasAppeared());
  EXPECT_FALSE(third->hasAppeared());
  EXPECT_FALSE(first_->hasAppeared());
  EXPECT_EQ(second_->view()->superview(), navigation_->view().get());
  EXPECT_EQ(second_->view()->transform(), CGAffineTransformIdentity);
}

TEST_F(NavigationTest, SettingTheStackShowsItsTop) {
  const auto third = screen("3", log_);
  navigation_->setViewControllers({second_, nullptr, third, second_}, /*animated=*/false);
  EXPECT_EQ(navigation_->viewControllers(), (Controllers{second_, third}));
  EXPECT_TRUE(third->hasAppeared());
  EXPECT_EQ(first_->parentViewController(), nullptr);
  navigation_->setViewControllers({});
  EXPECT_EQ(navigation_->topViewController(), nullptr);
  EXPECT_FALSE(third->hasAppeared());
}

TEST_F(NavigationTest, PushedBeforeItIsShownAScreenAppearsWithIt) {
  const auto navigation = std::make_shared<UINavigationController>();
  navigation->pushViewController(second_, /*animated=*/true);
  EXPECT_EQ(taken(log_), (Log{"2 willJoin", "2 didJoin"}));
  window_->setRootViewController(navigation);
  log_.clear();
  EXPECT_TRUE(second_->hasAppeared());
}

class PushingController : public UIViewController {
 public:
  void viewWillAppear(bool /*animated*/) override {
    navigationController()->pushViewController(next, /*animated=*/true);
  }
  std::shared_ptr<UIViewController> next;
};

TEST_F(NavigationTest, AScreenMayPushAnotherWhileItAppears) {
  const auto pushing = std::make_shared<PushingController>();
  pushing->next = second_;
  navigation_->pushViewController(pushing, /*animated=*/true);
  settle();
  EXPECT_EQ(navigation_->topViewController(), second_);
  EXPECT_TRUE(second_->hasAppeared());
  EXPECT_FALSE(pushing->hasAppeared());
  EXPECT_EQ(pushing->view()->superview(), nullptr);
  EXPECT_EQ(first_->view()->superview(), nullptr);
}

TEST_F(NavigationTest, EscapeGoesBack) {
  push(second_);
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_EQ(navigation_->topViewController(), first_);
  settle();
  EXPECT_FALSE(window_->sendKey({UIKey::kEscape, "", false, false}));
}

TEST_F(NavigationTest, EscapeIsTheCancelButtonWhereThereIsOne) {
  push(second_);
  int cancelled = 0;
  second_->navigationItem()->setLeftBarButtonItem(std::make_shared<UIBarButtonItem>(
      UIBarButtonSystemItem::kCancel, second_, [&](UIBarButtonItem&) { ++cancelled; }));
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_EQ(cancelled, 1);
  EXPECT_EQ(navigation_->topViewController(), second_);
}

TEST_F(NavigationTest, EscapeDoesNotGoBackWhereThatIsHidden) {
  push(second_);
  second_->navigationItem()->setHidesBackButton(true);
  EXPECT_FALSE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_EQ(navigation_->topViewController(), second_);
}

TEST_F(NavigationTest, InACardTheBarIsHigher) {
  device_.device().setSystemVersion("13.0");
  const auto inCard = screen("card", log_);
  const auto card = UINavigationController::initWithRootViewController(inCard);
  navigation_->presentViewController(card, /*animated=*/false);
  window_->layoutWindow();
  EXPECT_EQ(card->navigationBar()->frame(), CGRectMake(0, 0, 390, 56));
  EXPECT_EQ(inCard->topLayoutGuide().length, 56);
}

TEST_F(NavigationTest, BeforeVersionSevenScreensBeginBelowTheBar) {
  device_.device().setSystemVersion("6.1");
  navigation_->pushViewController(second_, /*animated=*/true);
  settle();
  EXPECT_EQ(second_->view()->frame(), CGRectMake(0, 91, 390, 844 - 91));
  EXPECT_EQ(second_->safeAreaInsets().top, 0);
  window_->setFrame(CGRectMake(0, 0, 600, 60));
  window_->layoutWindow();
  EXPECT_EQ(second_->view()->frame(), CGRectMake(0, 60, 600, 0));
}

TEST_F(NavigationTest, AStackThatGoesDuringATransitionIsNoTrouble) {
  std::weak_ptr<UIViewController> weak = second_;
  navigation_->pushViewController(std::exchange(second_, nullptr), /*animated=*/true);
  window_->setRootViewController(nullptr);
  navigation_ = nullptr;
  settle();
  EXPECT_TRUE(weak.expired());
}

}  // namespace
}  // namespace zephyl
