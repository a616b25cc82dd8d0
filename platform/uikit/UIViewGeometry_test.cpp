#include <limits>

#include <gtest/gtest.h>

#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using test::tree;

class UIViewGeometryTest : public ::testing::Test {
 protected:
  // The frame of a view at (10, 10; 20, 20) in one of 100 x 100 that grows to 200 x 150.
  static CGRect resized(unsigned mask) {
    const auto child = std::make_shared<UIView>(CGRectMake(10, 10, 20, 20));
    child->setAutoresizingMask(mask);
    const auto root = tree<UIView>(CGRectMake(0, 0, 100, 100)).with(child).view();
    root->setFrame(CGRectMake(5, 5, 200, 150));
    return child->frame();
  }

  fake::Device device_;
};

TEST_F(UIViewGeometryTest, FrameBoundsAndCenterAreOnePlace) {
  UIView view(CGRectMake(10, 20, 30, 40));
  EXPECT_EQ(view.bounds(), CGRectMake(0, 0, 30, 40));
  EXPECT_EQ(view.center(), (CGPoint{25, 40}));
  view.setCenter({15, 20});
  EXPECT_EQ(view.frame(), CGRectMake(0, 0, 30, 40));
  view.setBounds(CGRectMake(3, 3, 10, 40));
  EXPECT_EQ(view.frame(), CGRectMake(10, 0, 10, 40));
}

TEST_F(UIViewGeometryTest, NumbersThatAreNotFiniteDoNoHarm) {
  const CGFloat none = std::numeric_limits<CGFloat>::quiet_NaN();
  UIView view(CGRectMake(none, 0, -10, 5));
  EXPECT_EQ(view.frame(), CGRectMake(-10, 0, 10, 5));
  view.setCenter({none, none});
  view.setAlpha(none);
  EXPECT_EQ(view.center(), CGPoint());
  EXPECT_EQ(view.alpha(), 0);
  view.setBounds(CGRectMake(0, 0, none, 1e300));
  EXPECT_EQ(view.bounds(), CGRectMake(0, 0, 0, 1e8));
}

TEST_F(UIViewGeometryTest, WhatHasNoMaskStaysWhereItIs) {
  EXPECT_EQ(resized(0), CGRectMake(10, 10, 20, 20));
}

TEST_F(UIViewGeometryTest, WhatIsFlexibleTakesTheChange) {
  EXPECT_EQ(resized(kFlexibleWidth | kFlexibleHeight), CGRectMake(10, 10, 120, 70));
  EXPECT_EQ(resized(kFlexibleLeftMargin | kFlexibleTopMargin), CGRectMake(110, 60, 20, 20));
  EXPECT_EQ(resized(kFlexibleRightMargin | kFlexibleBottomMargin), CGRectMake(10, 10, 20, 20));
}

TEST_F(UIViewGeometryTest, TheChangeIsSharedBySize) {
  EXPECT_EQ(resized(kFlexibleLeftMargin | kFlexibleRightMargin), CGRectMake(22.5, 10, 20, 20));
  EXPECT_EQ(resized(kFlexibleLeftMargin | kFlexibleWidth | kFlexibleRightMargin),
            CGRectMake(20, 10, 40, 20));
}

TEST_F(UIViewGeometryTest, WhatFillsAnEmptyViewFillsItWhenItGrows) {
  const auto child = std::make_shared<UIView>();
  child->setAutoresizingMask(kFlexibleWidth | kFlexibleHeight);
  const auto root = tree<UIView>().with(child).view();
  root->setFrame(CGRectMake(0, 0, 30, 20));
  EXPECT_EQ(child->frame(), CGRectMake(0, 0, 30, 20));
  root->setFrame({});
  EXPECT_EQ(child->frame(), CGRect());
}

TEST_F(UIViewGeometryTest, SubviewsOfSubviewsFollow) {
  const auto inner = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
  inner->setAutoresizingMask(kFlexibleWidth);
  const auto outer = tree<UIView>(CGRectMake(0, 0, 10, 10)).with(inner).view();
  outer->setAutoresizingMask(kFlexibleWidth);
  const auto root = tree<UIView>(CGRectMake(0, 0, 10, 10)).with(outer).view();
  root->setBounds(CGRectMake(0, 0, 50, 10));
  EXPECT_EQ(inner->frame(), CGRectMake(0, 0, 50, 10));
}

TEST_F(UIViewGeometryTest, ATreeOfAnyDepthFollows) {
  const auto root = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
  std::shared_ptr<UIView> top = root;
  for (int i = 0; i < 1000; ++i) {
    const auto above = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
    above->setAutoresizingMask(kFlexibleWidth);
    top->addSubview(above);
    top = above;
  }
  root->setFrame(CGRectMake(0, 0, 20, 10));
  EXPECT_EQ(top->frame(), CGRectMake(0, 0, 20, 10));
}

TEST_F(UIViewGeometryTest, ConvertsBetweenAnyTwoViews) {
  const auto inner = std::make_shared<UIView>(CGRectMake(10, 10, 10, 10));
  const auto scrolled = tree<UIView>(CGRectMake(0, 50, 100, 50)).with(inner).view();
  scrolled->setBounds(CGRectMake(0, 5, 100, 50));
  const auto sibling = std::make_shared<UIView>(CGRectMake(20, 0, 40, 40));
  sibling->setTransform(CGAffineTransformMakeScale(2, 2));
  const auto root = tree<UIView>(CGRectMake(0, 0, 100, 100)).with(scrolled, sibling).view();
  EXPECT_EQ(inner->convertPointToView({0, 0}, nullptr), (CGPoint{10, 55}));
  EXPECT_EQ(inner->convertPointToView({0, 0}, scrolled.get()), (CGPoint{10, 10}));
  EXPECT_EQ(inner->convertPointToView({0, 0}, sibling.get()), (CGPoint{5, 37.5}));
  EXPECT_EQ(sibling->convertPointFromView({0, 0}, inner.get()), (CGPoint{5, 37.5}));
  EXPECT_EQ(inner->convertPointFromView({10, 55}, nullptr), CGPoint());
  EXPECT_EQ(inner->convertRectToView(CGRectMake(0, 0, 10, 10), sibling.get()),
            CGRectMake(5, 37.5, 5, 5));
}

}  // namespace
}  // namespace zephyl
