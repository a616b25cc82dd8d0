// A colour as the colour picker keeps it: hue, saturation and brightness, no alpha. A value.
//
// Back to a colour: UIColor::colorWithHue.

#pragma once

#include "platform/Export.h"
#include "platform/uikit/UIColor.h"

namespace zephyl {

// Fractions from 0 to 1; hue is one of a full turn, from red over green and blue to red again.
struct HSVColor {
  double h = 0;
  double s = 0;
  double v = 0;
  friend bool operator==(const HSVColor&, const HSVColor&) = default;
};

// Fills `hsv`; nothing happens when that is null. A grey has the hue 0, black the saturation 0.
ZP_EXPORT void HSVColorFromUIColor(const UIColor& color, HSVColor* hsv);

}  // namespace zephyl
