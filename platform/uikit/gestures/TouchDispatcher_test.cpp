#include "platform/uikit/gestures/TouchDispatcher.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"
#include "platform/uikit/gestures/UIPanGestureRecognizer.h"
#include "platform/uikit/gestures/UITapGestureRecognizer.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Log = std::vector<std::string>;

// Writes down what it is told.
class Noting : public UIView {
 public:
  Noting(std::string name, Log& log, const CGRect& frame)
      : UIView(frame), name_(std::move(name)), log_(log) {}

  void touchesBegan(const UITouch& /*touch*/) override { log_.push_back(name_ + " began"); }
  void touchesMoved(const UITouch& /*touch*/) override { log_.push_back(name_ + " moved"); }
  void touchesEnded(const UITouch& /*touch*/) override { log_.push_back(name_ + " ended"); }
  void touchesCancelled(const UITouch& /*touch*/) override { log_.push_back(name_ + " cancelled"); }
  bool handleScroll(const UIScrollEvent& scroll) override {
    log_.push_back(name_ + " scroll");
    return scroll.dy > 0;
  }
  bool contextMenuRequested(const UITouch& /*touch*/) override {
    log_.push_back(name_ + " menu");
    return false;
  }
  [[nodiscard]] bool gestureRecognizerShouldBegin(const UIGestureRecognizer& /*gesture*/) override {
    return letsBegin;
  }

  bool letsBegin = true;

 private:
  std::string name_;
  Log& log_;
};

class TouchDispatcherTest : public ::testing::Test {
 protected:
  TouchDispatcherTest() {
    window_->addSubview(outer_);
    outer_->addSubview(inner_);
  }

  std::shared_ptr<UIPanGestureRecognizer> pan(UIView& view, const std::string& name) {
    auto recognizer =
        std::make_shared<UIPanGestureRecognizer>([this, name](UIGestureRecognizer& gesture) {
          log_.push_back(name + " " + std::to_string(static_cast<int>(gesture.state())));
        });
    view.addGestureRecognizer(recognizer);
    return recognizer;
  }
  void touch(UITouchPhase phase, CGFloat x, CGFloat y, int identifier = 0) {
    test::touch(*window_, phase, {x, y}, 0, identifier);
  }

  fake::Device device_;
  Log log_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<Noting> outer_ =
      std::make_shared<Noting>("outer", log_, CGRectMake(0, 0, 300, 300));
  std::shared_ptr<Noting> inner_ =
      std::make_shared<Noting>("inner", log_, CGRectMake(0, 0, 100, 100));
};

TEST_F(TouchDispatcherTest, FingerBelongsToTheViewItWentDownOn) {
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 200, 200);
  touch(UITouchPhase::kEnded, 390, 390);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner moved", "inner ended"));
}

TEST_F(TouchDispatcherTest, ViewFollowsOneFingerAndOthersFollowOtherViews) {
  touch(UITouchPhase::kBegan, 50, 50, 1);
  touch(UITouchPhase::kBegan, 60, 60, 2);
  touch(UITouchPhase::kBegan, 200, 200, 3);
  touch(UITouchPhase::kEnded, 60, 60, 2);
  touch(UITouchPhase::kEnded, 50, 50, 1);
  EXPECT_THAT(log_, ElementsAre("inner began", "outer began", "inner ended"));
}

TEST_F(TouchDispatcherTest, UnknownFingersAreIgnored) {
  touch(UITouchPhase::kMoved, 50, 50);
  touch(UITouchPhase::kEnded, 50, 50);
  touch(UITouchPhase::kBegan, 500, 50);
  touch(UITouchPhase::kEnded, 50, 50);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(TouchDispatcherTest, FingerThatBeginsAgainIsCancelledFirst) {
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kBegan, 200, 200);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner cancelled", "outer began"));
}

TEST_F(TouchDispatcherTest, RecognizerThatBeginsCancelsTheView) {
  const auto recognizer = pan(*outer_, "pan");
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 70, 50);
  touch(UITouchPhase::kMoved, 80, 50);
  touch(UITouchPhase::kEnded, 80, 50);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner cancelled", "pan 1", "pan 2", "pan 3"));
  EXPECT_EQ(recognizer->state(), UIGestureRecognizerState::kPossible);
}

