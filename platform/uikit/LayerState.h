// Where a layer is and how it looks: what of it can be animated. A value.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {

struct LayerState {
  // The origin is what of the layer's own space lies at its upper left corner.
  CGRect bounds;
  // Where the middle is, in the space of the layer below.
  CGPoint position;
  CGAffineTransform transform;
  CGFloat opacity = 1;
  UIColor backgroundColor;
  CGFloat cornerRadius = 0;
  CGFloat borderWidth = 0;
  UIColor borderColor = UIColor::blackColor();

  // From the layer's own space to that of the layer below.
  [[nodiscard]] ZP_EXPORT CGAffineTransform toSuperlayer() const;
  friend bool operator==(const LayerState&, const LayerState&) = default;
};

}  // namespace zephyl
