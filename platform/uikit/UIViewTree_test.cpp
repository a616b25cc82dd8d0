#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;

// Writes down what it is told.
class Told : public UIView {
 public:
  Told(std::string name, Log& log) : name_(std::move(name)), log_(log) {}
  void willMoveToWindow(UIWindow* window) override {
    say(window == nullptr ? "will leave" : "will come");
    if (atWill) {
      atWill();
    }
  }
  void didMoveToWindow() override {
    say(window() == nullptr ? "left" : "came");
    if (atDid) {
      atDid();
    }
  }
  void didAddSubview(UIView& /*view*/) override { say("has one more"); }
  void tintColorDidChange() override { say("tint"); }

  std::function<void()> atWill;
  std::function<void()> atDid;

 private:
  void say(const std::string& what) { log_.push_back(name_ + " " + what); }

  std::string name_;
  Log& log_;
};

class UIViewTreeTest : public ::testing::Test {
 protected:
  std::shared_ptr<Told> told(std::string name) {
    return std::make_shared<Told>(std::move(name), log_);
  }
  Log take() { return std::exchange(log_, {}); }

  fake::Device device_;
  Log log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 100, 100));
  std::shared_ptr<Told> a_ = told("a");
  std::shared_ptr<Told> b_ = told("b");
};

TEST_F(UIViewTreeTest, AViewIsInOnePlaceOnlyWithItsLayer) {
  const auto root = std::make_shared<UIView>();
  root->addSubview(a_);
  root->addSubview(b_);
  EXPECT_THAT(root->subviews(), ElementsAre(a_, b_));
  EXPECT_THAT(root->layer()->sublayers(), ElementsAre(a_->layer(), b_->layer()));
  // Handed over as the very element that it leaves.
  b_->addSubview(root->subviews().front());
  EXPECT_THAT(root->subviews(), ElementsAre(b_));
  EXPECT_EQ(a_->superview(), b_.get());
  EXPECT_EQ(a_->layer()->superlayer(), b_->layer().get());
}

TEST_F(UIViewTreeTest, AViewIsNeverInItself) {
  a_->addSubview(b_);
  b_->addSubview(a_);
  a_->addSubview(a_);
  a_->addSubview(nullptr);
  a_->addSubview(window_);
  EXPECT_THAT(a_->subviews(), ElementsAre(b_));
  EXPECT_THAT(b_->subviews(), IsEmpty());
  EXPECT_TRUE(b_->isDescendantOfView(a_.get()));
  EXPECT_TRUE(a_->isDescendantOfView(a_.get()));
  EXPECT_FALSE(a_->isDescendantOfView(b_.get()));
}

TEST_F(UIViewTreeTest, LayersKeepTheOrderOfTheirViewsAmongOtherLayers) {
  const auto root = std::make_shared<UIView>();
  const auto line = std::make_shared<CALayer>();
  root->addSubview(a_);
  root->layer()->addSublayer(line);
  root->insertSubview(b_, 0);
  EXPECT_THAT(root->layer()->sublayers(), ElementsAre(b_->layer(), a_->layer(), line));
  root->bringSubviewToFront(b_);
  EXPECT_THAT(root->subviews(), ElementsAre(a_, b_));
  EXPECT_THAT(root->layer()->sublayers(), ElementsAre(a_->layer(), line, b_->layer()));
  root->sendSubviewToBack(b_);
  EXPECT_THAT(root->subviews(), ElementsAre(b_, a_));
  EXPECT_THAT(root->layer()->sublayers(), ElementsAre(b_->layer(), a_->layer(), line));
  root->addSubview(b_);
  EXPECT_THAT(root->subviews(), ElementsAre(a_, b_));
}

TEST_F(UIViewTreeTest, TellsTheWholeTreeOfItsWindow) {
  a_->addSubview(b_);
  EXPECT_THAT(take(), ElementsAre("a has one more"));
  window_->addSubview(a_);
  EXPECT_THAT(take(), ElementsAre("a will come", "b will come", "a came", "b came"));
  EXPECT_EQ(b_->window(), window_.get());
  window_->addSubview(b_);
  EXPECT_THAT(take(), IsEmpty());
  a_->removeFromSuperview();
  EXPECT_THAT(take(), ElementsAre("a will leave", "a left"));
  EXPECT_EQ(a_->window(), nullptr);
  EXPECT_EQ(a_->superview(), nullptr);
  a_->removeFromSuperview();
  EXPECT_THAT(take(), IsEmpty());
}