TEST_F(TouchDispatcherTest, RecognizerMayLeaveTheViewItsTouches) {
  pan(*outer_, "pan")->setCancelsTouchesInView(false);
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 70, 50);
  EXPECT_THAT(log_, ElementsAre("inner began", "pan 1", "inner moved"));
}

TEST_F(TouchDispatcherTest, InnermostRecognizerWins) {
  pan(*outer_, "outer pan");
  pan(*inner_, "inner pan");
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 70, 50);
  touch(UITouchPhase::kEnded, 70, 50);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner cancelled", "inner pan 1", "inner pan 3"));
}

TEST_F(TouchDispatcherTest, OuterRecognizerTakesWhatTheInnerDoesNotWant) {
  pan(*outer_, "outer pan");
  pan(*inner_, "inner pan")->setAllowedDirections(kPanHorizontally);
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 50, 70);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner cancelled", "outer pan 1"));
}

TEST_F(TouchDispatcherTest, SecondFingerJoinsTheGestureAndStartsNoOther) {
  pan(*outer_, "outer pan");
  pan(*inner_, "inner pan");
  touch(UITouchPhase::kBegan, 200, 200, 1);
  touch(UITouchPhase::kMoved, 230, 200, 1);
  touch(UITouchPhase::kBegan, 50, 50, 2);
  log_.clear();
  touch(UITouchPhase::kMoved, 90, 50, 2);
  EXPECT_THAT(log_, ElementsAre("outer pan 2", "inner moved"));
}

TEST_F(TouchDispatcherTest, ViewsBetweenMayRefuseAGesture) {
  pan(*outer_, "pan");
  inner_->letsBegin = false;
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 70, 50);
  EXPECT_THAT(log_, ElementsAre("inner began", "inner moved"));
}

TEST_F(TouchDispatcherTest, ViewThatLeavesIsCancelledAndTheGestureAroundItGoesOn) {
  pan(*outer_, "pan");
  touch(UITouchPhase::kBegan, 50, 50);
  inner_->removeFromSuperview();
  EXPECT_THAT(log_, ElementsAre("inner began", "inner cancelled"));
  log_.clear();
  touch(UITouchPhase::kMoved, 80, 50);
  touch(UITouchPhase::kEnded, 80, 50);
  EXPECT_THAT(log_, ElementsAre("pan 1", "pan 3"));
}

TEST_F(TouchDispatcherTest, GestureOfAViewThatLeavesIsCancelled) {
  const auto recognizer = pan(*inner_, "pan");
  touch(UITouchPhase::kBegan, 50, 50);
  touch(UITouchPhase::kMoved, 80, 50);
  log_.clear();
  outer_->removeFromSuperview();
  touch(UITouchPhase::kMoved, 90, 50);
  EXPECT_THAT(log_, ElementsAre("pan 4"));
  EXPECT_EQ(recognizer->state(), UIGestureRecognizerState::kPossible);
}

TEST_F(TouchDispatcherTest, ActionMayEndTheViewAndItsRecognizer) {
  inner_->addGestureRecognizer(
      std::make_shared<UITapGestureRecognizer>([this](UIGestureRecognizer& gesture) {
        inner_->removeFromSuperview();
        inner_->removeGestureRecognizer(inner_->gestureRecognizers().front());
        inner_ = nullptr;
        EXPECT_EQ(gesture.view(), nullptr);
      }));
  test::tap(*window_, {50, 50});
  EXPECT_EQ(inner_, nullptr);
  test::tap(*window_, {50, 50});
  EXPECT_EQ(log_.back(), "outer ended");
}

TEST_F(TouchDispatcherTest, TurnGoesToTheInnermostViewThatUsesIt) {
  window_->sendScroll({{50, 50}, 0, -3});
  window_->sendScroll({{50, 50}, 0, 3});
  window_->sendScroll({{500, 50}, 0, 3});
  EXPECT_THAT(log_, ElementsAre("inner scroll", "outer scroll", "inner scroll"));
}

TEST_F(TouchDispatcherTest, SecondaryClickAsksForAMenuAndIsNoTouch) {
  window_->sendTouch({0, UITouchPhase::kBegan, {50, 50}, 0, /*secondary=*/true});
  window_->sendTouch({0, UITouchPhase::kEnded, {50, 50}, 0, /*secondary=*/true});
  EXPECT_THAT(log_, ElementsAre("inner menu", "outer menu"));
}

}  // namespace
}  // namespace zephyl
