#include <cmath>
#include <limits>
#include <memory>

#include <gtest/gtest.h>

#include "hosts/linux/screen/ScreenUnderTest.h"

namespace zephyl::linux_host {
namespace {

constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat kInfinite = std::numeric_limits<CGFloat>::infinity();

class QtContextTest : public ScreenTest {
 protected:
  [[nodiscard]] Canvas canvas(CGFloat scale = 1) { return {20, 20, scale, kit().paintCaches()}; }
};

TEST_F(QtContextTest, APlainRectangleCoversWholePixelsAtAnyScale) {
  for (const CGFloat scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    Canvas paper = canvas(scale);
    paper->fill({CGRectMake(2.3, 3.7, 5.1, 4.4)}, UIColor::blackColor());
    const QImage& image = paper.image();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = image.pixel(x, y);
        ASSERT_TRUE(pixel == 0xFF000000 || pixel == 0xFFFFFFFF) << scale << " " << x << " " << y;
      }
    }
    EXPECT_EQ(image.pixelColor(static_cast<int>(5 * scale), static_cast<int>(6 * scale)),
              QColor(Qt::black));
  }
}

TEST_F(QtContextTest, NeighboursLeaveNoSeam) {
  Canvas paper = canvas(1.5);
  for (int row = 0; row < 30; ++row) {
    paper->fill({CGRectMake(0, row * 20.0 / 30, 20, 20.0 / 30)}, UIColor::colorWithWhite(0, 0.5));
  }
  EXPECT_EQ(paper.inked(), 30 * 30);
  const QRgb first = paper.image().pixel(3, 0);
  for (int y = 0; y < 30; ++y) {
    EXPECT_EQ(paper.image().pixel(3, y), first);
  }
}

TEST_F(QtContextTest, AHairlineKeepsOnePixel) {
  for (const CGFloat scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
    Canvas paper = canvas(scale);
    paper->fill({CGRectMake(0, 7.3, 20, 0.2 / scale)}, UIColor::blackColor());
    EXPECT_EQ(paper.inked(), static_cast<int>(20 * scale)) << scale;
  }
}

TEST_F(QtContextTest, OnlyNamedCornersAreRounded) {
  Canvas paper = canvas();
  paper->fill({CGRectMake(0, 0, 20, 20), 8, static_cast<unsigned>(UIRectCorner::kTopLeft)},
              UIColor::blackColor());
  EXPECT_EQ(paper.at(0, 0), QColor(Qt::white));
  EXPECT_EQ(paper.at(19, 0), QColor(Qt::black));
  EXPECT_EQ(paper.at(0, 19), QColor(Qt::black));
  EXPECT_EQ(paper.at(19, 19), QColor(Qt::black));
}

TEST_F(QtContextTest, ARadiusBeyondHalfASideIsADisc) {
  Canvas paper = canvas();
  paper->fill({CGRectMake(2, 2, 16, 16), 1000}, UIColor::blackColor());
  EXPECT_EQ(paper.at(2, 2), QColor(Qt::white));
  EXPECT_EQ(paper.at(10, 10), QColor(Qt::black));
  EXPECT_NEAR(paper.inked(), 3.1416 * 64, 40);
}

TEST_F(QtContextTest, AStrokeLiesInside) {
  Canvas paper = canvas();
  paper->stroke(RoundedRect{CGRectMake(5, 5, 10, 10)}, 2, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 100 - 36);
  EXPECT_EQ(paper.at(4, 10), QColor(Qt::white));
  EXPECT_EQ(paper.at(6, 10), QColor(Qt::black));
  EXPECT_EQ(paper.at(7, 10), QColor(Qt::white));
}

TEST_F(QtContextTest, AStrokeWiderThanTheShapeFillsIt) {
  Canvas paper = canvas();
  paper->stroke(RoundedRect{CGRectMake(5, 5, 10, 10)}, 50, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 100);
}

