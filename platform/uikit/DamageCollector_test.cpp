#include "platform/uikit/DamageCollector.h"

#include <cstdint>
#include <random>

#include <gtest/gtest.h>

namespace zephyl {
namespace {

constexpr CGRect kBounds = CGRectMake(0, 0, 40, 60);

// A screen of one number a pixel: what it shows, and what it should show.
class Screen {
 public:
  void draw(const CGRect& rect, int value) {
    each(rect, [&](int x, int y) { wanted_[at(x, y)] = value; });
    collector_.add(rect);
  }

  void move(const CGRect& area, int dx, int dy) {
    shift(wanted_, area, dx, dy);
    // What moves in is new.
    each(area, [&](int x, int y) {
      if (!CGRectContainsPoint(area, {x - dx + 0.5, y - dy + 0.5})) {
        wanted_[at(x, y)] = ++fresh_;
      }
    });
    collector_.move(area, dx, dy);
  }

  // Brings the picture up to date by the damage alone; the pixels drawn.
  int update() {
    const Damage damage = collector_.take(kBounds, 1);
    for (const auto& move : damage.moves) {
      shift(shown_, move.area, static_cast<int>(move.dx), static_cast<int>(move.dy));
    }
    int drawn = 0;
    std::vector<int> times(shown_.size(), 0);
    for (const CGRect& rect : damage.rects) {
      each(rect, [&](int x, int y) {
        shown_[at(x, y)] = wanted_[at(x, y)];
        EXPECT_EQ(++times[at(x, y)], 1) << "drawn twice";
        ++drawn;
      });
    }
    EXPECT_LE(damage.rects.size(), DamageCollector::kMostRects);
    return drawn;
  }

  [[nodiscard]] bool isUpToDate() const { return shown_ == wanted_; }

 private:
  static std::size_t at(int x, int y) {
    return static_cast<std::size_t>(y) * 40 + static_cast<std::size_t>(x);
  }

  template <class Do>
  static void each(const CGRect& rect, const Do& act) {
    const CGRect seen = CGRectIntersection(rect, kBounds);
    for (int y = static_cast<int>(seen.y()); y < static_cast<int>(seen.maxY()); ++y) {
      for (int x = static_cast<int>(seen.x()); x < static_cast<int>(seen.maxX()); ++x) {
        act(x, y);
      }
    }
  }

  static void shift(std::vector<int>& pixels, const CGRect& area, int dx, int dy) {
    const std::vector<int> before = pixels;
    each(area, [&](int x, int y) {
      if (CGRectContainsPoint(area, {x - dx + 0.5, y - dy + 0.5})) {
        pixels[at(x, y)] = before[at(x - dx, y - dy)];
      }
    });
  }

  DamageCollector collector_;
  int fresh_ = 1000;
  std::vector<int> shown_ = std::vector<int>(2400, 0);
  std::vector<int> wanted_ = std::vector<int>(2400, 0);
};

TEST(DamageCollector, NothingIsNoDamage) {
  DamageCollector collector;
  collector.add(CGRectMake(3, 3, 0, 5));
  EXPECT_TRUE(collector.empty());
  EXPECT_TRUE(collector.take(kBounds, 1).empty());
}

TEST(DamageCollector, RectanglesGrowToWholePixelsAndEndAtTheBounds) {
  DamageCollector collector;
  collector.add(CGRectMake(1.2, 2.6, 100, 1));
  const Damage damage = collector.take(kBounds, 2);
  ASSERT_EQ(damage.rects.size(), 1U);
  EXPECT_EQ(damage.rects[0], CGRectMake(1, 2.5, 39, 1.5));
}

TEST(DamageCollector, TakingForgets) {
  DamageCollector collector;
  collector.add(kBounds);
  EXPECT_FALSE(collector.take(kBounds, 1).empty());
  EXPECT_TRUE(collector.take(kBounds, 1).empty());
}

TEST(DamageCollector, AScrollStepDrawsTheStripThatMovesInAndNoMore) {
  Screen screen;
  screen.move(CGRectMake(0, 10, 40, 50), 0, -7);
  EXPECT_EQ(screen.update(), 40 * 7);
  EXPECT_TRUE(screen.isUpToDate());
}

TEST(DamageCollector, TwoStepsOfTheSameAreaAreOne) {
  DamageCollector collector;
  collector.move(kBounds, 0, -3);
  collector.move(kBounds, 0, -4);
  const Damage damage = collector.take(kBounds, 1);
  ASSERT_EQ(damage.moves.size(), 1U);
  EXPECT_EQ(damage.moves[0].dy, -7);
}

TEST(DamageCollector, AMoveByPartsOfPixelsIsDrawnAnew) {
  DamageCollector collector;
  collector.move(CGRectMake(0, 10, 40, 50), 0, 0.5);
  const Damage damage = collector.take(kBounds, 1);
  EXPECT_TRUE(damage.moves.empty());
  ASSERT_EQ(damage.rects.size(), 1U);
  EXPECT_EQ(damage.rects[0], CGRectMake(0, 10, 40, 50));
}

TEST(DamageCollector, PixelsThatTheAreaCoversInPartAreDrawnAnew) {
  DamageCollector collector;
  collector.move(CGRectMake(0, 10, 39.5, 50), 0, -7);
  const Damage damage = collector.take(kBounds, 1);
  ASSERT_EQ(damage.moves.size(), 1U);
  EXPECT_EQ(damage.moves[0].area, CGRectMake(0, 10, 39, 50));
  ASSERT_EQ(damage.rects.size(), 2U);
  EXPECT_EQ(damage.rects[0], CGRectMake(0, 53, 40, 7));
  EXPECT_EQ(damage.rects[1], CGRectMake(39, 10, 1, 43));
}

// The pixel that is drawn anew last would have been moved elsewhere before.
TEST(DamageCollector, PartsOfPixelsBetweenTwoMovesAreDrawnAnew) {
  DamageCollector collector;
  collector.move(CGRectMake(0, 10, 39.5, 50), 0, -7);
  collector.move(kBounds, -3, 0);
  EXPECT_TRUE(collector.take(kBounds, 1).moves.empty());
}

TEST(DamageCollector, AMoveFartherThanItsAreaDrawsAllOfIt) {
  Screen screen;
  screen.move(CGRectMake(5, 5, 10, 10), 0, 30);
  EXPECT_EQ(screen.update(), 100);
  EXPECT_TRUE(screen.isUpToDate());
}

TEST(DamageCollector, NoOrderOfDrawingAndMovingLosesAPixel) {
  std::mt19937 random(7);  // NOLINT: the same cases every time
  const auto upTo = [&random](unsigned most) { return static_cast<int>(random() % (most + 1)); };
  for (int round = 0; round < 300; ++round) {
    Screen screen;
    for (int step = upTo(30); step >= 0; --step) {
      const CGRect rect = CGRectMake(upTo(35), upTo(55), 1 + upTo(30), 1 + upTo(30));
      if (upTo(3) == 0) {
        screen.move(CGRectIntersection(rect, kBounds), upTo(8) - 4, upTo(8) - 4);
      } else {
        screen.draw(rect, upTo(1000000));
      }
      if (upTo(9) == 0) {
        (void)screen.update();
      }
    }
    (void)screen.update();
    ASSERT_TRUE(screen.isUpToDate()) << "round " << round;
  }
}

}  // namespace
}  // namespace zephyl
