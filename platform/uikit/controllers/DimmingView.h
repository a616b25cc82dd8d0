// What darkens a screen behind an alert or a sheet. Main thread.

#pragma once

#include <memory>

#include "platform/uikit/UIView.h"

namespace zephyl {

// Fills its superview, is no element of its own, and takes no touches.
[[nodiscard]] std::shared_ptr<UIView> makeDimmingView(const CGRect& frame);

}  // namespace zephyl
