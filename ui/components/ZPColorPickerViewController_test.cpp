// The colour picker screen: its buttons, what it hands over, and where the picker lies.

#include "ui/components/ZPColorPickerViewController.h"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/controllers/UINavigationController.h"
#include "platform/uikit/controllers/UINavigationItem.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRBrightnessSlider.h"
#include "ui/components/HRColorMapView.h"
#include "ui/components/HRColorPickerView.h"

namespace zephyl {
namespace {

class ColorPickerScreenTest : public ::testing::Test {
 protected:
  ColorPickerScreenTest() {
    navigation_ = UINavigationController::initWithRootViewController(editor_);
    window_->setRootViewController(navigation_);
  }

  void show(const UIColor& color = UIColor::colorWithRed(0.2, 0.4, 0.6, 1)) {
    screen_ = std::make_shared<ZPColorPickerViewController>(color);
    screen_->showInViewController(editor_, "Marker Color",
                                  [this](const UIColor& picked) { picked_.push_back(picked); });
    settle();
  }
  void settle() {
    device_.uikit()->displayLink().runUntilIdle();
    window_->layoutWindow();
  }
  void press(const UIBarButtonItemRef& button) {
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->performAction());
    settle();
  }
  UINavigationItem& bar() { return *screen_->navigationItem(); }
  bool isShown() const { return navigation_->topViewController() == screen_; }
  static UIColor::Channels channels(const UIColor& color) { return color.channels(); }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIViewController> editor_ = std::make_shared<UIViewController>();
  std::shared_ptr<UINavigationController> navigation_;
  std::shared_ptr<ZPColorPickerViewController> screen_;
  std::vector<UIColor> picked_;
};

TEST_F(ColorPickerScreenTest, ItIsPushedWithATitleAndTwoSystemButtons) {
  screen_ = std::make_shared<ZPColorPickerViewController>(UIColor::redColor());
  screen_->showInViewController(editor_, "Marker Color", nullptr);
  EXPECT_TRUE(navigation_->isInTransition());
  EXPECT_EQ(screen_->title(), "Marker Color");
  ASSERT_EQ(bar().leftBarButtonItems().size(), 1U);
  ASSERT_EQ(bar().rightBarButtonItems().size(), 1U);
  EXPECT_EQ(bar().leftBarButtonItem()->systemItem(), UIBarButtonSystemItem::kCancel);
  EXPECT_EQ(bar().rightBarButtonItem()->systemItem(), UIBarButtonSystemItem::kDone);
  settle();
  EXPECT_TRUE(screen_->hasAppeared());
}

TEST_F(ColorPickerScreenTest, DoneHandsOverThePickersColorAndGoesBack) {
  show();
  screen_->colorPickerView()->setColor(UIColor::colorWithRed(0, 1, 0, 0.5));
  press(bar().rightBarButtonItem());
  ASSERT_EQ(picked_.size(), 1U);
  EXPECT_EQ(channels(picked_[0]), (UIColor::Channels{0, 1, 0, 1}));
  EXPECT_EQ(navigation_->topViewController(), editor_);
}

TEST_F(ColorPickerScreenTest, TheCallbackRunsBeforeTheScreenGoes) {
  screen_ = std::make_shared<ZPColorPickerViewController>(UIColor::redColor());
  bool shownThen = false;
  screen_->showInViewController(editor_, "", [&](const UIColor&) { shownThen = isShown(); });
  settle();
  screen_->doneAction(nullptr);
  EXPECT_TRUE(shownThen);
  EXPECT_FALSE(isShown());
}

TEST_F(ColorPickerScreenTest, DoneAtOnceHandsOverTheColorAsThePickerHoldsIt) {
  show(UIColor::colorWithRed(0.2, 0.4, 0.6, 0.25));
  press(bar().rightBarButtonItem());
  ASSERT_EQ(picked_.size(), 1U);
  const UIColor::Channels picked = channels(picked_[0]);
  EXPECT_NEAR(picked.red, 0.2, 1e-9);
  EXPECT_NEAR(picked.green, 0.4, 1e-9);
  EXPECT_NEAR(picked.blue, 0.6, 1e-9);
  EXPECT_EQ(picked.alpha, 1);
}

TEST_F(ColorPickerScreenTest, CancelHandsOverNothingWhateverWasPicked) {
  show();
  screen_->colorPickerView()->setColor(UIColor::greenColor());
  press(bar().leftBarButtonItem());
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(navigation_->topViewController(), editor_);
}

TEST_F(ColorPickerScreenTest, DoneWithoutACallbackOnlyGoesBack) {
  show();
  screen_->setResultCallback(nullptr);
  press(bar().rightBarButtonItem());
  EXPECT_TRUE(picked_.empty());
  EXPECT_EQ(navigation_->topViewController(), editor_);
}

TEST_F(ColorPickerScreenTest, BothButtonsGoBackAnimated) {
  for (const bool done : {false, true}) {
    show();
    const auto& button = done ? bar().rightBarButtonItem() : bar().leftBarButtonItem();
    EXPECT_TRUE(button->performAction());
    EXPECT_TRUE(navigation_->isInTransition()) << done;
    settle();
    EXPECT_FALSE(navigation_->isInTransition()) << done;
    EXPECT_EQ(navigation_->topViewController(), editor_) << done;
  }
}

TEST_F(ColorPickerScreenTest, EscapeIsCancel) {
  show();
  EXPECT_TRUE(window_->sendKey({UIKey::kEscape, "", false, false}));
  settle();
  EXPECT_TRUE(picked_.empty());
  EXPECT_FALSE(isShown());
}

TEST_F(ColorPickerScreenTest, WithoutANavigationControllerNothingIsShown) {
  const auto alone = std::make_shared<UIViewController>();
  const auto screen = std::make_shared<ZPColorPickerViewController>(UIColor::redColor());
  screen->showInViewController(alone, "Title", nullptr);
  screen->showInViewController(nullptr, "Title", nullptr);
  EXPECT_EQ(screen->navigationController(), nullptr);
  EXPECT_EQ(screen->title(), "Title");
  screen->doneAction(nullptr);
}

TEST_F(ColorPickerScreenTest, ThePickerIsMadeOnceWithAllSaturationsAndBrightnesses) {
  ZPColorPickerViewController screen(UIColor::redColor());
  const auto picker = screen.colorPickerView();
  EXPECT_EQ(screen.colorPickerView(), picker);
  EXPECT_FALSE(screen.isViewLoaded());
  EXPECT_EQ(picker->colorMapView()->saturationUpperLimit(), 1);
  EXPECT_EQ(picker->brightnessSlider()->brightnessLowerLimit(), 0);
}

TEST_F(ColorPickerScreenTest, ItsColorIsThePickersOnceTheViewIsLoaded) {
  const auto screen = std::make_shared<ZPColorPickerViewController>(UIColor::redColor());
  screen->setColor(UIColor::blueColor());
  const auto picker = screen->colorPickerView();
  EXPECT_NE(channels(picker->color()), channels(UIColor::blueColor()));
  EXPECT_EQ(screen->view()->backgroundColor(), UIColor::whiteColor());
  EXPECT_EQ(channels(picker->color()), channels(UIColor::blueColor()));
  EXPECT_EQ(picker->superview(), screen->view().get());
  picker->setColor(UIColor::greenColor());
  EXPECT_EQ(screen->color(), UIColor::blueColor());
}

TEST_F(ColorPickerScreenTest, ThePickerLiesBelowTheBarAndStandsOutToTheRight) {
  show();
  EXPECT_EQ(screen_->colorPickerView()->frame(), CGRectMake(5, 91, 390, 844 - 91));
  window_->setFrame(CGRectMake(0, 0, 600, 400));
  window_->layoutWindow();
  EXPECT_EQ(screen_->colorPickerView()->frame(), CGRectMake(5, 91, 600, 400 - 91));
}

TEST_F(ColorPickerScreenTest, BeforeVersionSevenItFillsTheScreenBelowTheBar) {
  device_.device().setSystemVersion("6.1");
  show();
  const auto& picker = *screen_->colorPickerView();
  EXPECT_EQ(picker.frame(), CGRectMake(0, 0, 390, 844 - 91));
  EXPECT_EQ(picker.convertRectToView(picker.bounds(), nullptr), CGRectMake(0, 91, 390, 844 - 91));
}

TEST_F(ColorPickerScreenTest, TheCallbackGoesWithTheScreen) {
  const auto held = std::make_shared<int>(1);
  screen_ = std::make_shared<ZPColorPickerViewController>(UIColor::redColor());
  screen_->showInViewController(editor_, "", [held](const UIColor&) {});
  settle();
  EXPECT_EQ(held.use_count(), 2);
  screen_->cancelAction(nullptr);
  settle();
  const std::weak_ptr<UIViewController> weak = screen_;
  screen_ = nullptr;
  EXPECT_TRUE(weak.expired());
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace zephyl