TEST_F(QtContextTest, ClipsNestAndEndWithTheirState) {
  Canvas paper = canvas();
  paper->saveState();
  paper->clip({CGRectMake(0, 0, 10, 20)});
  paper->saveState();
  paper->clip({CGRectMake(5, 0, 10, 20)});
  paper->fill({CGRectMake(0, 0, 20, 20)}, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 5 * 20);
  paper->restoreState();
  paper->fill({CGRectMake(0, 0, 20, 20)}, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 10 * 20);
  paper->restoreState();
  paper->fill({CGRectMake(0, 0, 20, 20)}, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 20 * 20);
}

TEST_F(QtContextTest, TheClipIsToldInCurrentCoordinates) {
  Canvas paper = canvas(2);
  EXPECT_EQ(paper->clipBounds(), CGRectMake(0, 0, 20, 20));
  paper->concat(CGAffineTransformMakeTranslation(4, 5));
  paper->clip({CGRectMake(0, 0, 6, 7)});
  EXPECT_EQ(paper->clipBounds(), CGRectMake(0, 0, 6, 7));
  paper->clip({CGRectMake(10, 10, 6, 7)});
  EXPECT_TRUE(paper->clipBounds().isEmpty());
}

TEST_F(QtContextTest, ALayerIsBlendedAsOnePicture) {
  Canvas paper = canvas();
  paper->beginLayer(0.5, CGRectMake(0, 0, 20, 20));
  paper->fill({CGRectMake(0, 0, 12, 20)}, UIColor::blackColor());
  paper->fill({CGRectMake(8, 0, 12, 20)}, UIColor::blackColor());
  paper->endLayer();
  EXPECT_EQ(paper.at(2, 2), paper.at(10, 10));
  EXPECT_NEAR(paper.at(10, 10).red(), 128, 1);
}

TEST_F(QtContextTest, ALayerKeepsTransformAndClipOfWhatItIsIn) {
  Canvas paper = canvas(2);
  paper->concat(CGAffineTransformMakeTranslation(5, 5));
  paper->clip({CGRectMake(0, 0, 10, 10)});
  paper->beginLayer(0.5, CGRectMake(2, 2, 100, 100));
  EXPECT_EQ(paper->clipBounds(), CGRectMake(2, 2, 8, 8));
  paper->fill({CGRectMake(0, 0, 100, 100)}, UIColor::blackColor());
  paper->endLayer();
  EXPECT_EQ(paper.inked(), 16 * 16);
  EXPECT_EQ(paper.at(13, 13), QColor(Qt::white));
  EXPECT_NEAR(paper.at(14, 14).red(), 128, 1);
}

TEST_F(QtContextTest, WhatIsOpenAtTheEndIsClosed) {
  Canvas paper = canvas();
  paper->saveState();
  paper->beginLayer(0.5, CGRectMake(0, 0, 20, 20));
  paper->fill({CGRectMake(0, 0, 20, 20)}, UIColor::blackColor());
  EXPECT_NEAR(paper.image().pixelColor(3, 3).red(), 128, 1);
}

TEST_F(QtContextTest, EndsWithoutBeginningsDoNothing) {
  Canvas paper = canvas();
  paper->endLayer();
  paper->restoreState();
  paper->fill({CGRectMake(0, 0, 1, 1)}, UIColor::blackColor());
  EXPECT_EQ(paper.inked(), 1);
}

TEST_F(QtContextTest, AGradientRunsFromStartToEnd) {
  Canvas paper = canvas();
  Gradient gradient{{{0, UIColor::blackColor()}, {1, UIColor::redColor()}}, {0, 0}, {20, 0}};
  paper->fillGradient({CGRectMake(0, 0, 20, 20)}, gradient);
  EXPECT_LT(paper.at(0, 10).red(), 20);
  EXPECT_NEAR(paper.at(10, 10).red(), 134, 6);
  EXPECT_GT(paper.at(19, 10).red(), 240);
  EXPECT_EQ(paper.at(10, 2), paper.at(10, 17));
}

