#include <functional>

#include <gtest/gtest.h>

#include "platform/uikit/controllers/UIViewController.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

class Counting : public UIView {
 public:
  void layoutSubviews() override {
    ++layouts;
    if (atLayout) {
      atLayout();
    }
  }
  [[nodiscard]] CGSize sizeThatFits(CGSize size) const override { return {size.width / 2, 30}; }

  int layouts = 0;
  std::function<void()> atLayout;
};

class UIViewLayoutTest : public ::testing::Test {
 protected:
  UIViewLayoutTest() {
    window_->addSubview(root_);
    root_->addSubview(child_);
    layout();
    (void)window_->takeDamage();
  }

  // How often both were laid out since.
  void layout() {
    window_->layoutWindow();
    rootLayouts_ = std::exchange(root_->layouts, 0);
    childLayouts_ = std::exchange(child_->layouts, 0);
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 100, 100));
  std::shared_ptr<Counting> root_ = std::make_shared<Counting>();
  std::shared_ptr<Counting> child_ = std::make_shared<Counting>();
  int rootLayouts_ = 0;
  int childLayouts_ = 0;
};

TEST_F(UIViewLayoutTest, LaysOutOnceEachThatNeedsIt) {
  EXPECT_EQ(rootLayouts_, 1);
  EXPECT_EQ(childLayouts_, 1);
  layout();
  EXPECT_EQ(rootLayouts_, 0);
  child_->setNeedsLayout();
  child_->setNeedsLayout();
  layout();
  EXPECT_EQ(rootLayouts_, 0);
  EXPECT_EQ(childLayouts_, 1);
}

TEST_F(UIViewLayoutTest, ChangedBoundsAndSubviewsNeedLayout) {
  root_->setFrame(CGRectMake(0, 0, 50, 50));
  layout();
  EXPECT_EQ(rootLayouts_, 1);
  EXPECT_EQ(childLayouts_, 0);
  root_->setFrame(CGRectMake(5, 0, 50, 50));
  layout();
  EXPECT_EQ(rootLayouts_, 0);
  root_->setBounds(CGRectMake(0, 9, 50, 50));
  layout();
  EXPECT_EQ(rootLayouts_, 1);
  child_->removeFromSuperview();
  layout();
  EXPECT_EQ(rootLayouts_, 1);
  child_->setNeedsLayout();
  root_->addSubview(child_);
  layout();
  EXPECT_EQ(rootLayouts_, 1);
  EXPECT_EQ(childLayouts_, 1);
}

TEST_F(UIViewLayoutTest, LayoutIfNeededBeginsWithTheLowestThatNeedsIt) {
  root_->setNeedsLayout();
  child_->setNeedsLayout();
  child_->layoutIfNeeded();
  EXPECT_EQ(root_->layouts, 1);
  EXPECT_EQ(child_->layouts, 1);
  child_->layoutIfNeeded();
  EXPECT_EQ(child_->layouts, 1);
}

TEST_F(UIViewLayoutTest, ALayoutMayAskForAnother) {
  root_->atLayout = [this] { child_->setFrame(CGRectMake(0, 0, 10, 10)); };
  int rounds = 0;
  child_->atLayout = [&] {
    if (++rounds < 3) {
      root_->setNeedsLayout();
      child_->setNeedsLayout();
    }
  };
  root_->setNeedsLayout();
  layout();
  EXPECT_EQ(childLayouts_, 3);
  EXPECT_EQ(rootLayouts_, 3);
  layout();
  EXPECT_EQ(rootLayouts_, 0);
}

TEST_F(UIViewLayoutTest, ALayoutWithoutEndIsStopped) {
  child_->atLayout = [this] { child_->setNeedsLayout(); };
  child_->setNeedsLayout();
  layout();
  EXPECT_GT(childLayouts_, 1);
  EXPECT_LT(childLayouts_, 100);
  // What is asked for later is still laid out.
  child_->atLayout = nullptr;
  root_->setNeedsLayout();
  layout();
  EXPECT_EQ(rootLayouts_, 1);
  EXPECT_EQ(childLayouts_, 1);
}

TEST_F(UIViewLayoutTest, ALayoutInsideItselfIsNone) {
  root_->atLayout = [this] {
    root_->setNeedsLayout();
    root_->layoutIfNeeded();
    child_->layoutIfNeeded();
  };
  child_->atLayout = [this] {
    child_->setNeedsLayout();
    window_->layoutIfNeeded();
  };
  root_->setNeedsLayout();
  child_->setNeedsLayout();
  layout();
  EXPECT_LT(rootLayouts_, 1000);
  EXPECT_LT(childLayouts_, 1000);
}

TEST_F(UIViewLayoutTest, AViewMayGoWhileItIsLaidOut) {
  const std::weak_ptr<UIView> weak = child_;
  child_->atLayout = [this] { child_->removeFromSuperview(), child_.reset(); };
  child_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_TRUE(weak.expired());
  root_->atLayout = [this] { window_->setNeedsLayout(), root_->removeFromSuperview(); };
  root_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(root_->window(), nullptr);
}

TEST_F(UIViewLayoutTest, AsksTheHostForAPictureOnce) {
  int asked = 0;
  window_->setDamageHandler([&] { ++asked; });
  child_->setNeedsLayout();
  root_->setNeedsLayout();
  EXPECT_EQ(asked, 1);
  layout();
  (void)window_->takeDamage();
  child_->setNeedsLayout();
  EXPECT_EQ(asked, 2);
}

TEST_F(UIViewLayoutTest, SizeToFitKeepsTheUpperLeftCorner) {
  root_->setFrame(CGRectMake(10, 10, 40, 40));
  root_->sizeToFit();
  EXPECT_EQ(root_->frame(), CGRectMake(10, 10, 20, 30));
  UIView plain(CGRectMake(1, 2, 3, 4));
  plain.sizeToFit();
  EXPECT_EQ(plain.frame(), CGRectMake(1, 2, 3, 4));
  EXPECT_EQ(plain.intrinsicContentSize(), (CGSize{-1, -1}));
}

}  // namespace
}  // namespace zephyl
