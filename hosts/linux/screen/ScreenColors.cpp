#include "hosts/linux/screen/ScreenColors.h"

#include <algorithm>
#include <cmath>

namespace zephyl::linux_host {

QColor screenColor(const UIColor& color, UIUserInterfaceStyle style) {
  const UIColor::Channels channels = color.resolvedColor(style).channels();
  const auto channel = [](CGFloat value) {
    return static_cast<float>(std::clamp(std::isnan(value) ? 0.0 : value, 0.0, 1.0));
  };
  return QColor::fromRgbF(channel(channels.red), channel(channels.green), channel(channels.blue),
                          channel(channels.alpha));
}

}  // namespace zephyl::linux_host