TEST_F(UIViewTreeTest, AWindowThatGoesLetsItsViewsLeave) {
  window_->addSubview(a_);
  a_->addSubview(b_);
  take();
  window_.reset();
  EXPECT_THAT(take(), ElementsAre("a will leave", "b will leave", "a left", "b left"));
  EXPECT_EQ(b_->window(), nullptr);
  EXPECT_EQ(a_->superview(), nullptr);
  EXPECT_EQ(b_->superview(), a_.get());
}

TEST_F(UIViewTreeTest, WhoIsToldMayChangeTheTree) {
  a_->addSubview(b_);
  // It goes into its own subview while it comes.
  a_->atWill = [this] { b_->removeFromSuperview(), b_->addSubview(a_); };
  window_->addSubview(a_);
  EXPECT_EQ(a_->superview(), window_.get());
  a_->atWill = nullptr;
  a_->removeFromSuperview();
  a_->atDid = [this] { window_->removeFromSuperview(), a_->removeFromSuperview(); };
  window_->addSubview(b_);
  window_->addSubview(a_);
  EXPECT_EQ(a_->window(), nullptr);
  a_->atDid = [this] { a_.reset(); };
  const std::weak_ptr<UIView> weak = a_;
  window_->addSubview(a_);
  EXPECT_EQ(weak.lock()->window(), window_.get());
  weak.lock()->removeFromSuperview();
  EXPECT_TRUE(weak.expired());
}

TEST_F(UIViewTreeTest, AViewMayBeDestroyedByWhatItRemoves) {
  auto root = std::make_shared<UIView>();
  root->addSubview(a_);
  window_->addSubview(root);
  UIView& raw = *a_;
  const std::weak_ptr<UIView> weak = a_;
  a_->atDid = [&root] { root.reset(); };
  a_.reset();
  root->removeFromSuperview();
  EXPECT_EQ(root, nullptr);
  EXPECT_TRUE(weak.expired());
  (void)raw;
}

TEST_F(UIViewTreeTest, FindsTheFirstWithATagDepthFirst) {
  const auto deep = test::tree<UIView>().tag(3).view();
  const auto root = test::tree<UIView>().tag(1).with(test::tree<UIView>().with(deep),
                                                     test::tree<UIView>().tag(3));
  EXPECT_EQ(root->viewWithTag(3), deep);
  EXPECT_EQ(root->viewWithTag(1), root.view());
  EXPECT_EQ(root->viewWithTag(9), nullptr);
}

TEST_F(UIViewTreeTest, TintIsInheritedAndItsChangesTold) {
  window_->addSubview(a_);
  a_->addSubview(b_);
  EXPECT_EQ(b_->tintColor(), UIColor::systemBlueColor());
  take();
  window_->setTintColor(UIColor::redColor());
  EXPECT_THAT(take(), ElementsAre("a tint", "b tint"));
  EXPECT_EQ(b_->tintColor(), UIColor::redColor());
  b_->setTintColor(UIColor::greenColor());
  take();
  window_->setTintColor(UIColor::blueColor());
  EXPECT_THAT(take(), ElementsAre("a tint"));
  window_->setTintColor(UIColor::blueColor());
  EXPECT_THAT(take(), IsEmpty());
  a_->removeFromSuperview();
  take();
  window_->addSubview(a_);
  EXPECT_THAT(take(), ElementsAre("a will come", "b will come", "a came", "b came", "a tint"));
}

TEST_F(UIViewTreeTest, KeepsObjectsForOthers) {
  static const int key = 0;
  const auto object = std::make_shared<int>(3);
  EXPECT_EQ(a_->associatedObject(&key), nullptr);
  a_->setAssociatedObject(&key, object);
  EXPECT_EQ(a_->associatedObject(&key), object);
  EXPECT_EQ(a_->associatedObject(&log_), nullptr);
  a_->setAssociatedObject(&key, nullptr);
  EXPECT_EQ(a_->associatedObject(&key), nullptr);
  EXPECT_EQ(object.use_count(), 1);
  a_->setAssociatedObject(&key, object);
  a_.reset();
  EXPECT_EQ(object.use_count(), 1);
}

TEST_F(UIViewTreeTest, ATreeOfAnyDepthLivesInAWindow) {
  constexpr int kDepth = 10'000;
  std::shared_ptr<UIView> root = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
  const std::weak_ptr<UIView> topmost = root;
  for (int i = 0; i < kDepth; ++i) {
    const auto below = std::make_shared<UIView>(CGRectMake(0, 0, 10, 10));
    below->addSubview(root);
    root = below;
  }
  window_->addSubview(root);
  window_->layoutWindow();
  EXPECT_NE(window_->hitTest({5, 5}), nullptr);
  EXPECT_EQ(root->viewWithTag(1), nullptr);
  root.reset();
  window_.reset();
  EXPECT_TRUE(topmost.expired());
}

}  // namespace
}  // namespace zephyl
