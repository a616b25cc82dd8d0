// How much of a list is drawn anew when a little of it changes, counted in pixels.

#include <gtest/gtest.h>

#include "hosts/linux/screen/ListUnderTest.h"

namespace zephyl::linux_host {
namespace {

// A page down, so that rows leave and come in.
class ListPictureTest : public ListTest {
 protected:
  ListPictureTest() {
    scrollBy(500);
    update();
  }
  // What stays where it is when the rows move, and where its pixels were moved to.
  [[nodiscard]] std::int64_t pixelsThatStay() {
    return pixelsOf({kWidth, bar().frame().maxY()}) + pixelsOf({kWidth, 10}) +
           (indicator().alpha() > 0 ? 3 * pixelsOf(indicator()) : 0);
  }
};

TEST_F(ListPictureTest, AScrollStepPaintsTheStripThatComesIn) {
  indicator().setHidden(true);
  for (int step = 0; step < 20; ++step) {
    scrollBy(10);
    const auto done = update();
    EXPECT_LE(done.painted, pixelsOf({kWidth, 10}) + pixelsThatStay()) << step;
    EXPECT_GE(done.moved, pixelsOf({kWidth, 700})) << step;
    ASSERT_EQ(picture_.image(), fresh()) << step;
  }
}

TEST_F(ListPictureTest, AScrollStepBackPaintsTheStripThatComesInAtTheTop) {
  for (int step = 0; step < 20; ++step) {
    scrollBy(-10);
    EXPECT_LE(update().painted, pixelsOf({kWidth, 10}) + pixelsThatStay()) << step;
    ASSERT_EQ(picture_.image(), fresh()) << step;
  }
}

TEST_F(ListPictureTest, AnIndicatorAddsOnlyItself) {
  indicator().show();
  update();
  for (int step = 0; step < 20; ++step) {
    scrollBy(10);
    EXPECT_LE(update().painted, pixelsOf({kWidth, 10}) + pixelsThatStay()) << step;
    ASSERT_EQ(picture_.image(), fresh()) << step;
  }
}

TEST_F(ListPictureTest, ABadgeChangePaintsTheBadge) {
  scrollBy(-500);
  update();
  for (const int number : {8, 9, 31, 999, 4}) {
    const std::int64_t before = pixelsOf(*badge_);
    badge_->setNumber(number);
    const auto done = update();
    EXPECT_GT(done.painted, 0) << number;
    EXPECT_LE(done.painted, std::max(before, pixelsOf(*badge_))) << number;
    ASSERT_EQ(picture_.image(), fresh()) << number;
  }
}

TEST_F(ListPictureTest, ATypedLetterPaintsTheField) {
  scrollBy(-500);
  update();
  ASSERT_TRUE(field_->becomeFirstResponder());
  window_->layoutWindow();
  update();
  std::string text;
  for (const char letter : std::string("group seven")) {
    type(text += letter);
    const auto done = update();
    EXPECT_GT(done.painted, 0) << text;
    EXPECT_LE(done.painted, pixelsOf(*field_)) << text;
    ASSERT_EQ(picture_.image(), fresh()) << text;
  }
}

TEST_F(ListPictureTest, ASelectionPaintsItsRow) {
  const NSIndexPath path{0, 16};
  table().selectRowAtIndexPath(path, /*animated=*/false, UITableViewScrollPosition::kNone);
  const auto done = update();
  EXPECT_GT(done.painted, 0);
  // The lines of its neighbours, too.
  const CGSize row = table().rectForRowAtIndexPath(path).size;
  EXPECT_LE(done.painted, pixelsOf({row.width, row.height + 2}));
  EXPECT_EQ(picture_.image(), fresh());
}

TEST_F(ListPictureTest, WhatChangesOutOfSightPaintsNothing) {
  type("nobody sees this");
  EXPECT_EQ(update().painted, 0);
}

// 390 points are 487.5 pixels there.
TEST_F(ListPictureTest, AWidthThatEndsWithinAPixelIsScrolledTheSame) {
  setScale(1.25);
  update();
  for (int step = 0; step < 20; ++step) {
    scrollBy(step % 3 == 0 ? -8 : 8);
    const std::int64_t edge = pixelsOf({1, 844});
    EXPECT_LE(update().painted, pixelsOf({kWidth, 8}) + pixelsThatStay() + edge) << step;
    ASSERT_EQ(picture_.image(), fresh()) << step;
  }
}

}  // namespace
}  // namespace zephyl::linux_host
