// Points, sizes, rectangles, insets and affine transforms, in points of the screen: x grows to the
// right, y downwards. Plain values.
//
// Numbers that are not finite never enter the view tree: `finite` makes 0 of them.

#pragma once

#include "platform/Export.h"

namespace zephyl {

using CGFloat = double;

struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  friend bool operator==(const CGPoint&, const CGPoint&) = default;
};

struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  friend bool operator==(const CGSize&, const CGSize&) = default;
};

struct UIEdgeInsets {
  CGFloat top = 0;
  CGFloat left = 0;
  CGFloat bottom = 0;
  CGFloat right = 0;
  friend bool operator==(const UIEdgeInsets&, const UIEdgeInsets&) = default;
};

struct CGRect {
  CGPoint origin;
  CGSize size;

  [[nodiscard]] CGFloat x() const { return origin.x; }
  [[nodiscard]] CGFloat y() const { return origin.y; }
  [[nodiscard]] CGFloat width() const { return size.width; }
  [[nodiscard]] CGFloat height() const { return size.height; }
  [[nodiscard]] CGFloat maxX() const { return origin.x + size.width; }
  [[nodiscard]] CGFloat maxY() const { return origin.y + size.height; }
  [[nodiscard]] CGFloat midX() const { return origin.x + size.width / 2; }
  [[nodiscard]] CGFloat midY() const { return origin.y + size.height / 2; }
  [[nodiscard]] bool isEmpty() const { return size.width <= 0 || size.height <= 0; }

  friend bool operator==(const CGRect&, const CGRect&) = default;
};

[[nodiscard]] constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  return {{x, y}, {width, height}};
}

// A point on the right or lower edge is outside.
[[nodiscard]] ZP_EXPORT bool CGRectContainsPoint(const CGRect& rect, CGPoint point);
[[nodiscard]] ZP_EXPORT CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy);
[[nodiscard]] ZP_EXPORT CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy);
// The empty rectangle at (0, 0) when they have no area in common.
[[nodiscard]] ZP_EXPORT CGRect CGRectIntersection(const CGRect& a, const CGRect& b);
// Empty rectangles count for nothing.
[[nodiscard]] ZP_EXPORT CGRect CGRectUnion(const CGRect& a, const CGRect& b);
[[nodiscard]] ZP_EXPORT CGRect UIEdgeInsetsInsetRect(const CGRect& rect, const UIEdgeInsets& by);

// Each number that is not finite becomes 0, and one beyond 1e8 becomes 1e8: what a view
// can stand, whatever arithmetic led there. A negative size is turned to a positive one that covers
// the same area.
[[nodiscard]] ZP_EXPORT CGFloat finite(CGFloat number);
[[nodiscard]] ZP_EXPORT CGPoint finite(CGPoint point);
[[nodiscard]] ZP_EXPORT CGRect finite(const CGRect& rect);

// Maps (x, y) to (a x + c y + tx, b x + d y + ty).
struct CGAffineTransform {
  CGFloat a = 1;
  CGFloat b = 0;
  CGFloat c = 0;
  CGFloat d = 1;
  CGFloat tx = 0;
  CGFloat ty = 0;
  friend bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};

constexpr CGAffineTransform CGAffineTransformIdentity;

[[nodiscard]] ZP_EXPORT CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
[[nodiscard]] ZP_EXPORT CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
// Clockwise on the screen, in radians.
[[nodiscard]] ZP_EXPORT CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);
// First `first`, then `second`.
[[nodiscard]] ZP_EXPORT CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first,
                                                                  const CGAffineTransform& second);
// The identity when there is no inverse.
[[nodiscard]] ZP_EXPORT CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& t);
[[nodiscard]] ZP_EXPORT CGPoint CGPointApplyAffineTransform(CGPoint point,
                                                            const CGAffineTransform& t);
// The smallest upright rectangle around the transformed one.
[[nodiscard]] ZP_EXPORT CGRect CGRectApplyAffineTransform(const CGRect& rect,
                                                          const CGAffineTransform& t);

}  // namespace zephyl
