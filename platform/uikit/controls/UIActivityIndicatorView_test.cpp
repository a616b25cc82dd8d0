#include "platform/uikit/controls/UIActivityIndicatorView.h"

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

class UIActivityIndicatorViewTest : public ::testing::Test {
 protected:
  UIActivityIndicatorViewTest() { device_.device().setSystemVersion("14.4"); }

  fake::FakeDisplayLink& link() { return device_.uikit()->displayLink(); }
  int bladesDrawn() {
    fake::RecordingContext context;
    spinner_->layer()->render(context);
    return context.countOf("fill");
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UIActivityIndicatorView> spinner_ =
      std::make_shared<UIActivityIndicatorView>(UIActivityIndicatorViewStyle::kWhiteLarge);
};

TEST_F(UIActivityIndicatorViewTest, HasTheSizeAndColourOfItsStyle) {
  EXPECT_EQ(spinner_->frame(), CGRectMake(0, 0, 37, 37));
  EXPECT_EQ(spinner_->color(), UIColor::whiteColor());
  const UIActivityIndicatorView gray(UIActivityIndicatorViewStyle::kGray);
  EXPECT_EQ(gray.frame(), CGRectMake(0, 0, 20, 20));
  EXPECT_EQ(gray.color(), UIColor::grayColor());
  spinner_->setColor(UIColor::blackColor());
  EXPECT_EQ(spinner_->color(), UIColor::blackColor());
}

TEST_F(UIActivityIndicatorViewTest, IsSeenOnlyWhileItTurns) {
  EXPECT_TRUE(spinner_->isHidden());
  spinner_->startAnimating();
  EXPECT_FALSE(spinner_->isHidden());
  spinner_->stopAnimating();
  EXPECT_TRUE(spinner_->isHidden());
  spinner_->setHidesWhenStopped(false);
  EXPECT_FALSE(spinner_->isHidden());
}

TEST_F(UIActivityIndicatorViewTest, AsksForFramesOnlyInAWindow) {
  spinner_->startAnimating();
  EXPECT_FALSE(link().isFrameRequested());
  window_->addSubview(spinner_);
  EXPECT_TRUE(link().isFrameRequested());
  link().advance(2);
  EXPECT_TRUE(link().isFrameRequested());
  spinner_->removeFromSuperview();
  link().advance(0.1);
  EXPECT_FALSE(link().isFrameRequested());
  window_->addSubview(spinner_);
  EXPECT_TRUE(link().isFrameRequested());
  spinner_->stopAnimating();
  link().advance(0.1);
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIActivityIndicatorViewTest, StartedAgainWhileAFrameIsPendingItTurnsOnce) {
  window_->addSubview(spinner_);
  spinner_->startAnimating();
  spinner_->stopAnimating();
  spinner_->startAnimating();
  link().advance(0.5);
  EXPECT_TRUE(link().isFrameRequested());
  spinner_->stopAnimating();
  link().advance(0.1);
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIActivityIndicatorViewTest, DrawsAnewOnlyForTheNextBlade) {
  window_->addSubview(spinner_);
  spinner_->startAnimating();
  static_cast<void>(window_->takeDamage());
  int pictures = 0;
  window_->setDamageHandler([&pictures] { ++pictures; });
  for (int frame = 0; frame < 48; ++frame) {
    link().runFrame();
    static_cast<void>(window_->takeDamage());
  }
  // 0.8 seconds are one turn of eight blades.
  EXPECT_GE(pictures, 7);
  EXPECT_LE(pictures, 9);
}

TEST_F(UIActivityIndicatorViewTest, StandsStillForWhoMindsMotion) {
  device_.uikit()->screen().setPrefersReducedMotion(true);
  window_->addSubview(spinner_);
  spinner_->startAnimating();
  EXPECT_FALSE(link().isFrameRequested());
  EXPECT_FALSE(spinner_->isHidden());
  EXPECT_EQ(bladesDrawn(), 8);
}

TEST_F(UIActivityIndicatorViewTest, OlderSystemsHaveTwelveBlades) {
  spinner_->startAnimating();
  device_.device().setSystemVersion("12.4");
  EXPECT_EQ(bladesDrawn(), 12);
}

TEST_F(UIActivityIndicatorViewTest, EndsWithoutTheFrameItAskedFor) {
  window_->addSubview(spinner_);
  spinner_->startAnimating();
  spinner_->removeFromSuperview();
  spinner_ = nullptr;
  link().advance(0.1);
  EXPECT_FALSE(link().isFrameRequested());
}

TEST_F(UIActivityIndicatorViewTest, ScreenReaderIsTold) {
  EXPECT_EQ(spinner_->accessibilityRole(), UIAccessibilityRole::kProgress);
  EXPECT_EQ(spinner_->accessibilityLabel(), "In progress");
  EXPECT_FALSE(spinner_->accessibilityState().busy);
  spinner_->startAnimating();
  EXPECT_TRUE(spinner_->accessibilityState().busy);
}

}  // namespace
}  // namespace zephyl
