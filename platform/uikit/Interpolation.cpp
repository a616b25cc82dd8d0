#include "platform/uikit/Interpolation.h"

#include <cmath>
#include <numbers>

namespace zephyl {
namespace {

UIColor mixForm(const UIColor& from, const UIColor& to, double part, UIUserInterfaceStyle style) {
  const UIColor::Channels a = from.resolvedColor(style).channels();
  const UIColor::Channels b = to.resolvedColor(style).channels();
  const CGFloat alpha = mix(a.alpha, b.alpha, part);
  if (alpha <= 0) {
    return {};
  }
  const auto channel = [&](CGFloat first, CGFloat second) {
    return mix(first * a.alpha, second * b.alpha, part) / alpha;
  };
  return UIColor::colorWithRed(channel(a.red, b.red), channel(a.green, b.green),
                               channel(a.blue, b.blue), alpha);
}

// A transform taken apart: shear, then scale, then turn, then move.
struct Parts {
  CGFloat scaleX = 1;
  CGFloat scaleY = 1;
  CGFloat shear = 0;
  CGFloat angle = 0;
};

Parts takeApart(const CGAffineTransform& t) {
  Parts parts;
  parts.scaleX = std::hypot(t.a, t.b);
  if (parts.scaleX == 0) {
    parts.scaleY = std::hypot(t.c, t.d);
    parts.angle = parts.scaleY == 0 ? 0 : std::atan2(-t.c, t.d);
    return parts;
  }
  parts.angle = std::atan2(t.b, t.a);
  parts.scaleY = (t.a * t.d - t.b * t.c) / parts.scaleX;
  parts.shear = (t.a * t.c + t.b * t.d) / parts.scaleX;
  return parts;
}

}  // namespace

CGFloat mix(CGFloat from, CGFloat to, double part) {
  return from + (to - from) * part;
}

CGPoint mix(CGPoint from, CGPoint to, double part) {
  return {mix(from.x, to.x, part), mix(from.y, to.y, part)};
}

CGRect mix(const CGRect& from, const CGRect& to, double part) {
  return CGRectMake(mix(from.x(), to.x(), part), mix(from.y(), to.y(), part),
                    mix(from.width(), to.width(), part), mix(from.height(), to.height(), part));
}

UIColor mix(const UIColor& from, const UIColor& to, double part) {
  const UIColor light = mixForm(from, to, part, UIUserInterfaceStyle::kLight);
  const UIColor dark = mixForm(from, to, part, UIUserInterfaceStyle::kDark);
  return light == dark ? light : UIColor::dynamic(light, dark);
}

CGAffineTransform mix(const CGAffineTransform& from, const CGAffineTransform& to, double part) {
  const Parts a = takeApart(from);
  const Parts b = takeApart(to);
  // The shorter way round.
  const CGFloat turn = std::remainder(b.angle - a.angle, 2 * std::numbers::pi);
  const CGFloat angle = a.angle + turn * part;
  const CGFloat cosine = std::cos(angle);
  const CGFloat sine = std::sin(angle);
  const CGFloat scaleX = mix(a.scaleX, b.scaleX, part);
  const CGFloat scaleY = mix(a.scaleY, b.scaleY, part);
  const CGFloat shear = mix(a.shear, b.shear, part);
  return {scaleX * cosine,
          scaleX * sine,
          shear * cosine - scaleY * sine,
          shear * sine + scaleY * cosine,
          mix(from.tx, to.tx, part),
          mix(from.ty, to.ty, part)};
}

}  // namespace zephyl
