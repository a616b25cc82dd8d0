// Shares the beat of the screen, which serves one request at a time, among all that move:
// animations, scrolling, spinners. Main thread.

#pragma once

#include <functional>
#include <memory>

#include "platform/Export.h"

namespace zephyl {

// Gets the display link's timestamp; tells whether it wants the next frame too.
using FrameCallback = std::function<bool(double timestamp)>;

// Calls `callback` with each frame from the next one on, for as long as it returns true and `owner`
// lives, in the order of the calls. Frames are asked for only while somebody wants one. A callback
// may add others, which begin with the frame after, and may end its owner.
ZP_EXPORT void addFrameCallback(std::weak_ptr<const void> owner, FrameCallback callback);

}  // namespace zephyl
