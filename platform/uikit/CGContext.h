// What a view draws with. A seam: the Linux device paints with it, the fake writes down what was
// drawn. Used on one thread at a time, only while the call that handed it out lasts.
//
// Coordinates are points in the space that the current transform makes. Drawing outside the clip
// does nothing. Anti-aliased, colours blended over what is there.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/TextLayout.h"
#include "platform/uikit/UIColor.h"
#include "platform/uikit/UIImage.h"

namespace zephyl {

enum class UIRectCorner { kTopLeft = 1, kTopRight = 2, kBottomLeft = 4, kBottomRight = 8 };
constexpr unsigned kAllCorners = 15;

// A rectangle whose corners, those named by the bits of `corners`, are rounded by `radius`, which
// is at most half of the shorter side.
struct RoundedRect {
  CGRect rect;
  CGFloat radius = 0;
  unsigned corners = kAllCorners;
  friend bool operator==(const RoundedRect&, const RoundedRect&) = default;
};

// Straight lines from point to point, with round joins and ends: check marks, chevrons.
struct Polyline {
  std::vector<CGPoint> points;
  bool closed = false;
};

struct Gradient {
  // From 0 to 1, ascending.
  std::vector<std::pair<CGFloat, UIColor>> stops;
  CGPoint start;
  CGPoint end;
};

struct Shadow {
  CGSize offset;
  CGFloat blur = 0;
  UIColor color;
  friend bool operator==(const Shadow&, const Shadow&) = default;
};

class CGContext {
 public:
  virtual ~CGContext() = default;

  // Transform, clip and alpha are saved and restored together; calls nest.
  virtual void saveState() = 0;
  virtual void restoreState() = 0;
  virtual void concat(const CGAffineTransform& transform) = 0;
  virtual void clip(const RoundedRect& shape) = 0;

  // What is drawn until `endLayer` is drawn as one picture at `alpha`. `bounds` is its extent.
  virtual void beginLayer(CGFloat alpha, const CGRect& bounds) = 0;
  virtual void endLayer() = 0;

  virtual void fill(const RoundedRect& shape, const UIColor& color) = 0;
  virtual void fillEllipse(const CGRect& rect, const UIColor& color) = 0;
  // The line lies inside the shape.
  virtual void stroke(const RoundedRect& shape, CGFloat width, const UIColor& color) = 0;
  virtual void stroke(const Polyline& line, CGFloat width, const UIColor& color) = 0;
  virtual void fillGradient(const RoundedRect& shape, const Gradient& gradient) = 0;
  virtual void drawShadow(const RoundedRect& shape, const Shadow& shadow) = 0;

  // Scaled to `rect`. A template image is drawn in `tint`. What cannot be decoded draws nothing.
  virtual void draw(const UIImage& image, const CGRect& rect, const UIColor& tint) = 0;
  // The layout's upper left corner at `origin`.
  virtual void draw(const TextLayout& text, CGPoint origin) = 0;

  // What is certainly outside it need not be drawn. In the current coordinates.
  [[nodiscard]] virtual CGRect clipBounds() const = 0;
  [[nodiscard]] virtual UIUserInterfaceStyle userInterfaceStyle() const = 0;
};

}  // namespace zephyl
