#include "hosts/linux/screen/WindowPicture.h"

#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

constexpr UIUserInterfaceStyle kLight = UIUserInterfaceStyle::kLight;

// Shows stripes, so that it can be seen where it is.
class Stripes : public UIView {
 public:
  using UIView::UIView;
  void drawRect(CGContext& context, const CGRect& rect) override {
    for (int i = 0; i < 40; ++i) {
      context.fill({CGRectMake(rect.x(), rect.y() + i * 10, rect.width() / (i % 7 + 1), 4), 2},
                   UIColor::colorWithRed(i / 40.0, 0.5, 1 - i / 40.0, 0.8));
    }
  }
};

class WindowPictureTest : public ScreenTest {
 protected:
  WindowPictureTest() : window_(std::make_shared<UIWindow>(CGRectMake(0, 0, 100, 200))) {
    window_->setBackgroundColor(UIColor::whiteColor());
    stripes_ = std::make_shared<Stripes>(CGRectMake(10, 20, 80, 300));
    stripes_->setBackgroundColor(UIColor::clearColor());
    window_->addSubview(stripes_);
    box_ = std::make_shared<UIView>(CGRectMake(20, 30, 20.3, 20.7));
    box_->setBackgroundColor(UIColor::colorWithRed(1, 0, 0, 0.5));
    box_->layer()->setCornerRadius(5);
    box_->layer()->setShadow({{0, 2}, 6, UIColor::blackColor()});
    window_->addSubview(box_);
  }

  // What a picture that never saw anything else shows.
  [[nodiscard]] QImage fresh(CGFloat scale, UIUserInterfaceStyle style = kLight) {
    WindowPicture other(*window_, kit().paintCaches());
    other.update(scale, style);
    return other.image();
  }

  std::shared_ptr<UIWindow> window_;
  std::shared_ptr<UIView> stripes_;
  std::shared_ptr<UIView> box_;
  WindowPicture picture_{*window_, kit().paintCaches()};
};

TEST_F(WindowPictureTest, TheFirstPictureIsDrawnWhole) {
  const auto update = picture_.update(1.5, kLight);
  EXPECT_EQ(picture_.image().size(), QSize(150, 300));
  EXPECT_EQ(update.painted, 150 * 300);
  EXPECT_EQ(update.changed, QRegion(0, 0, 150, 300));
}

TEST_F(WindowPictureTest, WhatDidNotChangeIsNotDrawnAgain) {
  picture_.update(2, kLight);
  const auto update = picture_.update(2, kLight);
  EXPECT_EQ(update.painted, 0);
  EXPECT_TRUE(update.changed.isEmpty());
}

TEST_F(WindowPictureTest, APartDrawnAnewLooksLikeTheWhole) {
  for (const CGFloat scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    picture_.update(scale, kLight);
    for (int step = 1; step < 12; ++step) {
      box_->setCenter({30 + 2.7 * step, 40 + 7.3 * step});
      const auto update = picture_.update(scale, kLight);
      EXPECT_GT(update.painted, 0);
      EXPECT_LT(update.painted, 100 * 200 * scale * scale / 2);
      ASSERT_EQ(picture_.image(), fresh(scale)) << scale << " " << step;
    }
  }
}

TEST_F(WindowPictureTest, AnotherScaleSizeOrAppearanceDrawsAllAnew) {
  picture_.update(2, kLight);
  EXPECT_EQ(picture_.update(3, kLight).painted, 300 * 600);
  EXPECT_EQ(picture_.update(3, UIUserInterfaceStyle::kDark).painted, 300 * 600);
  window_->setFrame(CGRectMake(0, 0, 120, 200));
  EXPECT_EQ(picture_.update(3, UIUserInterfaceStyle::kDark).painted, 360 * 600);
  EXPECT_EQ(picture_.image(), fresh(3, UIUserInterfaceStyle::kDark));
}

TEST_F(WindowPictureTest, WhereNothingIsDrawnItIsBlack) {
  window_->setBackgroundColor(UIColor::clearColor());
  picture_.update(1, kLight);
  EXPECT_EQ(picture_.image().pixel(1, 1), 0xFF000000);
  const CGBitmapRef bitmap = picture_.bitmap();
  EXPECT_EQ(bitmap->width, 100U);
  EXPECT_EQ(bitmap->height, 200U);
  EXPECT_EQ(bitmap->pixels.front(), 0xFF000000);
}

TEST_F(WindowPictureTest, AnEmptyWindowIsOnePixel) {
  window_->setFrame(CGRectMake(0, 0, 0, 0));
  picture_.update(2, kLight);
  EXPECT_EQ(picture_.image().size(), QSize(1, 1));
}

// A window that asks for moves: its contents are as high as they like.
class ScrolledPictureTest : public WindowPictureTest {
 protected:
  ScrolledPictureTest() {
    box_->removeFromSuperview();
    pane_ = std::make_shared<UIView>(CGRectMake(10, 10, 80, 150));
    pane_->setClipsToBounds(true);
    pane_->setBackgroundColor(UIColor::whiteColor());
    window_->addSubview(pane_);
    stripes_->removeFromSuperview();
    stripes_->setFrame(CGRectMake(0, 0, 80, 400));
    pane_->addSubview(stripes_);
  }
  void scrollTo(CGFloat offset) { pane_->setBounds(CGRectMake(0, offset, 80, 150)); }

  std::shared_ptr<UIView> pane_;
};

TEST_F(ScrolledPictureTest, ScrollingLooksLikeDrawing) {
  for (const CGFloat scale : {1.0, 1.5, 2.0, 3.0}) {
    scrollTo(0);
    picture_.update(scale, kLight);
    for (const CGFloat offset : {2.0, 30.0, 31.0, 7.0, 7.5, 140.0, 0.0, 0.3}) {
      scrollTo(offset);
      picture_.update(scale, kLight);
      ASSERT_EQ(picture_.image(), fresh(scale)) << scale << " " << offset;
    }
  }
}

TEST_F(ScrolledPictureTest, ScrollingDrawsOnlyWhatMovesIn) {
  picture_.update(2, kLight);
  scrollTo(10);
  const auto update = picture_.update(2, kLight);
  EXPECT_EQ(update.moved, 160 * (300 - 20));
  EXPECT_EQ(update.painted, 160 * 20);
}

}  // namespace
}  // namespace zephyl::linux_host
