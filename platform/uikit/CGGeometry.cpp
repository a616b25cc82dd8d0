#include "platform/uikit/CGGeometry.h"

#include <algorithm>
#include <cmath>

namespace zephyl {
namespace {

// Two million rows of a table.
constexpr CGFloat kFarthest = 1e8;

}  // namespace

bool CGRectContainsPoint(const CGRect& rect, CGPoint point) {
  return point.x >= rect.x() && point.x < rect.maxX() && point.y >= rect.y() &&
         point.y < rect.maxY();
}

CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy) {
  return CGRectMake(rect.x() + dx, rect.y() + dy, rect.width() - 2 * dx, rect.height() - 2 * dy);
}

CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy) {
  return CGRectMake(rect.x() + dx, rect.y() + dy, rect.width(), rect.height());
}

CGRect CGRectIntersection(const CGRect& a, const CGRect& b) {
  const CGFloat left = std::max(a.x(), b.x());
  const CGFloat top = std::max(a.y(), b.y());
  const CGFloat right = std::min(a.maxX(), b.maxX());
  const CGFloat bottom = std::min(a.maxY(), b.maxY());
  if (right <= left || bottom <= top) {
    return {};
  }
  return CGRectMake(left, top, right - left, bottom - top);
}

CGRect CGRectUnion(const CGRect& a, const CGRect& b) {
  if (a.isEmpty()) {
    return b.isEmpty() ? CGRect() : b;
  }
  if (b.isEmpty()) {
    return a;
  }
  const CGFloat left = std::min(a.x(), b.x());
  const CGFloat top = std::min(a.y(), b.y());
  return CGRectMake(left, top, std::max(a.maxX(), b.maxX()) - left,
                    std::max(a.maxY(), b.maxY()) - top);
}

CGRect UIEdgeInsetsInsetRect(const CGRect& rect, const UIEdgeInsets& by) {
  return CGRectMake(rect.x() + by.left, rect.y() + by.top, rect.width() - by.left - by.right,
                    rect.height() - by.top - by.bottom);
}

CGFloat finite(CGFloat number) {
  return std::isfinite(number) ? std::clamp(number, -kFarthest, kFarthest) : 0;
}

CGPoint finite(CGPoint point) {
  return {finite(point.x), finite(point.y)};
}

CGRect finite(const CGRect& rect) {
  CGRect sane =
      CGRectMake(finite(rect.x()), finite(rect.y()), finite(rect.width()), finite(rect.height()));
  if (sane.width() < 0) {
    sane.origin.x += sane.width();
    sane.size.width = -sane.size.width;
  }
  if (sane.height() < 0) {
    sane.origin.y += sane.height();
    sane.size.height = -sane.size.height;
  }
  return sane;
}

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
  return {1, 0, 0, 1, tx, ty};
}

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) {
  return {sx, 0, 0, sy, 0, 0};
}

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
  const CGFloat cosine = std::cos(angle);
  const CGFloat sine = std::sin(angle);
  return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first,
                                          const CGAffineTransform& second) {
  return {first.a * second.a + first.b * second.c,
          first.a * second.b + first.b * second.d,
          first.c * second.a + first.d * second.c,
          first.c * second.b + first.d * second.d,
          first.tx * second.a + first.ty * second.c + second.tx,
          first.tx * second.b + first.ty * second.d + second.ty};
}

CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& t) {
  const CGFloat determinant = t.a * t.d - t.b * t.c;
  if (!std::isfinite(determinant) || determinant == 0) {
    return {};
  }
  return {t.d / determinant,
          -t.b / determinant,
          -t.c / determinant,
          t.a / determinant,
          (t.c * t.ty - t.d * t.tx) / determinant,
          (t.b * t.tx - t.a * t.ty) / determinant};
}

CGPoint CGPointApplyAffineTransform(CGPoint point, const CGAffineTransform& t) {
  return {t.a * point.x + t.c * point.y + t.tx, t.b * point.x + t.d * point.y + t.ty};
}

CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& t) {
  const CGPoint corners[] = {CGPointApplyAffineTransform({rect.x(), rect.y()}, t),
                             CGPointApplyAffineTransform({rect.maxX(), rect.y()}, t),
                             CGPointApplyAffineTransform({rect.x(), rect.maxY()}, t),
                             CGPointApplyAffineTransform({rect.maxX(), rect.maxY()}, t)};
  CGPoint low = corners[0];
  CGPoint high = corners[0];
  for (const CGPoint& corner : corners) {
    low = {std::min(low.x, corner.x), std::min(low.y, corner.y)};
    high = {std::max(high.x, corner.x), std::max(high.y, corner.y)};
  }
  return CGRectMake(low.x, low.y, high.x - low.x, high.y - low.y);
}

}  // namespace zephyl
