#include "platform/uikit/controls/UISegmentedControl.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/uikit/TreeDump.h"
#include "platform/uikit/UIWindow.h"
#include "platform/uikit/testing/TreeBuilder.h"

#include "hosts/fake/Device.h"
#include "hosts/fake/uikit/RecordingContext.h"

namespace zephyl {
namespace {

using ::testing::ElementsAre;

class UISegmentedControlTest : public ::testing::Test {
 protected:
  UISegmentedControlTest() {
    control_->setFrame(CGRectMake(50, 100, 300, 34));
    control_->addAction([this](UIControl&) { ++changes_; }, kValueChanged);
    window_->addSubview(control_);
    window_->layoutWindow();
  }

  void touch(UITouchPhase phase, CGFloat x, CGFloat y = 110) {
    test::touch(*window_, phase, {x, y});
  }
  bool press(UIKey key) { return control_->pressesBegan({key, ""}); }
  // Ground, separators, the raised segment, then titles.
  [[nodiscard]] const CALayer& raised() const { return *control_->layer()->sublayers().at(3); }
  [[nodiscard]] CGFloat separatorOpacity(std::size_t index) const {
    return control_->layer()->sublayers().at(1 + index)->state().opacity;
  }
  std::vector<std::string> drawnTexts() {
    fake::RecordingContext context;
    window_->layer()->render(context);
    return context.texts();
  }

  fake::Device device_;
  int changes_ = 0;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 400, 400));
  std::shared_ptr<UISegmentedControl> control_ =
      std::make_shared<UISegmentedControl>(std::vector<std::string>{"One", "Two", "Three"});
};

TEST_F(UISegmentedControlTest, BeginsWithNoneSelected) {
  EXPECT_EQ(control_->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_TRUE(raised().isHidden());
  EXPECT_THAT(drawnTexts(), ElementsAre("One", "Two", "Three"));
}

TEST_F(UISegmentedControlTest, SelectedSegmentIsRaisedAndSeparatorsBesideItAreNotSeen) {
  control_->setSelectedSegmentIndex(0);
  EXPECT_EQ(raised().frame(), CGRectMake(2, 2, 96, 30));
  EXPECT_EQ(separatorOpacity(0), 0);
  EXPECT_EQ(separatorOpacity(1), 1);
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISegmentedControlTest, IndexThatIsNoSegmentsSelectsNone) {
  control_->setSelectedSegmentIndex(1);
  control_->setSelectedSegmentIndex(3);
  EXPECT_EQ(control_->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  control_->setSelectedSegmentIndex(-7);
  EXPECT_EQ(control_->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_EQ(control_->titleForSegmentAtIndex(3), "");
  EXPECT_EQ(control_->titleForSegmentAtIndex(2), "Three");
}

TEST_F(UISegmentedControlTest, TapSelectsAndSaysSoOnce) {
  touch(UITouchPhase::kBegan, 200);
  EXPECT_EQ(changes_, 0);
  touch(UITouchPhase::kEnded, 200);
  EXPECT_EQ(control_->selectedSegmentIndex(), 1);
  EXPECT_EQ(changes_, 1);
  test::tap(*window_, {210, 110});
  EXPECT_EQ(changes_, 1);
}

TEST_F(UISegmentedControlTest, FingerThatLeavesFarAwaySelectsNothing) {
  touch(UITouchPhase::kBegan, 200);
  touch(UITouchPhase::kMoved, 200, 300);
  touch(UITouchPhase::kEnded, 200, 300);
  EXPECT_EQ(control_->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISegmentedControlTest, RaisedSegmentIsDraggedAlong) {
  control_->setSelectedSegmentIndex(0);
  touch(UITouchPhase::kBegan, 60);
  touch(UITouchPhase::kMoved, 340);
  EXPECT_EQ(raised().frame().midX(), 250);
  EXPECT_EQ(control_->selectedSegmentIndex(), 0);
  touch(UITouchPhase::kEnded, 340);
  EXPECT_EQ(control_->selectedSegmentIndex(), 2);
  EXPECT_EQ(changes_, 1);
}

TEST_F(UISegmentedControlTest, LostDragPutsItBack) {
  control_->setSelectedSegmentIndex(0);
  touch(UITouchPhase::kBegan, 60);
  touch(UITouchPhase::kMoved, 340);
  touch(UITouchPhase::kCancelled, 340);
  EXPECT_EQ(raised().frame(), CGRectMake(2, 2, 96, 30));
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISegmentedControlTest, ArrowsSelectTheNeighbour) {
  EXPECT_TRUE(press(UIKey::kRight));
  EXPECT_EQ(control_->selectedSegmentIndex(), 0);
  EXPECT_TRUE(press(UIKey::kRight));
  EXPECT_EQ(control_->selectedSegmentIndex(), 1);
  EXPECT_TRUE(press(UIKey::kLeft));
  EXPECT_TRUE(press(UIKey::kLeft));
  EXPECT_EQ(control_->selectedSegmentIndex(), 0);
  EXPECT_EQ(changes_, 3);
}

TEST_F(UISegmentedControlTest, RightToLeftIsMirrored) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  control_->setNeedsLayout();
  window_->layoutWindow();
  test::tap(*window_, {60, 110});
  EXPECT_EQ(control_->selectedSegmentIndex(), 2);
  EXPECT_EQ(raised().frame().x(), 2);
  EXPECT_TRUE(press(UIKey::kRight));
  EXPECT_EQ(control_->selectedSegmentIndex(), 1);
}

TEST_F(UISegmentedControlTest, ScreenReaderComesByEachSegment) {
  control_->setSelectedSegmentIndex(1);
  EXPECT_EQ(accessibilityDescription(*control_),
            "segment \"One\"\nsegment \"Two\" selected\nsegment \"Three\"\n");
  EXPECT_TRUE(test::viewShowing(*control_, "Three")->accessibilityActivate());
  EXPECT_EQ(control_->selectedSegmentIndex(), 2);
  EXPECT_EQ(changes_, 1);
}

TEST_F(UISegmentedControlTest, SegmentThatLeftItsControlIsActivatedByNobody) {
  const auto left = control_->subviews().front();
  control_->setItems({"Only"});
  EXPECT_FALSE(left->accessibilityActivate());
  const auto last = control_->subviews().front();
  window_ = nullptr;
  control_ = nullptr;
  EXPECT_FALSE(last->accessibilityActivate());
}

TEST_F(UISegmentedControlTest, StrangeItemsAndSizesDoNoHarm) {
  control_->setItems({});
  test::tap(*window_, {200, 110});
  EXPECT_FALSE(press(UIKey::kRight));
  EXPECT_EQ(control_->intrinsicContentSize().width, 0);
  control_->setItems({"", std::string(100000, 'x'), "\xff\xfe"});
  control_->setFrame(CGRectMake(0, 0, std::numeric_limits<CGFloat>::infinity(), -5));
  window_->layoutWindow();
  static_cast<void>(drawnTexts());
  control_->setFrame(CGRectMake(0, 0, 0, 0));
  window_->layoutWindow();
  EXPECT_EQ(control_->numberOfSegments(), 3);
  EXPECT_EQ(changes_, 0);
}

TEST_F(UISegmentedControlTest, DisabledOneStays) {
  control_->setEnabled(false);
  test::tap(*window_, {200, 110});
  EXPECT_FALSE(press(UIKey::kRight));
  EXPECT_FALSE(test::viewShowing(*control_, "One")->accessibilityActivate());
  EXPECT_EQ(control_->selectedSegmentIndex(), UISegmentedControl::kNoSegment);
}

}  // namespace
}  // namespace zephyl
