#include "platform/uikit/tables/UIScrollView.h"

#include <cmath>
#include <limits>

#include "platform/uikit/UIScreen.h"
#include "platform/uikit/testing/ScrollFixture.h"

namespace zephyl {
namespace {

class UIScrollViewTest : public test::ScrollTest {};

TEST_F(UIScrollViewTest, AnAnimatedOffsetTakesItsTimeAndTellsWhenItIsThere) {
  scroll_->setContentOffset({0, 300}, /*animated=*/true);
  EXPECT_EQ(scroll_->contentOffset().y, 0);
  device_.uikit()->displayLink().advance(0.17);
  EXPECT_GT(scroll_->contentOffset().y, 50);
  EXPECT_LT(scroll_->contentOffset().y, 250);
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 300);
  EXPECT_EQ(listener_->log, "there ");
}

TEST_F(UIScrollViewTest, WhoMindsMotionIsThereAtOnce) {
  device_.uikit()->screen().setPrefersReducedMotion(true);
  scroll_->setContentOffset({0, 300}, /*animated=*/true);
  EXPECT_EQ(scroll_->contentOffset().y, 300);
}

TEST_F(UIScrollViewTest, AWheelScrollsWithinTheLimitsAndLeavesTheRestToOthers) {
  EXPECT_TRUE(scroll_->handleScroll({{150, 300}, 0, 50}));
  EXPECT_EQ(scroll_->contentOffset().y, 50);
  EXPECT_TRUE(scroll_->handleScroll({{150, 300}, 0, 5000}));
  EXPECT_EQ(scroll_->contentOffset().y, 800);
  EXPECT_FALSE(scroll_->handleScroll({{150, 300}, 0, 10}));
  window_->sendScroll({{150, 300}, 0, -100});
  EXPECT_EQ(scroll_->contentOffset().y, 700);
}

TEST_F(UIScrollViewTest, ARectangleIsShownWithTheLeastMovement) {
  scroll_->scrollRectToVisible(CGRectMake(0, 390, 300, 44), /*animated=*/false);
  EXPECT_EQ(scroll_->contentOffset().y, 34);
  scroll_->scrollRectToVisible(CGRectMake(0, 100, 300, 44), false);
  EXPECT_EQ(scroll_->contentOffset().y, 34);
  scroll_->scrollRectToVisible(CGRectMake(0, 10, 300, 44), false);
  EXPECT_EQ(scroll_->contentOffset().y, 10);
  scroll_->scrollRectToVisible(CGRectMake(0, 1190, 300, 500), false);
  EXPECT_EQ(scroll_->contentOffset().y, 800);
}

TEST_F(UIScrollViewTest, KeysScrollByStepsPagesAndToTheEnds) {
  EXPECT_FALSE(scroll_->pressesBegan({UIKey::kUp, "", false, false}));
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kDown, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 44);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kPageDown, "", false, false}));
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kPageDown, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 44 + 2 * 356);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kEnd, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 800);
  EXPECT_TRUE(scroll_->pressesBegan({UIKey::kHome, "", false, false}));
  settle();
  EXPECT_EQ(scroll_->contentOffset().y, 0);
}

TEST_F(UIScrollViewTest, InsetsMoveTheLimitsAndContentsAtTheTopStayThere) {
  scroll_->setContentInset({64, 0, 34, 0});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, -64);
  scroll_->handleScroll({{150, 300}, 0, 5000});
  EXPECT_EQ(scroll_->contentOffset().y, 834);
  scroll_->setContentInset({0, 0, 0, 0});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, 800);
}

TEST_F(UIScrollViewTest, ContentsThatGetShorterAreNotLeftBehind) {
  scroll_->setContentOffset({0, 800});
  scroll_->setContentSize({300, 500});
  window_->layoutWindow();
  EXPECT_EQ(scroll_->contentOffset().y, 100);
}

TEST_F(UIScrollViewTest, TheIndicatorTellsThePartAndFades) {
  EXPECT_EQ(indicator().alpha(), 0);
  drag(-200);
  EXPECT_EQ(indicator().alpha(), 1);
  const CGRect bar = indicator().frame();
  EXPECT_NEAR(bar.height(), 394.0 / 3, 1);
  EXPECT_EQ(bar.maxX(), 297);
  lift();
  settle();
  EXPECT_EQ(indicator().alpha(), 0);
}

