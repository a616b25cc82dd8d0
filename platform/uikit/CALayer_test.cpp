#include "platform/uikit/CALayer.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/LayerSurface.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Rects = std::vector<CGRect>;

class Surface : public LayerSurface {
 public:
  void invalidate(const CGRect& rect) override { rects.push_back(rect); }
  void scroll(const CGRect& area, CGFloat dx, CGFloat dy) override {
    moves.push_back({area, dx, dy});
  }
  // What was invalidated since the last call, all in one.
  CGRect take() {
    CGRect whole;
    for (const CGRect& rect : std::exchange(rects, {})) {
      whole = CGRectUnion(whole, rect);
    }
    return whole;
  }

  Rects rects;
  std::vector<Damage::Move> moves;
};

std::shared_ptr<CALayer> layer(const CGRect& frame) {
  auto made = std::make_shared<CALayer>();
  made->setFrame(frame);
  return made;
}

class CALayerTest : public ::testing::Test {
 protected:
  CALayerTest() {
    root_->setFrame(CGRectMake(0, 0, 100, 100));
    root_->setSurface(&surface_);
    root_->addSublayer(child_);
    surface_.take();
  }
  ~CALayerTest() override { root_->setSurface(nullptr); }

  fake::Device device_;
  Surface surface_;
  std::shared_ptr<CALayer> root_ = std::make_shared<CALayer>();
  std::shared_ptr<CALayer> child_ = layer(CGRectMake(10, 10, 20, 20));
};

TEST_F(CALayerTest, FrameIsBoundsAroundThePosition) {
  child_->setBounds(CGRectMake(5, 5, 40, 10));
  EXPECT_EQ(child_->frame(), CGRectMake(0, 15, 40, 10));
  child_->setTransform(CGAffineTransformMakeScale(2, 2));
  EXPECT_EQ(child_->frame(), CGRectMake(-20, 10, 80, 20));
  child_->setFrame(CGRectMake(0, 0, 10, 10));
  EXPECT_EQ(child_->state().bounds, CGRectMake(5, 5, 10, 10));
  EXPECT_EQ(child_->state().position, (CGPoint{5, 5}));
}

TEST_F(CALayerTest, NumbersThatAreNotFiniteBecomeZero) {
  const CGFloat none = std::numeric_limits<CGFloat>::quiet_NaN();
  child_->setFrame(CGRectMake(none, 1, -4, std::numeric_limits<CGFloat>::infinity()));
  EXPECT_EQ(child_->frame(), CGRectMake(-4, 1, 4, 0));
  child_->setOpacity(none);
  child_->setCornerRadius(-3);
  child_->setBorderWidth(none);
  child_->setTransform({none, 0, 0, 1, none, 0});
  EXPECT_EQ(child_->state().opacity, 0);
  EXPECT_EQ(child_->state().cornerRadius, 0);
  EXPECT_EQ(child_->state().borderWidth, 0);
  EXPECT_EQ(child_->state().transform, (CGAffineTransform{0, 0, 0, 1, 0, 0}));
  child_->setOpacity(7);
  EXPECT_EQ(child_->state().opacity, 1);
}

TEST_F(CALayerTest, MovingInvalidatesTheOldAndTheNewPlace) {
  child_->setPosition({50, 20});
  EXPECT_THAT(surface_.rects, ElementsAre(CGRectMake(10, 10, 20, 20), CGRectMake(40, 10, 20, 20)));
}

TEST_F(CALayerTest, SettingTheSameValueInvalidatesNothing) {
  child_->setFrame(child_->frame());
  child_->setOpacity(1);
  child_->setBackgroundColor(UIColor());
  child_->setShadow({});
  child_->setHidden(false);
  child_->setMasksToBounds(false);
  child_->setMaskedCorners(kAllCorners);
  child_->setContents(nullptr);
  EXPECT_THAT(surface_.rects, IsEmpty());
}

TEST_F(CALayerTest, InvalidatesWhatReachesBeyondIt) {
  child_->addSublayer(layer(CGRectMake(-5, 0, 5, 5)));
  surface_.take();
  child_->setOpacity(0.5);
  EXPECT_EQ(surface_.take(), CGRectMake(5, 10, 25, 20));
  child_->setShadow({{0, 3}, 1, UIColor::blackColor()});
  EXPECT_EQ(surface_.take(), CGRectMake(5, 10, 28, 26));
  child_->setMasksToBounds(true);
  surface_.take();
  child_->setOpacity(1);
  EXPECT_EQ(surface_.take(), CGRectMake(7, 10, 26, 26));
}

