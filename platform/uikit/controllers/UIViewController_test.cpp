// Loading, appearing, containers, layout and keys of screens.

#include <cmath>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"
#include "platform/uikit/controllers/testing/LoggingController.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::Log;
using test::screen;
using test::taken;

class ViewControllerTest : public ::testing::Test {
 protected:
  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  Log log_;
};

TEST_F(ViewControllerTest, TheViewIsLoadedWhenItIsFirstAskedFor) {
  const auto controller = screen("a", log_);
  EXPECT_FALSE(controller->isViewLoaded());
  EXPECT_EQ(controller->viewIfLoaded(), nullptr);
  const auto view = controller->view();
  EXPECT_EQ(view, controller->view());
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 390, 844));
  EXPECT_EQ(view->viewController(), controller.get());
  EXPECT_EQ(log_, Log{"a load"});
}

class EmptyController : public UIViewController {
 public:
  void loadView() override { EXPECT_EQ(view(), nullptr); }
};

TEST_F(ViewControllerTest, ALoadThatMakesNoViewLeavesAnEmptyOne) {
  EmptyController controller;
  EXPECT_NE(controller.view(), nullptr);
}

TEST_F(ViewControllerTest, AViewForgetsItsScreenWhenThatGoes) {
  auto controller = std::make_shared<UIViewController>();
  const auto view = controller->view();
  controller = nullptr;
  EXPECT_EQ(view->viewController(), nullptr);
}

TEST_F(ViewControllerTest, TheTitleIsThatOfTheNavigationItem) {
  UIViewController controller;
  controller.setTitle("Groups");
  EXPECT_EQ(controller.navigationItem()->title(), "Groups");
  controller.setTitle("Other");
  EXPECT_EQ(controller.navigationItem()->title(), "Other");
  controller.navigationItem()->setTitle("Bar");
  EXPECT_EQ(controller.title(), "Other");
}

TEST_F(ViewControllerTest, TheRootAppearsAndFillsTheWindow) {
  const auto controller = screen("a", log_);
  window_->setRootViewController(controller);
  EXPECT_EQ(log_, (Log{"a load", "a willAppear", "a didAppear"}));
  EXPECT_EQ(controller->view()->superview(), window_.get());
  window_->setFrame(CGRectMake(0, 0, 500, 300));
  EXPECT_EQ(controller->view()->frame(), CGRectMake(0, 0, 500, 300));
}

TEST_F(ViewControllerTest, AnotherRootTakesThePlaceOfTheFirst) {
  window_->setRootViewController(screen("a", log_));
  log_.clear();
  window_->setRootViewController(screen("b", log_));
  EXPECT_EQ(log_,
            (Log{"a willDisappear", "a didDisappear", "b load", "b willAppear", "b didAppear"}));
  EXPECT_EQ(window_->subviews().size(), 1U);
  window_->setRootViewController(nullptr);
  EXPECT_TRUE(window_->subviews().empty());
}

class LayoutController : public UIViewController {
 public:
  void viewWillLayoutSubviews() override { log += "will "; }
  void viewDidLayoutSubviews() override { log += "did "; }
  std::string log;
};

TEST_F(ViewControllerTest, TheScreenIsToldAroundTheLayoutOfItsView) {
  const auto controller = std::make_shared<LayoutController>();
  window_->setRootViewController(controller);
  window_->layoutWindow();
  EXPECT_EQ(controller->log, "will did ");
  window_->layoutWindow();
  EXPECT_EQ(controller->log, "will did ");
  controller->view()->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(controller->log, "will did will did ");
}

TEST_F(ViewControllerTest, AChildLeavesTheParentItWasIn) {
  const auto a = std::make_shared<UIViewController>();
  const auto b = std::make_shared<UIViewController>();
  const auto child = screen("c", log_);
  a->addChildViewController(child);
  EXPECT_EQ(log_, Log{"c willJoin"});
  b->addChildViewController(child);
  EXPECT_EQ(log_, (Log{"c willJoin", "c didLeave", "c willJoin"}));
  EXPECT_TRUE(a->childViewControllers().empty());
  EXPECT_EQ(child->parentViewController(), b);
  child->removeFromParentViewController();
  EXPECT_EQ(child->parentViewController(), nullptr);
  EXPECT_TRUE(b->childViewControllers().empty());
}

