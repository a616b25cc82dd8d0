// How the controls of the colour picker follow a finger: a tap counts when it ends, a pan while it
// moves. Main thread.

#pragma once

#include <functional>

#include "platform/uikit/CGGeometry.h"
#include "platform/uikit/controls/UIControl.h"

namespace zephyl::detail {

// `update` gets the first finger's place in the control; `setEditing` is told whether a pan has
// fingers down. Both run only while the control lives, and may name it by `this`.
void trackFinger(UIControl& control, const std::function<void(CGPoint)>& update,
                 const std::function<void(bool)>& setEditing);

}  // namespace zephyl::detail
