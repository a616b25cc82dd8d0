// The system font in a size and a weight. A value. Sizes are points.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"

namespace zephyl {

class ZP_EXPORT UIFont {
 public:
  enum class Weight { kRegular = 400, kMedium = 500, kSemibold = 600, kBold = 700 };

  // Distances from the baseline are positive both ways; `lineHeight` is their sum and the leading.
  struct Metrics {
    CGFloat ascender = 0;
    CGFloat descender = 0;
    CGFloat lineHeight = 0;
    CGFloat capHeight = 0;
  };

  // A size that is not finite or not positive becomes 1; one beyond 1,000 becomes 1,000.
  [[nodiscard]] static UIFont systemFontOfSize(CGFloat size, Weight weight = Weight::kRegular);
  [[nodiscard]] static UIFont boldSystemFontOfSize(CGFloat size);

  [[nodiscard]] CGFloat pointSize() const { return pointSize_; }
  [[nodiscard]] Weight weight() const { return weight_; }
  [[nodiscard]] UIFont fontWithSize(CGFloat size) const;

  // As the installed host's text system measures them.
  [[nodiscard]] Metrics metrics() const;
  [[nodiscard]] CGFloat lineHeight() const { return metrics().lineHeight; }

  friend bool operator==(const UIFont&, const UIFont&) = default;

 private:
  UIFont(CGFloat size, Weight weight) : pointSize_(size), weight_(weight) {}

  CGFloat pointSize_;
  Weight weight_;
};

}  // namespace zephyl