TEST_F(UIScrollViewTest, TheIndicatorStandsOnTheOtherSideInRightToLeftLanguages) {
  device_.uikit()->screen().setUserInterfaceLayoutDirection(
      UIUserInterfaceLayoutDirection::kRightToLeft);
  scroll_->setNeedsLayout();
  window_->layoutWindow();
  EXPECT_EQ(indicator().frame().x(), 3);
}

TEST_F(UIScrollViewTest, AStepOfScrollingMovesPixelsAndDrawsOnlyWhatComesIn) {
  scroll_->setBackgroundColor(UIColor::whiteColor());
  scroll_->setShowsVerticalScrollIndicator(false);
  window_->layoutWindow();
  static_cast<void>(window_->takeDamage());
  scroll_->setContentOffset({0, 20});
  window_->layoutWindow();
  const Damage damage = window_->takeDamage();
  ASSERT_EQ(damage.moves.size(), 1U);
  EXPECT_EQ(damage.moves[0].dy, -20);
  CGFloat drawn = 0;
  for (const CGRect& rect : damage.rects) {
    drawn += rect.width() * rect.height();
  }
  EXPECT_LE(drawn, 300 * 24);
}

TEST_F(UIScrollViewTest, ADelegateMayEndTheScrollViewOrGo) {
  class Ending : public UIScrollViewDelegate {
   public:
    explicit Ending(std::shared_ptr<UIScrollView>& view) : view_(view) {}
    void scrollViewDidScroll(UIScrollView& /*view*/) override {
      view_->removeFromSuperview();
      view_.reset();
    }

   private:
    std::shared_ptr<UIScrollView>& view_;
  };
  auto doomed = std::make_shared<UIScrollView>(CGRectMake(0, 0, 100, 100));
  const std::weak_ptr<UIScrollView> watched = doomed;
  doomed->setContentSize({100, 900});
  window_->addSubview(doomed);
  window_->layoutWindow();
  auto ending = std::make_shared<Ending>(doomed);
  doomed->setScrollDelegate(ending);
  doomed->setContentOffset({0, 500}, /*animated=*/true);
  settle();
  EXPECT_TRUE(watched.expired());
  listener_.reset();
  scroll_->setContentOffset({0, 10});
  EXPECT_EQ(scroll_->contentOffset().y, 10);
}

TEST_F(UIScrollViewTest, NumbersThatAreNoneDoNoHarm) {
  constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
  scroll_->setContentSize({kNaN, -5});
  scroll_->setContentOffset({kNaN, kNaN});
  scroll_->setContentInset({kNaN, 0, -1e300, 0});
  EXPECT_FALSE(scroll_->handleScroll({{0, 0}, kNaN, kNaN}));
  window_->layoutWindow();
  EXPECT_TRUE(std::isfinite(scroll_->contentOffset().y));
}

TEST_F(UIScrollViewTest, OffsetsAreWholePixels) {
  const CGFloat scale = UIScreen::mainScreen().scale();
  const auto isWhole = [&] {
    const CGFloat pixels = scroll_->contentOffset().y * scale;
    return std::abs(pixels - std::round(pixels)) < 1e-6;
  };
  scroll_->setContentOffset({0, 10 + 0.3 / scale});
  EXPECT_EQ(scroll_->contentOffset().y, 10);
  drag(-61.7, 7);
  EXPECT_TRUE(isWhole());
  lift(0);
  for (int frame = 0; frame < 20; ++frame) {
    device_.uikit()->displayLink().advance(1.0 / 60);
    EXPECT_TRUE(isWhole()) << frame;
  }
}

TEST_F(UIScrollViewTest, ContentsThatEndWithinAPixelCanBeScrolledToTheirEndOnce) {
  scroll_->setContentSize({300, 1200 + 0.3 / UIScreen::mainScreen().scale()});
  window_->layoutWindow();
  EXPECT_TRUE(scroll_->handleScroll({{150, 300}, 0, 5000}));
  EXPECT_EQ(scroll_->contentOffset().y, 800);
  EXPECT_FALSE(scroll_->handleScroll({{150, 300}, 0, 10}));
}

}  // namespace
}  // namespace zephyl
