#include "platform/uikit/text/UIImageView.h"

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UIImageViewTest : public ::testing::Test {
 protected:
  UIImageViewTest() { window_->addSubview(view_); }
  static UIImageRef picture(int width, int height) {
    return UIImage::imageWithData(fake::fakePicture(width, height));
  }
  std::vector<std::string> drawn() {
    fake::RecordingContext context;
    view_->layer()->render(context);
    return context.commands();
  }
  std::vector<std::string> drawnWith(UIViewContentMode mode, int width, int height) {
    view_->setContentMode(mode);
    view_->setImage(picture(width, height));
    return drawn();
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<UIImageView> view_ = std::make_shared<UIImageView>(CGRectMake(10, 10, 40, 20));
};

TEST_F(UIImageViewTest, ThePictureIsStretchedAtFirst) {
  view_->setImage(picture(5, 5));
  EXPECT_THAT(drawn(), ElementsAre("image (10 10 40 20) 5x5"));
  view_->setImage(nullptr);
  EXPECT_THAT(drawn(), IsEmpty());
}

TEST_F(UIImageViewTest, TheContentModeFitsThePicture) {
  EXPECT_THAT(drawnWith(UIViewContentMode::kScaleAspectFit, 5, 5),
              ElementsAre("image (20 10 20 20) 5x5"));
  EXPECT_THAT(drawnWith(UIViewContentMode::kScaleAspectFit, 80, 10),
              ElementsAre("image (10 17.667 40 5) 80x10"));
  EXPECT_THAT(drawnWith(UIViewContentMode::kCenter, 10, 10),
              ElementsAre("image (25 15 10 10) 10x10"));
}

TEST_F(UIImageViewTest, WhatIsLargerThanTheViewIsCut) {
  EXPECT_THAT(drawnWith(UIViewContentMode::kScaleAspectFill, 5, 5),
              ElementsAre("image (10 0 40 40) 5x5 clip (10 10 40 20)"));
  EXPECT_THAT(drawnWith(UIViewContentMode::kCenter, 10, 30),
              ElementsAre("image (25 5 10 30) 10x30 clip (10 10 40 20)"));
}

TEST_F(UIImageViewTest, ATemplateHasTheTintOfTheView) {
  window_->setTintColor(UIColor::redColor());
  view_->setImage(picture(4, 4)->imageWithRenderingMode(UIImageRenderingMode::kAlwaysTemplate));
  EXPECT_THAT(drawn(), ElementsAre("image (10 10 40 20) 4x4 tint #ff0000ff"));
  (void)window_->takeDamage();
  window_->setTintColor(UIColor::greenColor());
  EXPECT_FALSE(window_->takeDamage().empty());
  view_->setImage(picture(4, 4));
  (void)window_->takeDamage();
  window_->setTintColor(UIColor::blueColor());
  EXPECT_TRUE(window_->takeDamage().empty());
}

TEST_F(UIImageViewTest, ADamagedPictureDrawsNothing) {
  view_->setImage(std::make_shared<UIImage>(Data{1, 2, 3}));
  EXPECT_THAT(drawn(), IsEmpty());
  view_->setContentMode(UIViewContentMode::kScaleAspectFit);
  EXPECT_THAT(drawn(), IsEmpty());
  EXPECT_EQ(view_->sizeThatFits({}), CGSize());
}

TEST_F(UIImageViewTest, IsAsLargeAsItsPicture) {
  const auto view = std::make_shared<UIImageView>(picture(30, 20));
  EXPECT_EQ(view->frame(), CGRectMake(0, 0, 30, 20));
  EXPECT_EQ(view->sizeThatFits({1, 1}), (CGSize{30, 20}));
  EXPECT_EQ(std::make_shared<UIImageView>(UIImageRef())->frame(), CGRect());
}

TEST_F(UIImageViewTest, TheSamePictureIsNotDrawnAnew) {
  const auto image = picture(3, 3);
  view_->setImage(image);
  (void)window_->takeDamage();
  view_->setImage(image);
  EXPECT_TRUE(window_->takeDamage().empty());
}

TEST_F(UIImageViewTest, IsReadOnlyWhenItHasALabel) {
  view_->setImage(picture(3, 3));
  EXPECT_FALSE(view_->isAccessibilityElement());
  EXPECT_EQ(view_->describe(), "image");
  view_->setAccessibilityLabel("Locked");
  EXPECT_TRUE(view_->isAccessibilityElement());
  EXPECT_EQ(view_->accessibilityRole(), UIAccessibilityRole::kImage);
  EXPECT_FALSE(view_->isUserInteractionEnabled());
}

}  // namespace
}  // namespace zephyl
