#include "ui/components/HSVColor.h"

namespace zephyl {

void HSVColorFromUIColor(const UIColor& color, HSVColor* hsv) {
  if (hsv == nullptr) {
    return;
  }
  const UIColor::HueChannels channels = color.hueChannels();
  *hsv = {channels.hue, channels.saturation, channels.brightness};
}

}  // namespace zephyl
