// Colours of the view tree as Qt's. Any thread.

#pragma once

#include <QColor>

#include "platform/uikit/UIColor.h"

namespace zephyl::linux_host {

// Of the form for an appearance, each channel clamped to what can be shown; NaN is 0.
[[nodiscard]] QColor screenColor(const UIColor& color, UIUserInterfaceStyle style);

}  // namespace zephyl::linux_host
