// The cursors of the map and of the brightness bar.

#include "ui/components/HRColorCursor.h"

#include <memory>

#include <gtest/gtest.h>

#include "platform/uikit/UIWindow.h"

#include "hosts/fake/Device.h"
#include "ui/components/HRBrightnessCursor.h"

namespace zephyl {
namespace {

class HRColorCursorTest : public ::testing::Test {
 protected:
  HRColorCursorTest() {
    window_->addSubview(cursor_);
    window_->addSubview(knob_);
    window_->layoutWindow();
  }
  static const CALayer& ringOf(const UIView& cursor) {
    return *cursor.layer()->sublayers().front();
  }
  static const CALayer& fillOf(const UIView& cursor) { return *ringOf(cursor).sublayers().front(); }
  [[nodiscard]] const LayerState& ring() const { return ringOf(*cursor_).state(); }
  [[nodiscard]] const LayerState& fill() const { return fillOf(*cursor_).state(); }
  static CGFloat scaleOnScreen(const UIView& cursor) {
    return ringOf(cursor).presentation().transform.a;
  }
  // At half of its time an animation is on its way, and at its end it has arrived.
  template <typename Cursor>
  void expectATenthOfASecond(Cursor& cursor) {
    auto& link = device_.uikit()->displayLink();
    cursor.setEditing(true);
    EXPECT_TRUE(cursor.isEditing());
    const CGFloat large = ringOf(cursor).state().transform.a;
    EXPECT_GT(large, 1);
    link.advance(0.05);
    EXPECT_GT(scaleOnScreen(cursor), 1);
    EXPECT_LT(scaleOnScreen(cursor), large);
    link.advance(0.0501);
    EXPECT_EQ(scaleOnScreen(cursor), large);
    cursor.setEditing(false);
    link.advance(0.05);
    EXPECT_GT(scaleOnScreen(cursor), 1);
    link.advance(0.0501);
    EXPECT_EQ(scaleOnScreen(cursor), 1);
  }

  fake::Device device_;
  std::shared_ptr<UIWindow> window_ = std::make_shared<UIWindow>(CGRectMake(0, 0, 390, 844));
  std::shared_ptr<HRColorCursor> cursor_ = HRColorCursor::colorCursorWithPoint({10, 20});
  std::shared_ptr<HRBrightnessCursor> knob_ = std::make_shared<HRBrightnessCursor>();
};

TEST_F(HRColorCursorTest, IsOfOneSizeAtThePoint) {
  EXPECT_EQ(HRColorCursor::cursorSize(), (CGSize{28, 28}));
  EXPECT_EQ(cursor_->frame(), CGRectMake(10, 20, 28, 28));
  EXPECT_EQ(knob_->frame(), CGRectMake(0, 0, 28, 28));
}

TEST_F(HRColorCursorTest, ShowsTheColour) {
  cursor_->setColor(UIColor::redColor());
  knob_->setColor(UIColor::redColor());
  EXPECT_EQ(fill().backgroundColor, UIColor::redColor());
  EXPECT_EQ(fillOf(*knob_).state().backgroundColor, UIColor::redColor());
}

TEST_F(HRColorCursorTest, IsGreyOnPaleColours) {
  const auto isGray = [this](double saturation, double brightness) {
    cursor_->setColor(UIColor::colorWithHue(0.25, saturation, brightness, 1));
    return cursor_->isGrayCursor();
  };
  EXPECT_TRUE(isGray(0.39, 0.71));
  EXPECT_FALSE(isGray(0.41, 0.71));
  EXPECT_FALSE(isGray(0.39, 0.69));
}

TEST_F(HRColorCursorTest, TheLightStyleIsAWhiteRing) {
  EXPECT_FALSE(cursor_->isGrayCursor());
  EXPECT_EQ(ring().backgroundColor, UIColor::colorWithWhite(1, 0.7));
  EXPECT_EQ(ring().borderWidth, 0);
  EXPECT_EQ(fill().borderWidth, 0);
}

TEST_F(HRColorCursorTest, TheGreyStyleHasADarkOutlineAndAnInnerShadow) {
  cursor_->setColor(UIColor::whiteColor());
  EXPECT_EQ(ring().backgroundColor, UIColor::colorWithWhite(0.65, 1));
  EXPECT_EQ(ring().borderColor, UIColor::colorWithWhite(0, 0.3));
  EXPECT_GT(ring().borderWidth, 0);
  EXPECT_EQ(fill().borderColor, UIColor::colorWithWhite(0, 0.2));
  EXPECT_GT(fill().borderWidth, 0);
  cursor_->setColor(UIColor::blackColor());
  EXPECT_EQ(ring().backgroundColor, UIColor::colorWithWhite(1, 0.7));
  EXPECT_EQ(ring().borderWidth, 0);
}

TEST_F(HRColorCursorTest, TheStyleIsAppliedOnlyWhenItChanges) {
  cursor_->setColor(UIColor::whiteColor());
  const auto& layer = cursor_->layer()->sublayers().front();
  layer->setBackgroundColor(UIColor::redColor());
  cursor_->setColor(UIColor::colorWithWhite(0.9, 1));
  EXPECT_EQ(ring().backgroundColor, UIColor::redColor());
  cursor_->setColor(UIColor::blackColor());
  EXPECT_EQ(ring().backgroundColor, UIColor::colorWithWhite(1, 0.7));
}

TEST_F(HRColorCursorTest, EditingTakesATenthOfASecond) {
  expectATenthOfASecond(*cursor_);
  expectATenthOfASecond(*knob_);
}

}  // namespace
}  // namespace zephyl