TEST_F(QtContextTest, AGradientWithoutColoursOrLengthIsSane) {
  Canvas paper = canvas();
  paper->fillGradient({CGRectMake(0, 0, 20, 20)}, {});
  EXPECT_EQ(paper.inked(), 0);
  Gradient gradient{{{0, UIColor::blackColor()}, {1, UIColor::redColor()}}, {5, 5}, {5, 5}};
  paper->fillGradient({CGRectMake(0, 0, 20, 20)}, gradient);
  EXPECT_EQ(paper.at(10, 10), QColor(Qt::red));
}

TEST_F(QtContextTest, AShadowFadesOutOfTheShape) {
  Canvas paper = canvas(3);
  paper->drawShadow({CGRectMake(6, 6, 8, 8), 2}, {{0, 2}, 4, UIColor::blackColor()});
  const auto dark = [&paper](int x, int y) { return 255 - paper.at(3 * x, 3 * y).red(); };
  EXPECT_GT(dark(10, 12), 150);
  EXPECT_GT(dark(10, 16), dark(10, 4));
  EXPECT_GT(dark(10, 12), dark(10, 16));
  EXPECT_EQ(dark(1, 1), 0);
}

TEST_F(QtContextTest, AShadowIsBlurredOnceForAllSizes) {
  Canvas paper = canvas();
  const std::size_t before = kit().paintCaches().shadows.misses();
  for (int width = 100; width < 140; ++width) {
    paper->drawShadow({CGRectMake(3, 3, width, 100), 4}, {{0, 1}, 6, UIColor::blackColor()});
  }
  EXPECT_EQ(kit().paintCaches().shadows.misses(), before + 1);
}

TEST_F(QtContextTest, ALargeShadowLooksLikeItsSmallOne) {
  PaintCaches& caches = kit().paintCaches();
  Canvas stretched(60, 60, 1, caches);
  stretched->drawShadow({CGRectMake(10, 10, 40, 40), 4}, {{0, 0}, 4, UIColor::blackColor()});
  // Turned by nothing, but not upright for the painter: drawn whole.
  Canvas whole(60, 60, 1, caches);
  whole->concat({0, 1, -1, 0, 60, 0});
  whole->drawShadow({CGRectMake(10, 10, 40, 40), 4}, {{0, 0}, 4, UIColor::blackColor()});
  for (int i = 0; i < 60; ++i) {
    EXPECT_NEAR(stretched.at(i, 30).red(), whole.at(i, 30).red(), 2) << i;
    EXPECT_NEAR(stretched.at(i, i).red(), whole.at(i, i).red(), 2) << i;
  }
}

TEST_F(QtContextTest, NumbersThatAreNotFiniteDrawNothingAndHarmNothing) {
  Canvas paper = canvas();
  const UIColor black = UIColor::blackColor();
  paper->saveState();
  paper->fill({CGRectMake(kNaN, 0, kInfinite, kNaN)}, black);
  paper->fillEllipse(CGRectMake(0, 0, kNaN, 5), black);
  paper->stroke(RoundedRect{CGRectMake(0, 0, kNaN, 4)}, kNaN, black);
  paper->stroke(Polyline{{{kNaN, 3}, {kInfinite, 5}}, false}, kNaN, black);
  paper->drawShadow({CGRectMake(0, 0, kInfinite, 4), kNaN}, {{kNaN, 0}, kInfinite, black});
  paper->fillGradient({CGRectMake(0, 0, 5, kNaN)}, {{{kNaN, black}, {kNaN, black}}, {}, {1, 1}});
  paper->beginLayer(kNaN, CGRectMake(kNaN, 0, 4, 4));
  paper->fill({CGRectMake(0, 0, 20, 20)}, black);
  paper->endLayer();
  paper->concat({kNaN, kInfinite, 0, 1, 0, 0});
  paper->fill({CGRectMake(0, 0, 20, 20)}, black);
  EXPECT_TRUE(paper->clipBounds().isEmpty());
  paper->restoreState();
  EXPECT_EQ(paper.inked(), 0);
  paper->fill({CGRectMake(-100, -100, 1e308, 1e308)}, black);
  EXPECT_EQ(paper.inked(), 400);
}

}  // namespace
}  // namespace zephyl::linux_host