TEST_F(ViewControllerTest, NoScreenIsItsOwnChildOrThatOfOneInIt) {
  const auto a = std::make_shared<UIViewController>();
  const auto b = std::make_shared<UIViewController>();
  a->addChildViewController(b);
  a->addChildViewController(a);
  b->addChildViewController(a);
  a->addChildViewController(nullptr);
  EXPECT_EQ(a->parentViewController(), nullptr);
  EXPECT_EQ(a->childViewControllers().size(), 1U);
}

TEST_F(ViewControllerTest, ChildrenAppearAndGoWithTheirParent) {
  const auto parent = screen("p", log_);
  parent->addChildViewController(screen("c", log_));
  log_.clear();
  window_->setRootViewController(parent);
  EXPECT_EQ(log_, (Log{"p load", "p willAppear", "c load", "c willAppear", "p didAppear",
                       "c didAppear"}));
}

TEST_F(ViewControllerTest, AnAppearanceThatIsTurnedRoundEndsTheOtherWay) {
  const auto controller = screen("a", log_);
  controller->beginAppearanceTransition(true, true);
  controller->beginAppearanceTransition(true, true);
  controller->beginAppearanceTransition(false, true);
  controller->endAppearanceTransition();
  controller->endAppearanceTransition();
  EXPECT_EQ(log_, (Log{"a load", "a willAppear*", "a willDisappear*", "a didDisappear*"}));
}

TEST_F(ViewControllerTest, TheGuidesAreWhatTheScreenCoversAndTheBar) {
  const auto top = std::make_shared<UIViewController>();
  EXPECT_EQ(top->topLayoutGuide().length, 47);
  EXPECT_EQ(top->bottomLayoutGuide().length, 34);
  const auto navigation = UINavigationController::initWithRootViewController(top);
  window_->setRootViewController(navigation);
  EXPECT_EQ(top->topLayoutGuide().length, 91);
  EXPECT_EQ(top->bottomLayoutGuide().length, 34);
}

TEST_F(ViewControllerTest, TheGuidesCameWithVersionSeven) {
  device_.device().setSystemVersion("6.1.3");
  EXPECT_FALSE(UIViewController::respondsToTopLayoutGuide());
  device_.device().setSystemVersion("7.0");
  EXPECT_TRUE(UIViewController::respondsToTopLayoutGuide());
}

class EscapeController : public UIViewController {
 public:
  bool accessibilityPerformEscape() override { return ++escapes > 0; }
  int escapes = 0;
};

TEST_F(ViewControllerTest, EscapeGoesToTheScreen) {
  const auto controller = std::make_shared<EscapeController>();
  window_->setRootViewController(controller);
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  EXPECT_EQ(controller->escapes, 1);
  EXPECT_FALSE(window_->sendKey({UIKey::kReturn, "", false, false}));
}

TEST_F(ViewControllerTest, AViewsNextResponderIsItsScreenAndThenWhatItIsIn) {
  const auto controller = std::make_shared<UIViewController>();
  EXPECT_EQ(controller->nextResponder(), nullptr);
  window_->setRootViewController(controller);
  EXPECT_EQ(controller->view()->nextResponder(), controller.get());
  EXPECT_EQ(controller->nextResponder(), window_.get());
}

TEST_F(ViewControllerTest, AWindowWithoutSizeIsNoTrouble) {
  window_->setFrame(CGRectMake(0, 0, std::nan(""), -5));
  window_->setRootViewController(
      UINavigationController::initWithRootViewController(screen("a", log_)));
  window_->layoutWindow();
  EXPECT_EQ(taken(log_).back(), "a didAppear");
}

}  // namespace
}  // namespace zephyl
