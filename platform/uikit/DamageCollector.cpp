#include "platform/uikit/DamageCollector.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zephyl {
namespace {

// Beyond this many rectangles the oldest are put together at once, so that a long time without a
// picture costs no memory.
constexpr std::size_t kMostKept = 64;

CGFloat areaOf(const CGRect& rect) {
  return rect.isEmpty() ? 0 : rect.width() * rect.height();
}

bool contains(const CGRect& outer, const CGRect& inner) {
  return inner.x() >= outer.x() && inner.y() >= outer.y() && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

CGRect between(CGFloat left, CGFloat top, CGFloat right, CGFloat bottom) {
  return CGRectMake(left, top, right - left, bottom - top);
}

// What of `rect` lies outside `hole`: up to four rectangles.
std::vector<CGRect> without(const CGRect& rect, const CGRect& hole) {
  const CGRect common = CGRectIntersection(rect, hole);
  if (common.isEmpty()) {
    return {rect};
  }
  std::vector<CGRect> rest;
  for (const CGRect& part : {between(rect.x(), rect.y(), rect.maxX(), common.y()),
                             between(rect.x(), common.maxY(), rect.maxX(), rect.maxY()),
                             between(rect.x(), common.y(), common.x(), common.maxY()),
                             between(common.maxX(), common.y(), rect.maxX(), common.maxY())}) {
    if (!part.isEmpty()) {
      rest.push_back(part);
    }
  }
  return rest;
}

// Replaces two rectangles whose union wastes the least by that union.
void joinCheapestPair(std::vector<CGRect>& rects) {
  std::pair<std::size_t, std::size_t> best{0, 1};
  CGFloat leastWaste = -1;
  for (std::size_t first = 0; first < rects.size(); ++first) {
    for (std::size_t second = first + 1; second < rects.size(); ++second) {
      const CGFloat waste = areaOf(CGRectUnion(rects[first], rects[second])) -
                            areaOf(rects[first]) - areaOf(rects[second]);
      if (leastWaste < 0 || waste < leastWaste) {
        leastWaste = std::max<CGFloat>(waste, 0);
        best = {first, second};
      }
    }
  }
  rects[best.first] = CGRectUnion(rects[best.first], rects[best.second]);
  rects.erase(rects.begin() + static_cast<std::ptrdiff_t>(best.second));
}

// Puts rectangles that overlap together until none do. Ends, since each step leaves one less.
void joinOverlapping(std::vector<CGRect>& rects) {
  for (std::size_t first = 0; first < rects.size(); ++first) {
    for (std::size_t second = first + 1; second < rects.size(); ++second) {
      if (!CGRectIntersection(rects[first], rects[second]).isEmpty()) {
        rects[first] = CGRectUnion(rects[first], rects[second]);
        rects.erase(rects.begin() + static_cast<std::ptrdiff_t>(second));
        // The larger one may overlap what was passed already.
        first = 0;
        second = 0;
      }
    }
  }
}

// The same area without overlaps: large rectangles keep their shape, smaller ones are cut.
std::vector<CGRect> disjoint(std::vector<CGRect> rects) {
  std::stable_sort(rects.begin(), rects.end(),
                   [](const CGRect& a, const CGRect& b) { return areaOf(a) > areaOf(b); });
  std::vector<CGRect> result;
  for (const CGRect& rect : rects) {
    std::vector<CGRect> parts{rect};
    for (const CGRect& there : result) {
      std::vector<CGRect> next;
      for (const CGRect& part : parts) {
        const std::vector<CGRect> rest = without(part, there);
        next.insert(next.end(), rest.begin(), rest.end());
      }
      parts = std::move(next);
    }
    result.insert(result.end(), parts.begin(), parts.end());
  }
  return result;
}

CGRect wholePixels(const CGRect& rect, CGFloat scale) {
  // What is a pixel's edge but for rounding is that edge.
  constexpr CGFloat kSlack = 1e-6;
  return between(std::floor(rect.x() * scale + kSlack) / scale,
                 std::floor(rect.y() * scale + kSlack) / scale,
                 std::ceil(rect.maxX() * scale - kSlack) / scale,
                 std::ceil(rect.maxY() * scale - kSlack) / scale);
}

bool isWhole(CGFloat points, CGFloat scale) {
  const CGFloat pixels = points * scale;
  return std::abs(pixels - std::round(pixels)) < 1e-6;
}

bool isWhole(const CGRect& rect, CGFloat scale) {
  return isWhole(rect.x(), scale) && isWhole(rect.y(), scale) && isWhole(rect.maxX(), scale) &&
         isWhole(rect.maxY(), scale);
}

CGRect pixelsInside(const CGRect& rect, CGFloat scale) {
  constexpr CGFloat kSlack = 1e-6;
  return between(std::ceil(rect.x() * scale - kSlack) / scale,
                 std::ceil(rect.y() * scale - kSlack) / scale,
                 std::floor(rect.maxX() * scale + kSlack) / scale,
                 std::floor(rect.maxY() * scale + kSlack) / scale);
}

// Whether the moves can be made with pixels. A single one may end within a pixel; after another
// move that pixel would be taken elsewhere.
bool canBeMade(const std::vector<Damage::Move>& moves, CGFloat scale) {
  return std::all_of(moves.begin(), moves.end(), [&](const Damage::Move& move) {
    return isWhole(move.dx, scale) && isWhole(move.dy, scale) &&
           (moves.size() == 1 || isWhole(move.area, scale));
  });
}

}  // namespace

void DamageCollector::add(const CGRect& rect) {
  const CGRect sane = finite(rect);
  if (sane.isEmpty() || std::any_of(rects_.begin(), rects_.end(),
                                    [&](const CGRect& there) { return contains(there, sane); })) {
    return;
  }
  std::erase_if(rects_, [&](const CGRect& there) { return contains(sane, there); });
  rects_.push_back(sane);
  if (rects_.size() > kMostKept) {
    joinCheapestPair(rects_);
  }
}

void DamageCollector::move(const CGRect& area, CGFloat dx, CGFloat dy) {
  if (area.isEmpty() || (dx == 0 && dy == 0)) {
    return;
  }
  std::vector<CGRect> before = std::exchange(rects_, {});
  for (const CGRect& rect : before) {
    add(CGRectIntersection(CGRectOffset(CGRectIntersection(rect, area), dx, dy), area));
    for (const CGRect& outside : without(rect, area)) {
      add(outside);
    }
  }
  for (const CGRect& strip : without(area, CGRectOffset(area, dx, dy))) {
    add(strip);
  }
  if (!moves_.empty() && moves_.back().area == area) {
    moves_.back().dx += dx;
    moves_.back().dy += dy;
  } else {
    moves_.push_back({area, dx, dy});
  }
}

// Pixels that the area covers in part are drawn anew.
void DamageCollector::keepWithinPixels(Damage::Move& move, CGFloat scale) {
  if (isWhole(move.area, scale)) {
    return;
  }
  const CGRect inside = pixelsInside(move.area, scale);
  for (const CGRect& edge : without(std::exchange(move.area, inside), inside)) {
    add(edge);
  }
  for (const CGRect& strip : without(inside, CGRectOffset(inside, move.dx, move.dy))) {
    add(strip);
  }
}

Damage DamageCollector::take(const CGRect& bounds, CGFloat scale) {
  Damage damage;
  damage.moves = std::exchange(moves_, {});
  std::erase_if(damage.moves,
                [](const Damage::Move& move) { return move.dx == 0 && move.dy == 0; });
  // A move that is not made leaves old pixels where a later one would take them from.
  if (!canBeMade(damage.moves, scale)) {
    for (const Damage::Move& move : std::exchange(damage.moves, {})) {
      add(move.area);
    }
  }
  for (Damage::Move& move : damage.moves) {
    keepWithinPixels(move, scale);
  }
  std::vector<CGRect> rects;
  for (const CGRect& rect : std::exchange(rects_, {})) {
    const CGRect seen = CGRectIntersection(wholePixels(rect, scale), bounds);
    if (!seen.isEmpty()) {
      rects.push_back(seen);
    }
  }
  rects = disjoint(std::move(rects));
  while (rects.size() > kMostRects) {
    joinCheapestPair(rects);
    joinOverlapping(rects);
  }
  damage.rects = std::move(rects);
  return damage;
}

}  // namespace zephyl