TEST_F(CALayerTest, WhatALayerBelowClipsIsNotInvalidated) {
  root_->setMasksToBounds(true);
  surface_.take();
  child_->setPosition({100, 20});
  EXPECT_EQ(surface_.rects.back(), CGRectMake(90, 10, 10, 20));
  surface_.take();
  child_->setPosition({500, 20});
  EXPECT_THAT(surface_.rects, ElementsAre(CGRectMake(90, 10, 10, 20)));
}

TEST_F(CALayerTest, WhatIsNotSeenIsNotInvalidated) {
  child_->setHidden(true);
  EXPECT_THAT(surface_.rects, ElementsAre(CGRectMake(10, 10, 20, 20)));
  surface_.take();
  child_->setNeedsDisplay();
  child_->setPosition({50, 50});
  EXPECT_THAT(surface_.rects, IsEmpty());
  child_->setHidden(false);
  EXPECT_EQ(surface_.take(), CGRectMake(40, 40, 20, 20));
  root_->setOpacity(0);
  surface_.take();
  child_->setNeedsDisplay();
  EXPECT_THAT(surface_.rects, IsEmpty());
}

TEST_F(CALayerTest, InvalidatesInTheSpaceOfTheLowestLayer) {
  child_->setTransform(CGAffineTransformMakeScale(2, 2));
  child_->setBounds(CGRectMake(100, 100, 20, 20));
  surface_.take();
  child_->setNeedsDisplayInRect(CGRectMake(100, 100, 5, 5));
  EXPECT_EQ(surface_.take(), CGRectMake(0, 0, 10, 10));
  child_->setNeedsDisplay();
  EXPECT_EQ(surface_.take(), CGRectMake(0, 0, 40, 40));
  EXPECT_EQ(CGRectApplyAffineTransform(child_->state().bounds, child_->transformToRoot()),
            CGRectMake(0, 0, 40, 40));
}

TEST_F(CALayerTest, AddingAndRemovingInvalidates) {
  const auto added = layer(CGRectMake(50, 0, 10, 10));
  root_->addSublayer(added);
  EXPECT_THAT(surface_.rects, ElementsAre(CGRectMake(50, 0, 10, 10)));
  surface_.take();
  added->removeFromSuperlayer();
  EXPECT_THAT(surface_.rects, ElementsAre(CGRectMake(50, 0, 10, 10)));
  EXPECT_EQ(added->superlayer(), nullptr);
  EXPECT_THAT(root_->sublayers(), ElementsAre(child_));
  added->removeFromSuperlayer();
}

TEST_F(CALayerTest, ALayerIsInOnePlaceOnly) {
  const auto second = layer({});
  root_->addSublayer(second);
  second->addSublayer(root_->sublayers().front());
  EXPECT_THAT(root_->sublayers(), ElementsAre(second));
  EXPECT_EQ(child_->superlayer(), second.get());
  child_->addSublayer(second);
  child_->addSublayer(child_);
  child_->addSublayer(nullptr);
  EXPECT_THAT(child_->sublayers(), IsEmpty());
}

TEST_F(CALayerTest, LayersAreInsertedAndReorderedByIndex) {
  const auto first = layer({});
  const auto last = layer({});
  root_->insertSublayer(first, 0);
  root_->insertSublayer(last, 99);
  EXPECT_THAT(root_->sublayers(), ElementsAre(first, child_, last));
  root_->insertSublayer(first, 1);
  EXPECT_THAT(root_->sublayers(), ElementsAre(child_, first, last));
  root_->addSublayer(child_);
  EXPECT_THAT(root_->sublayers(), ElementsAre(first, last, child_));
}

TEST_F(CALayerTest, ForgetsTheLayerBelowWhenThatGoes) {
  root_->setSurface(nullptr);
  root_.reset();
  EXPECT_EQ(child_->superlayer(), nullptr);
  child_->setNeedsDisplay();
  root_ = layer({});
}

TEST_F(CALayerTest, ATreeOfAnyDepthIsDestroyed) {
  auto top = layer(CGRectMake(0, 0, 1, 1));
  for (int i = 0; i < 100'000; ++i) {
    auto below = layer(CGRectMake(0, 0, 1, 1));
    below->addSublayer(top);
    top = std::move(below);
  }
  const std::weak_ptr<CALayer> topmost = top->sublayers().front();
  top.reset();
  EXPECT_TRUE(topmost.expired());
}

}  // namespace
}  // namespace zephyl
